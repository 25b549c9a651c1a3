// ASCII letters and digits, independent of the locale: in the text, in references and in what a user types.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

constexpr bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

constexpr bool IsLetter(char c) {
    return IsCapital(c) || (c >= 'a' && c <= 'z');
}

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsLetterOrDigit(char c) {
    return IsLetter(c) || IsDigit(c);
}

// Can `c` be part of a word of the text?
constexpr bool IsWordCharacter(char c) {
    return IsLetter(c) || c == '\'';
}

constexpr char LowerCased(char c) {
    return IsCapital(c) ? static_cast<char>(c + ('a' - 'A')) : c;
}

inline std::string LowerCased(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered) c = LowerCased(c);
    return lowered;
}

// Are the two equal, ignoring case?
inline bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char one, char other) { return LowerCased(one) == LowerCased(other); });
}

// Does `text` begin with `start`, ignoring case?
inline bool StartsWithIgnoringCase(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && EqualIgnoringCase(text.substr(0, start.size()), start);
}
