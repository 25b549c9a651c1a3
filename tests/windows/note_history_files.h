// Writes the history of a note set into the folder of a test before the program starts.
#pragma once

#include <string>
#include <vector>

#include "notes/note_history.h"
#include "tests/driver/driver.h"

// Writes backup/NAME.nmh with these texts, oldest first.
void WriteNoteHistory(const ScratchFolder& folder, const std::string& setName, const std::vector<EarlierNote>& texts);
