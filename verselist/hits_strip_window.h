// Hits by Book: the strip at the right edge of the Verse List and of the Reference List, with a bar for each book. A
// click on one goes to the first hit there. It never takes the focus.
#pragma once

#include "verselist/hits_by_book.h"
#include "win32/hover_tip.h"

struct HitsStrip {
    HWND window = nullptr;
    int HitsByBook = 0;  // is it wanted? Also kept in the settings: any value but 0 means yes
    int hovered = 0;     // the book under the mouse; 0: none
    HoverTip tip;
    PerBook<int> words{};  // of the books; zeros until they are needed
};
extern HitsStrip theHitsStrip;

inline constexpr int kHitsStripWidth = 48;  // with its border, at 96 dpi

bool RegisterHitsStripClass();

// Creates the hidden strip inside `tabs`.
void CreateHitsStrip(HWND tabs);

// How many entries of the list each book has. The first call that needs them counts the words of all books, which reads
// the texts of all verses: `hasReadTexts`, if it is not null, tells of that.
PerBook<HitsOfBook> HitsOfList(bool* hasReadTexts = nullptr);

// Shows the hits of a list whose entries have changed.
void ShowChangedHits();
