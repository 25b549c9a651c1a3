// A whole note set at a time: the texts of all its notes, and a set whose notes are replaced in one step.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "notes/note_history.h"
#include "notes/note_sets.h"
#include "notes/note_time.h"

// The texts of all notes in a data file, one for each verse. False if the file cannot be read or is not whole.
bool ReadSetTexts(const NoteFiles& files, const std::string& dataFileName, std::vector<std::string>& texts);

enum class SetReplacing {
    kReplaced,
    kChangedOnDisk,  // nothing was written: the files are not as they were when the set was read
    kNotWhole,       // nothing was written: its data file is damaged
    kCannotWrite,    // the notes are as they were
};

// Replaces all notes of the set by `texts`: one for each verse, without NULs, at most kNoteTextLimit characters.
//
// Before, the set's backup of the day is made (notes/note_backup.h) and each text that changes is kept among the
// earlier notes (notes/note_history.h) with the given reason; if that is not possible, nothing is replaced. The new
// data file is put in place in one step: whenever the program or the system stops, the set has either its old or its
// new notes. The index file is rewritten behind it and otherwise made again by the next start.
SetReplacing ReplaceSetTexts(const NoteFiles& files, NoteSet& set, std::span<const std::string> texts,
                             KeptReason reason, const NoteTime& now);
