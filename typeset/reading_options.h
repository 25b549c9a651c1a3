// How scripture is shown in the panes and on paper.
#pragma once

#include <cstdint>
#include <string>

#include "typeset/word_reader.h"

enum ItalicsMode { kItalicType = 0, kBracketed = 1, kPlainType = 2 };

struct ReadingOptions {
    std::int8_t ParagraphFormat = 0;      // non-zero: the Passage in paragraphs, otherwise one verse per line
    std::int8_t Italics = kItalicType;    // values other than 0 and 1 show plain type
    std::uint32_t KeyHighlightColor = 0;  // 0x00bbggrr
};

// How to treat the brackets around supplied words; `italicType` is the treatment used when they are shown in italic
// type.
inline BracketUse BracketsOf(const ReadingOptions& reading, BracketUse italicType) {
    if (reading.Italics == kItalicType) return italicType;
    return reading.Italics == kBracketed ? BracketUse::kShown : BracketUse::kDropped;
}

// A pane's font as stored and as chosen by the user. `height` is a character height in pixels at 96 dpi; a negative
// value selects a cell height, until the program ends.
struct FontChoice {
    int height = 16;
    int weight = 400;
    std::string name = "Times New Roman";
};

// The height at which the font is shown: that of the choice, or the usual one if nothing could be read at it because it
// is smaller or larger than any that a user would choose. 0 is the font's own usual height.
inline int ShownHeight(const FontChoice& choice) {
    static constexpr long long kLeast = 4, kMost = 400;  // 3 and 300 points
    const long long size = choice.height < 0 ? -static_cast<long long>(choice.height) : choice.height;
    return size == 0 || (size >= kLeast && size <= kMost) ? choice.height : FontChoice{}.height;
}
