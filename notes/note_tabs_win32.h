// The tabs of the note sets, one per set, in the order of the table of sets.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "notes/note_sets.h"
#include "win32/windows_api.h"

struct NoteTabs {
    HWND window = nullptr;            // the tab control; the frame creates it
    std::vector<std::string> labels;  // as shown
    MarkedBefore marked;              // pane positions that the marks in the labels were made for
};
extern NoteTabs theNoteTabs;

// A thread that opens the sets; waits for its end on destruction, because it uses what the program's end destroys.
struct EndOpening {
    void operator()(void* thread) const;
};
using OpeningSets = std::unique_ptr<void, EndOpening>;

// Begins to open the sets in the working directory, on a thread of its own. To be called before LoadNoteSets.
// Damage of sets that the program has open already is known, and is not reported again.
[[nodiscard]] OpeningSets BeginToLoadNoteSets();

// Waits until the sets are open; their tabs are not yet created. Reports when the first set's files cannot be created,
// and what was repaired in the other sets. If a set is damaged and `hasWholeCopy` is true for it, also asks whether to
// look at its earlier states: returns its name for Yes; empty for No and if nothing was asked.
std::string LoadNoteSets(bool (*hasWholeCopy)(const NoteSet& set));

// Repairs and reports in the same way what has been found since by checking the sets (RepairCheckedSets).
std::string TellRepairedSets(bool (*hasWholeCopy)(const NoteSet& set));

// Replaces all tabs by one for each set and selects the current set's. They have the marks for `place`; without one,
// only the names of the sets, up to the next change of the marks.
void ShowNoteTabs(const MarkedBefore& place);

// Adds a tab with its plain name for the last set.
void AddLastNoteTab();

void SelectNoteTab(int set);

// Updates the marks if a pane has moved since the last time. True if the tabs now need more or fewer rows.
bool MarkNoteTabs(const MarkedPlace& place);
