// What was chosen in the dialog Export Notes the last time.
#pragma once

struct ExportChoices {
    int Format = 0;  // its number in NoteFormats (exchange/note_formats.h); any other number means the first one
    int VerseTexts = 0;
};
