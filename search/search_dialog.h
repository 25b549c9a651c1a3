// The three dialogs that start a search: for words, for words chosen from the list of all words, for a phrase.
#pragma once

#include "win32/windows_api.h"

enum class SearchKind { kWords, kWordList, kPhrase };

// Asks what to search for and puts it into `theSearch`: text, history and options. True when the search is to be run;
// the frame's list pane is then shown.
bool AskSearch(HWND frame, SearchKind kind);
