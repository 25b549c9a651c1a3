// Exchanging text with other programs.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "win32/windows_api.h"

struct CloseClipboardDeleter {
    using pointer = HWND;
    void operator()(HWND) const { CloseClipboard(); }
};

// The clipboard while this program has it open; closed on destruction.
using HeldClipboard = std::unique_ptr<HWND, CloseClipboardDeleter>;

// Opens and empties the clipboard for `owner`. If another program has it open, reports "Could not open Clipboard" and
// returns null.
HeldClipboard OpenEmptyClipboard(HWND owner);

// The plain 8-bit text (CF_TEXT) on the clipboard, up to its first zero byte; empty if there is none or another program
// has the clipboard open.
std::string TextOnClipboard(HWND owner);

// Puts plain 8-bit text (CF_TEXT) on the clipboard, where it remains after the program ends. Other programs read it up
// to its first zero byte. False when there is no memory for it; the clipboard then stays empty.
bool PutText(const HeldClipboard& clipboard, std::string_view text);
