// One entry of the SWORD module engKJV2006eb, which is OSIS in UTF-8 with some slips, as text of the program.
#pragma once

#include <string>
#include <string_view>

// The text of one verse: notes and titles left out, added words in brackets, the name of God in capitals, ASCII but for
// the paragraph mark. What is neither known mark-up nor a known character comes through as it is, so that the checks of
// text_checks.h find it.
std::string TextOfOsis(std::string_view osis);
