// Text widths in one font of a device (screen or printer).
//
// A text's width is the sum of character widths, which are read once per font: asking the system for each word would
// cost more than drawing it. Fonts whose widths do not add up (with an overhang, or for another kind of code page) are
// measured for each text instead.
#pragma once

#include <array>
#include <string_view>

#include "win32/windows_api.h"

struct LetterWidths {
    HDC dc = nullptr;  // both must outlive this struct
    HFONT font = nullptr;
    std::array<int, 256> widths{};
    bool addUp = false;
};

// Reads the widths of `font` on `dc`. This and the next two procedures may leave the font selected in `dc`.
void ReadLetterWidths(LetterWidths& letters, HDC dc, HFONT font);
int WidthOf(LetterWidths& letters, std::string_view text);

// Height of a character cell, at least one pixel.
int CellHeight(const LetterWidths& letters);
