// The frame's status bar. The panes and the frame write its parts through the one procedure here.
#pragma once

#include <string>

#include "win32/windows_api.h"

enum class StatusPart {
    kSearchSummary,  // what the last search found
    kListEntry,      // verse of the Verse List's top entry
    kNote,           // verse of the note shown
    kPassage,        // the Passage's top verse
    kSearchRange,
};

// Writes a part of the status bar of the frame that `window` belongs to. A text that stands there already is not
// written again, which would flicker.
void ShowStatus(HWND window, StatusPart part, const std::string& text);
