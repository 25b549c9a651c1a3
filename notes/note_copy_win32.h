// Text of notes on the clipboard.
#pragma once

#include <string>

#include "win32/windows_api.h"

// Puts `text` on the clipboard for `owner`: as plain text, and as HTML with its line ends and blanks. False if there is
// no text, if the clipboard could not be opened, which is reported, or without memory for the plain text.
bool CopyNoteText(HWND owner, const std::u16string& text);
