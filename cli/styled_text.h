// Text of the scripture with what its marks tell of each letter, which terminals show by colours and JSON by places.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum TextStyle : unsigned char { kPlain = 0, kReference = 1, kSupplied = 2, kKeyWord = 4 };  // added up

// Letters of one style, up to `end`; they begin where the run before ends.
struct StyledRun {
    TextStyle style = kPlain;
    std::size_t end = 0;
};

struct StyledText {
    std::u32string letters;  // without marks
    std::vector<StyledRun> runs;
};

// Are the brackets round supplied words shown, too?
enum class ShownBrackets : bool { kNo, kYes };

// Appends text in Latin 1 of Windows with the marks of references (typeset/html_text.h), of supplied words
// (scripture/scripture.h) and of key words (search/key_word_marks.h); a line end becomes "\n". Each of them ends with
// the text.
void AppendStyled(StyledText& text, std::string_view marked, ShownBrackets brackets);

// Appends the same text as UTF-8 without its marks. Much faster, for output that has no styles.
void AppendPlain(std::string& utf8, std::string_view marked, ShownBrackets brackets);

// Appends text in Latin 1 of Windows, or in UTF-8, of one style.
void AppendStyled(StyledText& text, std::string_view bytes, TextStyle style);
void AppendUtf8Styled(StyledText& text, std::string_view utf8, TextStyle style);

// Appends the letters [begin, end) of another text in their styles.
void AppendPart(StyledText& text, const StyledText& other, std::size_t begin, std::size_t end);

// The places [first, second) of the letters that have the style.
std::vector<std::pair<std::size_t, std::size_t>> StretchesOf(const StyledText& text, TextStyle style);
