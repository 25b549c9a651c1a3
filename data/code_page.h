// The letters of a module's text, which is UTF-8, as notes have them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "notes/windows_1252.h"

// Characters of a module that a note does not have.
struct ReplacedCharacters {
    int blanks = 0;   // of some width or without a break: ordinary blanks, because a search for words knows only that
    int damaged = 0;  // control codes that stand for a letter of the DOS code page: that letter
};

// Valid UTF-8. Bytes that are none are taken as Windows-1252. Zero bytes, byte order marks and other characters without
// a width or a meaning are left out.
std::string TextForNotes(std::string_view utf8, ReplacedCharacters& replaced);

// The note as it is stored: in Windows-1252 if that has all its letters; marks of direction and joiners, which it does
// not have, are then left out. Otherwise in UTF-8 behind its mark. `utf8` must be valid.
std::string NoteOfText(std::string_view utf8);
