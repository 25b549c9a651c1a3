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
