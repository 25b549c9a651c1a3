// Text for other programs.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "win32/windows_api.h"

struct CloseClipboardDeleter {
    using pointer = HWND;
    void operator()(HWND) const { CloseClipboard(); }
};

// The clipboard while this program holds it; it is given back when this goes.
using HeldClipboard = std::unique_ptr<HWND, CloseClipboardDeleter>;

// Opens and empties the clipboard on behalf of `owner`. While another program holds it this says "Could not open
// Clipboard" and gives none.
HeldClipboard OpenEmptyClipboard(HWND owner);

// The plain 8-bit text (CF_TEXT) on the clipboard, up to its first zero byte; empty where it has none or another
// program holds it.
std::string TextOnClipboard(HWND owner);

// Puts plain 8-bit text (CF_TEXT) on the clipboard, which keeps it after the program's end. A reader sees it up to its
// first zero byte. False when there is no memory for it: then nothing is on the clipboard.
bool PutText(const HeldClipboard& clipboard, std::string_view text);
