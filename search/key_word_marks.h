// Key words of the last search, marked in a copy of a verse's text with "{" before and "}" after each.
//
// Words are marked one after another over the whole text, so a word typed twice gets two pairs: "{{end}}". A whole word
// has no letter on either side; bytes from 0x80 on count as letters there, but not a paragraph mark before the word. An
// apostrophe is no letter: "lord" is marked in "LORD'S". Of a phrase each word gets its own pair, the blanks between
// them none; it is found among the first kPhraseReach letters, blanks and apostrophes of the text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/search_state.h"
#include "search/text_scan.h"

inline constexpr std::size_t kMarkedTextLimit = 4000;  // bytes of a marked verse, closing zero included
inline constexpr std::size_t kPhraseReach = 1000;      // characters

// What to mark, made once a search or a paint from its state.
struct KeyWords {
    bool phraseMode = false;
    bool caseSensitive = false;
    bool substring = false;
    std::vector<std::string> words;  // lower-cased unless case-sensitive; one a word of the query, repeats included
    PhrasePattern phrase;            // lower-cased unless case-sensitive
    bool marksStayApart = false;  // no place of a word can touch another's or another of its own; false is always safe
};
KeyWords KeyWordsOf(const SearchState& search);

// Marks the key words in `text` and returns how many were marked, a phrase as one. A mark that would take the text past
// kMarkedTextLimit - 1 bytes is left out, and all that follow.
int MarkKeyWords(const KeyWords& keyWords, std::string& text);

// As many as MarkKeyWords would mark. No copy with marks is made but for words that may touch each other.
int CountKeyWords(const KeyWords& keyWords, std::string_view text);

// Does the text, without all that is neither letter, blank nor apostrophe, contain the phrase? Here it is searched to
// its end, and `phraseMode` does not matter.
bool ContainsPhrase(const KeyWords& keyWords, std::string_view text);
