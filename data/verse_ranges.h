// References of an imported text, and the cross-reference lines that are made of them (notes/cross_references.h).
#pragma once

#include <string>
#include <vector>

#include "scripture/verse_records.h"

struct VerseRange {
    int first = 0;
    int last = 0;  // not before `first`
    bool operator==(const VerseRange&) const = default;
};

// How references are read: `read` gives the verses that `text` names, in its order; what the text leaves out is taken
// from `verse`. Nothing where it names none.
struct ReferenceReader {
    void* device = nullptr;  // handed back
    std::vector<VerseRange> (*read)(void* device, const std::string& text, int verse) = nullptr;
};

// "# Mt 19:4-6; 24:37-39; Lu 17:26-29, 32": a line that names the ranges in their order, each once. Empty for none.
std::string CrossReferenceLine(const VerseRecords& records, const std::vector<VerseRange>& ranges);
