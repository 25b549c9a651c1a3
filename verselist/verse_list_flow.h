// The Verse List's layout: for each entry a label and its words, wrapped with a hanging indent of one line height.
//
// One walk serves paint, measure and hit test. Key words are marked with braces in a copy of the verse (search/
// key_word_marks.h); a word is placed piece by piece, and no brace is ever drawn.
#pragma once

#include <functional>
#include <string_view>

#include "notes/note_sets.h"
#include "output/reading_options.h"
#include "output/scrolling.h"
#include "output/text_measure.h"
#include "scripture/scripture.h"
#include "search/key_word_marks.h"
#include "verselist/verse_list.h"

struct VerseListFlow {
    const Scripture* scripture = nullptr;
    const NoteFiles* noteFiles = nullptr;
    const NoteSets* notes = nullptr;     // none: no verse has a note
    const KeyWords* keyWords = nullptr;  // none: nothing is marked
    ReadingOptions options;
    TextMeasure measure;
    const VerseList* list = nullptr;
    int width = 0;  // of the client area, pixels
    int height = 0;
};

// One piece of a label or word, with its place.
struct ListBoxPiece {
    Face face = Face::kRegular;
    bool keyWord = false;  // to be drawn in the highlight colour
    SelectionPoint point;  // entry and ordinal, 0 the label
    int x = 0, y = 0, width = 0;
    bool endsWord = false;   // the last piece of its word, or a label
    bool endsEntry = false;  // the last piece of its entry
    std::string_view text;   // valid during the visit
};

struct ListFlowEnd {
    int lastEntry = 0;  // last entry of which anything was laid out, not yet corrected
    int lineHeight = 0;
    int occurrences = 0;  // key words marked on the way
};

// Visits the pieces in layout order from the list's top; a visitor that returns false ends the walk, an empty one is
// not called. The last pieces may lie below the client area.
ListFlowEnd WalkVerseList(const VerseListFlow& flow, const std::function<bool(const ListBoxPiece&)>& visit);

// Lays out from list.ListTop without drawing and brings the rest of `list` up to date, corrections included.
void MeasureVerseList(const VerseListFlow& flow, VerseList& list);

// Entry and ordinal at a point of the client area; (-1, -1) below the entries laid out. A point outside the
// area counts as one on its edge.
SelectionPoint HitTestVerseList(const VerseListFlow& flow, int x, int y);

// Top entry after a scroll, from `list` as the last pass left it; equal to list.ListTop where nothing moves, 0 in an
// empty list. See output/scrolling.h. flow.list is `list`.
int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb);
