// The program's note sets and their files in the working directory.
#pragma once

#include "notes/note_sets.h"

extern NoteSets theNoteSets;

// File access in the directory that was current at the first call, so that dialogs that change the current directory
// later do not affect the notes.
const NoteFiles& TheNoteFiles();
