// Key words of a query, marked in a copy of a verse's text with "{" before and "}" after each.
//
// Words are marked one after another over the whole text, so a word typed twice gets two pairs: "{{end}}". A whole word
// has no letter on either side; bytes from 0x80 on count as letters there, but not a paragraph mark before the word. An
// apostrophe is no letter: "lord" is marked in "LORD'S". Of a phrase each word gets its own pair, the blanks between
// them none; it is found among the first kPhraseReach letters, blanks and apostrophes of the text.
#pragma once

#include <string>
#include <string_view>

#include "search/query.h"

inline constexpr std::size_t kMarkedTextLimit = 4000;  // bytes of a marked verse, closing zero included
inline constexpr std::size_t kPhraseReach = 1000;      // characters

// Marks the key words in `text` and returns how many were marked, a phrase as one. A mark that would take the text past
// kMarkedTextLimit - 1 bytes is left out, and all that follow.
int MarkKeyWords(const Query& query, std::string& text);

// As many as MarkKeyWords would mark. No copy with marks is made but for words that may touch each other.
int CountKeyWords(const Query& query, std::string_view text);

// Does the text, without all that is neither letter, blank nor apostrophe, contain the phrase? Here it is searched to
// its end, however many words it has. The query is one for a phrase.
bool ContainsPhrase(const Query& query, std::string_view text);
