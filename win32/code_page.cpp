// Separate from the clipboard and the rich edit, because texts of both are converted.
#include "win32/code_page.h"

// Converts all of the text; false if the code page lacks a character.
static bool Convert(std::wstring_view text, std::string& converted) {
    if (text.empty()) return true;
    const bool isUtf8 = GetACP() == CP_UTF8;  // which knows other flags and has every character
    const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL isReplaced = FALSE;
    BOOL* const replaced = isUtf8 ? nullptr : &isReplaced;
    const auto length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, replaced);
    if (size <= 0 || isReplaced) return false;
    converted.resize(static_cast<std::size_t>(size));
    return WideCharToMultiByte(CP_ACP, flags, text.data(), length, converted.data(), size, nullptr, replaced) == size;
}

static std::size_t LengthOfCharacter(std::wstring_view text) {
    return text.size() > 1 && IS_SURROGATE_PAIR(text[0], text[1]) ? 2 : 1;
}

CodePageText InCodePage(std::wstring_view text) {
    CodePageText result;
    if (Convert(text, result.text)) return result;
    result.text.clear();
    for (std::string character; !text.empty();) {
        const std::size_t length = LengthOfCharacter(text);
        if (Convert(text.substr(0, length), character)) {
            result.text += character;
        } else {
            ++result.lost;
        }
        text.remove_prefix(length);
    }
    return result;
}
