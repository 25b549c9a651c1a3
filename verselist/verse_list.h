// The Verse List: the verses that the last search found, in canonical order, or those of a note's cross-reference line,
// in the order of that line, and the scroll position.
#pragma once

#include <cstdint>
#include <vector>

#include "pane/selection.h"

enum ListView { kVerseListView = 0, kReferenceListView = 1 };

struct VerseList {
    std::vector<std::int32_t> ListEntries;  // verse indexes, without a terminator
    int ListTop = 0;                        // entry shown first
    int ListLastVisible = 0;                // last entry with any text laid out, corrected
    int currentView = kVerseListView;
    bool canBeSaved = false;  // set by a search; following a cross-reference line does not change it
};

int ListCount(const VerseList& list);

// Replaces the entries with the result of a search; the top becomes 0.
void FillVerseList(VerseList& list, std::vector<std::int32_t> verses);

// The same for the verses of a cross-reference line.
void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses);

void ClearVerseList(VerseList& list);

// Removes entry `entry`; ignored if there is none. A top past the end becomes the last entry, or 0 in an empty list.
void DeleteEntry(VerseList& list, int entry);

// `entry` clamped to 0..ListCount-1; 0 if the list is empty.
int ClampEntry(const VerseList& list, int entry);

// To be called after each layout; see CorrectedLastVisible in pane/scrolling.h.
void CorrectLastVisible(VerseList& list);

// Entry that Read Context and Delete act on: the selection's anchor entry if the list owns the selection, the anchor is
// at or after the top and the end at or before the last visible entry; otherwise the top. -1 in an empty list.
int CurrentEntry(const VerseList& list, const Selection& selection);

// Entry that commands of the frame act on: the first selected entry if the list has the focus and all of its selection
// is visible, otherwise the top. -1 in an empty list.
int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus);
