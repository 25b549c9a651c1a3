// Key words of a query, marked in a copy of a verse's text with "{" before and "}" after each.
//
// Words are marked one after another over the whole text, so a word typed twice gets two pairs: "{{end}}". A whole word
// has no letter on either side; bytes from 0x80 on count as letters here, except a paragraph mark before the word. An
// apostrophe does not count as a letter: "lord" is marked in "LORD'S". Each word of a phrase gets its own pair; the
// spaces between words are not marked. A phrase is searched for among the first kPhraseReach letters, spaces and
// apostrophes of the text.
#pragma once

#include <string>
#include <string_view>

#include "search/query.h"

inline constexpr std::size_t kMarkedTextLimit = 4000;  // bytes of a marked verse, including the terminating zero
inline constexpr std::size_t kPhraseReach = 1000;      // characters

// Marks the key words in `text` and returns how many were marked; a phrase counts as one. Marking stops before the text
// would exceed kMarkedTextLimit - 1 bytes.
int MarkKeyWords(const Query& query, std::string& text);

// Returns the number of key words that MarkKeyWords would mark. Makes a marked copy only for words that may touch each
// other.
int CountKeyWords(const Query& query, std::string_view text);

// Does the text contain the phrase, ignoring everything except letters, spaces and apostrophes? Unlike marking, this
// searches the whole text and also works for a single word. `query` must be a phrase query.
bool ContainsPhrase(const Query& query, std::string_view text);
