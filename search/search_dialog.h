// Searches: the word index, the search state, and the dialogs that start a search or set its range.
#pragma once

#include <optional>

#include "search/query.h"
#include "search/word_index.h"
#include "win32/windows_api.h"

extern WordIndex theWordIndex;
extern SearchState theSearch;

// A kind of search: its dialog and how its result is shown.
struct SearchKind {
    QueryKind query;
    const char* resource;
    const char* helpTopic;
    bool hasWordOptions = false;       // the dialog has options for boolean type and substrings
    bool hasWordList = false;          // the dialog has a list of all words
    bool focusesVerseList = false;     // focus the Verse List even while the Reference List is shown
    bool hasNearOptions = false;       // the dialog asks how near the words must be
    bool summarizesNoMatches = false;  // show the summary even if nothing was found
};
extern const SearchKind kWordSearch, kWordListSearch, kPhraseSearch, kNearSearch;

// Asks what to search for and stores it in `theSearch`: text, history and options. OK shows the frame's list pane,
// closes the dialog and runs `search` before the dialog's controls are destroyed, so that the result appears sooner.
// Returns whether `search` found a verse; nullopt if the user cancels.
std::optional<bool> AskSearch(HWND frame, const SearchKind& kind, bool (*search)(const SearchKind& kind));

// Asks over `owner` for the range of verses to search, stores it in `theSearch` and sends the frame IDM_SHOW_RANGE.
void AskSearchRange(HWND owner);

// "Ge 1:1 - Re 22:21": the range of verses to search.
std::string SearchRangeText();
