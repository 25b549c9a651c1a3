#include "data/code_page.h"

#include <algorithm>
#include <optional>

#include "scripture/latin_letters.h"

static constexpr char32_t kFirstAssigned = 0x80;  // the letters of the bytes 0x80 to 0x9F are not those of Latin 1
static constexpr char32_t kFirstOfLatin1 = 0xA0;

// Letters of the DOS code page for the control codes 0x80 to 0x9F. Text does not contain these control codes, so if a
// module has them, its maker took text in the DOS code page for another encoding.
static constexpr char16_t kDosLetters[] = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xA2, 0xA3, 0xA5, 'P',  0x192,
};

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
            AppendUtf8(LatinLetter(utf8.front()), text);
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
