// The one selection of words that Copy takes, and the words in it. A pane interprets the selection only while it owns
// it.
//
// Words are counted as the panes count them: 0 is the label of a verse, 1 its first word, and a word keeps the blank
// behind it. The last word of a verse gets a blank of its own.
#pragma once

#include <string>
#include <string_view>

#include "typeset/word_reader.h"

enum SelectionOwnerId {
    kNobody = -1,
    kVerseListOwns = 3,
    kPassageOwns = 4,
    kNoteViewOwns = 8,
    kNoteEditorOwns = 10,
};

struct SelectionPoint {
    int place = -1;  // verse index in the Passage, entry number in the Verse List; -1 nothing
    int word = -1;   // 0 the label, 1 the first word
    bool operator==(const SelectionPoint&) const = default;
};

struct Selection {
    int SelectionOwner = kNobody;
    SelectionPoint anchor;  // where the button went down
    SelectionPoint end;     // where the mouse is now; either may come first
    bool dragging = false;
};

struct OrderedSelection {
    SelectionPoint start;
    SelectionPoint end;
};

// The earlier place first; in the same place the smaller word first.
OrderedSelection Ordered(const Selection& selection);

// Lies `point` in the selection, ends included? A label is word 0. Whether the pane owns the selection is the caller's
// question.
bool IsSelected(const OrderedSelection& selection, SelectionPoint point);

// First selected place when `owner` has the selection and all of it lies in `top`..`lastVisible`; otherwise `top`.
int FirstSelectedPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible);

// The anchor's place when `owner` has the selection, the anchor is at or after `top` and the end at or before
// `lastVisible`; otherwise `top`.
int AnchorPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible);

struct WordSpan {
    int first = 0;
    int last = 0;
};

// Words of `place` that lie in the selection; `last` is beyond every word where all from `first` on do.
WordSpan SelectedWords(const OrderedSelection& selection, int place);

// A reader that keeps or leaves out the brackets round supplied words.
WordReader CopyingReader(bool keepBrackets);

// Appends the words of `span` that `verse` has; its label is the caller's. True when the verse's last word is the last
// one appended, or comes before all of the span.
bool AppendWords(std::string& text, WordReader& reader, std::string_view verse, const WordSpan& span);

// Characters of a copy that a search for words or a phrase looks at, and a search of the notes.
inline constexpr int kWordSearchScan = 200;
inline constexpr int kNoteSearchScan = 149;

// The blanks and the letters A-Z and a-z among the first `limit` characters of `copy`, the letters of its labels too;
// never more than a search takes: 199.
std::string SearchTextOf(std::string_view copy, int limit);
