// What the commands of `vw notes` print with --json, each in its kind of object (cli/schema.h). Apart from them,
// because the library for JSON takes long to read.
#pragma once

#include <string>

#include "cli/opened_notes.h"
#include "cli/styled_text.h"
#include "exchange/import_lines.h"
#include "notes/note_history.h"
#include "scripture/meant_reference.h"

// `text` has marks around what was found in it.
void PrintNoteObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                     const StyledText& text);
// The same of a note that names a verse, in the verses of `reference`.
void PrintAboutObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                      const StyledText& text, const VerseSpan& reference);

void PrintReferenceObject(Vw& vw, const VerseRecords& records, int verse);
void PrintSetObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, int count);
void PrintEarlierObject(Vw& vw, const OpenedNotes& notes, std::size_t number, const EarlierNote& text);
void PrintExportedObject(Vw& vw, const OpenedNotes& notes, const NoteSet& set, std::size_t count);
void PrintImportedObject(Vw& vw, const OpenedNotes& notes, const VerseRecords& records, const PlannedNote& note);
void PrintFaultObject(Vw& vw, const std::string& text, bool isMended);
