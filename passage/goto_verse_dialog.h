// Go To Verse.
#pragma once

#include "win32/windows_api.h"

// Asks for a reference, starting with the Passage's verse, and moves the Passage there.
void AskGotoVerse(HWND frame);
