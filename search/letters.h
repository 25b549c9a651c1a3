// What counts as a letter in the text and in a query, and their lower case. Plain ASCII, whatever the locale.
#pragma once

#include <string>
#include <string_view>

constexpr bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

constexpr bool IsLetter(char c) {
    return IsCapital(c) || (c >= 'a' && c <= 'z');
}

// May `c` stand in a word?
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
