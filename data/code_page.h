// Converts text of a module, which is UTF-8, to the program's code page, Windows-1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Numbers of characters that are missing in the code page.
struct LostCharacters {
    int transliterated = 0;  // Greek and Hebrew letters, replaced by Latin ones
    int replaced = 0;        // replaced by similar characters: letters without accents, ordinary blanks
    int dropped = 0;         // replaced by "?", or removed if they are points or marks over letters
};

// Bytes that are not valid UTF-8 are taken as Windows-1252. Zero bytes are removed.
std::string InCodePage(std::string_view utf8, LostCharacters& lost);
