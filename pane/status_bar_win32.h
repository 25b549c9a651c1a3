// The frame's status bar. The panes and the frame write to it through ShowStatus only. A text that is too long for its
// part is shortened (FittedText), and shown as a whole in a tool tip; the control still has the whole text.
#pragma once

#include <string>

#include "win32/windows_api.h"

enum class StatusPart {
    kSearchSummary,  // result of the last search
    kListEntry,      // verse of the Verse List's top entry
    kNote,           // verse of the note shown
    kPassage,        // the Passage's top verse
    kSearchRange,
};

// Creates an empty status bar with one part, as a child of `frame`.
HWND CreateStatusBar(HWND frame);

// Gives the bar the font for the scaling of its screen; its height follows when it is placed anew.
void ScaleStatusBar();

// Sets the text of a part. Does nothing if the part already has that text, because rewriting it would flicker.
void ShowStatus(StatusPart part, const std::string& text);

// The text of a part.
std::string StatusText(StatusPart part);
