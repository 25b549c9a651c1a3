// Which notes name a verse: an index of the references in all notes of all sets, those of "#" lines
// (notes/cross_references.h) as well as those in running text (notes/references_in_text.h).
//
// It is made piece by piece while the program has nothing else to do, is in memory only, and follows the sets: a set
// whose data file is another one than the index was made of, by its stamp, is indexed anew, and one that is gone, or
// has got another name, is forgotten. Of a note that is saved, only its own entries are replaced.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_sets.h"
#include "notes/references_in_text.h"

// Verse indexes: the note of `note` names the verses from `first` to `last`.
struct NamedVerses {
    std::uint16_t note = 0, first = 0, last = 0;
};

struct SetReferences {
    std::string dataFileName{};        // of the set
    NoteFileStamp dataStamp{};         // of the file that was read
    unsigned timesChanged = 0;         // of the set at that time
    int next = 0;                      // the first verse whose note is not indexed yet; kVerseCount behind the last
    std::vector<NamedVerses> named{};  // by note, then by verse; those of a note do not touch each other
};

struct ReferenceIndex {
    Chapters chapters;
    std::vector<SetReferences> sets{};  // in the order of the sets, once IndexSome has been called
};

// An empty index.
ReferenceIndex ReferenceIndexFor(const VerseRecords& records);

// A piece that takes a few milliseconds: bytes of notes, or what takes as long.
inline constexpr std::size_t kIndexedAtOnce = std::size_t{1} << 18;

// Indexes the next notes, about `budget` bytes of them, and looks whether the files of their set have changed. A set
// that is not checked yet (notes/set_checks.h) has to wait for that, one that cannot be opened for the next call. False
// if there is nothing to do now: all notes are indexed (IsWhole), or their sets have to wait.
bool IndexSome(const NoteFiles& files, const VerseRecords& records, NoteSets& notes, ReferenceIndex& index,
               std::size_t budget);

// Are all notes of all sets indexed, as the sets were last read?
bool IsWhole(const ReferenceIndex& index, const NoteSets& notes);

// How many sets have notes that are not.
int UnindexedSets(const ReferenceIndex& index, const NoteSets& notes);

// How many verses' notes have been indexed, of all sets.
int IndexedVerses(const ReferenceIndex& index);

// Replaces the entries of the note that was just saved as the note of `verse` in the set: `text` is as it is stored. If
// the saving has read the set again, the set is indexed anew.
void IndexSavedNote(const VerseRecords& records, const NoteSets& notes, ReferenceIndex& index, int set, int verse,
                    std::string_view text);

struct NamingNote {
    int set = 0;  // its number among the sets
    int verse = 0;
    bool operator==(const NamingNote&) const = default;
};

// The notes that name the verse, as far as they are indexed: by the order of the sets, then by verse.
std::vector<NamingNote> NotesThatName(const ReferenceIndex& index, const NoteSets& notes, int verse);
