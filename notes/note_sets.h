// The note sets of the working directory, and reading their notes.
//
// The files of a set may change while the program runs, because the folder is synchronized or another computer uses it.
// Every procedure that reads notes therefore compares the stamps of the set's files first and reads the set again if
// they differ (notes/note_refresh.h).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "notes/note_files.h"
#include "notes/note_set.h"
#include "scripture/verse_records.h"

inline constexpr int kNoteSetLimit = 31;
inline constexpr int kNoDevotionalSet = -1;
inline constexpr char kFirstSetName[] = "My Notes";
inline constexpr char kCannotCreateNotes[] = "Error creating note files";
inline constexpr char kCannotReadNote[] = "Error reading note file";

struct NoteSets {
    std::vector<NoteSet> sets;
    int currentSet = 0;  // only changed by SelectSet
    int currentVerse = 0;
    std::string noteText;               // text of the current note, or the line that says there is none
    bool hasFailed = false;             // the last reading could not open the data file
    std::vector<std::string> notShown;  // names of sets that were found but are not among `sets`
    std::size_t unnamedSets = 0;        // how many sets have a name that the code page lacks letters of
    std::string closedIndex;            // index file that could not be opened, if they are not for that reason
    int devotionalSet = kNoDevotionalSet;
    std::array<std::uint32_t, 12 * 31 * 2> devotionalTable{};
};

inline constexpr std::size_t kDevotionalFileSize = sizeof(NoteSets::devotionalTable);

// Finds the sets in the working directory in listing order, at most kNoteSetLimit, each with its devotional table if it
// has one (the last one found is used). A `.nmi` that cannot be opened ends the search; one that was left by a conflict
// without a data file (notes/conflict_copies.h) is no set. The sets behind the end are `notShown`; sets whose files
// have no name for the program are `unnamedSets`, counted by their data files. If no set is found, creates "My Notes",
// the data file before the index file. False if one of them could not be created: no further file is created, but the
// set still exists in memory.
bool FindNoteSets(const NoteFiles& files, NoteSets& notes);

// A line that names the sets that are not shown, or counts them if they have no name for the program, and says why;
// empty if there are none.
std::string NotShownText(const NoteSets& notes);

// Makes a set in the table the devotional one if it has a devotional table.
void ReadDevotionalTable(const NoteFiles& files, NoteSets& notes, int set);

// Makes `set` the current one, or 0 if it is out of range. All changes of the current set go through here.
void SelectSet(NoteSets& notes, int set);

// The number of the set with this name, in capitals or not; kNoSet if there is none.
inline constexpr int kNoSet = -1;
int SetNamed(const NoteSets& notes, const std::string& name);

// The set that had this number at `time`, in units of the stamps: sets whose data file is newer are not counted,
// because they may have come later. Without such a set, simply the one with this number.
int SetNumberedAt(const NoteSets& notes, int number, std::uint64_t time);

// The current set; null when there are no sets.
const NoteSet* CurrentSet(const NoteSets& notes);
NoteSet* CurrentSet(NoteSets& notes);

// Selects the set and the verse from the settings; either becomes 0 if it is out of range.
void SelectStoredNote(NoteSets& notes, int set, int verse);

// Reads the note of `verse` (clamped to 0..31101) in the current set into `noteText`, up to its first NUL, at most
// 65,535 characters; for an empty note, or one missing in a damaged index, "No note for Genesis 1:1." The current verse
// becomes `verse`. If the data file cannot be opened, returns false and changes neither.
bool ReadNoteText(const NoteFiles& files, const VerseRecords& records, NoteSets& notes, int verse);

// Reads the current verse's note in the current set as it is stored, up to its first NUL, at most 65,535 characters;
// empty if there is none. False if the data file cannot be opened.
bool ReadStoredNote(const NoteFiles& files, NoteSets& notes, std::string& text);

// NoteExists for the current set.
bool NoteExists(const NoteFiles& files, const NoteSets& notes, int verse);

// The next or previous verse that has a note, wrapping around the Bible; the adjacent verse if no other has one.
int NextNote(const NoteFiles& files, NoteSets& notes);
int PreviousNote(const NoteFiles& files, NoteSets& notes);

// ---- Marks on the tabs of the sets ----------------------------------------------------------------------------------
// They show which sets have a note for the Verse List's verse and for the Passage's.

// The positions of the panes.
struct MarkedPlace {
    int listPosition = kNoVerse;  // top entry of the Verse List; -1 when it is empty
    int listVerse = kNoVerse;     // the verse of that entry
    int passageVerse = 0;
};

// The positions that the marks were made for; nullopt before the first time.
using MarkedBefore = std::optional<MarkedPlace>;

// Do the marks have to be updated? For the Verse List only the position counts: another list with the same top position
// does not update them.
bool NeedsNewMarks(const MarkedBefore& before, const MarkedPlace& place);

// The name of a set as its tab shows it. Of one with more than 40 letters, only the beginning and the end with "..."
// between them, because tabs that are wider than the window cannot be read.
std::string TabName(const NoteFiles& files, const NoteSet& set);

// The label of a set's tab: "\xAB " if it has a note for the Verse List's verse, "\xBB " if it has one for the
// Passage's, then its TabName.
std::string MarkedLabel(const NoteFiles& files, const NoteSet& set, const MarkedPlace& place);
