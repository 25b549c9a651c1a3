// Note-set files on Linux and its like, in a folder that the window may have under Wine at the same time: names in the
// code page are those that Wine gives them, in UTF-8, and capitals in them do not count.
#pragma once

#include <string>

#include "notes/note_files.h"
#include "notes/note_time.h"

struct PosixNoteFiles {
    std::string folder;  // with its closing slash
};

// The device for `files`, which must outlive it, with Windows-1252 as its code page. Its files are not locked, because
// other programs would not see that: a save notices by the stamps what others have changed. What is created or
// gets another name is on the disk, together with its name, before the call returns.
NoteFiles DeviceOver(PosixNoteFiles& files);

// The system's time and, in the user's time zone, its day.
NoteTime PosixNoteTime();
