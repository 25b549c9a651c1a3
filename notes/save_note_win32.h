// Saving the current note, with its messages.
#pragma once

#include <string_view>

#include "notes/note_saving.h"
#include "win32/windows_api.h"

// Saves `text` as the current note, with the wait cursor and the mouse captured by `frame`, and says what fails.
NoteSaveResult SaveCurrentNote(HWND frame, std::string_view text);
