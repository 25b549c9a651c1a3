// Daily backups: the state of a set before its first change of each day.
//
// Before the first save of a day, the set NAME is kept as "backup/NAME YYYY-MM-DD.nmd" and ".nmi" in the working
// directory. The backups of the last ten such days are kept. To look at an old state, copy both files from the backup
// folder into the working directory and start the program: they appear as a set named "NAME YYYY-MM-DD".
//
// The data file takes no time or space to keep on a file system with hard links: a save never writes into a data file,
// it replaces it with a new one.
#pragma once

#include <string>

#include "notes/note_sets.h"

// Keeps the current files of `set` unless there already is a backup of `today` ("2024-12-31"), and removes the set's
// backups of all but the last ten days. Failures are ignored, so that a save can continue. A file that cannot be copied
// completely is not kept.
void KeepBackup(const NoteFiles& files, const NoteSet& set, const std::string& today);
