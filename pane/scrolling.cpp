#include "pane/scrolling.h"

#include <algorithm>

int CorrectedLastVisible(const ScrollPlace& place) {
    const int moved = place.lastVisible == place.top ? place.top + 1 : place.lastVisible;
    return std::min(moved, place.last);
}

// Steps back until the old top is no longer above the last visible item, then on for as long as it is that item. A
// binary search or larger steps would not work, because the items between two tops may wrap differently from each top.
static int PagedUp(const ScrollPlace& place, const std::function<int(int)>& lastVisibleFrom) {
    const int oldTop = place.top;
    int top = oldTop;
    int lastVisible = place.lastVisible;
    while (top >= 1 && oldTop < lastVisible) lastVisible = lastVisibleFrom(--top);
    while (top >= 1 && lastVisible == oldTop) {
        lastVisible = lastVisibleFrom(top - 1);
        if (lastVisible == oldTop) --top;
    }
    return top;
}

static int UnclampedTop(const ScrollPlace& place, ScrollCode code, int thumb,
                        const std::function<int(int)>& lastVisibleFrom) {
    switch (code) {
        case ScrollCode::kLineUp: return place.top - 1;
        case ScrollCode::kLineDown: return place.top + 1;
        case ScrollCode::kPageUp: return PagedUp(place, lastVisibleFrom);
        case ScrollCode::kPageDown: return place.lastVisible;
        case ScrollCode::kThumb: return thumb;
    }
    return place.top;
}

int ScrolledTo(const ScrollPlace& place, ScrollCode code, int thumb, const std::function<int(int)>& lastVisibleFrom) {
    if (place.last < 0) return 0;
    return std::clamp(UnclampedTop(place, code, thumb, lastVisibleFrom), 0, place.last);
}

int WheelSteps(int delta, int perNotch, int& rest) {
    static constexpr int kNotch = 120;        // WHEEL_DELTA, in the documentation of WM_MOUSEWHEEL
    if ((delta < 0) != (rest < 0)) rest = 0;  // the wheel changed direction
    rest += delta * perNotch;
    const int steps = rest / kNotch;
    rest %= kNotch;
    return steps;
}
