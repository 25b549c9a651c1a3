// How the strip of Hits by Book is drawn.
#pragma once

#include "typeset/pane_colors.h"
#include "verselist/hits_by_book.h"
#include "win32/windows_api.h"

struct HitsPicture {
    PerBook<HitsBar> bars;
    int hovered = 0;  // the book whose slot is marked; 0 for none
};

// Draws the whole strip and each pixel once, so that it does not flicker without a bitmap to be drawn on first.
void DrawHits(HDC target, const RECT& client, const HitsPicture& picture, const PaneColors& colors);
