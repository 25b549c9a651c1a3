// The note sets' files in the working directory.
#pragma once

#include "notes/note_files.h"

// The directory that is current at the first call; a dialog that changes it later leads no note astray.
NoteFiles WorkingFolderNoteFiles();
