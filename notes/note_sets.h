// Note sets: for every verse one note, in named sets.
//
// A set named NAME is two files in the working directory, without headers, integers little-endian:
//   NAME.nmi   31,102 unsigned 32-bit integers: where in NAME.nmd the note of each verse begins. The first is 0, they
//              never decrease.
//   NAME.nmd   the notes back to back in verse order: 8-bit text, lines ended by CR LF, then one NUL. An empty note is
//              a NUL alone. A note's stored length (text and NUL) is the next verse's offset less its own; the last
//              verse's note ends with the file.
// One set may also have
//   NAME.dti   the devotional table: 12 months x 31 days x (morning, evening), unsigned 32-bit verse indexes, 2,976
//              bytes. Every month has 31 slots.
//
// A note holds at most 65,533 characters.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "notes/note_files.h"
#include "scripture/verse_records.h"

inline constexpr int kNoteSetLimit = 31;
inline constexpr std::size_t kNoteBufferSize = 65536;
inline constexpr int kNoDevotionalSet = -1;
inline constexpr char kFirstSetName[] = "My Notes";
inline constexpr char kCannotCreateNotes[] = "Error creating note files";
inline constexpr char kCannotReadNote[] = "Error reading note file";

struct NoteSet {
    std::string dataFileName;                 // the set's name and ".nmd"
    std::vector<std::uint32_t> offsets{};     // as read: what the file holds, at most one a verse
    NoteFileStamp dataStamp{}, indexStamp{};  // of its files when they were last read or written
    bool readOnly = false;                    // its data file is not whole: to save would lose what it holds
};

struct NoteSets {
    std::vector<NoteSet> sets;
    int currentSet = 0;  // changed by SelectSet
    int currentVerse = 0;
    std::string noteText;  // text of the current note, or the line that says that there is none
    int devotionalSet = kNoDevotionalSet;
    std::array<std::uint32_t, 12 * 31 * 2> devotionalTable{};
};

// Name of a set: its data file's name up to the last ".".
std::string NoteSetName(const NoteSet& set);

// The name of the set's index file.
std::string IndexFileName(const NoteSet& set);

// Remembers what the set's files are like now.
void StampFiles(const NoteFiles& files, NoteSet& set);

// A set of empty notes, not on the disk yet.
NoteSet EmptyNoteSet(const std::string& name);

// Creates the data file of such a set, then its index file, and gives how many of the two were created: where the data
// file cannot be, no index is laid beside it.
int CreateNoteFiles(const NoteFiles& files, NoteSet& set);

// Finds the sets of the working directory in listing order, at most kNoteSetLimit, each with its devotional table if
// it has one (a later one takes the role). A `.nmi` that cannot be opened ends the search. With no set found, creates
// "My Notes", the data file before the index file. False when one of them could not be created: then the other is not
// touched any more, and the set is there all the same, in memory.
bool FindNoteSets(const NoteFiles& files, NoteSets& notes);

// Makes `set` the current one, 0 where it is out of range. All changes of the current set go through here.
void SelectSet(NoteSets& notes, int set);

// The current set; null when there are no sets.
const NoteSet* CurrentSet(const NoteSets& notes);
NoteSet* CurrentSet(NoteSets& notes);

// Selects the set and the verse that the settings held; either becomes 0 where it is out of range.
void SelectStoredNote(NoteSets& notes, int set, int verse);

// Reads the note of `verse` (clamped to 0..31101) in the current set into `noteText`, up to its first NUL, at most
// 65,535 characters; an empty note, as one that a damaged index does not show, gives "No note for Genesis 1:1." The
// current verse becomes `verse`. False, and nothing changed, when the data file cannot be opened.
bool ReadNoteText(const NoteFiles& files, const VerseRecords& records, NoteSets& notes, int verse);

// Reads the current verse's note in the current set as it is stored, up to its first NUL, at most 65,535 characters;
// empty where there is none. False when the data file cannot be opened.
bool ReadStoredNote(const NoteFiles& files, const NoteSets& notes, std::string& text);

// Has the set a note for `verse`: a stored length above 1? The last verse's is taken from the file's size.
bool NoteExists(const NoteFiles& files, const NoteSet& set, int verse);

// The same for the current set.
bool NoteExists(const NoteFiles& files, const NoteSets& notes, int verse);

// Where the note of `verse` lies in its set's data file, as the index says: a damaged one may say anything. No length
// where the index has none.
struct StoredNote {
    std::uint64_t offset = 0;
    std::uint64_t length = 0;  // text and NUL; the last verse's only says how much to ask for
};
StoredNote StoredNoteOf(const NoteSet& set, int verse);

// The next or previous verse, round the end of the Bible, that has a note; the neighbouring verse when no other has.
int NextNote(const NoteFiles& files, const NoteSets& notes);
int PreviousNote(const NoteFiles& files, const NoteSets& notes);

// ---- Marks on the tabs of the sets ----------------------------------------------------------------------------------
// They show which sets have a note for the verse of the Verse List and for that of the Passage.

// Where the panes stand.
struct MarkedPlace {
    int listPosition = kNoVerse;  // entry at the Verse List's top; -1 when it is empty
    int listVerse = kNoVerse;     // the verse of that entry
    int passageVerse = 0;
};

// The place for which the marks stand; none yet at the start.
using MarkedBefore = std::optional<MarkedPlace>;

// Is it time for new marks? The Verse List counts by its position: another list with its top at the same one leaves
// them as they are.
bool NeedsNewMarks(const MarkedBefore& before, const MarkedPlace& place);

// The label of a set's tab: "\xAB " where it has a note for the Verse List's verse, "\xBB " where it has one for the
// Passage's, and its name.
std::string MarkedLabel(const NoteFiles& files, const NoteSet& set, const MarkedPlace& place);
