// Where windows are put on one or more screens. Includes no Windows header, so that it can be tested with any screens.
//
// All rectangles are in pixels of the desktop; screens to the left of or above the first have negative coordinates. An
// edge on the right or below is the first pixel outside.
#pragma once

#include <span>

struct ScreenArea {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const ScreenArea&) const = default;
};

// Moves, and if necessary shrinks, a window until one of the work areas (screens without their task bars) contains it:
// the one that has most of it, or else the nearest. A window that the work areas contain together is not changed; for
// this its left, right and lower edge may extend beyond them by `border`, the width of the frame with which it is
// sized, because the system places windows so. A window without width or height is taken for a point. Without work
// areas nothing is changed.
ScreenArea BroughtInside(const ScreenArea& window, int border, std::span<const ScreenArea> workAreas);

// Where a window of `size` pixels begins that should begin at `place` and be between `low` and `high`. One that is too
// large begins at `low`.
int KeptBetween(int place, int size, int low, int high);
