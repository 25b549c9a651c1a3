// How scripture is shown in the panes and on paper.
#pragma once

#include <cstdint>
#include <string>

#include "typeset/word_reader.h"

enum ItalicsMode { kItalicType = 0, kBracketed = 1, kPlainType = 2 };

struct ReadingOptions {
    std::int8_t ParagraphFormat = 0;      // non-zero: the Passage in paragraphs, else a verse a line
    std::int8_t Italics = kItalicType;    // any other value than 0 and 1 shows plain type
    std::uint32_t KeyHighlightColor = 0;  // 0x00bbggrr
};

// What becomes of the brackets round supplied words, where italic type is shown as `italicType` has it.
inline BracketUse BracketsOf(const ReadingOptions& reading, BracketUse italicType) {
    if (reading.Italics == kItalicType) return italicType;
    return reading.Italics == kBracketed ? BracketUse::kShown : BracketUse::kDropped;
}

// A pane's font as it is stored and chosen. `height` is a character height in pixels at 96 dpi; a negative one asks
// for a cell height for the rest of the run.
struct FontChoice {
    int height = 16;
    int weight = 400;
    std::string name = "Times New Roman";
};
