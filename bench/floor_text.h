// What the floors for searching are given, and what they answer.
#pragma once

#include <cstdint>
#include <span>

#include "scripture/scripture.h"
#include "search/word_index.h"

// `verses` stays valid until the next floor runs.
struct FloorAnswer {
    std::span<const std::int32_t> verses;
    int occurrences = 0;
};

// The text and the index as plain arrays.
struct FloorText {
    const char* begin;
    const char* end;
    const unsigned char* records;
    const WordIndex* index;
};
FloorText FloorTextOf(const Scripture& scripture, const WordIndex& index);
