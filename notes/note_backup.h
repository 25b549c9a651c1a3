// Yesterday's notes: the state of a set before its first change of a day.
//
// Before the first save of a day, the set NAME is kept as "backup/NAME YYYY-MM-DD.nmd" and ".nmi" in the working
// directory. The last ten such days stay. To look at an old state, copy both files from the backup folder into the
// working directory and start the program: they are a set named "NAME YYYY-MM-DD".
//
// The copy costs nothing where the disk knows second names for a file: a save never writes into a data file, it puts a
// new one in its place.
#pragma once

#include <string>

#include "notes/note_sets.h"

// Keeps the files of `set` as they are, unless there is a backup of `today` ("2024-12-31") already, and removes those
// of its days before the last ten. What fails is left: a save goes on without it. A backup that cannot be made
// whole is none.
void KeepBackup(const NoteFiles& files, const NoteSet& set, const std::string& today);
