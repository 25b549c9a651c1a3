#include "win32/canvas.h"

#include <algorithm>

HDC CanvasFor(Canvas& canvas, HDC target, int width, int height) {
    if (!canvas.dc) canvas.dc.reset(CreateCompatibleDC(target));
    if (width > canvas.width || height > canvas.height) {  // grows only: a pane being resized asks often
        if (canvas.bitmapBefore) SelectObject(canvas.dc.get(), canvas.bitmapBefore);
        canvas.width = std::max(width, canvas.width);
        canvas.height = std::max(height, canvas.height);
        canvas.bitmap.reset(CreateCompatibleBitmap(target, canvas.width, canvas.height));
        canvas.bitmapBefore = SelectObject(canvas.dc.get(), canvas.bitmap.get());
    }
    return canvas.dc.get();
}

void CopyCanvas(const Canvas& canvas, HDC target, const RECT& area) {
    BitBlt(target, area.left, area.top, area.right - area.left, area.bottom - area.top, canvas.dc.get(), area.left,
           area.top, SRCCOPY);
}
