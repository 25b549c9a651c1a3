#include "app/profile_section.h"

#include <algorithm>

static constexpr std::wstring_view kBlanks = L" \t";

static std::wstring_view WithoutBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::wstring_view::npos ? L"" : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

static wchar_t Lower(wchar_t letter) {
    return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
}

static bool IsKey(std::wstring_view text, std::wstring_view key) {
    return std::ranges::equal(WithoutBlanks(text), key, {}, Lower, Lower);
}

std::optional<std::wstring_view> ValueIn(std::wstring_view section, std::wstring_view key) {
    while (!section.empty()) {
        const std::wstring_view text = section.substr(0, section.find(L'\0'));
        const std::size_t equals = text.find(L'=');
        if (equals != std::wstring_view::npos && IsKey(text.substr(0, equals), key)) return text.substr(equals + 1);
        section.remove_prefix(std::min(text.size() + 1, section.size()));
    }
    return std::nullopt;
}

bool IsPlainText(std::wstring_view value) {
    static constexpr std::wstring_view kNotAtEnds = L" \t\"'";
    return value.empty() || (kNotAtEnds.find(value.front()) == std::wstring_view::npos &&
                             kNotAtEnds.find(value.back()) == std::wstring_view::npos);
}

std::optional<int> PlainNumber(std::wstring_view value) {
    static constexpr std::size_t kMostDigits = 9;
    const bool isNegative = value.starts_with(L'-');
    const std::wstring_view digits = value.substr(isNegative ? 1 : 0);
    if (digits.empty() || digits.size() > kMostDigits || (digits.size() > 1 && digits.front() == L'0'))
        return std::nullopt;
    int number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9') return std::nullopt;
        number = 10 * number + (digit - L'0');
    }
    return isNegative ? -number : number;
}
