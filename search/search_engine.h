// Word and phrase searches.
//
// Odd behaviour kept on purpose:
//   - case-sensitive, whole words: only the first place of the word in a verse is examined, so a verse where it first
//     stands inside a longer word is not counted, nor one where a paragraph mark stands right before it;
//   - a phrase may begin or end inside a longer word, and never matches across a hyphen;
//   - a word typed twice counts twice.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "scripture/scripture.h"
#include "search/query.h"
#include "search/word_index.h"

struct SearchResult {
    std::vector<std::int32_t> verses;  // ascending
    int occurrences = 0;               // key words marked in them
};

// How many words of a query each verse has. A search counts in it; it is handed in so that it is allocated once.
using HitCounters = std::vector<std::uint16_t>;

// Searches the verses of `range`. No verses when none qualifies or the query has no words. A phrase search takes no
// notice of the query's boolean type, and of `substring` only for the marks of a single word.
SearchResult Search(const Scripture& scripture, const WordIndex& index, const Query& query, const SearchRange& range,
                    HitCounters& hits);

// "2 verses, 3 occurrences", "1 verse, 1 occurance" (sic).
std::string SearchSummary(const SearchResult& result);
