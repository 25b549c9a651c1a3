// Search Note Set: finds a text in the notes of the current set.
#pragma once

#include "win32/windows_api.h"

// Opens the dialog with the last search text. It stays open between matches; each match is shown selected in the Notes
// window.
void AskNoteSearch(HWND frame);
