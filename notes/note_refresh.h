// Note sets whose files change while the program runs: their folder is synchronized, or another computer uses it.
//
// The stamps of a set's two files are compared with those of the last time, which costs one call for each. If one
// differs, the data file is scanned again. The offsets in memory become those of its notes, whether or not the index
// file matches: of the two files, one may arrive long before the other. Nothing is written; the next save writes the
// index.
#pragma once

#include "notes/note_set.h"

enum class SetRefresh {
    kUnchanged,
    kReadAgain,   // the offsets are those of the data file now on the disk; the set is read-only if that is not whole
    kUnreadable,  // the data file is missing or another program has it open: the set stays as it was last read, and
                  // its notes must not be read now. The next call tries again.
};

// Reads the set again if its files have changed.
SetRefresh RefreshSet(const NoteFiles& files, NoteSet& set);

// Reads the set again in any case. `data` is its data file, opened.
void ReadSetAgain(const NoteFiles& files, NoteSet& set, void* data);
