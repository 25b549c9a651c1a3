// Notes as `vw notes` shows them, with marks around what was found in them.
#pragma once

#include <span>
#include <string>

#include "cli/opened_notes.h"
#include "cli/styled_text.h"
#include "notes/note_search.h"

// The letters of a note as it is stored, with lines that end in LF. The matches, in the order of the note, have the
// style of key words.
StyledText ShownNote(const OpenedNotes& notes, const std::string& note, std::span<const NoteMatch> matches);

// "Romans 8:28, My Notes", the text and an empty line; with --json an object.
void PrintWholeNote(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                    const StyledText& text);

// "Ro 8:28 My Notes: ", or "My Notes: Ro 8:28 ".
enum class HeadOfLine : bool { kVerseFirst, kSetFirst };

// The head and a line of the note, for each line with something that was found; without any, the first one.
void PrintLinesOfNote(Vw& vw, const OpenedNotes& notes, const NoteSet& set, const VerseRecords& records, int verse,
                      const StyledText& text, HeadOfLine head);
