// Scrolling of a pane whose lines begin with a numbered item (a verse, an entry of a list): the same rules for both.
#pragma once

#include <functional>

enum class ScrollCode { kLineUp, kLineDown, kPageUp, kPageDown, kThumb };

struct ScrollPlace {
    int top = 0;          // item shown first
    int lastVisible = 0;  // as corrected after the last layout
    int last = 0;         // greatest item there is; -1 when there is none
};

// The corrections that end each layout pass: a last visible item equal to the top becomes the next (so that page down
// always moves), and none is past `last`.
int CorrectedLastVisible(const ScrollPlace& place);

// Top after a scroll, brought into 0..last; the old top where nothing moves and in an empty pane. `thumb` counts for
// kThumb. Page up gives the earliest top from which the old one is still the last visible item, or, where a tall item
// lets none show it last, the latest top from which it has gone out of view. `lastVisibleFrom` lays out from a top and
// gives the last visible item as corrected; it is called for page up only, once an item stepped over.
int ScrolledTo(const ScrollPlace& place, ScrollCode code, int thumb, const std::function<int(int)>& lastVisibleFrom);

// Whole steps that a wheel message of `delta` (120 a notch, up positive) turns where a notch is worth `perNotch`; up is
// positive. What a finer wheel or a touch pad leaves over is kept in `rest` for the next message, until the wheel turns
// back.
int WheelSteps(int delta, int perNotch, int& rest);
