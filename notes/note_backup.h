// Copies of sets in the folder "backup" of the working directory:
//   NAME YYYY-MM-DD.nmd and .nmi          the state of the set NAME before its first save of that day; those of the
//   last
//                                         ten such days are kept
//   NAME YYYY-MM-DD HHMMSS.nmd and .nmi   the state at that time, before the set was deleted or another state took its
//   (and .dti)                            place; the last ten are kept, and none is removed while there is no such set
// Days and times are local. Copies of a renamed set are renamed with it. To look at an old state, copy its files from
// the backup folder into the working directory and start the program: they appear as a set of that name.
//
// A copy is complete if it has a data file: its index is copied before. The data file takes no time or space to keep on
// a file system with hard links: a save never writes into a data file, it replaces it with a new one. Older copies of
// the program do not know copies with a time and leave them alone.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "notes/note_sets.h"
#include "notes/note_time.h"

struct SetBackup {
    std::string setName;
    std::string day;    // "2024-12-31"
    std::string clock;  // "235959"; empty for the state before the first save of the day
    bool operator==(const SetBackup&) const = default;
};

// The name of the copy's files without their ending: "backup/NAME 2024-12-31".
std::string BackupName(const SetBackup& backup);

// The copies of the set, or of all sets, also of those that were deleted; latest first, those of a set together.
std::vector<SetBackup> BackupsOf(const NoteFiles& files, const std::string& setName);
std::vector<SetBackup> AllBackups(const NoteFiles& files);

// The copy as a read-only set, from which notes can be read in place. Its offsets are those of its notes, whatever its
// index file holds. nullopt if its data file is not whole or cannot be opened.
std::optional<NoteSet> OpenBackup(const NoteFiles& files, const SetBackup& backup);

// Keeps the current files of `set` unless there already is a copy of `today` ("2024-12-31"), and removes the set's
// copies of all but the last ten days. A set that cannot be copied completely is not kept; false if so. The index of
// today's copy is made again if it is missing.
bool KeepBackup(const NoteFiles& files, const NoteSet& set, const std::string& today);

// Keeps the current files of `set`, with its devotional table, as the state of `now`, or of the next second that has
// none, and removes all but the last ten such copies of it. nullopt if they cannot be copied completely: then there is
// no copy.
std::optional<SetBackup> KeepBackupWithTime(const NoteFiles& files, const NoteSet& set, const NoteTime& now);

void RemoveBackup(const NoteFiles& files, const SetBackup& backup);

// Renames the copies of the set `from` to those of `to`. One for which `to` has a copy already, from a deleted set of
// that name, gets the first free time of its day. Those that cannot be renamed stay as they are.
void MoveBackups(const NoteFiles& files, const std::string& from, const std::string& to);
