// The Verse List's layout: for each entry a label, in a list of notes with the set in front, and its words, wrapped
// with a hanging indent of one line height.
//
// Painting, measuring and hit testing use the same walk. Key words are marked with braces in a copy of the verse
// (search/key_word_marks.h). A word is placed piece by piece, and braces are never drawn.
#pragma once

#include "notes/note_sets.h"
#include "pane/flow.h"
#include "pane/scrolling.h"
#include "scripture/scripture.h"
#include "search/query.h"
#include "typeset/reading_options.h"
#include "verselist/entry_words.h"
#include "verselist/verse_list.h"

struct VerseListFlow {
    const Scripture* scripture = nullptr;
    const NoteFiles* noteFiles = nullptr;
    const NoteSets* notes = nullptr;  // null: no verse has a note
    const Query* query = nullptr;     // its key words are marked; null: nothing is marked
    ReadingOptions options{};
    TextMeasure measure{};
    const VerseList* list = nullptr;
    int width = 0;  // of the client area, pixels
    int height = 0;
    int leftMargin = kLeftMargin;   // pixels
    KnownEntries* known = nullptr;  // kept between walks, see verselist/entry_words.h; null: nothing is kept
};

// Visits the boxes from the list's top on; an empty visitor is not called. Returns the last entry with any text laid
// out, not yet corrected.
int WalkVerseList(const VerseListFlow& flow, const FlowVisitor& visit);

// Entry and word ordinal at a point of the client area; (-1, -1) below the last entry. A point outside the area is
// moved to its edge.
SelectionPoint HitTestVerseList(const VerseListFlow& flow, int x, int y);

// Top entry after a scroll from `list` as of the last layout; list.ListTop if nothing moves, 0 in an empty list. See
// pane/scrolling.h. flow.list must point to `list`.
int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb);
