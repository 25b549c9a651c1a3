// The dividers between the panes, which the mouse drags. They have no window: where the tab controls show neither tabs
// nor panes, the mouse reaches the frame.
#pragma once

#include "win32/windows_api.h"

// Shows the cursor for dragging if the mouse is over a divider; false if it is not. `under` and `hitTest` are those of
// WM_SETCURSOR.
bool ShowDividerCursor(HWND under, UINT hitTest);

// The left button goes down at a point of the frame: on a divider a drag begins. A double click puts the divider back
// to where it is at first.
void GrabDivider(POINT point);
void PutDividerBack(POINT point);

// The mouse moves, and the panes with it, and the button is released or another window takes the mouse. Nothing happens
// if no divider is held.
void DragDivider(POINT point);
void LetDividerGo();

// Takes Esc while a divider is held: it goes back to where it was grabbed. Returns whether the message was that.
bool CancelsDrag(const MSG& message);
