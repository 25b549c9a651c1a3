// Converts an entry of the SWORD module engKJV2006eb, which is OSIS in UTF-8 with some errors, to the program's text.
#pragma once

#include <string>
#include <string_view>

// The text of one verse: without notes and titles, with added words in brackets and the name of God in capitals, in
// ASCII except for the paragraph mark. Unknown mark-up and characters are left in the text, so that the checks of
// text_checks.h find them.
std::string TextOfOsis(std::string_view osis);
