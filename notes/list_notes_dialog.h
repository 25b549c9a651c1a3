// List Notes: asks which notes the Verse List shall show, and finds them.
#pragma once

#include <optional>
#include <string>

#include "notes/listed_notes.h"
#include "win32/windows_api.h"

// What was chosen the last time.
struct ListNotesChoices {
    std::wstring words;
    ListNotesOptions options;
};
extern ListNotesChoices theListNotes;

struct NotesToList {
    ListedNotes notes;
    ListedQuestion question;  // that they answer
};

// nullopt if the user cancels. If there are no such notes, the dialog says so and stays open.
std::optional<NotesToList> AskNotesToList(HWND frame);
