// The controls of the dialog for words near each other that the other search dialogs do not have.
#pragma once

#include "search/query.h"
#include "search/word_index.h"
#include "win32/windows_api.h"

// Fills them, and tells how many words of `index` the text of the field means.
void FillNearControls(HWND dialog, const SearchState& search, const WordIndex& index);

// A control was used: tells the words that are meant now, and lets the distance be typed only if it counts.
void OnNearControl(HWND dialog, int control, UINT notification, const WordIndex& index);

// Can what is typed be searched for? Otherwise says why not and gives the focus to the field that has to be changed.
bool CanSearchNear(HWND dialog);

// To be called when the dialog has closed: gives back what it knew of the text.
void ForgetSpellings();

// Stores what is chosen in `search`.
void ReadNearControls(HWND dialog, SearchState& search);
