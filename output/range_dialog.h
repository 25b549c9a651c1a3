// The dialogs that ask which verses leave the program: Copy Verse, Copy Range, Save Range, Print Range. Each has a
// field for a verse or a range and a button for the format; the last two have a choice of notes.
#pragma once

#include <optional>
#include <string>

#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

inline constexpr int kWithoutNotes = -1;

struct AskedRange {
    ParsedRange range;
    std::string path;             // of the file, where one is asked for
    int noteSet = kWithoutNotes;  // whose notes are to go with it
};

// A way to ask, one row each.
struct RangeDialog;
extern const RangeDialog kCopyVerse, kCopyRange, kSaveRange, kPrintRange;

// Asks over `frame`, starting with `currentVerse`; none where the user cancels or clears the field.
std::optional<AskedRange> AskRange(HWND frame, const RangeDialog& kind, int currentVerse);
