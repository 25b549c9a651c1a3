// What a merge of two note sets does with each note: with a copy of a set, which was made by a program that keeps a
// folder in step between machines, or with any other set.
//
// Notes that are equal pass. If only one of the two was changed since both were the same, the changed one is taken,
// also if it was emptied; if both were, the note gets both texts (notes/joined_texts.h). Where they were the same is
// known from the earlier states of the sets:
//   - Each machine adds to its history what its saves replaced. So the first text of a verse that only one of the
//     histories has is the text that both sets had before. If only the set's own history has texts of its own, it may
//     also have gone back to that text.
//   - Otherwise a text that is among the earlier ones was left behind by the set whose text is not.
//   - A backup of the set shows what it was like that day. That the copy began with it is only known of the copy of a
//     conflict that was written after the backup.
// If none of them tells, both are taken to have been changed; an empty note then counts as one that was never written.
// The first text of a note leaves no trace in a history. So the set's note is only emptied if the history of the copy
// has its text; otherwise the copy may be older than the note.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "notes/note_history.h"

// The earlier states that are known of two sets.
struct EarlierStates {
    std::vector<std::vector<EarlierNote>> histories;  // that of the set that is merged into, then others; oldest first
    std::vector<std::vector<std::string>> backups;    // of that set, oldest first: one text for each verse
    bool isConflictCopy = false;                      // the other set is a copy of it that a conflict has left,
    bool isAfterBackups = false;                      // written after the oldest of the backups
};

enum class MergeKind {
    kStays,     // only the set's note was changed, or it already has both texts
    kFromCopy,  // only the copy's note was changed
    kBoth,      // both texts
    kTooLong,   // both texts are longer than a note can be, or cannot be put into one: the set's stays, the copy's is
                // kept among the earlier notes
};

struct MergedNote {
    int verse = 0;
    MergeKind kind = MergeKind::kStays;
    std::string mine, other;  // the note in the set and in the copy
    std::string result;       // the note after the merge
    bool operator==(const MergedNote&) const = default;
};

// The notes that are not equal in both sets, by verse. Both have one text for each verse, as it is stored.
std::vector<MergedNote> PlanMerge(const CodePage& page, std::span<const std::string> mine,
                                  std::span<const std::string> other, const EarlierStates& states);
