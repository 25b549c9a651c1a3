// Apart from the letters of notes, because on Windows they are those of the system.
#include "notes/windows_1252.h"

#include "scripture/latin_letters.h"

static std::u16string WindowsLetters(void*, std::string_view bytes) {
    std::u16string letters;
    for (const char byte : bytes) letters += static_cast<char16_t>(LatinLetter(byte));
    return letters;
}

// Only the bytes 0x80 to 0x9F have other letters than those of their number.
static std::optional<char> WindowsByte(char16_t letter) {
    if (letter < 0x80 || (letter >= 0xA0 && letter <= 0xFF)) return static_cast<char>(letter);
    for (int byte = 0x80; byte < 0xA0; ++byte)
        if (LatinLetter(static_cast<char>(byte)) == letter) return static_cast<char>(byte);
    return std::nullopt;
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
