// Earlier States: the dated copies of the note sets, what differs from today, and bringing back a note or a whole set.
#pragma once

#include <optional>
#include <string>

#include "notes/note_draft.h"
#include "win32/windows_api.h"

struct StateChoice {
    bool hasRestoredSet = false;    // the sets, their tabs and the shown note have to be shown again
    std::optional<NoteDraft> note;  // a note to be edited on
};

// Opens the dialog over `frame`, at the latest whole state of the set `setName` or, if it has none, at the latest
// of all.
StateChoice AskEarlierState(HWND frame, const std::string& setName);
