// The notes of one set, verse by verse, for saving or printing a range and for searches. Reads the set's data file in
// large steps and does not change the current set or the displayed note.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "notes/note_sets.h"

inline constexpr char kCannotOpenNotes[] = "Could not open notes file";

enum class NoteFound { kNone, kNote, kUnreadable };

// A source of notes.
struct NoteSource {
    void* device = nullptr;  // passed to `noteOf`
    // Stores the text of the verse's note in `note`, which is not changed if there is none or it cannot be read.
    NoteFound (*noteOf)(void* device, int verse, std::string& note) = nullptr;
    CodePage codePage{};  // of the notes that are not in UTF-8
};

// Reads the notes from the files of a set. Initialize as {files, set}.
struct NoteReader {
    const NoteFiles& files;
    NoteSet& set;                    // read again when its files have changed
    std::uint64_t windowOffset = 0;  // offset of the window in the data file
    std::vector<unsigned char> window{};
    unsigned timesChanged = 0;  // of the set, when the window was read
};

// Can the set's data file be opened? Reads the set again if its files have changed.
bool CanReadNotes(const NoteFiles& files, NoteSet& set);

// The source that reads with `notes`, which must outlive it. A note exists under the same condition as in NoteExists;
// its text ends at its first NUL, at most 65,536 characters.
NoteSource SourceOf(NoteReader& notes);
