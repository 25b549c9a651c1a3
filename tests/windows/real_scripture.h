// The text that the tested program shows, read from the same files.
#pragma once

#include <string>
#include <string_view>

#include "scripture/scripture.h"

const Scripture& RealScripture();

// Text of the verse that `reference` names, "Joh 3:16", with its marks and brackets.
std::string TextAt(std::string_view reference);

// A paragraph mark and its blank before words that begin a paragraph: "¶In the" becomes "¶ In the".
std::string WithBlankAfterMark(const std::string& text);

std::string WithoutBrackets(std::string text);
