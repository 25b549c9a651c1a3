// The program's searches: the word index, their state, and the dialogs that start a search or set its range.
#pragma once

#include <optional>

#include "search/query.h"
#include "search/word_index.h"
#include "win32/windows_api.h"

extern WordIndex theWordIndex;
extern SearchState theSearch;

// A way to search, one row each: its dialog and what follows from it.
struct SearchKind {
    QueryKind query;
    const char* resource;
    const char* helpTopic;
    bool hasWordOptions = false;       // the dialog asks for boolean type and substrings
    bool hasWordList = false;          // and has the list of all words
    bool focusesVerseList = false;     // the Verse List gets the focus even while the Reference List is shown
    bool summarizesNoMatches = false;  // a search that found nothing writes its summary too
};
extern const SearchKind kWordSearch, kWordListSearch, kPhraseSearch;

// Asks what to search for and puts it into `theSearch`: text, history and options. OK shows the frame's list pane,
// takes the dialog from the screen and runs `search`, so that what it finds is seen before the dialog is taken apart,
// control by control. Gives whether `search` says that it found a verse; none where the user cancels.
std::optional<bool> AskSearch(HWND frame, const SearchKind& kind, bool (*search)(const SearchKind& kind));

// Asks over `owner` for the range of verses to search, stores it in `theSearch` and sends the frame IDM_SHOW_RANGE.
void AskSearchRange(HWND owner);

// "Ge 1:1 - Re 22:21": the range of verses to search.
std::string SearchRangeText();
