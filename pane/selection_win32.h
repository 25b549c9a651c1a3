// The program's selection of words, and the commands on it: copy it, or start a search with it.
#pragma once

#include <string>

#include "pane/selection.h"
#include "win32/windows_api.h"

extern Selection theSelection;

// Clears the selection, whichever pane owns it, and ends a drag.
void DropSelection();

// How a pane provides the words that are selected in it.
struct SelectedText {
    SelectionOwnerId owner = kNobody;
    std::string (*form)() = nullptr;       // the text of the pane's selection
    std::string (*html)() = nullptr;       // the same as HTML, for a copy
    const char* noMemoryReport = nullptr;  // shown if there is no memory for a copy; null to show nothing
};

// Runs Copy, Word Search, Phrase Search or Search Notes, received by `pane`; returns false if `command` is another.
// Does nothing if the pane does not own the selection. Copy reports when another program has the clipboard open. A
// search stores its text in the search state and sends the command on to the frame; without memory for the text it does
// nothing.
bool RunSelectionCommand(HWND pane, const SelectedText& selected, int command);
