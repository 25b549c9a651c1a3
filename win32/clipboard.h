// Exchanging text with other programs.
#pragma once

#include <memory>
#include <new>
#include <stdexcept>
#include <string>

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

// The plain text (CF_UNICODETEXT) on the clipboard, up to its first zero; empty if there is none or another program has
// the clipboard open. The system converts 8-bit text that a program has put there.
std::wstring TextOnClipboard(HWND owner);

// Puts plain text on the clipboard: as CF_TEXT with its CF_LOCALE, and as CF_UNICODETEXT. It remains there after the
// program ends, and other programs read it up to its first zero. False when there is no memory for it as CF_TEXT; the
// clipboard then stays empty.

// Text with the letters of scripture: Latin 1 of Windows (1252) on every system.
bool PutText(const HeldClipboard& clipboard, const std::string& text);

// Text in any letters. In CF_TEXT, those that the system's code page lacks are replaced as Windows does it.
bool PutText(const HeldClipboard& clipboard, const std::wstring& text);

// Adds the HTML that `make` gives, as the clipboard wants to have it ("HTML Format"). Without memory for it there is
// none, and what was put there before stays.
void PutHtmlBytes(const HeldClipboard& clipboard, const std::string& html);

template <typename MakeHtml>
void PutHtml(const HeldClipboard& clipboard, MakeHtml make) {
    try {
        PutHtmlBytes(clipboard, make());
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
}
