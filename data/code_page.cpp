#include "data/code_page.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "scripture/latin_letters.h"

static constexpr char16_t kFirstAssigned = 0x80;  // the letters of the bytes 0x80 to 0x9F are not those of Latin 1
static constexpr char16_t kFirstOfLatin1 = 0xA0;

// By byte from 0x80.
static constexpr char16_t kWindowsLetters[] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};

// Letters of the DOS code page for the control codes 0x80 to 0x9F. Text does not contain these control codes, so if a
// module has them, its maker took text in the DOS code page for another encoding.
static constexpr char16_t kDosLetters[] = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xA2, 0xA3, 0xA5, 'P',  0x192,
};

// ---- Windows-1252 ---------------------------------------------------------------------------------------------------

static char16_t WindowsLetter(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    return number >= kFirstAssigned && number < kFirstOfLatin1 ? kWindowsLetters[number - kFirstAssigned] : number;
}

static std::u16string WindowsLetters(void*, std::string_view bytes) {
    std::u16string letters;
    for (const char byte : bytes) letters += WindowsLetter(byte);
    return letters;
}

static std::optional<char> WindowsByte(char16_t letter) {
    if (letter < kFirstAssigned || (letter >= kFirstOfLatin1 && letter <= 0xFF)) return static_cast<char>(letter);
    const auto* found = std::find(std::begin(kWindowsLetters), std::end(kWindowsLetters), letter);
    if (found == std::end(kWindowsLetters)) return std::nullopt;
    return static_cast<char>(kFirstAssigned + (found - std::begin(kWindowsLetters)));
}

static bool WindowsBytes(void*, std::u16string_view letters, std::string& bytes) {
    bytes.clear();
    for (const char16_t letter : letters) {
        const std::optional<char> byte = WindowsByte(letter);
        if (!byte) return false;
        bytes += *byte;
    }
    return true;
}

const CodePage kWindows1252{nullptr, WindowsLetters, WindowsBytes};

// ---- Text of modules ------------------------------------------------------------------------------------------------

static bool IsOtherBlank(char32_t letter) {
    return letter == 0xA0 || (letter >= 0x2000 && letter <= 0x200A) || letter == 0x202F || letter == 0x205F ||
           letter == 0x3000;
}

// Zero-width spaces, invisible operators, byte order marks.
static bool IsNothing(char32_t letter) {
    return letter == 0 || letter == 0x200B || letter == 0xFEFF || (letter >= 0x2060 && letter <= 0x2064);
}

// Joiners, and marks of direction.
static bool IsJoinerOrDirection(char16_t letter) {
    return (letter >= 0x200C && letter <= 0x200F) || (letter >= 0x202A && letter <= 0x202E) ||
           (letter >= 0x2066 && letter <= 0x2069);
}

static char32_t LetterForNotes(char32_t letter, ReplacedCharacters& replaced) {
    if (IsOtherBlank(letter)) {
        ++replaced.blanks;
        return ' ';
    }
    if (letter < kFirstAssigned || letter >= kFirstOfLatin1) return letter;
    ++replaced.damaged;
    return kDosLetters[letter - kFirstAssigned];
}

std::string TextForNotes(std::string_view utf8, ReplacedCharacters& replaced) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        if (const std::optional<char32_t> letter = TakeLetter(utf8)) {
            if (!IsNothing(*letter)) AppendUtf8(LetterForNotes(*letter, replaced), text);
        } else {
            AppendUtf8(WindowsLetter(utf8.front()), text);
            utf8.remove_prefix(1);
        }
    }
    return text;
}

std::string NoteOfText(std::string_view utf8) {
    const std::u16string letters = LettersOfUtf8(utf8);
    std::u16string plain = letters;
    std::erase_if(plain, IsJoinerOrDirection);
    std::string note = NoteOfLetters(kWindows1252, plain);
    return IsInUtf8(note) ? NoteOfLetters(kWindows1252, letters) : note;
}
