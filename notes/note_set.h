// One note set: a named set with one note for every verse.
//
// A set named NAME has two files in the working directory, without headers, integers little-endian:
//   NAME.nmi   31,102 unsigned 32-bit integers: the offset in NAME.nmd of each verse's note. The first is 0, and they
//              never decrease.
//   NAME.nmd   the notes back to back in verse order: 8-bit text, lines ended by CR LF, then one NUL. An empty note is
//              only a NUL. A note's stored length (text and NUL) is the next verse's offset minus its own; the last
//              verse's note ends with the file.
// One set may also have
//   NAME.dti   the devotional table: 12 months x 31 days x (morning, evening), unsigned 32-bit verse indexes, 2,976
//              bytes. Every month has 31 slots.
//
// A note has at most 65,533 characters.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "notes/note_files.h"

inline constexpr std::size_t kNoteBufferSize = 65536;

struct NoteSet {
    std::string dataFileName;                 // the set's name and ".nmd"
    std::vector<std::uint32_t> offsets{};     // where its notes are in the data file, at most one per verse
    NoteFileStamp dataStamp{}, indexStamp{};  // of its files when last read or written
    bool readOnly = false;                    // its data file is not whole: saving would lose notes
    unsigned timesChanged = 0;                // how often the offsets have changed since the start
    bool isUnchecked = false;                 // so far only the end of its data file has been compared with its index
    bool isUntold = false;  // its check has found something that has not been told (notes/note_recovery.h)
};

// Name of a set: its data file's name up to the last ".".
std::string NoteSetName(const NoteSet& set);

// The name of the set's index file.
std::string IndexFileName(const NoteSet& set);

// Stores the current stamps of the set's files.
void StampFiles(const NoteFiles& files, NoteSet& set);

// The set with this data file, whatever its index file holds: its offsets are those of its notes. nullopt if the data
// file is not whole or cannot be opened.
std::optional<NoteSet> ReadWholeSet(const NoteFiles& files, const std::string& dataFileName);

// A set of empty notes, not yet on the disk.
NoteSet EmptyNoteSet(const std::string& name);

// Creates the data file of such a set, then its index file, and returns how many of the two were created. Without the
// data file no index file is created.
int CreateNoteFiles(const NoteFiles& files, NoteSet& set);

// Does the set have a note for `verse`, with a stored length above 1? For the last verse the file's size is used. The
// answer is that of the files when they were last read.
bool NoteExists(const NoteFiles& files, const NoteSet& set, int verse);

// The position of a verse's note in the data file according to the index, which may be damaged. The length is 0 if the
// index has no entry.
struct StoredNote {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;  // text and NUL; for the last verse only an upper limit for reading
};
StoredNote StoredNoteOf(const NoteSet& set, int verse);
