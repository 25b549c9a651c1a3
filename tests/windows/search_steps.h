// Helpers that search like a user, for tests of the results.
//
// The probe (see tests/driver/probe.h) is removed while the program fills lists. It would make each message that the
// program sends itself, one for each word or verse, many times slower.
#pragma once

#include <string>
#include <string_view>

#include "resources/ids.h"
#include "tests/driver/driver.h"

struct Query {
    std::string text;
    int command = IDM_WORD_SEARCH;
    int combination = IDC_ALL_WORDS;  // the radio button
    bool caseSensitive = false;
    bool substrings = false;
};

constexpr int kSearchCommands[] = {IDM_WORD_SEARCH, IDM_WORD_LIST_SEARCH, IDM_PHRASE_SEARCH};

HWND ReferenceListOf(const Program& program);

// Opens the dialog of a search command or of Set Search Range.
HWND OpenSearchDialog(Program& program, int command);

// Opens the dialog of `query.command`, fills the controls that it has, presses OK and waits until it is closed. No
// other dialog may be open then.
void SearchFor(Program& program, const Query& query);

// The same for a query that finds nothing; returns the message box that says so.
HWND SearchInVain(Program& program, const Query& query);

// Sets the search range with its dialog.
void SetSearchRange(Program& program, std::string_view range);
