// The tabs of the note sets, one a set, in the order of the table of sets.
#pragma once

#include "notes/tab_markers.h"

// Opens the sets of the working directory and gives each a tab. Says so when the first set's files cannot be created,
// and what was mended in the others.
void LoadNoteSets();

// Gives every set a tab with its plain name, in place of those that were there, and selects the current set's.
void ShowNoteTabs();

// Adds the tab of the last set, with its plain name.
void AddLastNoteTab();

// Marks the tabs anew where a pane has moved since the last time. True when they now take more or fewer rows.
bool MarkNoteTabs(const MarkedPlace& place);
