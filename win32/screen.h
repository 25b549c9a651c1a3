// Sizes and places on the screen.
#pragma once

#include "win32/windows_api.h"

// Pixels on this screen for `pixels` at 96 dpi, and the way back.
int Scaled(int pixels);
int Unscaled(int pixels);

// The font of the system's own messages.
HFONT MessageFont();

// Moves a dialog that opens over its top-level owner's middle: x centred, y centred in the upper nine tenths, both kept
// on the screen; its size stays.
void PlaceDialog(HWND dialog);

// Moves a window to the middle of the screen.
void CenterOnScreen(HWND window);

// Is some part of `place` on a monitor?
bool IsOnScreen(const RECT& place);
