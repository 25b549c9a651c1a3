// Checks that the text has the format of the program (scripture/scripture.h) before anything is written.
#pragma once

#include <string_view>

#include "data/verses.h"

// One verse: only allowed characters, a paragraph mark only at the beginning, words separated by single blanks,
// brackets paired, not nested, not empty, and without blanks inside at either end.
Complaint CheckVerseText(std::string_view text);

// All verses: 31,102 in 1,189 chapters of 66 books, numbered without a gap, each text as above. The complaint names the
// verse.
Complaint CheckVerses(const Verses& verses);
