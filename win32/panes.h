// Child windows of the program's own classes, and the off-screen bitmap for painting them.
#pragma once

#include "win32/handles.h"

// The background of a window class that always has this colour of the system (COLOR_WINDOW, ...).
HBRUSH BackgroundOf(int systemColor);

// Registers a window class with the arrow cursor and the system colour `backgroundColor` (COLOR_WINDOW, ...) as
// background. Its windows are redrawn completely when their size changes. `style` adds class styles.
bool RegisterPaneClass(const char* name, WNDPROC procedure, int backgroundColor, UINT style = 0);

// Creates a child of `parent` without height, and without width unless one is given.
HWND CreateChild(HWND parent, const char* className, const char* text, DWORD style, DWORD extendedStyle, int id,
                 int width = 0);

// Replaces the window procedure and returns the previous one.
WNDPROC Subclass(HWND window, WNDPROC procedure);

// Puts `fresh` in the place of its sibling `old`: where and behind what it is, whether it is shown, and the focus.
// Destroys `old`.
void ReplaceChild(HWND old, HWND fresh);

// Restores the window procedure of a subclassed window and sets `procedureBefore` to null; does nothing if it is null.
void Unsubclass(HWND window, WNDPROC& procedureBefore);

// Shows the caret of a focused pane: three pixels wide at 96 dpi, at the upper left.
void ShowPaneCaret(HWND pane, int lineHeight);

// Fills `area` with a colour.
void FillWithColor(HDC dc, const RECT& area, COLORREF color);

// Sends the message to all windows inside of `parent`. The system sends what concerns its colours and settings only to
// windows outside of all others, and leaves it to them to pass it on.
void PassToAllChildren(HWND parent, UINT message, WPARAM wParam, LPARAM lParam);

// An off-screen bitmap. A paint draws on it and then copies it to the screen in one step.
struct Canvas {
    OwnedDc dc;
    OwnedBitmap bitmap;
    HGDIOBJ bitmapBefore = nullptr;
    int width = 0, height = 0;
};

// Returns a device context of at least `width` x `height` pixels, compatible with `target`.
HDC CanvasFor(Canvas& canvas, HDC target, int width, int height);
