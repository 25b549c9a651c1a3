// Separate from the letters of searches, which know only those of ASCII.
#include "scripture/latin_letters.h"

#include <array>

// Those from 80 to 9F; all others have their own numbers.
static constexpr std::array<char32_t, 32> kFrom80 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};

char32_t LatinLetter(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    const std::size_t place = number - std::size_t{0x80};
    return number >= 0x80 && place < kFrom80.size() ? kFrom80[place] : number;
}

std::size_t Utf8Length(char32_t letter) {
    return letter < 0x80 ? 1 : letter < 0x800 ? 2 : letter < 0x10000 ? 3 : 4;
}

void AppendUtf8(char32_t letter, std::string& text) {
    static constexpr unsigned kFirst[] = {0, 0, 0xC0, 0xE0, 0xF0};
    const std::size_t length = Utf8Length(letter);
    const auto bitsBehind = static_cast<unsigned>(6 * (length - 1));
    text += static_cast<char>(kFirst[length] | letter >> bitsBehind);
    for (unsigned behind = bitsBehind; behind > 0; behind -= 6)
        text += static_cast<char>(0x80 | (letter >> (behind - 6) & 0x3F));
}
