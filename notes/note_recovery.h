// Opening the note sets at start-up: what a stopped program, a power cut or another program left is mended first.
//
// The data file NAME.nmd is all that counts; everything else can be made from it:
//   NAME.nmd is missing, but NAME.nmd.temp is a whole data file     it takes its place: a save was stopped between
//                                                                   deleting the old file and renaming the new one
//   NAME.nmi is missing, short, torn, or of another state           it is made again from the data file
//   NAME.nmd does not hold exactly one note for each verse          it is never written: the set is read-only, so that
//                                                                   the user can rescue what is there
// A temporary file beside a data file is what is left of a save that failed; it is of no consequence. Valid files are
// only read.
//
// To tell a valid index from one of another state takes the place of every note's end, so every data file is read
// through, once a start: nothing less would notice that two notes in its middle grew and shrank by the same. It takes
// about twice as long as reading the file alone: 20 ms for a set of 60 MB that the system has in memory
// (bench/note_bench).
#pragma once

#include <string>

#include "notes/note_sets.h"

struct OpenedSets {
    bool created = true;      // as FindNoteSets gives it
    bool hasDamaged = false;  // the report tells of a set that is not whole
    std::string report;       // what was mended, for one box; empty when there is nothing to tell
};

// Mends what is to be mended and finds the sets (FindNoteSets), those too whose index file is lost. A data file that
// another program has open is taken as it is.
OpenedSets OpenNoteSets(const NoteFiles& files, NoteSets& notes);
