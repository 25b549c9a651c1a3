// Puts the notes of whole data files among the earlier notes (notes/note_history.h): those of a set that is to be
// deleted, and those that only a temporary file has.
//
// A temporary file NAME.nmd.temp beside a data file NAME.nmd is left from a save that was stopped, or that could not
// delete the old data file. It may be the only place that holds the note that was to be saved.
#pragma once

#include "notes/note_history.h"
#include "notes/note_sets.h"

// Keeps all notes of `set` that are not empty in the history of the set named `setName`. False if they could not all be
// written.
bool KeepAllNotes(const NoteFiles& files, const std::string& setName, NoteSet set, KeptReason reason,
                  std::int64_t time);

// What was found in the temporary file of a set.
struct LeftOverNotes {
    int kept = 0;           // notes that differ from the set's own and were not among the earlier notes yet
    bool isFailed = false;  // they could not be written, so that the temporary file is still there
};

// Keeps the notes of the set's temporary file that differ from those of its data file, for kLeftOver, and then removes
// the temporary file. Nothing happens if it does not exist, or if one of the two files is not whole or is in use. If
// the file cannot be removed, the next call keeps nothing twice.
LeftOverNotes KeepLeftOver(const NoteFiles& files, const std::string& setName, std::int64_t time);
