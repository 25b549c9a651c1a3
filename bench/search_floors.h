// Floors for searching: the least that could give the same hits, written as one would without the program's options.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"
#include "search/word_index.h"

// Walks the word's verse list and marks the word in a copy of every verse. Gives the number of marks.
int MarkEveryHit(const Scripture& scripture, const WordIndex& index, std::string_view word);

// Clears a counter for every verse and looks through them once: what a search that can combine words adds.
int ClearAndScanCounters(std::vector<std::uint16_t>& counters);

// Counts the words' verse lists, then looks once into every verse that all of them name. Gives the number of verses
// with the phrase, as it stands in `phrase`: case does not matter, stops do.
int CheckCandidates(const Scripture& scripture, const WordIndex& index, const std::vector<std::string>& words,
                    std::string_view phrase, std::vector<std::uint16_t>& counters);

// Looks for `phrase` in the whole text at one go, sixteen bytes at a time. Gives the number of places.
int SweepWholeText(const Scripture& scripture, std::string_view phrase);
