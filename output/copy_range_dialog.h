// The dialogs that ask which verses leave the program as text: Copy Verse, Copy Range, Save Range.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

inline constexpr int kWithoutNotes = -1;

struct OfferedNoteSets {
    std::vector<std::string> names;
    int current = 0;  // chosen when the dialog opens
};

struct RangeToSave {
    ParsedRange range;
    std::string path;             // of the file
    int noteSet = kWithoutNotes;  // whose notes are to be saved with it, an index into the names offered
};

// Each asks over `frame`, starting with `currentVerse`; none where the user cancels or clears the field. Save Range
// asks for the file too.
std::optional<ParsedRange> AskVerseToCopy(HWND frame, int currentVerse);
std::optional<ParsedRange> AskRangeToCopy(HWND frame, int currentVerse);
std::optional<RangeToSave> AskRangeToSave(HWND frame, int currentVerse, const OfferedNoteSets& noteSets);
