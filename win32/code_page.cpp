// Separate from the clipboard and the rich edit, because texts of both are converted.
#include "win32/code_page.h"

std::wstring Wide(std::u16string_view letters) {
    return {letters.begin(), letters.end()};
}

std::u16string LettersOf(std::wstring_view wide) {
    return {wide.begin(), wide.end()};
}

std::wstring WideOfCodePage(std::string_view text) {
    std::wstring wide(text.size(), L'\0');  // UTF-16 never needs more
    const auto length = static_cast<int>(text.size());
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length)));
    return wide;
}

static std::string Converted(std::wstring_view text, DWORD flags, BOOL* isReplaced) {
    if (text.empty()) return {};
    const auto length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, isReplaced);
    std::string converted(static_cast<std::size_t>(size), '\0');
    const int written =
        WideCharToMultiByte(CP_ACP, flags, text.data(), length, converted.data(), size, nullptr, isReplaced);
    converted.resize(static_cast<std::size_t>(written));
    return converted;
}

std::optional<std::string> InCodePage(std::wstring_view text) {
    const bool isUtf8 = GetACP() == CP_UTF8;  // which knows other flags and has every character
    const DWORD flags = isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS;
    BOOL isReplaced = FALSE;
    std::string converted = Converted(text, flags, isUtf8 ? nullptr : &isReplaced);
    if (isReplaced || (converted.empty() && !text.empty())) return std::nullopt;
    return converted;
}

std::string NearestInCodePage(std::wstring_view text) {
    return Converted(text, 0, nullptr);
}

static std::size_t LengthOfCharacter(std::wstring_view text) {
    return text.size() > 1 && IS_SURROGATE_PAIR(text[0], text[1]) ? 2 : 1;
}

std::string KnownInCodePage(std::wstring_view text) {
    std::string known;
    for (; !text.empty(); text.remove_prefix(LengthOfCharacter(text)))
        known += InCodePage(text.substr(0, LengthOfCharacter(text))).value_or("");
    return known;
}
