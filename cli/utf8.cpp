// Apart from the printer, because arguments need it, too.
#include "cli/utf8.h"

#include "notes/note_letters.h"
#include "scripture/latin_letters.h"

std::string Utf8Of(std::u32string_view letters) {
    std::string utf8;
    for (const char32_t letter : letters) AppendUtf8(letter, utf8);
    return utf8;
}

static char AsciiOf(char32_t letter) {
    if (letter < 0x80) return static_cast<char>(letter);
    if (letter == 0x2018 || letter == 0x2019) return '\'';
    const bool isDash = (letter >= 0x2010 && letter <= 0x2015) || letter == 0x2212;
    return isDash ? '-' : ' ';
}

std::string AsciiOf(std::string_view utf8) {
    std::string ascii;
    while (!utf8.empty()) {
        const auto letter = TakeLetter(utf8);
        if (!letter) utf8.remove_prefix(1);
        ascii += letter ? AsciiOf(*letter) : ' ';
    }
    return ascii;
}

std::string WithPlainLineEnds(std::string_view text) {
    std::string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r')
            lines += text[at];
        else if (at + 1 == text.size() || text[at + 1] != '\n')
            lines += '\n';
    }
    return lines;
}
