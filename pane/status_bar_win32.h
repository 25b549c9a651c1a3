// The frame's status bar. The panes and the frame write to it through this procedure only.
#pragma once

#include <string>

#include "win32/windows_api.h"

enum class StatusPart {
    kSearchSummary,  // result of the last search
    kListEntry,      // verse of the Verse List's top entry
    kNote,           // verse of the note shown
    kPassage,        // the Passage's top verse
    kSearchRange,
};

// Sets a part of the status bar of the frame that `window` belongs to. Does nothing if the part already has that text,
// because rewriting it would flicker.
void ShowStatus(HWND window, StatusPart part, const std::string& text);

// The text of a part.
std::string StatusText(HWND window, StatusPart part);
