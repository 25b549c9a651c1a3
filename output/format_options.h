// How verses are labelled when they leave the program as text.
#pragma once

#include <cstdint>

struct FormatOptions {
    std::int8_t FirstVerseStyle = 0;       // 0 full, 1 partial, 2 none
    std::int8_t SubsequentVerseStyle = 1;  // the same
    std::int8_t Location = 0;              // 0 before the verse, 1 after it
    int LineBreaks = 1;
    int ParagraphMarks = 1;
    int Brackets = 0;
};
