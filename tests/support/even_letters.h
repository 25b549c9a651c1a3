// A measure of text that makes places exact numbers: every letter of every face is ten pixels wide, a line twenty high.
#pragma once

#include "typeset/text_measure.h"

inline TextMeasure EvenLetters() {
    return {nullptr, [](void*, Face, std::string_view text) { return 10 * static_cast<int>(text.size()); },
            [](void*) { return 20; }};
}
