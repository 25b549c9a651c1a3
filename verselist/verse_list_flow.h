// The Verse List's layout: for each entry a label and its words, wrapped with a hanging indent of one line height.
//
// One walk serves paint, measure and hit test. Key words are marked with braces in a copy of the verse (search/
// key_word_marks.h); a word is placed piece by piece, and no brace is ever drawn.
#pragma once

#include "notes/note_sets.h"
#include "pane/flow.h"
#include "pane/scrolling.h"
#include "scripture/scripture.h"
#include "search/query.h"
#include "typeset/reading_options.h"
#include "verselist/verse_list.h"

struct VerseListFlow {
    const Scripture* scripture = nullptr;
    const NoteFiles* noteFiles = nullptr;
    const NoteSets* notes = nullptr;  // none: no verse has a note
    const Query* query = nullptr;     // whose key words are marked; none: nothing is marked
    ReadingOptions options;
    TextMeasure measure;
    const VerseList* list = nullptr;
    int width = 0;  // of the client area, pixels
    int height = 0;
};

// Visits the boxes from the list's top on; an empty visitor is not called. Gives the last entry of which anything was
// laid out, not yet corrected.
int WalkVerseList(const VerseListFlow& flow, const FlowVisitor& visit);

// Entry and ordinal at a point of the client area; (-1, -1) below the entries laid out. A point outside the
// area counts as one on its edge.
SelectionPoint HitTestVerseList(const VerseListFlow& flow, int x, int y);

// Top entry after a scroll, from `list` as the last pass left it; equal to list.ListTop where nothing moves, 0 in an
// empty list. See pane/scrolling.h. flow.list is `list`.
int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb);
