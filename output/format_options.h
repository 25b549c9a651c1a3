// How verses are labelled when they leave the program as text.
#pragma once

#include <cstdint>

// Values of the options that are looked for; every other value stands for what remains.
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
