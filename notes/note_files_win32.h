// The program's note sets and their files in the working directory.
#pragma once

#include <string>

#include "notes/note_sets.h"
#include "notes/note_time.h"

extern NoteSets theNoteSets;

// Files in `folder`, a full path that must outlive the result.
NoteFiles NoteFilesIn(std::wstring& folder);

// Files in the working directory. If nothing can be written there, they are read and never changed
// (notes/read_only_files.h).
const NoteFiles& TheNoteFiles();

// The system's time and, in the user's time zone, its day.
NoteTime NoteTimeNow();
