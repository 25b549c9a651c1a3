// What the layouts of the two reading panes have in common: the boxes of text that they place, and how labels and words
// are placed. passage/passage_flow.h and verselist/verse_list_flow.h say what stands where.
#pragma once

#include <functional>
#include <string_view>

#include "pane/selection.h"
#include "typeset/label_text.h"
#include "typeset/line_walk.h"
#include "typeset/word_reader.h"

inline constexpr int kLeftMargin = 1;  // of a line, pixels

enum class BoxKind { kLabel, kHeading, kWord };

// One piece of text with its place. A word of several faces, or with a bracket left out inside it, comes as several
// boxes of the same ordinal, side by side.
struct FlowBox {
    BoxKind kind = BoxKind::kWord;
    Face face = Face::kRegular;
    bool keyWord = false;         // to be drawn in the highlight colour
    SelectionPoint point;         // item and ordinal, 0 the label; a heading goes with the label under it
    int x = 0, y = 0, width = 0;  // pixels
    bool endsItem = false;        // the last box of its verse or entry
    std::string_view text;        // valid during the visit
};

// Gets the boxes in layout order; false ends the walk. The last boxes may lie below the client area.
using FlowVisitor = std::function<bool(const FlowBox&)>;

// Where a layout stands. A walk without a visitor only measures.
struct FlowWalk {
    const TextMeasure& measure;
    const FlowVisitor& visit;
    LineWalk line{};
    WordReader reader{};
    LabelText label{};
    SelectionPoint point{};  // of the box placed last
    bool stopped = false;    // by the visitor
};

// Begins at the upper left of a pane `width` pixels wide, whose lines start at the left margin.
FlowWalk BeginFlow(const TextMeasure& measure, const FlowVisitor& visit, int width, BracketUse brackets);

// Width of the text that `label` holds, in the bold face of labels and headings.
int LabelWidth(const FlowWalk& walk);

// Visits that text, `width` pixels wide, at the line's place, and moves on past it.
void PlaceLabel(FlowWalk& walk, BoxKind kind, int width);

// Places the word that the reader read last, on a new line where it has no room, as the next ordinal.
void PlaceWord(FlowWalk& walk);
