// The Passage's position: one continuous scroll over all verses, named by the verse at the top.
#pragma once

#include "output/selection.h"
#include "scripture/scripture.h"

struct PassageView {
    int TopVerse = 0;          // 0..31101
    int LastVisibleVerse = 0;  // last verse of which anything was laid out, as corrected after each pass
    int LineHeight = 0;        // pixels; cell height of the bold face
};

// The corrections that end each layout pass: a last visible verse equal to the top becomes the next (so that page down
// always moves), and none is past the last.
void CorrectLastVisible(PassageView& view);

// Verse that the commands of the frame mean: the first selected one while the Passage has the focus and its selection
// lies wholly within the verses shown; otherwise the top.
int TargetVerse(const PassageView& view, const Selection& selection, bool passageHasFocus);
