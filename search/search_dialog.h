// The three dialogs that start a search: for words, for words chosen from the list of all words, for a phrase.
#pragma once

#include "win32/windows_api.h"

enum class SearchKind { kWords, kWordList, kPhrase };

// Asks what to search for and puts it into `theSearch`: text, history and options. OK shows the frame's list pane,
// takes the dialog from the screen and runs `search`, so that what it finds is seen before the dialog is taken apart,
// control by control. False when nothing was to be searched for.
bool AskSearch(HWND frame, SearchKind kind, void (*search)(SearchKind kind));
