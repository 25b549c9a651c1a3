#include "output/selection.h"

static bool ComesAfter(SelectionPoint point, SelectionPoint other) {
    return point.place != other.place ? point.place > other.place : point.word > other.word;
}

OrderedSelection Ordered(const Selection& selection) {
    if (ComesAfter(selection.anchor, selection.end)) return {selection.end, selection.anchor};
    return {selection.anchor, selection.end};
}

bool IsSelected(const OrderedSelection& selection, SelectionPoint point) {
    return !ComesAfter(selection.start, point) && !ComesAfter(point, selection.end);
}

int FirstSelectedPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible) {
    const OrderedSelection ordered = Ordered(selection);
    const bool shown = ordered.start.place >= top && ordered.end.place <= lastVisible;
    return selection.SelectionOwner == owner && shown ? ordered.start.place : top;
}

int AnchorPlace(const Selection& selection, SelectionOwnerId owner, int top, int lastVisible) {
    // The two ends are not put in order here: the anchor may lie below what is shown when the mouse went up from it.
    const bool shown = selection.anchor.place >= top && selection.end.place <= lastVisible;
    return selection.SelectionOwner == owner && shown ? selection.anchor.place : top;
}
