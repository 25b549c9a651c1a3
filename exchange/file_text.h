// The text of a file that another program may have written, in any of the usual encodings and with any line ends.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_letters.h"

// The text in UTF-8 with lines that end in LF. Files are in UTF-8 with or without a mark, in UTF-16 with a mark, or in
// the code page. A file with more letters of UTF-8 than other bytes above 7F is in UTF-8, and those bytes are read as
// letters of the code page.
std::string TextOfFile(const CodePage& page, std::string_view bytes);

// The lines of a text, without their ends. What follows the last line end is a line, too, unless it is empty.
std::vector<std::string_view> LinesOf(std::string_view text);

// The text with lines that end in CR LF.
std::string WithCrLf(std::string_view text);

// Without the blanks and line ends on both sides.
std::string_view Trimmed(std::string_view text);
