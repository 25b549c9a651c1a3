// The progress bar of a note search.
#pragma once

#include "notes/note_search.h"
#include "win32/windows_api.h"

struct SearchProgressBox {
    HWND dialog = nullptr;
    HWND bar = nullptr;
    int barStep = 1;          // verses between updates of the bar
    int shownVerse = 0;       // position of the bar
    ULONGLONG startedAt = 0;  // milliseconds of the system's clock
};

// Creates the box over `owner` for a search of the verses of `range`. It only appears if the search takes some time.
SearchProgressBox OpenSearchProgress(HWND owner, const SearchRange& range);

// Returns the callback that moves the bar; `box` must outlive it.
SearchProgress ProgressOf(SearchProgressBox& box);

// Shows the box with its bar at `verse` while the result of the search is reported.
void ShowSearchEnd(SearchProgressBox& box, int verse);

void CloseSearchProgress(SearchProgressBox& box);
