// Word and phrase searches.
//
// A word of a query is a maximal run of A-Z, a-z and apostrophes. Odd behaviour kept on purpose:
//   - case-sensitive, whole words: only the first place of the word in a verse is examined, so a verse where it first
//     stands inside a longer word is not counted, nor one where a paragraph mark stands right before it;
//   - a phrase may begin or end inside a longer word, and never matches across a hyphen;
//   - a word typed twice counts twice.
#pragma once

#include <string>

#include "scripture/scripture.h"
#include "search/search_state.h"
#include "search/word_index.h"

// Searches `search.range` for the words of `search.searchText` under `search.options` and, when a verse qualifies,
// fills `search.result` (verses, verse count, occurrences; phrase mode off). False, with an empty result, when none
// does or the query has no words; phrase mode then stays as it was.
bool WordSearch(const Scripture& scripture, const WordIndex& index, SearchState& search);

// The same for the text as a phrase; the options' boolean type and substring flag are not used. Phrase mode is on
// afterwards for two words or more. The word of a phrase of one word is marked as a word search's would be, by the
// substring flag.
bool PhraseSearch(const Scripture& scripture, const WordIndex& index, SearchState& search);

// "2 verses, 3 occurrences", "1 verse, 1 occurance".
std::string SearchSummary(const SearchResult& result);
