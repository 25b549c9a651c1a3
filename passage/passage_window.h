// The Passage window, which shows the continuous text of the Bible.
#pragma once

#include "pane/reading_pane_win32.h"
#include "passage/passage_flow.h"

struct PassagePane : ReadingPane {
    PassageView view;
    bool awaitsNote = false;  // the Passage has been scrolled since the bound note was read
};
extern PassagePane thePassage;

bool RegisterPassageClass();
void CreatePassage(HWND tabs);

// Shows `verse`, clamped to 0..31101, at the top. Every move but those of scroll bar, keys and wheel ends here. If the
// Notes window is bound to the Passage, it shows the note of the same verse. Focus and selection do not change.
void ScrollToVerse(int verse);

// Lays out and paints again, after a change of font, italics, format or notes.
void RedisplayPassage();
void SetPassageFont(const FontChoice& choice);

// Verse that commands act on: the first selected verse if the pane has the focus and all of its selection is visible,
// otherwise the top verse.
int PassageTargetVerse();
