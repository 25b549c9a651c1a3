// The text that the program shows, read from the same scripture files.
#pragma once

#include <string>
#include <string_view>

#include "scripture/scripture.h"

const Scripture& RealScripture();

// Text of the verse with this reference, such as "Joh 3:16", with paragraph marks and brackets.
std::string TextAt(std::string_view reference);

// Adds the blank that the program shows after a paragraph mark: "¶In the" becomes "¶ In the".
std::string WithBlankAfterMark(const std::string& text);

std::string WithoutBrackets(std::string text);
