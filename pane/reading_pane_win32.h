// What the two panes that show scripture have in common: the window procedure, double-buffered painting, scrolling by
// items, focus, and selecting words with the mouse. An item is a verse of the Passage or an entry of the Verse List.
#pragma once

#include "pane/flow.h"
#include "pane/scrolling.h"
#include "pane/selection_win32.h"
#include "pane/spoken_pane_win32.h"
#include "typeset/faces_win32.h"
#include "typeset/reading_options.h"
#include "win32/panes.h"

// How both panes show scripture.
extern ReadingOptions theReading;

struct ReadingPane {
    HWND window = nullptr;
    Faces faces;
    TextRuns text;                 // as laid out last; all of it that the system holds to be valid is on the screen
    TextRuns textBefore;           // the layout before
    bool isScrolling = false;      // is the paint of a scroll running? Then `text` is laid out
    int leftMargin = kLeftMargin;  // pixels
    int wheelRest = 0;             // remainder of wheel movement, less than a step
    bool isThumbHeld = false;      // of the scroll bar
    bool doubleClicked = false;    // until the button is released
    ToldState told;                // to a screen reader
};

// What differs between the panes; each pane has one constant.
struct PaneKind {
    ReadingPane& pane;
    SelectedText selected;  // its owner identifies the pane
    bool (*hasText)();      // is there anything to lay out? If not, of the next seven only `top` is called

    void (*layOut)(const RECT& client);              // adds the text that fills the client area to the pane's text
    int (*top)();                                    // first item shown
    int (*scrolledTop)(ScrollCode code, int thumb);  // the top after a scroll
    int (*clampItem)(int item);                      // clamps to existing items
    SelectionPoint (*pointAt)(int x, int y);         // word at a point of the client area; (-1, -1) for none
    void (*setTop)(int item);                        // makes `item` the first one; the caller repaints
    void (*showPosition)();                          // status bar, scroll box, and what follows the pane

    void (*onCreate)(HWND window);
    void (*onKey)(const PaneKind& kind, UINT key);  // for keys that do not scroll
    void (*onDoubleClick)();         // on a word, which is then selected; only if the window class has CS_DBLCLKS
    void (*onCommand)(int command);  // for commands that are not about the selection
    void (*openMenu)(POINT onScreen);

    SpokenPane spoken;  // for screen readers
};

// The bitmap that both panes are painted on stays for the next paint. Is it there? It can be given back between two
// paints.
bool HasPaintBitmap();
void GiveBackPaintBitmap();

// The window procedure of a pane, called by that of its window class.
LRESULT ReadingPaneProcedure(const PaneKind& kind, HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Scrolls a pane: moves the lines that stay on the screen and paints the others; `thumb` is only used for kThumb. The
// position is shown when no more input is waiting: the next scroll would change it again.
void ScrollPane(const PaneKind& kind, ScrollCode code, int thumb);

// Is the message a key by which the pane that has scrolled scrolls further? Such a key is nothing else, neither a
// command nor a character. If the message does not scroll the pane further in any way, the pane's position is shown. To
// be called before a message is handled, because a command may depend on what follows the pane.
bool ScrollsOn(const MSG& message);

// Returns a visitor that adds each box to the pane's text, coloured as selected (if `owner` has the selection), key
// word or normal text.
FlowVisitor RunsVisitor(ReadingPane& pane, SelectionOwnerId owner);

// The pane's client area, which its layout fills.
RECT ClientAreaOf(const ReadingPane& pane);

// Shows the pane in this font, for the scaling of its screen.
void SetPaneFont(ReadingPane& pane, const FontChoice& choice);

// Moves the scroll box to the item `top`.
void MoveScrollBox(const ReadingPane& pane, int top);

// Invalidates the whole pane.
void RedisplayPane(const ReadingPane& pane);
