// Reference fields of dialogs, and the dialogs that ask for a verse to go to.
#pragma once

#include <string>

#include "scripture/reference_meaning.h"
#include "win32/dialogs.h"

// Puts `text` into the field and limits the input to the length that the parser accepts.
void FillReferenceField(HWND dialog, int field, const std::string& text);

// The line below such a field, in its dialog's row: ReferenceMeaning of what is typed, in IDC_REFERENCE_MEANING.
Meaning MeaningOfReference(int field, Asked asked);

// Returns the verses that the field names when the user presses OK; a single verse is a range of one. Not ok if there
// is nothing to do: for an empty field the dialog has been closed as with Cancel; for an unrecognized reference the
// user has been told and the dialog stays open.
ParsedRange TakeReference(HWND dialog, int field, Asked asked);

struct VerseDialog {
    const char* resource;
    const char* helpTopic;
    std::string start;        // initial text of the field
    void (*take)(int verse);  // called while the dialog is still on the screen
};

// Asks over `frame` for a verse. On Cancel or an empty field `take` is not called.
void AskVerse(HWND frame, const VerseDialog& dialog);
