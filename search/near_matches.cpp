#include "search/near_matches.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <vector>

// Farther than any place.
static constexpr int kNowhere = std::numeric_limits<int>::max() / 4;

// ---- In any order ---------------------------------------------------------------------------------------------------
//
// If a stretch of the text that is not too long has a match, each of its places is in one: it can stand for the word of
// the query that it matches. So it is enough to know whether a stretch has a match.

namespace {

// Gives each pattern a place of its own, where several patterns mean the same word.
struct Assignment {
    std::span<const NearPlace> places;
    std::vector<int> patternAt;  // of each place; -1 if it is free
};

}  // namespace

// Finds a place for `pattern`; another pattern may have to change its place for that. Each place is tried once.
static bool Assign(Assignment& assignment, int pattern, std::vector<bool>& tried) {
    for (std::size_t i = 0; i < assignment.places.size(); ++i) {
        if (tried[i] || (assignment.places[i].patterns >> pattern & 1U) == 0) continue;
        tried[i] = true;
        int& there = assignment.patternAt[i];
        if (there >= 0 && !Assign(assignment, there, tried)) continue;
        there = pattern;
        return true;
    }
    return false;
}

static bool HasPlaceForEach(std::span<const NearPlace> places, int patterns) {
    Assignment assignment{places, std::vector<int>(places.size(), -1)};
    for (int pattern = 0; pattern < patterns; ++pattern) {
        std::vector<bool> tried(places.size(), false);
        if (!Assign(assignment, pattern, tried)) return false;
    }
    return true;
}

static std::span<const NearPlace> StretchTo(std::span<const NearPlace> places, std::size_t last, int distance) {
    std::size_t first = last;
    while (first > 0 && places[last].where - places[first - 1].where <= distance) --first;
    return places.subspan(first, last + 1 - first);
}

// Notes at each place whether the longest stretch that ends there has a match.
static void NoteStretches(const NearQuery& query, std::span<NearPlace> places) {
    const std::size_t patterns = query.patterns.size();
    std::array<int, kMostNearWords> lastOf;  // where each pattern was met last
    lastOf.fill(-kNowhere);
    std::uint32_t shared = 0;  // patterns that mean a word that another one means, too
    for (NearPlace& place : places) {
        shared |= (place.patterns & (place.patterns - 1)) != 0 ? place.patterns : 0;
        for (std::uint32_t bits = place.patterns; bits != 0; bits &= bits - 1)
            lastOf[static_cast<std::size_t>(std::countr_zero(bits))] = place.where;
        int earliest = place.where;
        for (std::size_t pattern = 0; pattern < patterns; ++pattern) earliest = std::min(earliest, lastOf[pattern]);
        place.isInMatch = place.where - earliest <= query.distance;
    }
    if (shared == 0) return;
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i].isInMatch =
            places[i].isInMatch && HasPlaceForEach(StretchTo(places, i, query.distance), static_cast<int>(patterns));
}

static void FindInAnyOrder(const NearQuery& query, std::span<NearPlace> places) {
    NoteStretches(query, places);
    int endOfNext = kNowhere;  // of the next stretch that has a match
    for (std::size_t i = places.size(); i-- > 0;) {
        const int where = places[i].where;
        endOfNext = std::min(endOfNext, places[i].isInMatch ? where : kNowhere);
        places[i].isInMatch = endOfNext - where <= query.distance;
    }
}

// ---- In the order typed ---------------------------------------------------------------------------------------------
//
// A place is in a match as pattern number i if the nearest place from which patterns 0 to i lead to it, and the nearest
// one to which patterns i to the last lead from it, are not too far apart.

using Ends = std::array<int, kMostNearWords>;

// Continues the chains of patterns with `place`: `ends[i]` is where the best chain through patterns 0 to i began. Gives
// those that end at the place.
static Ends Continue(Ends& ends, std::uint32_t patterns, int where) {
    Ends here;
    here.fill(-kNowhere);
    const Ends before = ends;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        if ((patterns >> i & 1U) == 0) continue;
        here[i] = i == 0 ? where : before[i - 1];
        ends[i] = std::max(ends[i], here[i]);
    }
    return here;
}

static std::uint32_t Reversed(std::uint32_t patterns, std::size_t count) {
    std::uint32_t reversed = 0;
    for (std::size_t i = 0; i < count; ++i) reversed |= (patterns >> i & 1U) << (count - 1 - i);
    return reversed;
}

static void FindInOrder(const NearQuery& query, std::span<NearPlace> places) {
    const std::size_t count = query.patterns.size();
    std::vector<Ends> begins(places.size());
    Ends ends;
    ends.fill(-kNowhere);
    for (std::size_t i = 0; i < places.size(); ++i) begins[i] = Continue(ends, places[i].patterns, places[i].where);
    ends.fill(-kNowhere);
    for (std::size_t i = places.size(); i-- > 0;) {  // backwards, with places counted backwards, too
        const Ends reached = Continue(ends, Reversed(places[i].patterns, count), -places[i].where);
        for (std::size_t pattern = 0; pattern < count; ++pattern) {
            const int begin = begins[i][pattern], end = -reached[count - 1 - pattern];
            if (begin != -kNowhere && end != kNowhere && end - begin <= query.distance) places[i].isInMatch = true;
        }
    }
}

void FindNearMatches(const NearQuery& query, std::span<NearPlace> places) {
    if (query.inOrder)
        FindInOrder(query, places);
    else
        FindInAnyOrder(query, places);
}
