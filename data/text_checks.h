// What the text of the program must be like (scripture/scripture.h), looked at before anything is written.
#pragma once

#include <string_view>

#include "data/verses.h"

// One verse: only the characters of the text, the paragraph mark only in front, words parted by single blanks, brackets
// paired, neither nested nor empty nor beginning or ending with a blank.
Complaint CheckVerseText(std::string_view text);

// All verses: 31,102 in 1,189 chapters of 66 books, numbered without a gap, each text as above. The complaint names the
// verse.
Complaint CheckVerses(const Verses& verses);
