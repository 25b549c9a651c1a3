// List Notes: asks which notes the Verse List shall show, and finds them.
#pragma once

#include <optional>

#include "notes/listed_notes.h"
#include "win32/windows_api.h"

// nullopt if the user cancels. If there are no such notes, the dialog says so and stays open.
std::optional<ListedNotes> AskNotesToList(HWND frame);
