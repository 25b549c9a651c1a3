// Sizes and positions on the screen.
#pragma once

#include "win32/windows_api.h"

// Converts pixels at 96 dpi to pixels of this screen, and back.
int Scaled(int pixels);
int Unscaled(int pixels);

// The font of the system's message boxes.
HFONT MessageFont();

// Moves a dialog that is about to open over its top-level owner: centred horizontally, and vertically in the owner's
// upper nine tenths, but kept on the owner's screen. Its size does not change.
void PlaceDialog(HWND dialog);

// Centres a window on the screen.
void CenterOnScreen(HWND window);

// Moves and, if necessary, shrinks a top-level window that is not wholly inside the screens' work areas, as
// `BroughtInside` in win32/placement.h tells. To be called while it is neither maximized nor minimized.
void BringOnScreen(HWND window);
