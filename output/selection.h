// The one selection of words that Copy takes. A pane interprets it only while it is the owner.
#pragma once

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
