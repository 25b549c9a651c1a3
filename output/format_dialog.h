// The Copy/Save Format dialog: labels and layout of copied, saved and printed verses.
#pragma once

#include "output/format_options.h"
#include "win32/windows_api.h"

extern FormatOptions theFormat;

// Opens the dialog over `owner` with the values of `theFormat`, and stores the user's choice there.
void AskFormat(HWND owner);
