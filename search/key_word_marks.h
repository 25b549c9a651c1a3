// Key words of the last search, marked in a copy of a verse's text with "{" before and "}" after each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/search_state.h"

inline constexpr std::size_t kMarkedTextLimit = 4000;  // bytes of a marked verse, closing zero included

// What to mark, made once a search or a paint from its state.
struct KeyWords {
    bool phraseMode = false;
    bool caseSensitive = false;
    bool substring = false;
    std::vector<std::string> words;  // lower-cased unless case-sensitive; one a word of the query, repeats included
    std::string phrase;
};
KeyWords KeyWordsOf(const SearchState& search);

// Marks the key words in `text` and returns how many were marked. A mark that would take the text past
// kMarkedTextLimit - 1 bytes is left out, and all that follow.
int MarkKeyWords(const KeyWords& keyWords, std::string& text);

// As many as MarkKeyWords would mark, without a copy.
int CountKeyWords(const KeyWords& keyWords, std::string_view text);
