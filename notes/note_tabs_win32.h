// The tabs of the note sets, one a set, in the order of the table of sets.
#pragma once

#include <string>
#include <vector>

#include "notes/note_sets.h"
#include "win32/windows_api.h"

struct NoteTabs {
    HWND window = nullptr;            // the tab control; the frame creates it
    std::vector<std::string> labels;  // as shown
    MarkedBefore marked;              // where the panes stood for the marks in them
};
extern NoteTabs theNoteTabs;

// Opens the sets of the working directory and gives each a tab. Reports when the first set's files cannot be created,
// and what was mended in the others.
void LoadNoteSets();

// Gives every set a tab with its plain name, in place of those that were there, and selects the current set's.
void ShowNoteTabs();

// Adds the tab of the last set, with its plain name.
void AddLastNoteTab();

void SelectNoteTab(int set);

// Marks the tabs anew where a pane has moved since the last time. True when they now take more or fewer rows.
bool MarkNoteTabs(const MarkedPlace& place);
