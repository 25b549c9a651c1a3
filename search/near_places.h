// The places where words of a query for near words stand.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"
#include "search/near_matches.h"
#include "search/near_query.h"

// A verse to be looked at, and a bit for each pattern that may mean a word in it.
struct NearVerse {
    std::int32_t verse = 0;
    std::uint32_t patterns = 0;
};

// Finds all places in `verses`, which are ascending, and gives them to `visit`, some chapters at a time, in the order
// of the text. `where` of two places differs by the words between them or, if the query asks for verses, by their
// verses. If no match can have both, because they are in different verses or chapters, it differs by more than any
// query asks for.
void VisitNearPlaces(const Scripture& scripture, const NearQuery& query, std::span<const NearVerse> verses,
                     const std::function<void(std::span<NearPlace>)>& visit);

// Size of the word that begins at `offset`.
std::size_t SizeOfWordAt(std::string_view text, std::size_t offset);
