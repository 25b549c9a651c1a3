// The marks on the tabs of the note sets: they tell which sets have a note for the verse of the Verse List and for that
// of the Passage.
#pragma once

#include <optional>
#include <string>

#include "notes/note_sets.h"

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
