// The progress bar of a search in notes, or of what takes as long.
#pragma once

#include "notes/note_search.h"
#include "win32/windows_api.h"

struct SearchProgressBox {
    bool canStop = false;         // the box has a button Cancel
    const char* title = nullptr;  // of that box; null: "Searching..."
    bool isStopped = false;       // by that button
    HWND dialog = nullptr;
    HWND bar = nullptr;
    int barStep = 1;          // verses between updates of the bar
    int shownVerse = 0;       // position of the bar
    ULONGLONG startedAt = 0;  // milliseconds of the system's clock
};

// Creates the hidden box over `owner`, which destroys it. Takes longer than most searches, so a dialog that will search
// does it when it has been shown. Does nothing if the box exists.
void CreateSearchProgress(SearchProgressBox& box, HWND owner);

// Begins a search of the verses of `range`; creates the box if necessary. It only appears if the search takes some
// time.
void BeginSearchProgress(SearchProgressBox& box, HWND owner, const SearchRange& range);

// Returns the callbacks that move the bar and tell whether the user has cancelled; `box` must outlive them. Meanwhile
// only the box gets messages.
SearchProgress ProgressOf(SearchProgressBox& box);

// Shows the box with its bar at `verse` while the result of the search is reported.
void ShowSearchEnd(SearchProgressBox& box, int verse);

void HideSearchProgress(const SearchProgressBox& box);
