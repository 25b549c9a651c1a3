// The Passage's position and layout: labels, chapter headings and words, placed from the top verse until the pane is
// full.
//
// One walk serves paint, measure and hit test. What differs between them on purpose is `FlowFaces`: the paint sets
// italic words in the italic face and a mark that follows one in the regular; measure and hit test take the regular
// face for all. Word ordinals are equal in both: 0 is the verse's label, 1 its first word. Lines may break elsewhere
// only where the italic face is narrower or wider than the regular: a word is never separated from the mark behind it.
#pragma once

#include "notes/note_sets.h"
#include "pane/flow.h"
#include "pane/scrolling.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"

// One continuous scroll over all verses, named by the verse at the top.
struct PassageView {
    int TopVerse = 0;          // 0..31101
    int LastVisibleVerse = 0;  // last verse of which anything was laid out, as corrected after each pass
};

// The corrections that end each layout pass: a last visible verse equal to the top becomes the next (so that page down
// always moves), and none is past the last.
void CorrectLastVisible(PassageView& view);

// Verse that the commands of the frame mean: the first selected one while the Passage has the focus and its selection
// lies wholly within the verses shown; otherwise the top.
int TargetVerse(const PassageView& view, const Selection& selection, bool passageHasFocus);

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

// Visits the boxes from the top verse on; an empty visitor is not called. Gives the last verse of which anything was
// laid out, not yet corrected. Without a scripture there are no boxes.
int WalkPassage(const PassageFlow& flow, FlowFaces faces, const FlowVisitor& visit);

// Verse and ordinal at a point of the client area; (-1, -1) below the last line laid out. A point outside the
// area counts as one on its edge.
SelectionPoint HitTestPassage(const PassageFlow& flow, int x, int y);

// Top verse after a scroll, from `view` as the last pass left it; equal to view.TopVerse where nothing moves. See
// pane/scrolling.h. flow.topVerse does not matter.
int ScrolledTop(const PassageFlow& flow, const PassageView& view, ScrollCode code, int thumb);
