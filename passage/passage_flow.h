// The Passage's layout: labels, chapter headings and words, placed from the top verse until the pane is full.
//
// One walk serves paint, measure and hit test. What differs between them on purpose is `FlowFaces`: the paint sets
// italic words in the italic face and a mark that follows one in the regular; measure and hit test take the regular
// face for all. Word ordinals are equal in both: 0 is the verse's label, 1 its first word. Lines may break elsewhere
// only where the italic face is narrower or wider than the regular: a word is never parted from the mark behind it.
#pragma once

#include <functional>
#include <string_view>

#include "notes/note_sets.h"
#include "output/reading_options.h"
#include "output/scrolling.h"
#include "output/selection.h"
#include "output/text_measure.h"
#include "passage/passage_view.h"

enum class FlowFaces { kAsPainted, kAsMeasured };

struct PassageFlow {
    const Scripture* scripture = nullptr;
    const NoteFiles* noteFiles = nullptr;
    const NoteSets* notes = nullptr;  // none: no verse has a note
    ReadingOptions options;
    TextMeasure measure;
    int topVerse = 0;
    int width = 0;  // of the client area, pixels
    int height = 0;
};

enum class BoxKind { kLabel, kHeading, kWord };

// One piece of text with its place. A word of several faces, or with a bracket left out inside it, comes as several
// boxes of the same ordinal, side by side.
struct FlowBox {
    BoxKind kind = BoxKind::kWord;
    Face face = Face::kRegular;
    SelectionPoint point;  // verse index and ordinal; a heading goes with the label under it
    int x = 0, y = 0, width = 0;
    bool endsVerse = false;  // the last box of its verse
    std::string_view text;   // valid during the visit
};

struct FlowEnd {
    int lastVerse = 0;  // last verse of which anything was laid out, not yet corrected
    int lineHeight = 0;
};

// Visits the boxes in layout order; a visitor that returns false ends the walk, an empty one is not called. The last
// boxes may lie below the client area. Without a scripture there are no boxes.
FlowEnd WalkPassage(const PassageFlow& flow, FlowFaces faces, const std::function<bool(const FlowBox&)>& visit);

// Lays out from flow.topVerse without drawing and brings `view` up to date, corrections included.
void MeasurePassage(const PassageFlow& flow, PassageView& view);

// Verse and ordinal at a point of the client area; (-1, -1) below the last line laid out. A point outside the
// area counts as one on its edge.
SelectionPoint HitTestPassage(const PassageFlow& flow, int x, int y);

// Top verse after a scroll, from `view` as the last pass left it; equal to view.TopVerse where nothing moves. See
// output/scrolling.h. flow.topVerse does not matter.
int ScrolledTop(const PassageFlow& flow, const PassageView& view, ScrollCode code, int thumb);
