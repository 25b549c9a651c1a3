// Widths of texts in one font of a device, screen or printer.
//
// They are sums of single character widths, read once a font: asking the system for each word would cost more than
// drawing it. A font whose widths do not add up (one with an overhang, or of another kind of code page) is asked for
// each text instead.
#pragma once

#include <array>
#include <string_view>

#include "win32/windows_api.h"

struct LetterWidths {
    HDC dc = nullptr;  // both must outlive this
    HFONT font = nullptr;
    std::array<int, 256> widths{};
    bool addUp = false;
};

// Reads the widths that `font` has on `dc`. It may be selected there afterwards, as after each of the next two.
void ReadLetterWidths(LetterWidths& letters, HDC dc, HFONT font);
int WidthOf(LetterWidths& letters, std::string_view text);

// Height of a character cell, at least a pixel.
int CellHeight(const LetterWidths& letters);
