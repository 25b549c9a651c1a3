// Text of a module, which is UTF-8, in the program's code page, Windows-1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Characters that the code page lacks.
struct LostCharacters {
    int transliterated = 0;  // Greek and Hebrew letters, written with Latin ones
    int replaced = 0;        // by a character that looks alike: a letter without its accent, another blank
    int dropped = 0;         // "?" stands in their place; points and marks over letters go without one
};

// Invalid UTF-8 is taken byte by byte as Windows-1252. Zero bytes are left out.
std::string InCodePage(std::string_view utf8, LostCharacters& lost);
