// The letters of scripture in Unicode.
#pragma once

// The letter of a byte in Latin 1 of Windows (code page 1252), in which scripture is on every system. The bytes that
// have none there are control characters.
char32_t LatinLetter(char byte);
