// The system's ANSI code page, which is the encoding of all texts of the program.
#pragma once

#include <string>
#include <string_view>

#include "win32/windows_api.h"

struct CodePageText {
    std::string text;
    int lost = 0;  // characters that the code page does not have; they are not in `text`
};

// Converts UTF-16 text. Windows replaces a missing character by a similar one or by a question mark; here it is left
// out and counted. A surrogate pair is one character.
CodePageText InCodePage(std::wstring_view text);
