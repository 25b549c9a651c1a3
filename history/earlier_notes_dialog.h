// Earlier Notes: the texts that a note had before, and those that were never saved.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "notes/note_history.h"
#include "win32/windows_api.h"

struct NoteHistory {
    std::string title;  // of the dialog
    std::string now;    // the note as it is stored
    std::vector<EarlierNote> texts;
};

// Opens the dialog over `frame`. Returns the text that the user wants back; nullopt if the dialog was closed.
std::optional<std::string> AskEarlierNote(HWND frame, const NoteHistory& history);
