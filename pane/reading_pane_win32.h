// What the two panes that show scripture have in common: the window procedure, double-buffered painting, scrolling by
// items, focus, and selecting words with the mouse. An item is a verse of the Passage or an entry of the Verse List.
#pragma once

#include "pane/flow.h"
#include "pane/scrolling.h"
#include "pane/selection_win32.h"
#include "typeset/faces_win32.h"
#include "typeset/reading_options.h"
#include "win32/panes.h"

// How both panes show scripture.
extern ReadingOptions theReading;

struct ReadingPane {
    HWND window = nullptr;
    Faces faces;
    Canvas canvas;
    TextRuns runs;
    int wheelRest = 0;           // remainder of wheel movement, less than a step
    bool doubleClicked = false;  // until the button is released
};

// What differs between the panes; each pane has one constant.
struct PaneKind {
    ReadingPane& pane;
    SelectedText selected;  // its owner identifies the pane
    bool (*hasText)();      // is there anything to lay out? If not, of the next five only `top` is called

    void (*layOut)(const RECT& client);              // adds the text that fills the client area to the pane's runs
    int (*top)();                                    // first item shown
    int (*scrolledTop)(ScrollCode code, int thumb);  // the top after a scroll
    int (*clampItem)(int item);                      // clamps to existing items
    SelectionPoint (*pointAt)(int x, int y);         // word at a point of the client area; (-1, -1) for none
    void (*setTop)(int item);                        // scrolls so that `item` is shown first

    void (*onCreate)(HWND window);
    void (*onKey)(const PaneKind& kind, UINT key);  // for keys that do not scroll
    void (*onDoubleClick)();         // on a word, which is then selected; only if the window class has CS_DBLCLKS
    void (*onCommand)(int command);  // for commands that are not about the selection
    void (*openMenu)(POINT onScreen);
};

// The window procedure of a pane, called by that of its window class.
LRESULT ReadingPaneProcedure(const PaneKind& kind, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Scrolls a pane and repaints it; `thumb` is only used for kThumb.
void ScrollPane(const PaneKind& kind, ScrollCode code, int thumb);

// Returns a visitor that adds each box to the pane's runs, coloured as selected (if `owner` has the selection), key
// word or normal text.
FlowVisitor RunsVisitor(ReadingPane& pane, SelectionOwnerId owner);

// The pane's client area, which its layout fills.
RECT ClientAreaOf(const ReadingPane& pane);

// Moves the scroll box to the item `top`.
void MoveScrollBox(const ReadingPane& pane, int top);

// Invalidates the whole pane.
void RedisplayPane(const ReadingPane& pane);
