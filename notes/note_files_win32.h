// The program's note sets and their files in the working directory.
#pragma once

#include "notes/note_sets.h"

extern NoteSets theNoteSets;

// The directory that was current at the first call; a dialog that changes it later leads no note astray.
const NoteFiles& TheNoteFiles();
