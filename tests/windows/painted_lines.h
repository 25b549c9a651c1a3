// Lines of text as a pane should show them. The test draws the lines itself, letter by letter with its own fonts, and
// compares every pixel.
#pragma once

#include <string>
#include <vector>

#include "tests/driver/driver.h"

enum class Style { kRegular, kBold, kItalic, kBoldItalic };

struct PaintedPiece {
    Style style;
    std::string text;                                // words, each with the blank after it
    COLORREF color = GetSysColor(COLOR_WINDOWTEXT);  // of the letters
    bool selected = false;                           // in the colours of a selection instead of `color`
};

constexpr COLORREF kRed = RGB(255, 0, 0);  // for key words, to tell them from text

struct PaintedLine {
    std::vector<PaintedPiece> pieces;  // none: an empty line
    bool goesOn = true;                // more text may follow the pieces; ignored for an empty line
    int left = 1;                      // x coordinate of the first piece
};

struct PaintedFont {
    std::string name = "Times New Roman";
    int height = 16;  // of the characters, pixels
    int weight = 400;
};

// Cell height of the font's bold face, which is the line spacing.
int LineHeightOf(const PaintedFont& font = {});

// The middle of the line with this number, from the top of a pane.
int LinesDown(int lines);

// Width of the pieces including the left margin of the pane.
int WidthOf(const std::vector<PaintedPiece>& pieces, const PaintedFont& font = {});

// Compares the pane with these lines, from its upper edge down. Returns "" or a description of the wrong lines. In a
// focused pane the area of the caret, at the left of the first line, is not compared.
std::string WrongLines(HWND pane, const std::vector<PaintedLine>& lines, const PaintedFont& font = {});

// Picture of a window's client area.
Picture PictureOfClient(HWND window);

// Draws a spot on a pane (100, 300 to 140, 340) without the program knowing; it disappears when the pane is repainted
// there.
void DropSpot(HWND pane);
bool HasSpot(HWND pane);
