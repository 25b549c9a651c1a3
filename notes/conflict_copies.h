// Conflict copies of note sets, which are left by programs that keep a folder in step between machines.
//
// When a set was changed on two machines before the change of one reached the other, both versions stay in the folder.
// One keeps its name NAME, and the files of the other one are renamed:
//   NAME.sync-conflict-20240501-120000-ABCDEFG        Syncthing
//   NAME (Anna's conflicted copy 2024-05-01)          Dropbox; also "(conflicted copy 2024-05-01 120000)"
//   NAME_conflict-20240501-120000                     ownCloud
//   NAME (SFConflict anna@home 2024-05-01-12-00-00)   Seafile
//   NAME-DESKTOP1, NAME-DESKTOP1-2                    OneDrive: the name of a machine
//   NAME (1)                                          Google Drive
// The last two are only likely: a user may have chosen such a name for a set.
//
// Each file is renamed by itself. So the data file, the index file and the history of a copy may be there alone, or
// with different times in their names. A copy is a data file: its index can be made again, and a history belongs to the
// set however the copy is named. An index file alone says nothing, and is no note set.
//
// When a copy is merged, its files are moved into the folder of backups with " merged", " merged 2" and so on behind
// their names; a file of such a name is no conflict copy any more.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_files.h"

inline constexpr char kMergedEnding[] = " merged";

struct ConflictName {
    std::string set;         // the set that it is a copy of, as it is named among the sets
    bool isCertain = false;  // no user gives such a name
    bool operator==(const ConflictName&) const = default;
};

// Which of `sets` is a set, or a file of a set, with the name `name` a conflict copy of? Both are without endings;
// capital letters do not matter. nullopt if it is of none. Of several the one with the longest name counts, and a copy
// of a copy is a copy of the set.
std::optional<ConflictName> ConflictNameOf(std::string_view name, std::span<const std::string> sets);

struct ConflictCopy {
    std::string name;  // of its data file, without the ending
    ConflictName of;
};

// The copies in the working directory that have a data file, by name; the second one, among such names in a listing.
std::vector<ConflictCopy> FindConflictCopies(const NoteFiles& files);
std::vector<ConflictCopy> ConflictCopiesAmong(std::span<const std::string> sets);

// The set with a data file that `name` is a conflict copy of; nullopt if it is of none.
std::optional<ConflictName> ConflictCopyOf(const NoteFiles& files, std::string_view name);

// Names, without the ending, of all index files and of all histories in the folder of backups. Looking for halves of
// the copies of many sets takes one listing of each folder, and not one for each set.
struct HalfCopyNames {
    std::vector<std::string> indexes;
    std::vector<std::string> histories;
};

HalfCopyNames FindHalfCopies(const NoteFiles& files);

// Of those names, sorted: the index files that are copies of the set's but have no data file, and the histories that
// certainly are copies of its history.
std::vector<std::string> LoneIndexesOf(const NoteFiles& files, const HalfCopyNames& found, const std::string& set);
std::vector<std::string> HistoryCopiesOf(const HalfCopyNames& found, const std::string& set);

// Names, without the ending, of the files in `folder` ("" or "backup/") that end in exactly `ending`, in directory
// order.
std::vector<std::string> NamesWithEnding(const NoteFiles& files, const std::string& folder, const std::string& ending);
