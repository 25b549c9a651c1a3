// Scrolling rules for panes whose lines begin with a numbered item (a verse, a list entry).
#pragma once

#include <functional>

enum class ScrollCode { kLineUp, kLineDown, kPageUp, kPageDown, kThumb };

struct ScrollPlace {
    int top = 0;          // first item shown
    int lastVisible = 0;  // as corrected after the last layout
    int last = 0;         // last item; -1 when there is none
};

// Corrects the last visible item after a layout pass: if it equals the top it becomes the next item, so that page down
// always moves, but it is never greater than `last`.
int CorrectedLastVisible(const ScrollPlace& place);

// The top after a scroll, clamped to 0..last; 0 in an empty pane. `thumb` is only used for kThumb. Page up returns the
// earliest top from which the old top is still the last visible item or, if it never is because of a tall item, the
// latest top from which it is no longer visible. `lastVisibleFrom` lays out from a top and returns the corrected last
// visible item; it is only called for page up, once per item stepped over.
int ScrolledTo(const ScrollPlace& place, ScrollCode code, int thumb, const std::function<int(int)>& lastVisibleFrom);

// Whole steps for a wheel message of `delta` (120 per notch, up is positive) with `perNotch` steps per notch; up is
// positive. The remainder from a finer wheel or a touch pad is kept in `rest` for the next message, until the wheel
// changes direction.
int WheelSteps(int delta, int perNotch, int& rest);
