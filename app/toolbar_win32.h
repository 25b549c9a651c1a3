// The toolbar, made of the commands that have a button.
#pragma once

#include "win32/windows_api.h"

// Creates the toolbar in `frame` with its buttons in their first states; null when it cannot be made.
HWND CreateToolbar(HWND frame);

// Puts the text of a button's tool tip into `tip`; other ids get none.
void AnswerToolTip(NMTTDISPINFOA* tip);
