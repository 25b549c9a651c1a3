#include "passage/passage_view.h"

#include "output/scrolling.h"

void CorrectLastVisible(PassageView& view) {
    view.LastVisibleVerse = CorrectedLastVisible({view.TopVerse, view.LastVisibleVerse, kLastVerse});
}

int TargetVerse(const PassageView& view, const Selection& selection, bool passageHasFocus) {
    if (!passageHasFocus) return view.TopVerse;
    return FirstSelectedPlace(selection, kPassageOwns, view.TopVerse, view.LastVisibleVerse);
}
