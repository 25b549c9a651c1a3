// Child windows of our own classes, and the bitmap that they are painted on.
#pragma once

#include "win32/handles.h"

// Registers a class with the arrow cursor that is redrawn whole when its size changes, on the system colour
// `backgroundColor` (COLOR_WINDOW, ...).
bool RegisterPaneClass(const char* name, WNDPROC procedure, int backgroundColor);

// Creates a child of `parent` with no size yet.
HWND CreateChild(HWND parent, const char* className, const char* text, DWORD style, DWORD extendedStyle, int id);

// Puts `procedure` in the place of a window's own and gives back the one before.
WNDPROC Subclass(HWND window, WNDPROC procedure);

// Gives a subclassed window its own procedure back and forgets it; does nothing where there is none.
void Unsubclass(HWND window, WNDPROC& procedureBefore);

// The caret of a pane that has the focus: three pixels wide, at the upper left.
void ShowPaneCaret(HWND pane, int lineHeight);

// A bitmap off the screen, as large as a pane, on which a paint is drawn before it is copied once.
struct Canvas {
    OwnedDc dc;
    OwnedBitmap bitmap;
    HGDIOBJ bitmapBefore = nullptr;
    int width = 0, height = 0;
};

// A device context to draw `width` x `height` pixels in, made for `target`; the contents are left from the last time.
HDC CanvasFor(Canvas& canvas, HDC target, int width, int height);

// Copies `area` of the canvas to the same place of `target`.
void CopyCanvas(const Canvas& canvas, HDC target, const RECT& area);
