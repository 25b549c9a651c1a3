// What the layouts of the two reading panes have in common: the boxes of text and the placing of labels.
// passage/passage_flow.h and verselist/verse_list_flow.h describe the two layouts.
#pragma once

#include <functional>
#include <string_view>

#include "pane/selection.h"
#include "typeset/label_text.h"
#include "typeset/line_walk.h"
#include "typeset/text_measure.h"

inline constexpr int kLeftMargin = 1;  // of the lines from the left edge of the pane, pixels at 96 dpi

enum class BoxKind { kLabel, kHeading, kWord };

// One piece of text and its position. A word in several faces, or with a dropped bracket inside it, comes as several
// adjacent boxes with the same ordinal.
struct FlowBox {
    BoxKind kind = BoxKind::kWord;
    Face face = Face::kRegular;
    bool keyWord = false;         // drawn in the highlight colour
    SelectionPoint point{};       // item and word number, 0 for the label; a heading has that of the label below it
    int x = 0, y = 0, width = 0;  // pixels
    bool endsItem = false;        // the last box of its verse or entry
    std::string_view text{};      // valid during the visit
};

// Called with the boxes in layout order; returning false ends the walk. The last boxes may be below the client area.
using FlowVisitor = std::function<bool(const FlowBox&)>;

// The state of a layout in progress. A walk without a visitor only measures.
struct FlowWalk {
    const TextMeasure& measure;
    const FlowVisitor& visit;
    LineWalk line{};
    LabelText label{};
    SelectionPoint point{};  // of the last box placed
    bool stopped = false;    // by the visitor
};

// Starts a layout at the upper left of a pane `width` pixels wide; its lines start at `leftMargin`, in pixels.
FlowWalk BeginFlow(const TextMeasure& measure, const FlowVisitor& visit, int width, int leftMargin);

// Visits a box unless the walk has been stopped or has no visitor.
inline void VisitBox(FlowWalk& walk, const FlowBox& box) {
    if (walk.visit && !walk.stopped) walk.stopped = !walk.visit(box);
}

// Width of the text in `label`, in the bold face used for labels and headings.
int LabelWidth(const FlowWalk& walk);

// Visits that text as a box `width` pixels wide at the line's current position, and advances past it.
void PlaceLabel(FlowWalk& walk, BoxKind kind, int width);
