// Copy/Save Format: how verses are labelled when they leave the program as text.
#pragma once

#include "output/format_options.h"
#include "win32/windows_api.h"

extern FormatOptions theFormat;

// Asks over `owner`, starting with `theFormat`, and stores the answer there.
void AskFormat(HWND owner);
