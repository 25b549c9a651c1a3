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
static bool PutNarrow(const std::string& text, LCID locale) {
    if (!PutBytes(CF_TEXT, text.c_str(), text.size() + 1)) return false;
    PutBytes(CF_LOCALE, &locale, sizeof locale);
    return true;
}

static void PutWide(const std::wstring& text) {
    PutBytes(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof text[0]);
}

// Only the first format is promised. Without memory for the wide text the system makes it of the narrow one, with the
// code page of the locale.
static void PutWideOfLatin(const std::string& text) try {
    static constexpr UINT kLatin = 1252;
    std::wstring wide(text.size(), L'\0');
    const auto length = static_cast<int>(text.size());
    MultiByteToWideChar(kLatin, 0, text.data(), length, wide.data(), length);
    PutWide(wide);
} catch (const std::bad_alloc&) {
}

bool PutText(const HeldClipboard&, const std::string& text) {
    static constexpr LCID kEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);  // 0x0409
    if (!PutNarrow(text, kEnglish)) return false;
    PutWideOfLatin(text);
    return true;
}

bool PutText(const HeldClipboard&, const std::wstring& text) {
    if (!PutNarrow(NearestInCodePage(text), GetSystemDefaultLCID())) return false;
    PutWide(text);
    return true;
}

void PutHtmlBytes(const HeldClipboard&, const std::string& html) {
    const UINT format = RegisterClipboardFormatW(L"HTML Format");
    if (format != 0) PutBytes(format, html.c_str(), html.size() + 1);
}
