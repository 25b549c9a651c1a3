// A bitmap off the screen, as large as a pane, on which a paint is drawn before it is copied once.
#pragma once

#include "win32/handles.h"

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
