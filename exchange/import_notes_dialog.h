// The dialog that lists what the notes of a file or a folder would change in a set, and imports them.
#pragma once

#include <optional>
#include <string>

#include "win32/windows_api.h"

struct ImportedNotes {
    int set = 0;  // the number of the set that has got them
    bool isNewSet = false;
    std::string report;  // the sentence for the status bar
};

// Opens the dialog over `frame`. Nothing is written before its button Import. nullopt if nothing was imported.
std::optional<ImportedNotes> AskImport(HWND frame);
