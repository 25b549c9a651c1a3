// The toolbar.
#pragma once

#include "win32/windows_api.h"

// Creates the toolbar in `frame` with its thirty entries in their first states; null when it cannot be made.
HWND CreateToolbar(HWND frame);

// Puts the text of a button's tool-tip into `tip`; other ids get none.
void AnswerToolTip(NMTTDISPINFOA* tip);
