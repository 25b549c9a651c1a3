// Go to Note for Verse.
#pragma once

#include "win32/windows_api.h"

// Asks for a reference, starting with the current note's verse, and reads that verse's note.
void AskGotoNote(HWND frame);
