// Lines of text as a pane should show them. The test draws them itself, letter by letter and with fonts of its own,
// and compares every pixel.
#pragma once

#include <string>
#include <vector>

#include "tests/driver/driver.h"

enum class Style { kRegular, kBold, kItalic, kBoldItalic };

struct PaintedPiece {
    Style style;
    std::string text;                                // words with the blanks behind them, as they stand
    COLORREF color = GetSysColor(COLOR_WINDOWTEXT);  // of the letters
    bool selected = false;                           // in the colours of a selection, whatever `color` is
};

struct PaintedLine {
    std::vector<PaintedPiece> pieces;  // none: the line is empty
    bool goesOn = true;                // may more stand behind the pieces? An empty line is empty to its end
    int left = 1;                      // where the pieces begin
};

struct PaintedFont {
    std::string name = "Times New Roman";
    int height = 16;  // of the characters, pixels
    int weight = 400;
};

// Cell height of the font's bold face: the distance of two lines.
int LineHeightOf(const PaintedFont& font = {});

// How far the pieces reach from the pane's left edge, its margin included.
int WidthOf(const std::vector<PaintedPiece>& pieces, const PaintedFont& font = {});

// Does the pane show these lines, from its upper edge down? "" or what is wrong, line by line. In a pane with the focus
// the place of the caret, at the left of the first line, is not compared.
std::string WrongLines(HWND pane, const std::vector<PaintedLine>& lines, const PaintedFont& font = {});

// What the screen shows of a window's client area.
Picture PictureOfClient(HWND window);

// An ink spot on a pane (100, 300 to 140, 340) of which the program knows nothing: it goes where the pane is
// painted.
void DropSpot(HWND pane);
bool HasSpot(HWND pane);
