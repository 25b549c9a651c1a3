#include "win32/clipboard.h"

#include <cstring>
#include <cwchar>

#include "win32/code_page.h"
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

// Without a locale, the system would convert the 8-bit text with the code page of the keyboard that is in use.
static bool Put(const std::string& text, const std::wstring& wide, LCID locale) {
    if (!PutBytes(CF_TEXT, text.c_str(), text.size() + 1)) return false;
    PutBytes(CF_LOCALE, &locale, sizeof locale);
    PutBytes(CF_UNICODETEXT, wide.c_str(), (wide.size() + 1) * sizeof wide[0]);
    return true;
}

bool PutText(const HeldClipboard&, const std::string& text) {
    static constexpr UINT kLatin = 1252;
    static constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);  // 0x0409
    std::wstring wide(text.size(), L'\0');
    const auto length = static_cast<int>(text.size());
    MultiByteToWideChar(kLatin, 0, text.data(), length, wide.data(), length);
    return Put(text, wide, kEnglish);
}

bool PutText(const HeldClipboard&, const std::wstring& text) {
    return Put(NearestInCodePage(text), text, GetSystemDefaultLCID());
}
