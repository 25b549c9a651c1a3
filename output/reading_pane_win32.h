// What the two panes that show scripture have in common: drawing off the screen, scrolling by items, the focus, and the
// selection of words by the mouse.
#pragma once

#include <functional>
#include <optional>

#include "output/faces_win32.h"
#include "output/scrolling.h"
#include "output/selection.h"

struct ReadingPane {
    HWND window = nullptr;
    Faces faces;
    Canvas canvas;
    TextRuns runs;
    int wheelRest = 0;  // of the wheel's turning, less than a step
};

// Scrolls a pane; `thumb` counts for kThumb.
using PaneScroll = void (*)(ScrollCode code, int thumb);

// Paints what `layOut` adds to the pane's runs for its client area; an empty pane where there is nothing to lay out.
void PaintPane(ReadingPane& pane, COLORREF keyWordColor, const std::function<void(const RECT& client)>& layOut);

// The scroll that a scroll bar's code or a key (Up, Down, Page Up, Page Down) asks for.
std::optional<ScrollCode> ScrollOfBar(UINT code);
std::optional<ScrollCode> ScrollOfKey(UINT key);

// Scrolls by the items or pages that the user wants for a notch of the wheel, from `top` on.
void TurnWheel(ReadingPane& pane, int delta, int top, PaneScroll scroll);

// The pane, `owner` of a selection, has got the focus from `before`, or lost it: the selection of another pane goes, or
// its own, with the commands that depend on it, and the caret comes or goes.
void PaneGotFocus(ReadingPane& pane, SelectionOwnerId owner, HWND before);
void PaneLostFocus(const ReadingPane& pane);

void RedisplayPane(const ReadingPane& pane);

// Gives the pane the focus where it has none.
void FocusPane(const ReadingPane& pane);

// How a pane takes part in the selection of words.
struct PaneSelecting {
    SelectionOwnerId owner = kNobody;
    SelectionPoint (*pointAt)(int x, int y) = nullptr;  // word at a point of the client area; (-1, -1): none
    void (*step)(int by) = nullptr;                     // moves the top by an item, -1 or 1, where there is one
};

// The left button goes down, the mouse moves with `keys` held, the button goes up: a press in a pane with the focus
// begins a selection, which the mouse takes along, also outside the pane. A press in another pane only gives it the
// focus; one where no word is selects nothing. Each move near the upper or lower edge moves the text by an item.
void PressMouse(const ReadingPane& pane, const PaneSelecting& selecting, int x, int y);
void DragMouse(const ReadingPane& pane, const PaneSelecting& selecting, int x, int y, UINT keys);
void ReleaseMouse(const ReadingPane& pane);
