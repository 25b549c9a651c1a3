// The dialogs that ask which verses leave the program as text: Copy Verse, Copy Range, Save Range.
#pragma once

#include "output/range_dialog.h"

// Each asks as AskRange does. Save Range asks for the file too.
std::optional<ParsedRange> AskVerseToCopy(HWND frame, int currentVerse);
std::optional<ParsedRange> AskRangeToCopy(HWND frame, int currentVerse);
std::optional<AskedRange> AskRangeToSave(HWND frame, int currentVerse, const OfferedNoteSets& noteSets);
