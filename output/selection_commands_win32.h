// What is done with the selected words of a pane: they are copied, or a search begins with them.
#pragma once

#include <string>

#include "output/selection.h"
#include "win32/windows_api.h"

struct SelectedText {
    SelectionOwnerId owner = kNobody;
    std::string (*form)() = nullptr;       // the text of the pane's selection
    const char* uncopiedReport = nullptr;  // said where there is no memory for a copy; none: nothing is
};

// Carries out Copy, Word Search, Phrase Search or Search Notes, received by `pane`; false when `command` is another.
// Copy says so when another program holds the clipboard. A search's text goes to the state of the searches, and the
// command on to the frame; where there is no memory for the text nothing happens. Nor does it while the pane does not
// own the selection.
bool RunSelectionCommand(HWND pane, const SelectedText& selected, int command);
