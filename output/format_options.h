// How verses are labelled and laid out when they are copied, saved or printed.
#pragma once

#include <cstdint>

// Values that the program compares with; all other values have the meaning given after `otherwise`.
enum LabelStyle { kFullLabel = 0, kPartialLabel = 1 };     // otherwise no label
enum LabelLocation { kLabelBefore = 0, kLabelAfter = 1 };  // otherwise after

struct FormatOptions {
    std::int8_t FirstVerseStyle = kFullLabel;
    std::int8_t SubsequentVerseStyle = kPartialLabel;
    std::int8_t Location = kLabelBefore;
    int LineBreaks = 1;
    int ParagraphMarks = 1;
    int Brackets = 0;
};
