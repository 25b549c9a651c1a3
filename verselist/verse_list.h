// The Verse List: the verses that the last search found, in canonical order, or those of a note's cross-reference line
// as it names them, and the place in it.
#pragma once

#include <cstdint>
#include <vector>

#include "pane/selection.h"

enum ListView { kVerseListView = 0, kReferenceListView = 1 };

struct VerseList {
    std::vector<std::int32_t> ListEntries;  // verse indexes; no terminator, its size says where it ends
    int ListTop = 0;                        // entry shown first
    int ListLastVisible = 0;                // last entry of which anything was laid out, as corrected
    int currentView = kVerseListView;
    bool canBeSaved = false;  // a search's list can; following a cross-reference line neither allows nor forbids it
};

int ListCount(const VerseList& list);

// Puts what a search found in place of what the list held; the top becomes 0.
void FillVerseList(VerseList& list, std::vector<std::int32_t> verses);

// The same for the verses of a cross-reference line.
void FillWithReferences(VerseList& list, std::vector<std::int32_t> verses);

void ClearVerseList(VerseList& list);

// Takes entry `entry` out and brings the top back to the last entry where it stood past it; 0 in an empty list.
void DeleteEntry(VerseList& list, int entry);

// `entry` brought into the list: 0..ListCount-1, 0 when it is empty.
int ClampEntry(const VerseList& list, int entry);

// The corrections that end each layout pass.
void CorrectLastVisible(VerseList& list);

// Entry that Read Context and Delete mean: the selection's anchor entry when the list owns the selection, the anchor is
// at or after the top and the end at or before the last visible entry; otherwise the top. -1 in an empty list.
int CurrentEntry(const VerseList& list, const Selection& selection);

// Entry that the commands of the frame mean: the first selected entry while the list has the focus and its selection
// lies wholly within the entries shown; otherwise the top. -1 in an empty list.
int TargetEntry(const VerseList& list, const Selection& selection, bool listHasFocus);
