// Checking note sets after the start, piece by piece, while the program has nothing else to do. What the start leaves
// to it is explained in notes/note_recovery.h.
#pragma once

#include "notes/note_refresh.h"
#include "notes/note_sets.h"

// How far the checks have come.
struct SetCheck {
    SetScan scan{};  // of the set that is being checked; without a name if there is none
    int tries = 0;   // of that set before this scan
};

// Reads the next piece (kScannedAtOnce) of the first set that is not checked yet, beginning with the current one. A set
// that cannot be read is left to its first use, but is untold if its data file is missing. False if all sets are
// checked.
bool CheckNextPiece(const NoteFiles& files, NoteSets& notes, SetCheck& check);
