// Note-set files on Linux and its like, in a folder that the window may have under Wine at the same time: names in the
// code page are those that Wine gives them, in UTF-8, and capitals in them do not count.
#pragma once

#include <string>

#include "notes/note_files.h"
#include "notes/note_time.h"

struct PosixNoteFiles {
    std::string folder;                              // with its closing slash
    int lock = -1;                                   // the open file of the lock, if it is locked
    int locks = 0;                                   // how many have not been unlocked yet
    NoteLocking locking = NoteLocking::kImpossible;  // the result of the first of them
};

// The device for `files`, which must outlive it, with Windows-1252 as its code page. Open files are not closed to other
// programs, because the window would not see that; but it sees the lock, as Wine's locks are those of the system. One
// who still has a file open that is created anew does not write into the new one. What is created or gets another name
// is on the disk, together with its name, before the call returns.
NoteFiles DeviceOver(PosixNoteFiles& files);

// The system's time and, in the user's time zone, its day.
NoteTime PosixNoteTime();
