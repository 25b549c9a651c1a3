// About Versewell97.
#pragma once

#include "win32/windows_api.h"

void OpenAbout(HWND frame);
