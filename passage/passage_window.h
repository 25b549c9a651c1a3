// The Passage window: the continuous reader.
#pragma once

#include "pane/reading_pane_win32.h"
#include "passage/passage_flow.h"

struct PassagePane : ReadingPane {
    PassageView view;
};
extern PassagePane thePassage;

bool RegisterPassageClass();
void CreatePassage(HWND tabs);

// The operation that every move ends in: `verse`, clamped to 0..31101, comes to the top, and the Notes window follows
// where it is bound. Focus and selection stay.
void ScrollToVerse(int verse);

// Lays out and paints anew: after a change of font, of italics, of format, of notes.
void RedisplayPassage();
void SetPassageFont(const FontChoice& choice);

// Verse that commands mean: the first selected verse while the pane has the focus and its selection lies wholly within
// the verses shown; otherwise the top verse.
int PassageTargetVerse();
