// Carrying out the plan of an import.
//
// All notes are replaced in one step (notes/set_texts.h): whenever the program or the system stops, the set has its old
// or its new notes. What is replaced is first put among the earlier notes, and the set's backup of the day is made.
#pragma once

#include <string>

#include "exchange/import_plan.h"
#include "notes/note_time.h"

enum class ImportEnd {
    kImported,
    kChangedOnDisk,  // nothing was written: the set has changed since the plan was made
    kReadOnly,       // nothing was written: the set's data file is damaged
    kCannotWrite,    // the set is as it was: the disk is full, or the files can only be read
};

struct ImportResult {
    ImportEnd end = ImportEnd::kImported;
    int written = 0;   // notes of the set that have changed
    int setAside = 0;  // imported notes that could not be joined with the set's, because they are too long together or
                       // have bytes that are no letters: they are among the earlier notes of their verses
};

// Does with each note what the plan says. A plan that was carried out and is made again has nothing left to do.
ImportResult ImportNotes(const NoteFiles& files, NoteSets& notes, const ImportPlan& plan, const NoteTime& now);
