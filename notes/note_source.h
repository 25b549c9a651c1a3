// The notes of one set, verse by verse, for a range that is saved or printed, or for a search. Reads the set's data
// file in large steps; the current set and the note shown stay as they are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "notes/note_sets.h"

inline constexpr char kCannotOpenNotes[] = "Could not open notes file";

enum class NoteFound { kNone, kNote, kUnreadable };

// Where the notes of a range come from.
struct NoteSource {
    void* device = nullptr;  // handed back
    // Puts the text of the verse's note into `note`; leaves it alone where there is none or it cannot be read.
    NoteFound (*noteOf)(void* device, int verse, std::string& note) = nullptr;
};

// A source over the files of a set. Starts as {files, set}.
struct NoteReader {
    const NoteFiles& files;
    const NoteSet& set;
    std::uint64_t windowOffset = 0;  // in the data file
    std::vector<unsigned char> window{};
};

// Can the set's data file be opened?
bool CanReadNotes(const NoteFiles& files, const NoteSet& set);

// The source over `notes`, which must stay. A note is there as for NoteExists; its text goes up to its first NUL, at
// most 65,536 characters.
NoteSource SourceOf(NoteReader& notes);
