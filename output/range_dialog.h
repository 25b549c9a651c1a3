// What the dialogs have in common that ask which verses leave the program: a field for a verse or a range, a button for
// the format, and a choice of notes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "scripture/reference_field_win32.h"
#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

struct RangeDialog {
    const char* resource;
    const char* helpTopic;
    Asked asked;
    BookForm bookForm = BookForm::kAbbreviation;  // of the current verse, with which the field starts
    bool asksForFile = false;
};

inline constexpr int kWithoutNotes = -1;

struct OfferedNoteSets {
    std::vector<std::string> names;
    int current = 0;  // chosen when the dialog opens
};

struct AskedRange {
    ParsedRange range;
    std::string path;             // of the file, where one is asked for
    int noteSet = kWithoutNotes;  // whose notes are to go with it, an index into the names offered
};

// Asks over `frame`, starting with `currentVerse`; none where the user cancels or clears the field. `noteSets` is null
// for a dialog that has no choice of them.
std::optional<AskedRange> AskRange(HWND frame, const RangeDialog& kind, int currentVerse,
                                   const OfferedNoteSets* noteSets);
