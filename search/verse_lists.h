// The verse lists of the word index: verses that are in several of them.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scripture/little_endian.h"

// One counter for each verse and one behind them for entries that are no verse. Working memory of searches, passed in
// so that it is allocated only once.
using HitCounters = std::vector<std::uint16_t>;

// A list as it is in the file: two little-endian bytes for each entry.
using VerseEntries = std::span<const unsigned char>;

inline std::size_t EntryCount(VerseEntries entries) {
    return entries.size() / 2;
}

inline int EntryAt(VerseEntries entries, std::size_t i) {
    return LittleEndian16(entries.data() + 2 * i);
}

// The entries from `first` to `last`; `entries` are in ascending order.
VerseEntries EntriesWithin(VerseEntries entries, int first, int last);

// The entries, which are verses.
std::vector<std::int32_t> VersesOf(VerseEntries entries);

// Is the list so long that it takes less time to look up each of `count` verses in it?
bool IsMuchLonger(VerseEntries entries, std::size_t count);

// Keeps those of the ascending `verses` that are in `entries`, in ascending order too.
void KeepVersesIn(VerseEntries entries, std::vector<std::int32_t>& verses, HitCounters& counters);

// Adds 1 to the counter of each entry.
void AddEntries(VerseEntries entries, HitCounters& counters);

// Sets the counter of each entry to 1.
void MarkEntries(VerseEntries entries, HitCounters& counters);

// All counters as 0.
void ClearCounters(HitCounters& counters);

// The verses from `first` to `last` whose counter is not 0.
std::vector<std::int32_t> CountedVerses(const HitCounters& counters, int first, int last);
