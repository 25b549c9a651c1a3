// The field of a dialog in which a user names verses.
#pragma once

#include <string>

#include "scripture/reference_parser.h"
#include "win32/windows_api.h"

enum class Asked { kVerse, kRange };

// Puts `text` into the field and lets no more be typed than the parser takes.
void FillReferenceField(HWND dialog, int field, const std::string& text);

// The verses that the field names when the user presses OK; one verse is a range of its own. Not ok where there is
// nothing to do with it: an empty field has closed the dialog as Cancel would; of one that is not understood the user
// has been told, and may type it anew.
ParsedRange TakeReference(HWND dialog, int field, Asked asked);
