// The program's note sets and their files in the working directory.
#pragma once

#include "notes/note_sets.h"
#include "notes/note_time.h"

extern NoteSets theNoteSets;

// File access in the directory that was current at the first call, so that dialogs that change the current directory
// later do not affect the notes.
const NoteFiles& TheNoteFiles();

// The system's time and, in the user's time zone, its day.
NoteTime NoteTimeNow();
