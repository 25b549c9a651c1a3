// Creating, renaming and deleting note sets: their files in the working directory and their entries in the table of
// sets.
//
// A set's files are changed one after the other, in an order that never combines an index with notes that it does not
// match. What remains after a failed step is described at each procedure.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "notes/note_sets.h"
#include "notes/note_time.h"

inline constexpr std::size_t kNoteSetNameLimit = 99;  // characters that a user may type
inline constexpr char kNameNotInCodePage[] =
    "The name has letters that this system's code page lacks. Choose a name without them.";
inline constexpr char kRenameFailed[] =
    "Rename failed. Make sure the note set files are not in use by another program.";
inline constexpr char kDeleteFailed[] = "Delete failed. Make sure the note files are not in use by any other programs.";
inline constexpr char kOnlyOneSet[] =
    "You only have one note set remaining. You must have at least one note set in Versewell. Create a new note set "
    "before deleting this set.";

// The name of a set from the letters that were typed; nullopt if the code page lacks one of them. Then no set can have
// that name (kNameNotInCodePage).
std::optional<std::string> SetNameOf(const NoteFiles& files, std::u16string_view typed);

// The status bar's text if there are files of a set of that name, of which the messages say nothing; otherwise empty.
std::string NameInUse(const NoteFiles& files, std::u16string_view typed);

// Creates an empty set named `name`, which goes on with the earlier notes of a deleted set of that name, and adds it as
// the last one; the current set does not change. Returns the message for the user; empty on success. Nothing changes if
// the set's files already exist, the name cannot be stored or has only blanks, or there are already kNoteSetLimit sets.
std::string CreateNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name);
std::string CreateNoteSet(const NoteFiles& files, NoteSets& notes, std::u16string_view typed);

// Why no set named `name` can be added, as a message for the user; empty if one can.
std::string ReasonAgainstNewSet(const NoteFiles& files, const NoteSets& notes, const std::string& name);

// Renames the current set to `name`: its data file, its index file and, ignoring failures, its devotional table (if it
// is the devotional set) and what a failed save left. Its earlier notes and backups (notes/note_history.h,
// notes/note_backup.h) get the new name too; if the program is stopped before, they keep the old one. Returns the
// message for the user; empty on success.
//
// If the data file cannot be renamed, nothing changes. If the index file cannot, the data file already has its new name
// and the set is unusable until the next start, which finds the notes under their new name: until then it has the name
// of its index file, is read-only and cannot be renamed again.
std::string RenameNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name);
std::string RenameNoteSet(const NoteFiles& files, NoteSets& notes, std::u16string_view typed);

// The question to ask before the current set is deleted.
std::string QuestionBeforeDeleting(const NoteSets& notes);

// Deletes the current set: its index file and, ignoring failures, its data file, its devotional table (if it is the
// devotional set) and what a failed save left. Before, the set is copied as the backup of `now`, and its notes and
// those of a failed save are put among the earlier notes; a failure of the latter is ignored, as the copy has them. Set
// 0 becomes the current one. If the set cannot be copied or the index file cannot be deleted, returns false and changes
// nothing. There must be another set.
bool DeleteNoteSet(const NoteFiles& files, NoteSets& notes, const NoteTime& now);
