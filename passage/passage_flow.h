// The Passage's position and layout: labels, chapter headings and words, placed from the top verse until the pane is
// full.
//
// Painting, measuring and hit testing use the same walk, so they break lines at the same words. Italic words are as
// wide as the italic face shows them, and a punctuation mark after them has the regular face; a word is never separated
// from the mark after it. Only within a line does the hit test differ on purpose: it takes every word to be as wide as
// in the regular face. Word ordinals: 0 is the verse's label, 1 its first word.
#pragma once

#include "notes/note_sets.h"
#include "pane/flow.h"
#include "pane/scrolling.h"
#include "scripture/scripture.h"
#include "typeset/reading_options.h"

// Position in the continuous text of all verses.
struct PassageView {
    int TopVerse = 0;          // 0..31101
    int LastVisibleVerse = 0;  // last verse with any text laid out, corrected after each layout
};

// To be called after each layout: if the last visible verse is the top verse, it becomes the next one (so that page
// down always moves), and it is limited to the last verse of the Bible.
void CorrectLastVisible(PassageView& view);

// Verse that commands of the frame act on: the first selected verse if the Passage has the focus and all of its
// selection is visible, otherwise the top verse.
int TargetVerse(const PassageView& view, const Selection& selection, bool passageHasFocus);

struct PassageFlow {
    const Scripture* scripture = nullptr;
    const NoteFiles* noteFiles = nullptr;
    const NoteSets* notes = nullptr;  // null: no verse has a note
    ReadingOptions options;
    TextMeasure measure;
    int topVerse = 0;
    int width = 0;  // of the client area, pixels
    int height = 0;
    int leftMargin = kLeftMargin;  // pixels
};

// Visits the boxes from the top verse on; an empty visitor is not called. Returns the last verse with any text laid
// out, not yet corrected. Without a scripture there are no boxes.
int WalkPassage(const PassageFlow& flow, const FlowVisitor& visit);

// Verse and word ordinal at a point of the client area; (-1, -1) below the last line. A point outside the area is moved
// to its edge.
SelectionPoint HitTestPassage(const PassageFlow& flow, int x, int y);

// Top verse after a scroll from `view` as of the last layout; view.TopVerse if nothing moves. See pane/scrolling.h.
// flow.topVerse is ignored.
int ScrolledTop(const PassageFlow& flow, const PassageView& view, ScrollCode code, int thumb);
