// Earlier states of whole note sets: the dated copies in the folder "backup" (notes/note_backup.h), also of sets that
// have since been deleted or renamed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_backup.h"
#include "notes/note_sets.h"

// The copies, latest first; those of one time by the name of the set.
std::vector<SetBackup> SetStates(const NoteFiles& files);

// Is there a copy of the set that is whole?
bool HasWholeState(const NoteFiles& files, const std::string& setName);

// All notes of a set in memory.
struct NotesInMemory {
    std::vector<unsigned char> bytes;    // of the data file
    std::vector<std::uint32_t> offsets;  // of the notes in it, fewer than verses if it is damaged
    bool isWhole = false;
};

// Reads a data file; the notes are found by their NULs, so no index file is needed. False if it cannot be read, also
// for want of memory.
bool ReadNotesInMemory(const NoteFiles& files, const std::string& dataFileName, NotesInMemory& notes);

// The same for a set of the program, whose own offsets are used if its data file is damaged.
bool ReadNotesInMemory(const NoteFiles& files, const NoteSet& set, NotesInMemory& notes);

// The text of a verse's note up to its first NUL; empty if there is none. It refers to `notes`.
std::string_view NoteIn(const NotesInMemory& notes, int verse);

// The verses whose notes differ, in order.
std::vector<int> DifferingVerses(const NotesInMemory& then, const NotesInMemory& now);

// The set of this name (SetNamed); null if there is none.
NoteSet* SetCalled(NoteSets& notes, const std::string& name);

// Brings a whole state back as the set `name`. Returns the message for the user; empty on success.
//
// If `name` is the state's own and there is a set of that name, its notes are replaced. What is in it now is first
// copied into the folder "backup", and each text that is replaced is kept among the earlier notes: without the copy
// nothing is replaced, unless the set's data file is missing. The data file is then replaced in one step and the index
// rewritten, so that a kill or a power cut at any moment leaves the old or the new set (notes/note_recovery.h). Any
// other name must be one that a new set can have; it is added as the last one. A table of readings that the copy has
// comes back with it, unless another set now holds the readings.
//
// Nothing changes if the copy is damaged or unreadable, the name belongs to another set or cannot be stored, there are
// too many sets, or the files cannot be written. If only the table of readings cannot be written, the message says so.
// The current set stays the same.
std::string RestoreSetState(const NoteFiles& files, NoteSets& notes, const SetBackup& state, const std::string& name,
                            const NoteTime& now);
