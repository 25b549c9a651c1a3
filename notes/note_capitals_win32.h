// Texts to be found in notes whatever their case.
#pragma once

#include <string>

#include "notes/text_sweep.h"

// The table of the system's code page.
LetterTable SystemLetters();

// `text`, which is that of a note, in capitals: those of the table, or those of Unicode if it is stored in UTF-8.
std::string TextInCapitals(const LetterTable& letters, const std::string& text);
