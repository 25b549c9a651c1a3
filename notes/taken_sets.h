// Taking over the note sets of another folder, such as that of an older copy of the program: they are copied, and the
// folder stays as it is.
//
// Everything is taken or nothing. First all files are copied to the working directory as "Versewell.taken-001.temp" and
// so on; then their names are written to "Versewell.taken", one to a line, in the order of these numbers; then they get
// their names and "Versewell.taken" is removed. So a run that is stopped before that file is there has taken nothing,
// and what one that is stopped later has not done is done by the next start.
//
// A set "My Notes" takes the place of the one that the program itself has made, if that is as it was made: then its
// data file and its index file are replaced, each in one step.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_files.h"

inline constexpr char kTakenList[] = "Versewell.taken";

// What there is to take over.
struct SetsToTake {
    std::vector<std::string> sets;     // their names
    std::vector<std::string> present;  // those that are left out: the working directory has files of that name already
    std::size_t here = 0;              // how many sets the working directory has already and keeps
    bool replacesFirstSet = false;     // one of `sets` takes the place of the program's own empty "My Notes"
    std::vector<std::string> files;    // of `sets`, and backups and earlier notes of names that are not in use there
    std::vector<std::u16string> unnamed;  // data files that are left out: NoteFiles has no name for them
};

// Looks for the sets in `from` that `to`, the working directory, lacks. The files `others` are taken too if only `from`
// has them. `unnamed` is left to the caller, who can see such files.
SetsToTake FindSetsToTake(const NoteFiles& from, const NoteFiles& to, std::span<const std::string> others);

// `text` with three points for what is in the middle, if it has more than `limit` letters.
std::u16string WithoutMiddle(std::u16string_view text, std::size_t limit);

// The sets that were found, as lines for the user, and those that are left out, with the reason; empty if there are
// neither. If there would be more sets than can be shown, it says so.
std::u16string TextOfSetsToTake(const CodePage& page, const SetsToTake& found);

// One line for the user about sets that were taken, and the data files that could not be.
std::u16string TextOfTakenSets(const SetsToTake& found);

enum class SetTaking {
    kTaken,
    kCannotRead,   // a file could not be read, or was changed meanwhile; nothing was taken
    kCannotWrite,  // there is no room, for example; nothing was taken
    kNotFinished,  // some files could not get their names; the next start tries again
};

// Takes what was found. No file of `to` is written over but those of an empty "My Notes".
SetTaking TakeSets(const NoteFiles& from, const NoteFiles& to, const SetsToTake& found);

// Finishes what a former run has left, or removes it if it has taken nothing. The list may have been written by anyone:
// a copy gets no other name than such as notes and settings have, in this folder or that of the backups. To be called
// at each start, before the sets are opened. False if it is still not finished.
bool FinishTaking(const NoteFiles& files);

// Is there no note set in the working directory, nor anything that may become one?
bool HasNoSets(const NoteFiles& files);
