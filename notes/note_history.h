// Earlier states of notes: texts that a save replaced, and edits that were never saved.
//
// They are in the file "backup/NAME.nmh" of the set NAME. Integers are little-endian, times are seconds since 1970 in
// UTC:
//   offset 0    8 bytes   "VWNH", then the version of the format, 1, as a 32-bit integer
//   then records:
//     4 bytes   size of the rest of the record, from the checksum to the text's last byte
//     4 bytes   CRC-32 (polynomial EDB88320, as in zlib) of everything behind it in the record
//     8 bytes   time at which the text was kept
//     4 bytes   verse index, 0 to 31101
//     4 bytes   reason (KeptReason)
//     the text, at most 65,533 bytes of the set's own encoding, without a NUL
//
// Texts are only ever appended, so keeping one costs the same however long the file is. Bytes that are no record with
// its checksum, for example the last record when the program or the system stopped while it was being written, are
// skipped up to the next record, and are left out when the file is rewritten.
//
// Kept are all texts of the last 90 days, then the last text of each verse and month, and at most 64 MB for each set:
// beyond that the oldest ones are dropped, and before them those of deleted sets, which are also copied as a whole
// (notes/note_backup.h). Whether a text has to go is only examined each time that the file has grown by 4 MB, and the
// file is rewritten (notes/whole_files.h) only when that drops a quarter of it.
//
// A file of a newer version is neither read nor changed. A file that is no history at all, or a folder of that name,
// is renamed to "NAME.nmh.damaged" when the first text has to be kept.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "notes/note_files.h"

inline constexpr std::uint64_t kHistoryLimit = std::uint64_t{64} << 20;
inline constexpr std::uint64_t kHistoryStep = std::uint64_t{4} << 20;  // growth after which texts may be dropped

// Why a text was kept. The numbers are those in the file.
enum class KeptReason : std::uint32_t {
    kReplaced = 1,     // a save put another text in its place
    kNotSaved = 2,     // an edit whose save failed
    kCancelled = 3,    // an edit that was cancelled
    kInterrupted = 4,  // an edit that was open when the program ended, and that the user did not continue
    kDeleted = 5,      // its set was deleted
    kLeftOver = 6,     // found in the temporary file of a failed save
    kMerged = 7,       // a merge of two sets put another text in its place
    kRestored = 8,     // an earlier state of the set took its place
    kImported = 9,     // an import put another text in its place
};

// Was it the text of a note in the set? Drafts that were never saved, for example, were not.
constexpr bool WasInSet(KeptReason reason) {
    return reason == KeptReason::kReplaced || reason == KeptReason::kMerged || reason == KeptReason::kRestored ||
           reason == KeptReason::kImported;
}

struct EarlierNote {
    std::int64_t time = 0;  // seconds since 1970, UTC
    int verse = 0;
    KeptReason reason = KeptReason::kReplaced;
    std::string text;  // without NULs; may be empty
    bool operator==(const EarlierNote&) const = default;
};

// "backup/NAME.nmh"
std::string HistoryFileName(const std::string& setName);

// Appends the texts, each up to its first NUL, to the history of the set named `setName`; the file and its folder are
// created if they are missing. A text that is too long for a record is kept in several. False if the texts could not
// all be written, for example because the disk is full; callers go on in any case. No exception if memory runs out.
bool KeepEarlierNotes(const NoteFiles& files, const std::string& setName, std::span<const EarlierNote> texts);

// The texts of the verse in the set's history, latest first; of the same second, the last one kept first. Empty if
// there is no history.
std::vector<EarlierNote> EarlierNotesOf(const NoteFiles& files, const std::string& setName, int verse);

// All texts of the set's history, oldest first.
std::vector<EarlierNote> AllEarlierNotes(const NoteFiles& files, const std::string& setName);

// Gives the history of the set `from` to the set `to`. If `to` has one already, from a deleted set of that name, the
// texts are added to it. False if some are still under the old name, from which nothing was removed then.
bool MoveEarlierNotes(const NoteFiles& files, const std::string& from, const std::string& to);
