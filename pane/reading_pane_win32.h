// What the two panes that show scripture have in common: one window procedure, with painting off the screen, scrolling
// by items, the focus, and the selection of words by the mouse. An item is a verse of the Passage or an entry of the
// Verse List.
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
    int wheelRest = 0;  // of the wheel's turning, less than a step
};

// What one of the panes does its own way; a constant a pane.
struct PaneKind {
    ReadingPane& pane;
    SelectedText selected;  // its owner is the pane's
    bool (*hasText)();      // is there anything to lay out? While not, none of the next five is called

    void (*layOut)(const RECT& client);              // adds what fills the client area to the pane's runs
    int (*top)();                                    // item shown first
    int (*scrolledTop)(ScrollCode code, int thumb);  // the top after a scroll
    int (*clampItem)(int item);                      // brought into those that there are
    SelectionPoint (*pointAt)(int x, int y);         // word at a point of the client area; (-1, -1): none
    void (*setTop)(int item);                        // shows another item first

    void (*onCreate)(HWND window);
    void (*onKey)(const PaneKind& kind, UINT key);  // one that does not scroll
    void (*onCommand)(int command);                 // one that is not about the selection
    void (*openMenu)(POINT onScreen);
};

// The window procedure of a pane, to be called by that of its class.
LRESULT ReadingPaneProcedure(const PaneKind& kind, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Scrolls a pane and paints it; `thumb` counts for kThumb.
void ScrollPane(const PaneKind& kind, ScrollCode code, int thumb);

// A visitor that adds each box to the pane's runs, in the colours of the selection, when `owner` has it, and of key
// words.
FlowVisitor RunsVisitor(ReadingPane& pane, SelectionOwnerId owner);

// The pane's client area, which its layout fills.
RECT ClientAreaOf(const ReadingPane& pane);

// Moves the scroll box to the item `top`.
void MoveScrollBox(const ReadingPane& pane, int top);

// Has the whole pane painted again.
void RedisplayPane(const ReadingPane& pane);
