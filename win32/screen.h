// Where windows are put on the screens. For sizes see win32/dpi.h.
#pragma once

#include "win32/windows_api.h"

// Moves a dialog that is about to open over its top-level owner: centred horizontally, and vertically in the owner's
// upper nine tenths, but kept on the owner's screen. Its size does not change.
void PlaceDialog(HWND dialog);

// Is a dialog that is about to open not larger than the work area of its top-level owner's screen?
bool FitsOwnersWorkArea(HWND dialog);

// Centres a window on its screen.
void CenterOnScreen(HWND window);

// Moves and, if necessary, shrinks a top-level window that is not wholly inside the screens' work areas, as
// `BroughtInside` in win32/placement.h tells. To be called while it is neither maximized nor minimized.
void BringOnScreen(HWND window);
