// What is searched for: the state kept between searches, and the query that is made from it and shared by the search
// engine, the marks and the panes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scripture/verse_records.h"
#include "search/near_query.h"
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
    int Proximity = 0;  // stored in the settings but not used by any search
};

struct SearchState {
    std::string searchText;      // initial text of the word and phrase dialogs
    std::string NoteSearchText;  // the same for the note search, as a note is stored; at most 149 characters
    SearchOptions options;
    NearOptions nearOptions;
    SearchRange range;
    std::array<std::string, kHistorySize> history = {" ", " ", " ", " ", " ", " ", " ", " ", " ", " "};  // newest first
};

// Puts `text` at the front of the history and drops the oldest entry; repeated and empty texts are kept too.
void PushHistory(SearchState& search, const std::string& text);

enum class QueryKind {
    kWords,   // verses with all, any or exactly one of the words
    kPhrase,  // verses with the words in sequence
    kNear,    // verses with words near each other
};

// A parsed search text. A query without words finds and marks nothing.
struct Query {
    QueryKind kind = QueryKind::kWords;
    int booleanType = kAllWords;  // for kWords
    bool caseSensitive = false;
    bool substring = false;          // also match parts of words; in a phrase query only used to mark a single word
    std::vector<std::string> words;  // in text order with repeats; lower-cased unless case-sensitive
    PhrasePattern phrase;            // for kPhrase: the words joined by single spaces
    NearQuery nearQuery;          // for kNear, which uses nothing else; with its range, because the marks depend on it
    bool marksStayApart = false;  // true only if no two matches of words can touch or overlap; false is always safe
};

// Makes the query for `text` with `options`. A word is a maximal run of A-Z, a-z and apostrophes.
Query QueryOf(std::string_view text, const SearchOptions& options, QueryKind kind);

// The query for words near each other: the text of `search` with its options, in its range.
Query NearQueryOf(const SearchState& search);

// Are the words of the query marked as one phrase? A phrase of one word is marked like a word.
bool MarksPhrase(const Query& query);
