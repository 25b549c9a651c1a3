// Searches as their user asks for them, for tests that are about what is found.
//
// The program is not watched (see tests/driver/probe.h) while it fills lists: each of the messages that it sends itself
// then, one a word or a verse, would cost many times as much.
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

// Opens the dialog of a search command, or Set Search Range.
HWND OpenSearchDialog(Program& program, int command);

// Fills the dialog of `query.command`, so far as it has the controls, presses its OK and waits until it is gone;
// nothing else may be open then.
void SearchFor(Program& program, const Query& query);

// The same for what is not found; gives the message box that says so.
HWND SearchInVain(Program& program, const Query& query);

// Sets the range of verses by its dialog.
void SetSearchRange(Program& program, std::string_view range);
