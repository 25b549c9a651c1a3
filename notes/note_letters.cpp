#include "notes/note_letters.h"

#include <algorithm>

#include "scripture/latin_letters.h"

// ---- Latin 1 --------------------------------------------------------------------------------------------------------

std::u16string LatinLetters(void*, std::string_view bytes) {
    std::u16string letters;
    for (const char byte : bytes) letters += static_cast<unsigned char>(byte);
    return letters;
}

bool LatinBytes(void*, std::u16string_view letters, std::string& bytes) {
    static constexpr char16_t kLast = 0xFF;
    if (std::any_of(letters.begin(), letters.end(), [](char16_t letter) { return letter > kLast; })) return false;
    bytes.assign(letters.begin(), letters.end());
    return true;
}

// ---- UTF-8 ----------------------------------------------------------------------------------------------------------

static constexpr char32_t kFirstOfPairs = 0x10000;
static constexpr char32_t kReplacement = 0xFFFD;

static bool IsFirstHalf(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

static bool IsSecondHalf(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

// How many bytes a letter has whose first byte is `first`; 0 if none begins with it.
static std::size_t LengthFrom(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first < 0xE0) return 2;
    if (first >= 0xE0 && first < 0xF0) return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

static bool IsLetterNumber(char32_t number) {
    return number < 0xD800 || (number >= 0xE000 && number <= 0x10FFFF);
}

std::optional<char32_t> TakeLetter(std::string_view& text) {
    static constexpr unsigned char kFirstBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = LengthFrom(first);
    if (length == 0 || length > text.size()) return std::nullopt;
    char32_t letter = first & kFirstBits[length];
    for (const char next : text.substr(1, length - 1)) {
        if ((static_cast<unsigned char>(next) & 0xC0) != 0x80) return std::nullopt;
        letter = letter << 6 | (static_cast<unsigned char>(next) & 0x3F);
    }
    if (Utf8Length(letter) != length || !IsLetterNumber(letter)) return std::nullopt;
    text.remove_prefix(length);
    return letter;
}

// Removes it from `letters`.
static char32_t TakeLetter(std::u16string_view& letters) {
    const char16_t first = letters.front();
    letters.remove_prefix(1);
    if (!IsFirstHalf(first)) return IsSecondHalf(first) ? kReplacement : first;
    if (letters.empty() || !IsSecondHalf(letters.front())) return kReplacement;
    const char16_t second = letters.front();
    letters.remove_prefix(1);
    return kFirstOfPairs + ((static_cast<char32_t>(first) & 0x3FF) << 10 | (static_cast<char32_t>(second) & 0x3FF));
}

std::string Utf8Of(std::u16string_view letters) {
    std::string text;
    text.reserve(letters.size());
    while (!letters.empty()) AppendUtf8(TakeLetter(letters), text);
    return text;
}

static void AppendUtf16(char32_t letter, std::u16string& text) {
    if (letter >= kFirstOfPairs) text += static_cast<char16_t>(0xD800 | (letter - kFirstOfPairs) >> 10);
    text += static_cast<char16_t>(letter >= kFirstOfPairs ? 0xDC00 | (letter & 0x3FF) : letter);
}

std::u16string LettersOfUtf8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const auto letter = TakeLetter(utf8);
        if (!letter) break;
        AppendUtf16(*letter, text);
    }
    return text;
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

bool IsInUtf8(std::string_view note) {
    if (!note.starts_with(kUtf8Mark) || note.size() == kUtf8Mark.size()) return false;
    std::string_view rest = note.substr(kUtf8Mark.size());
    while (!rest.empty())
        if (!TakeLetter(rest)) return false;
    return true;
}

static std::string_view BehindMark(std::string_view note) {
    return note.substr(kUtf8Mark.size());
}

std::u16string LettersOfNote(const CodePage& page, std::string_view note) {
    return IsInUtf8(note) ? LettersOfUtf8(BehindMark(note)) : page.lettersOf(page.device, note);
}

// What would be taken for a note in UTF-8 has to be one.
std::string NoteOfLetters(const CodePage& page, std::u16string_view letters) {
    std::string note;
    if (page.bytesOf(page.device, letters, note) && !IsInUtf8(note)) return note;
    note = kUtf8Mark;
    return note += Utf8Of(letters);
}

std::string NoteOfLetters(const CodePage& page, std::u16string_view letters, std::string_view before) {
    return LettersOfNote(page, before) == letters ? std::string(before) : NoteOfLetters(page, letters);
}

bool HasExactLetters(const CodePage& page, std::string_view note) {
    return IsInUtf8(note) || NoteOfLetters(page, page.lettersOf(page.device, note)) == note;
}

std::string Utf8OfNote(const CodePage& page, std::string_view note) {
    return IsInUtf8(note) ? std::string(BehindMark(note)) : Utf8Of(page.lettersOf(page.device, note));
}

// ---- Places in a note -----------------------------------------------------------------------------------------------

std::size_t LettersBefore(const CodePage& page, std::string_view note, std::size_t place) {
    const std::string_view before = note.substr(0, place);
    if (!IsInUtf8(note)) return page.lettersOf(page.device, before).size();
    return before.size() <= kUtf8Mark.size() ? 0 : LettersOfUtf8(BehindMark(before)).size();
}

std::size_t PlaceBehind(const CodePage& page, std::string_view note, std::size_t letters) {
    const std::u16string all = LettersOfNote(page, note);
    letters = std::min(letters, all.size());
    if (IsInUtf8(note)) {
        const bool isInside = letters > 0 && letters < all.size() && IsSecondHalf(all[letters]);
        return kUtf8Mark.size() + Utf8Of(std::u16string_view(all).substr(0, letters - isInside)).size();
    }
    std::string bytes;
    const bool isExact = all.size() != note.size() && page.bytesOf(page.device, all.substr(0, letters), bytes);
    return isExact && note.starts_with(bytes) ? bytes.size() : std::min(letters, note.size());
}

// ---- Room -----------------------------------------------------------------------------------------------------------

// `count`, or one less where a letter or a line end would be divided.
static std::size_t UndividedCount(std::u16string_view letters, std::size_t count) {
    if (count == 0 || count >= letters.size()) return count;
    const char16_t last = letters[count - 1], next = letters[count];
    const bool isDivided = (IsFirstHalf(last) && IsSecondHalf(next)) || (last == u'\r' && next == u'\n');
    return count - isDivided;
}

std::u16string_view FittingLetters(const CodePage& page, std::u16string_view before, std::u16string_view letters,
                                   std::u16string_view behind, std::size_t limit) {
    static constexpr std::size_t kMostBytes = 3;  // for a unit
    const auto fits = [&](std::size_t count) {
        const std::size_t size = before.size() + count + behind.size();
        if (size > limit) return false;
        if (kUtf8Mark.size() + size * kMostBytes <= limit) return true;
        std::u16string all(before);
        all.append(letters.substr(0, count)).append(behind);
        return NoteOfLetters(page, all).size() <= limit;
    };
    std::size_t fitting = 0, end = letters.size();
    if (fits(end)) return letters;
    while (end - fitting > 1) {
        const std::size_t middle = fitting + (end - fitting) / 2;
        (fits(middle) ? fitting : end) = middle;
    }
    return letters.substr(0, UndividedCount(letters, fitting));
}
