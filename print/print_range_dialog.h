// Print Range: which verses are to be printed, and with whose notes.
#pragma once

#include "output/range_dialog.h"

// Asks as AskRange does; the field starts with the full name of the current verse's book.
std::optional<AskedRange> AskRangeToPrint(HWND frame, int currentVerse, const OfferedNoteSets& noteSets);
