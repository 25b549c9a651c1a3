// The letters of arguments and of the output, which are UTF-8, and those of the program, which are Latin 1 of Windows.
#pragma once

#include <string>
#include <string_view>

std::string Utf8Of(std::u32string_view letters);

// What the user typed with the letters that references and words of the text have: typographic apostrophes and dashes
// become plain ones, all other letters outside of ASCII blanks.
std::string AsciiOf(std::string_view utf8);

// The text with lines that end in LF, however they ended: CR LF, CR or LF.
std::string WithPlainLineEnds(std::string_view text);
