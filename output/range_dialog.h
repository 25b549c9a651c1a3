// The dialogs that ask for verses to copy, save or print: Copy Verse, Copy Range, Save Range, Print Range. Each has a
// field for a verse or a range and a button for the format. The last two can also include the notes of a set.
#pragma once

#include <optional>
#include <string>

#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

inline constexpr int kWithoutNotes = -1;

struct AskedRange {
    ParsedRange range;
    std::wstring path;            // of the file; empty if the dialog does not ask for one
    int noteSet = kWithoutNotes;  // index of the set whose notes are included
};

// Describes one of the dialogs.
struct RangeDialog;
extern const RangeDialog kCopyVerse, kCopyRange, kSaveRange, kPrintRange;

// Opens the dialog over `frame`, initially with `currentVerse`. None if the user cancels or clears the field.
std::optional<AskedRange> AskRange(HWND frame, const RangeDialog& kind, int currentVerse);
