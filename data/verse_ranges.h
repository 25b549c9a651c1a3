// References of an imported text, and the cross-reference lines made from them (notes/cross_references.h).
#pragma once

#include <string>
#include <vector>

#include "scripture/verse_records.h"

struct VerseRange {
    int first = 0;
    int last = 0;  // not before `first`
    bool operator==(const VerseRange&) const = default;
};

// A parser of references: `read` returns the verses that `text` names, in that order, or nothing. Missing parts of the
// first reference are taken from `verse`.
struct ReferenceReader {
    void* device = nullptr;  // passed to `read`
    std::vector<VerseRange> (*read)(void* device, const std::string& text, int verse) = nullptr;
};

// "# Mt 19:4-6; 24:37-39; Lu 17:26-29, 32": a line with the ranges in order, each once. Empty if there are none.
std::string CrossReferenceLine(const VerseRecords& records, const std::vector<VerseRange>& ranges);
