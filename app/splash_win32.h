// The splash screen, which is shown while the program starts.
#pragma once

#include "win32/windows_api.h"

// Shows it in the middle of the screen, in the size that belongs to the screen's scaling. Null if it cannot be made.
HWND ShowSplash(HWND frame);
