// The text of a layout, collected in runs of one face and colour, so that a line takes few calls to draw. The lines lie
// one below the other, a line height apart, from the upper edge of the pane.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "typeset/text_measure.h"

enum class TextColor : unsigned char { kNormal, kSelected, kKeyWord };

struct PlacedRun {
    Face face = Face::kRegular;
    TextColor color = TextColor::kNormal;
    int x = 0, y = 0;  // pixels
    int end = 0;       // x where the next piece of the same run must begin
    std::size_t textStart = 0, textLength = 0;
    bool operator==(const PlacedRun&) const = default;
};

struct TextRuns {
    std::vector<PlacedRun> runs;  // in the order of the layout, so y does not decrease
    std::string text;
    bool operator==(const TextRuns&) const = default;
};

// The text of a run.
std::string_view TextOf(const TextRuns& text, const PlacedRun& run);

// Adds a piece of text, `width` pixels wide. If `joins`, it extends the last run if it continues it in the same line,
// face and colour.
void AddPiece(TextRuns& text, bool joins, Face face, TextColor color, int x, int y, int width, std::string_view piece);

// Removes everything; the memory is kept for the next layout.
void Clear(TextRuns& text);

// Runs [first, end).
struct RunSpan {
    std::size_t first = 0, end = 0;
};

// The runs whose y is at least `top` and less than `bottom`.
RunSpan RunsBetween(const TextRuns& text, int top, int bottom);

// A stretch of lines that is laid out twice, at different heights: the lines [from, from + count) of the text before
// are the lines [to, to + count) of the text after.
struct MovedLines {
    int from = 0, to = 0;
    int count = 0;  // 0: no stretch is worth moving
};

// The stretch of whole lines in a pane `height` pixels high whose pixels only have to be moved. The lines above and
// below it are also the same, because letters may reach into them. `count` is 0 if less than a quarter of the pane is
// text that stays the same.
MovedLines LinesMoved(const TextRuns& before, const TextRuns& after, int lineHeight, int height);
