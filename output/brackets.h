// The brackets that enclose words which the translators supplied.
#pragma once

#include <string>

// Takes out every "[" and "]", whatever stands between them.
void RemoveBrackets(std::string& text);
