// Floors for searching: the simplest code that finds the same hits, without the program's options.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"
#include "search/word_index.h"

// Marks the word in a copy of every verse of its verse list. Returns the number of marks.
int MarkEveryHit(const Scripture& scripture, const WordIndex& index, std::string_view word);

// Clears a counter for every verse and scans them once: the overhead of a search that can combine words.
int ClearAndScanCounters(std::vector<std::uint16_t>& counters);

// Counts the verses in the words' verse lists, then examines every verse that is in all of them. Returns the number of
// verses that contain `phrase` literally, ignoring case but not punctuation.
int CheckCandidates(const Scripture& scripture, const WordIndex& index, const std::vector<std::string>& words,
                    std::string_view phrase, std::vector<std::uint16_t>& counters);

// Scans the whole text for `phrase`, sixteen bytes at a time. Returns the number of places.
int SweepWholeText(const Scripture& scripture, std::string_view phrase);
