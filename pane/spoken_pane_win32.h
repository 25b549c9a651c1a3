// The reading panes for users of screen readers: what such a program asks of a pane, and the events that tell it when
// to ask. Both panes are told by the same procedures; what differs is a SpokenPane.
#pragma once

#include <string>

#include "pane/selection.h"
#include "pane/spoken_items.h"
#include "win32/accessible_object.h"

// What a screen reader was told last.
struct ToldState {
    std::string name;  // of the pane
    int top = -1;
    int current = -1;              // the item with the focus; -1 if the focus is elsewhere
    OrderedSelection selection{};  // as far as it is the pane's own
    bool isStale = true;           // what the pane shows has been replaced
};

// What differs between the panes; each pane has one constant. Items are numbered as in pane/spoken_items.h; the
// procedures that take one are only called for items that exist.
struct SpokenPane {
    const HWND& window;
    ToldState& told;
    SelectionOwnerId owner = kNobody;
    LONG itemRole = 0;                // ROLE_SYSTEM_
    const wchar_t* action = nullptr;  // the name of what `act` does; null for nothing

    std::string (*name)() = nullptr;
    int (*count)() = nullptr;            // of items that exist, which may not all be shown; 0 without a text
    int (*top)() = nullptr;              // first item shown
    int (*current)() = nullptr;          // item that commands act on if the pane has the focus
    int (*verseOf)(int item) = nullptr;  // verse index
    SpokenItems (*shown)() = nullptr;
    SpokenWords (*words)(int item) = nullptr;
    void (*bringUp)(int item) = nullptr;  // makes it the current one
    void (*act)() = nullptr;              // on the current item; only if it has a name
};

// Answers WM_GETOBJECT. `pane` must live as long as the program.
LRESULT AnswerScreenReader(const SpokenPane& pane, WPARAM wParam, LPARAM lParam);

// Tells a screen reader, if one listens, what has changed since the last time: the list, the items shown, the
// selection, the item with the focus. To be called when the pane comes to rest, not for each step of a scroll.
void TellChanges(const SpokenPane& pane);
