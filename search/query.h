// What is searched for: the state that is kept from search to search, and the query that is made from it once and that
// engine, marks and panes share.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scripture/verse_records.h"
#include "search/text_scan.h"

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

struct SearchState {
    std::string searchText;      // what the dialogs for words and phrases begin with
    std::string NoteSearchText;  // the same of the search of the notes, at most 149 characters
    SearchOptions options;
    SearchRange range;
    std::array<std::string, kHistorySize> history = {" ", " ", " ", " ", " ", " ", " ", " ", " ", " "};  // newest first
};

// Puts `text` first in the history and drops the oldest; repeats and empty texts are kept too.
void PushHistory(SearchState& search, const std::string& text);

enum class QueryKind {
    kWords,   // verses with all, any or just one of the words
    kPhrase,  // verses with the words one after another
};

// A search text, taken apart. A query without words finds and marks nothing.
struct Query {
    QueryKind kind = QueryKind::kWords;
    int booleanType = kAllWords;  // of words
    bool caseSensitive = false;
    bool substring = false;  // parts of words count; in a phrase only for the marks of one that is a single word
    std::vector<std::string> words;  // lower-cased unless case-sensitive; one a word of the text, repeats included
    PhrasePattern phrase;            // of a phrase: its words and the blanks between them
    bool marksStayApart = false;  // no place of a word can touch another's or another of its own; false is always safe
};

// The query that `text` makes under `options`. A word is a maximal run of A-Z, a-z and apostrophes.
Query QueryOf(std::string_view text, const SearchOptions& options, QueryKind kind);

// Are the words of the query marked as one phrase? A phrase of one word is marked as the word would be.
bool MarksPhrase(const Query& query);
