// The dialogs in which a user names verses: the field that they share, and those that ask for one verse to go to.
#pragma once

#include <string>

#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

enum class Asked { kVerse, kRange };

// Puts `text` into the field and limits what can be typed to what the parser takes.
void FillReferenceField(HWND dialog, int field, const std::string& text);

// The verses that the field names when the user presses OK; one verse is a range of its own. Not ok where there is
// nothing more to do: an empty field has closed the dialog as Cancel would; a field that is not understood has been
// reported, and the user may type it again.
ParsedRange TakeReference(HWND dialog, int field, Asked asked);

struct VerseDialog {
    const char* resource;
    const char* helpTopic;
    std::string start;        // what the field begins with
    void (*take)(int verse);  // gets the verse, before the dialog leaves the screen
};

// Asks over `frame` for a verse. Cancel and an empty field take none.
void AskVerse(HWND frame, const VerseDialog& dialog);
