#include "win32/clipboard.h"

#include <cstring>

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

static std::string TextIn(HGLOBAL block) {
    const auto* bytes = static_cast<const char*>(GlobalLock(block));
    if (!bytes) return {};
    const std::string text(bytes, strnlen(bytes, GlobalSize(block)));
    GlobalUnlock(block);
    return text;
}

std::string TextOnClipboard(HWND owner) {
    if (!OpenClipboard(owner)) return {};
    const HeldClipboard clipboard(owner);
    const HGLOBAL block = GetClipboardData(CF_TEXT);
    return block ? TextIn(block) : std::string();
}

bool PutText(const HeldClipboard&, std::string_view text) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
    if (!block) return false;
    auto* bytes = static_cast<char*>(GlobalLock(block));
    if (!bytes) {
        GlobalFree(block);
        return false;
    }
    std::memcpy(bytes, text.data(), text.size());
    bytes[text.size()] = '\0';
    GlobalUnlock(block);
    if (SetClipboardData(CF_TEXT, block)) return true;  // the clipboard owns the block now
    GlobalFree(block);
    return false;
}
