// The letters of scripture in Unicode, and letters in UTF-8.
#pragma once

#include <cstddef>
#include <string>

// The letter of a byte in Latin 1 of Windows (code page 1252), in which scripture is on every system. The bytes that
// have none there are control characters.
char32_t LatinLetter(char byte);

// How many bytes a letter has in UTF-8.
std::size_t Utf8Length(char32_t letter);

void AppendUtf8(char32_t letter, std::string& text);
