// The notes of one set, verse by verse, for a saved range or a search. Reads the set's data file in large steps; the
// current set and the note shown stay as they are.
#pragma once

#include <vector>

#include "notes/note_sets.h"
#include "output/saved_text.h"

// Starts as {files, set}.
struct SavedNotes {
    const NoteFiles& files;
    const NoteSet& set;
    std::uint64_t windowOffset = 0;  // in the data file
    std::vector<unsigned char> window{};
};

// Can the set's data file be opened?
bool CanReadNotes(const NoteFiles& files, const NoteSet& set);

// The source over `notes`, which must stay. A note is there as for NoteExists; its text goes up to its first NUL, at
// most 65,536 characters.
NoteSource SourceOf(SavedNotes& notes);
