// List boxes whose lines have columns, divided at tab characters. Each text is cut to the width of its column, with
// three dots, and drawn with other fonts of the system where the list's own lacks letters.
#pragma once

#include <span>

#include "win32/windows_api.h"

struct ListColumns {
    int list = 0;                   // a list box with LBS_OWNERDRAWFIXED and LBS_HASSTRINGS
    std::span<const int> starts{};  // of all columns but the first, from the left, in units of the dialog
};

// Makes the lines of the list as high as its font, also if they are empty of text. To be called when the list has got
// its font.
void FitLines(HWND dialog, const ListColumns& columns);

// Draws a line of the list, with the focus if it has it.
void DrawLine(HWND dialog, const ListColumns& columns, const DRAWITEMSTRUCT& line);
