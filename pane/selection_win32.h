// The program's selection of words, and what is done with it: it is copied, or a search begins with it.
#pragma once

#include <string>

#include "pane/selection.h"
#include "win32/windows_api.h"

extern Selection theSelection;

// Gives up the selection, whichever pane owns it, and ends a drag.
void DropSelection();

// How a pane hands out the words that are selected in it.
struct SelectedText {
    SelectionOwnerId owner = kNobody;
    std::string (*form)() = nullptr;       // the text of the pane's selection
    const char* noMemoryReport = nullptr;  // shown where there is no memory for a copy; none: nothing is shown
};

// Carries out Copy, Word Search, Phrase Search or Search Notes, received by `pane`; false when `command` is another.
// Copy reports that another program holds the clipboard. A search's text goes to the state of the searches, and the
// command on to the frame; where there is no memory for the text nothing happens. Nor does it while the pane does not
// own the selection.
bool RunSelectionCommand(HWND pane, const SelectedText& selected, int command);
