// Copy/Save Format: how verses are labelled when they leave the program as text.
#pragma once

#include "win32/windows_api.h"

// Asks over `owner`, starting with `theFormat`, and stores the answer there.
void AskFormat(HWND owner);
