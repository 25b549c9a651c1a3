// Creating, renaming and deleting note sets: their files in the working directory and their places in the table of
// sets.
//
// A set's files change one after the other, in an order that never leaves an index beside notes that it does not fit.
// What a failed step leaves is told with each procedure.
#pragma once

#include <string>

#include "notes/note_sets.h"

inline constexpr std::size_t kNoteSetNameLimit = 99;  // characters that a user may type
inline constexpr char kRenameFailed[] =
    "Rename failed. Make sure the note set files are not in use by another program.";
inline constexpr char kDeleteFailed[] = "Delete failed. Make sure the note files are not in use by any other programs.";
inline constexpr char kOnlyOneSet[] =
    "You only have one note set remaining. You must have at least one note set in Versewell. Create a new note set "
    "before deleting this set.";

// Creates an empty set named `name` and adds it as the last one; the current set stays. Gives what to tell the user;
// empty when it was created. A name whose files are there already, one that cannot be stored and a set beyond
// kNoteSetLimit leave everything as it was.
std::string CreateNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name);

// Gives the current set the name `name`: its data file, its index file, and without a look at the outcome its
// devotional table, when it is the devotional set, and what a failed save left. Gives what to tell the user; empty when
// it was renamed.
//
// Where the data file cannot be renamed, nothing changes. Where the index file cannot, the data file has its new name
// already and the set is out of use until the next start, which finds the notes under their new name: it goes by its
// index file's name, is never written and cannot be renamed again.
std::string RenameNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name);

// The question to ask before the current set is deleted.
std::string QuestionBeforeDeleting(const NoteSets& notes);

// Deletes the current set: its index file, and without a look at the outcome its data file, its devotional table, when
// it is the devotional set, and what a failed save left. Set 0 becomes the current one. False, and nothing changed,
// when the index file cannot be deleted. There must be another set.
bool DeleteNoteSet(const NoteFiles& files, NoteSets& notes);
