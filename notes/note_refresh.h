// Note sets whose files change while the program runs: their folder is synchronized, or another computer uses it.
//
// The stamps of a set's two files are compared with those of the last time, which costs one call for each. If one
// differs, the data file is scanned again. The offsets in memory become those of its notes, whether or not the index
// file matches: of the two files, one may arrive long before the other. Nothing is written; the next save writes the
// index.
//
// A set that is not checked yet is scanned, too, at its first use. If its files are those of the start and the scan
// shows something that the start would have reported, the set is marked as untold.
#pragma once

#include "notes/note_places.h"
#include "notes/note_set.h"

enum class SetRefresh {
    kUnchanged,
    kReadAgain,   // the offsets are those of the data file now on the disk; the set is read-only if that is not whole
    kUnreadable,  // the data file is missing or another program has it open: the set stays as it was last read, and
                  // its notes must not be read now. The next call tries again.
};

// Reads the set again if its files have changed, or for the first time if it is not checked yet.
SetRefresh RefreshSet(const NoteFiles& files, NoteSet& set);

// Reads the set again in any case. `data` is its data file, opened.
void ReadSetAgain(const NoteFiles& files, NoteSet& set, void* data);

// ---- Pieces of a scan -----------------------------------------------------------------------------------------------

inline constexpr std::size_t kScannedAtOnce = std::size_t{1} << 20;  // bytes

// How far the scan of a set's data file has come.
struct SetScan {
    NoteSet before{};     // the set's name and its stamps when the scan began
    NotePlaces places{};  // of the part that has been read
};

enum class ScanStep {
    kGoesOn,
    kDone,
    kChanged,     // the files have changed since the scan began
    kCannotOpen,  // the data file
};

SetScan BeginScan(const NoteFiles& files, const std::string& dataFileName);

// Reads the next kScannedAtOnce bytes, while other programs may read the file, too. It is not open between two pieces.
ScanStep ScanNextPiece(const NoteFiles& files, SetScan& scan);

// Gives the set what its scan, which is done, has found.
SetRefresh TakeScan(const NoteFiles& files, NoteSet& set, SetScan& scan);

// Has an unfinished rename left the set without a data file (notes/note_set_changes.h)?
bool HasNoDataFile(const NoteSet& set);
