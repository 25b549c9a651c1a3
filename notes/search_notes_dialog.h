// Search Note Set: finds a text in the notes of the current set.
#pragma once

#include "win32/windows_api.h"

// Opens the dialog with the last text searched for. It stays open from match to match; each is shown in the Notes
// window, selected.
void AskNoteSearch(HWND frame);
