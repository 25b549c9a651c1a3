// The state of searching: what was asked, of which verses, and what was found.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scripture/verse_records.h"

inline constexpr int kSearchTextLimit = 199;  // characters
inline constexpr int kHistorySize = 10;

enum BooleanType { kAllWords = 0, kAnyWord = 1, kOneWord = 2 };

struct SearchRange {
    int StartVerse = 0;
    int EndVerse = kLastVerse;  // inclusive
};

struct SearchOptions {
    int BooleanType = kAllWords;  // any other value counts as kOneWord
    int CaseSensitive = 0;
    int SubString = 0;
    int Proximity = 0;  // kept in the settings; no search uses it
};

// What the last search found, and what is needed to mark its key words.
struct SearchResult {
    std::vector<std::int32_t> verses;  // ascending
    int verseCount = 0;
    int occurrenceCount = 0;  // key words marked in the listed verses; the painter's marking adds to it
    bool phraseMode = false;  // a phrase of two or more words
    std::string phraseText;   // normalised, lower-cased unless case-sensitive
};

struct SearchState {
    std::string searchText;      // what the dialogs for words and phrases begin with
    std::string NoteSearchText;  // the same of the search of the notes, at most 149 characters
    SearchOptions options;
    SearchRange range;
    std::array<std::string, kHistorySize> history = {" ", " ", " ", " ", " ", " ", " ", " ", " ", " "};  // newest first
    SearchResult result;
    std::vector<std::uint16_t> hits;  // the engine's counters, kept so that they are allocated once
};

// Puts `text` first in the history and lets the oldest go; nothing is left out, neither repeats nor empty ones.
void PushHistory(SearchState& search, const std::string& text);

// The words of `query`, in order: maximal runs of letters and apostrophes.
std::vector<std::string_view> QueryWords(std::string_view query);
