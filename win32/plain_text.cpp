#include "win32/plain_text.h"

#include <algorithm>
#include <cstring>

static DWORD CALLBACK GiveText(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* given) {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(wanted));
    std::memcpy(buffer, rest.data(), count);
    rest.remove_prefix(count);
    *given = static_cast<LONG>(count);
    return 0;
}

static DWORD CALLBACK TakeText(DWORD_PTR cookie, LPBYTE buffer, LONG offered, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(offered));
    *taken = offered;
    return 0;
}

void SetPlainText(HWND richEdit, std::string_view text) {
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&text), 0, GiveText};
    SendMessageA(richEdit, EM_STREAMIN, SF_TEXT, reinterpret_cast<LPARAM>(&stream));
    CHARRANGE none{0, 0};
    SendMessageA(richEdit, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&none));
    SendMessageA(richEdit, EM_SCROLLCARET, 0, 0);
    SendMessageA(richEdit, EM_EMPTYUNDOBUFFER, 0, 0);
    SendMessageA(richEdit, EM_SETMODIFY, FALSE, 0);
}

std::string PlainText(HWND richEdit) {
    std::string text;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&text), 0, TakeText};
    SendMessageA(richEdit, EM_STREAMOUT, SF_TEXT, reinterpret_cast<LPARAM>(&stream));
    return text;
}

CHARRANGE SelectedPlainText(HWND richEdit) {
    CHARRANGE range{};
    SendMessageA(richEdit, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    const LONG length = GetWindowTextLengthA(richEdit);
    return {std::clamp(range.cpMin, 0L, length), std::clamp(range.cpMax, 0L, length)};
}
