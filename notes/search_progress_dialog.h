// The bar that moves while notes are searched.
#pragma once

#include "notes/note_search.h"
#include "win32/windows_api.h"

struct SearchProgressBox {
    HWND dialog = nullptr;
    HWND bar = nullptr;
    int barStep = 1;          // verses by which the bar moves
    int shownVerse = 0;       // where it stands
    ULONGLONG startedAt = 0;  // milliseconds of the system's clock
};

// Opens the box over `owner` for a search of the verses of `range`. It is seen only when the search takes some time.
SearchProgressBox OpenSearchProgress(HWND owner, const SearchRange& range);

// What moves its bar; `box` must stay.
SearchProgress ProgressOf(SearchProgressBox& box);

// Shows the box with its bar at `verse`, for as long as the end of the search is told.
void ShowSearchEnd(SearchProgressBox& box, int verse);

void CloseSearchProgress(SearchProgressBox& box);
