// A keyboard on which a key with AltGr types a character, for the program. Part of the probe library.
//
// On Windows AltGr arrives as Ctrl and Alt, and TranslateMessage posts the character of the user's keyboard. Wine knows
// only the keyboard of its display, where AltGr is a key of its own.
#pragma once

#include <windows.h>

// From now on the key `key` (a VK_ code) types `character` with Ctrl and Alt. Only one key at a time does so.
void TypeWithAltGr(UINT key, wchar_t character);
