#include "win32/clipboard.h"

#include <cstring>
#include <cwchar>

#include "win32/controls.h"

HeldClipboard OpenEmptyClipboard(HWND owner) {
    if (!OpenClipboard(owner)) {
        Complain(owner, "Could not open Clipboard", kCopyErrorCaption);
        return nullptr;
    }
    HeldClipboard clipboard(owner);
    EmptyClipboard();
    return clipboard;
}

static std::wstring TextIn(HGLOBAL block) {
    const auto* letters = static_cast<const wchar_t*>(GlobalLock(block));
    if (!letters) return {};
    const std::wstring text(letters, wcsnlen(letters, GlobalSize(block) / sizeof *letters));
    GlobalUnlock(block);
    return text;
}

std::wstring TextOnClipboard(HWND owner) {
    if (!OpenClipboard(owner)) return {};
    const HeldClipboard clipboard(owner);
    const HGLOBAL block = GetClipboardData(CF_UNICODETEXT);
    return block ? TextIn(block) : std::wstring();
}

static bool PutBytes(UINT format, const void* bytes, std::size_t size) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (!block) return false;
    if (void* const target = GlobalLock(block)) {
        std::memcpy(target, bytes, size);
        GlobalUnlock(block);
        if (SetClipboardData(format, block)) return true;  // the clipboard owns the block now
    }
    GlobalFree(block);
    return false;
}

static std::wstring Widened(const std::string& text, UINT codePage) {
    std::wstring wide(text.size(), L'\0');  // UTF-16 never needs more
    const auto length = static_cast<int>(text.size());
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), length)));
    return wide;
}

// Without a locale, the system would convert the 8-bit text with the code page of the keyboard that is in use.
bool PutText(const HeldClipboard&, const std::string& text, TextOrigin origin) {
    static constexpr UINT kLatin = 1252;
    static constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);  // 0x0409
    const bool isScripture = origin == TextOrigin::kScripture;
    if (!PutBytes(CF_TEXT, text.c_str(), text.size() + 1)) return false;
    const LCID locale = isScripture ? kEnglish : GetSystemDefaultLCID();
    PutBytes(CF_LOCALE, &locale, sizeof locale);
    const std::wstring wide = Widened(text, isScripture ? kLatin : CP_ACP);
    PutBytes(CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof wide[0]);
    return true;
}
