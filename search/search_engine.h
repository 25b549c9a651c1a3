// Word and phrase searches, and those for words near each other, which near_search.h describes.
//
// Unusual behaviour kept on purpose:
//   - case-sensitive, whole words: only the first occurrence of the word in a verse is examined, so a verse where it
//     first occurs inside a longer word, or right after a paragraph mark, is not counted;
//   - a phrase may begin or end inside a longer word, and never matches across a hyphen;
//   - a word typed twice counts twice.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scripture/scripture.h"
#include "search/query.h"
#include "search/search_result.h"
#include "search/verse_lists.h"
#include "search/word_index.h"

// Searches the verses of `range`. The result is empty if no verse qualifies or the query has no words. A phrase search
// ignores the query's boolean type, and uses `substring` only to mark a single word. A search for words near each other
// has its range in the query.
SearchResult Search(const Scripture& scripture, const WordIndex& index, const Query& query, const SearchRange& range,
                    HitCounters& hits);

// "2 verses, 3 occurrences", "1 verse, 1 occurance" (sic).
std::string SearchSummary(const SearchResult& result);
