// Which of the places where words of a query stand belong to a match.
//
// A match has a place for each word of the query, for a word that was typed twice two, of which the first and the last
// are not farther apart than the query says; if the order counts, they stand in the order typed.
#pragma once

#include <cstdint>
#include <span>

#include "search/near_query.h"

struct NearPlace {
    std::int32_t verse = 0;
    std::uint32_t offset = 0;    // of the word, in the verse's text
    std::int32_t where = 0;      // a number of words or verses, ascending: the distance of two places is the difference
    std::uint32_t patterns = 0;  // a bit for each pattern that means the word; at least one
    bool isInMatch = false;
};

// Sets `isInMatch` of the places, which are in the order of the text.
void FindNearMatches(const NearQuery& query, std::span<NearPlace> places);
