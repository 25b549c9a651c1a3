// The Verse List: the verses that the last search found, in canonical order, or those of a note's cross-reference line,
// in the order of that line, and the scroll position.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "pane/selection.h"
#include "scripture/verse_records.h"

enum ListView { kVerseListView = 0, kReferenceListView = 1 };

// An entry that was deleted: its place in the list before that, and its verse.
struct DeletedEntry {
    int place = 0;
    std::int32_t verse = 0;
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
};

int ListCount(const VerseList& list);

// What a screen reader calls the list: "Verse List, 159 verses", "Verse List, 1 verse" or "Verse List, no verses".
std::string SpokenListName(const VerseList& list);

// Replaces the entries with the result of a search; the top becomes 0.
void FillVerseList(VerseList& list, std::vector<std::int32_t> verses);

// The same for the verses of a cross-reference line.
void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses);

void ClearVerseList(VerseList& list);

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
};

// Takes `now` as the position if the user has moved in the list: by a click, a scroll, or another number of entries. A
// selection that has gone, because the user went to another pane, is no move. Returns whether another verse's entry is
// the current one then.
bool FollowEntry(ListPosition& position, const ListPosition& now);

// Entry that commands of the frame act on: the first selected entry if the list has the focus and all of its selection
// is visible, otherwise the top. -1 in an empty list.
int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus);
