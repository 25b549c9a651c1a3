// The Verse List: the verses that the last search found, in canonical order, or those of a note's cross-reference line,
// in the order of that line, and the scroll position. Instead of verses it can list notes, each with the set that it is
// in: then a verse is listed once for each of its notes.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "pane/selection.h"
#include "scripture/verse_records.h"

enum ListView { kVerseListView = 0, kReferenceListView = 1 };

// The note sets of the entries in a list of notes.
struct EntrySets {
    struct Set {
        std::string name{};
        std::string label{};  // stands before the reference, "My Notes: "
        bool operator==(const Set&) const = default;
    };
    std::vector<Set> sets{};                // each once; none in a list of verses
    std::vector<std::uint8_t> ofEntries{};  // the place in `sets` of each entry's set
    int about = kNoVerse;                   // the verse that the notes name
    bool operator==(const EntrySets&) const = default;
};

// An entry that was deleted: its place in the list before that, its verse, and in a list of notes its set.
struct DeletedEntry {
    int place = 0;
    std::int32_t verse = 0;
    std::uint8_t set = 0;
    bool operator==(const DeletedEntry&) const = default;
};

// Entries that were deleted together, by ascending places, and what the deletion changed besides.
struct Deletion {
    std::vector<DeletedEntry> entries;
    bool couldBeSaved = false;
    std::string summary;  // of the search, as the status bar showed it
};

struct VerseList {
    std::vector<std::int32_t> ListEntries;  // verse indexes, without a terminator
    int ListTop = 0;                        // entry shown first
    int ListLastVisible = 0;                // last entry with any text laid out, corrected
    int currentView = kVerseListView;
    bool canBeSaved = false;          // set by a search; following a cross-reference line does not change it
    std::vector<Deletion> deletions;  // from the present entries, the latest last
    EntrySets sets;
};

int ListCount(const VerseList& list);

// What a screen reader calls the list: "Verse List, 159 verses", "Verse List, 1 verse" or "Verse List, no verses".
std::string SpokenListName(const VerseList& list);

// Replaces the entries with the result of a search; the top becomes 0.
void FillVerseList(VerseList& list, std::vector<std::int32_t> verses);

// The same for the verses of a cross-reference line.
void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses);

// The same for notes of these verses, as the result of a search: `sets` has a set for each entry, or is empty.
void FillWithNotes(VerseList& list, std::vector<std::int32_t> verses, EntrySets sets);

void ClearVerseList(VerseList& list);

// The set of an entry; null in a list of verses.
const EntrySets::Set* SetOfEntry(const VerseList& list, int entry);

// To be called when a note set has got another name.
void RenameSet(EntrySets& sets, const std::string& before, const EntrySets::Set& now);

// A list of this entry alone.
VerseList EntryAlone(const VerseList& list, int entry);

// Removes the entries at these ascending places and remembers them with `summary`; places without an entry are ignored.
// The same entry stays at the top if it is still there, otherwise the next one; a top past the end becomes the last
// entry, or 0 in an empty list. Takes one pass, however many entries are removed.
void DeleteEntries(VerseList& list, std::span<const int> places, std::string summary = {});

// Puts the entries of the latest deletion back in their places and returns it; it is then no longer remembered. The
// first of them becomes the top if it would not be visible. Returns a deletion without entries if none is remembered.
Deletion RestoreEntries(VerseList& list);

// `entry` clamped to 0..ListCount-1; 0 if the list is empty.
int ClampEntry(const VerseList& list, int entry);

// To be called after each layout; see CorrectedLastVisible in pane/scrolling.h.
void CorrectLastVisible(VerseList& list);

// Entry that Read Context and Delete act on: the selection's anchor entry if the list owns the selection, the anchor is
// at or after the top and the end at or before the last visible entry; otherwise the top. -1 in an empty list.
int CurrentEntry(const VerseList& list, const Selection& selection);

// Where the user is in a list of notes, which the Notes window follows.
struct ListPosition {
    int content = -1;  // number of what the list is filled with
    int count = 0, top = 0;
    int verse = kNoVerse;   // of the current entry
    bool isChosen = false;  // by the selection or the caret; otherwise the current entry is the top
    std::string set{};      // the name of its set; empty in a list of verses
};

// Takes `now` as the position if the user has moved in the list: by a click, a scroll, or another number of entries. A
// selection that has gone, because the user went to another pane, is no move. Returns whether the entry of another
// verse or set is the current one then.
bool FollowEntry(ListPosition& position, const ListPosition& now);

// Entry that commands of the frame act on: the first selected entry if the list has the focus and all of its selection
// is visible, otherwise the top. -1 in an empty list.
int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus);
