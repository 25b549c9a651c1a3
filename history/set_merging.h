// Merging a note set into another one: reading both and planning the merge, and carrying the plan out. The set that is
// merged is called the copy.
//
// First the copy's history is added to the set's, then the set's notes are replaced in one step (notes/set_texts.h),
// which keeps what they were, and then the copy's files are moved into the folder of backups. Whenever the program or
// the system stops, the set has its old or its new notes, and the copy is there until they are the new ones. A merge
// that was stopped can be done again and then changes nothing that it had done before.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "history/note_merge.h"
#include "notes/note_sets.h"
#include "notes/note_time.h"

struct SetMerge {
    std::string copy, set;                                 // names
    std::vector<MergedNote> notes;                         // those that are not equal
    int equalNotes = 0;                                    // notes that both have, not counting empty ones
    NoteFileStamp copyStamp{}, dataStamp{}, indexStamp{};  // of the copy's data file and the set's files when read
};

// Reads two sets, of which the copy may lack an index file, and plans their merge. The states of the set are its
// history, those of the copy and of conflicts (notes/conflict_copies.h), and the set's backups. nullopt if one of the
// data files cannot be read or is not whole.
std::optional<SetMerge> PlanSetMerge(const NoteFiles& files, const std::string& copy, const std::string& set);

enum class SetMergeEnd {
    kMerged,
    kChangedOnDisk,  // nothing was written: a file has changed since it was read
    kCannotWrite,    // the set is as it was
    kNotMovedAway,   // merged, but the copy is still there, because another program has it open
};

// Carries out the plan. Afterwards the copy is not among `notes` any more, and the current set is the same one or, if
// it was the copy, the set. If the copy has a devotional table and the set has none, it becomes the set's.
SetMergeEnd MergeSets(const NoteFiles& files, NoteSets& notes, const SetMerge& merge, const NoteTime& now);

// Puts away what conflicts have left beside data files of which there is only one: index files are moved into the
// folder of backups, and histories are added to the set's.
void PutAwayHalfCopies(const NoteFiles& files);
