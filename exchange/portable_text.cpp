#include "exchange/portable_text.h"

#include <algorithm>

#include "scripture/letters.h"

static constexpr std::string_view kStoredInUtf8 = "\\8";
static constexpr std::string_view kEscapedWord = "escaped", kGuardedWord = "guarded";

// ---- What stands there as it is -------------------------------------------------------------------------------------

static bool IsPlainAscii(char c) {
    return (c >= ' ' && c < '\x7F') || c == '\t';
}

// Not control characters, and not what Unicode never uses for a letter.
static bool IsPlain(char16_t unit) {
    if (unit < 0x80) return IsPlainAscii(static_cast<char>(unit));
    return unit >= 0xA0 && unit < 0xFFFE && !(unit >= 0xFDD0 && unit < 0xFDF0);
}

// The text of a note without the CRs of its line ends; nullopt if it has other characters than plain ASCII ones in such
// lines. Most notes need no more than this.
static std::optional<std::string> PlainAsciiText(std::string_view note) {
    std::string text;
    text.reserve(note.size());
    for (std::size_t at = 0; at < note.size(); ++at) {
        if (note[at] == '\r' && at + 1 < note.size() && note[at + 1] == '\n') {
            text += '\n';
            ++at;
        } else if (IsPlainAscii(note[at])) {
            text += note[at];
        } else {
            return std::nullopt;
        }
    }
    return text;
}

static std::optional<std::u16string> PlainLetters(const std::u16string& letters) {
    std::u16string text;
    text.reserve(letters.size());
    for (std::size_t at = 0; at < letters.size(); ++at) {
        if (letters[at] == u'\r' && at + 1 < letters.size() && letters[at + 1] == u'\n') {
            text += u'\n';
            ++at;
        } else if (IsPlain(letters[at])) {
            text += letters[at];
        } else {
            return std::nullopt;
        }
    }
    return text;
}

// ---- Escaping -------------------------------------------------------------------------------------------------------

static void AppendByte(char byte, std::string& text) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    const auto number = static_cast<unsigned char>(byte);
    text += "\\x";
    text += kHex[number >> 4];
    text += kHex[number & 15];
}

// Takes one ASCII character, or a line end of two, from the note.
static void EscapeAscii(std::string_view& note, std::string& text) {
    const char c = note.front();
    note.remove_prefix(1);
    if (c == '\r' && note.starts_with('\n')) {
        note.remove_prefix(1);
        text += '\n';
    } else if (c == '\n') {
        text += "\\\n";
    } else if (c == '\r') {
        text += "\\r";
    } else if (c == '\\') {
        text += "\\\\";
    } else if (IsPlainAscii(c)) {
        text += c;
    } else {
        AppendByte(c, text);
    }
}

static bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

static bool IsPlainText(std::u16string_view letters) {
    return std::ranges::all_of(letters, IsPlain);
}

// Takes a letter of a code page, which has one or two bytes, or a byte that is none.
static void EscapeBytes(const CodePage& page, std::string_view& note, std::string& text) {
    for (const std::size_t size : {std::size_t{1}, std::size_t{2}}) {
        const std::string_view bytes = note.substr(0, size);
        const std::u16string letters = page.lettersOf(page.device, bytes);
        std::string again;
        if (letters.size() != 1 || !IsPlainText(letters)) continue;
        if (!page.bytesOf(page.device, letters, again) || again != bytes) continue;
        text += Utf8Of(letters);
        note.remove_prefix(bytes.size());
        return;
    }
    AppendByte(note.front(), text);
    note.remove_prefix(1);
}

static void EscapeLetter(std::string_view& note, std::string& text) {
    std::string_view rest = note;
    TakeLetter(rest);  // the note is valid
    const std::string_view letter = note.substr(0, note.size() - rest.size());
    if (IsPlainText(LettersOfUtf8(letter)))
        text += letter;
    else
        for (const char byte : letter) AppendByte(byte, text);
    note = rest;
}

static std::string Escaped(const CodePage& page, std::string_view note) {
    const bool isInUtf8 = IsInUtf8(note);
    std::string text;
    if (isInUtf8) {
        text = kStoredInUtf8;
        note.remove_prefix(kUtf8Mark.size());
    }
    while (!note.empty()) {
        if (IsAscii(note.front()))
            EscapeAscii(note, text);
        else if (isInUtf8)
            EscapeLetter(note, text);
        else
            EscapeBytes(page, note, text);
    }
    return text;
}

PortableText PortableTextOf(const CodePage& page, std::string_view note) {
    if (auto text = PlainAsciiText(note)) return {*std::move(text)};
    const std::u16string letters = LettersOfNote(page, note);
    const std::optional<std::u16string> text = PlainLetters(letters);
    if (text && NoteOfLetters(page, letters) == note) return {Utf8Of(*text)};
    return {Escaped(page, note), true};
}

// ---- Back -----------------------------------------------------------------------------------------------------------

namespace {

// A note that is made of letters and of stored bytes.
struct NoteInMaking {
    const CodePage& page;
    bool isInUtf8 = false;
    bool isLacking = false;  // the code page lacks a letter
    std::string note{};
    std::string letters{};  // in UTF-8, not yet in the note
};

}  // namespace

static void StoreLetters(NoteInMaking& making) {
    if (making.letters.empty()) return;
    std::string bytes;
    if (making.isInUtf8)
        bytes = making.letters;
    else if (!making.page.bytesOf(making.page.device, LettersOfUtf8(making.letters), bytes))
        making.isLacking = true;
    making.note += bytes;
    making.letters.clear();
}

static std::optional<int> HexDigit(char c) {
    if (IsDigit(c)) return c - '0';
    const char lowered = LowerCased(c);
    if (lowered >= 'a' && lowered <= 'f') return lowered - 'a' + 10;
    return std::nullopt;
}

// The byte of "x9D"; nullopt if there is none or it is zero, which no note has.
static std::optional<char> HexByte(std::string_view text) {
    if (text.size() < 3 || text[0] != 'x') return std::nullopt;
    const auto high = HexDigit(text[1]), low = HexDigit(text[2]);
    if (!high || !low || *high + *low == 0) return std::nullopt;
    return static_cast<char>(*high << 4 | *low);
}

// Takes what follows a backslash, and adds what both stand for.
static void TakeEscape(std::string_view& text, NoteInMaking& making) {
    if (const auto byte = HexByte(text)) {
        StoreLetters(making);
        making.note += *byte;
        text.remove_prefix(3);
        return;
    }
    const char next = text.empty() ? '\0' : text.front();
    const bool isEscape = next == '\\' || next == 'r' || next == '\n';
    making.letters += next == 'r' ? '\r' : isEscape ? next : '\\';
    if (isEscape) text.remove_prefix(1);
}

static void TakeCharacter(std::string_view& text, bool isEscaped, NoteInMaking& making) {
    const char c = text.front();
    text.remove_prefix(1);
    if (c == '\\' && isEscaped)
        TakeEscape(text, making);
    else if (c == '\n')
        making.letters += "\r\n";
    else if (c == '\0')
        making.letters += "\xEF\xBF\xBD";
    else
        making.letters += c;
}

static NoteInMaking Made(const CodePage& page, std::string_view text, bool isEscaped, bool isInUtf8) {
    NoteInMaking making{page, isInUtf8};
    if (isInUtf8) making.note = kUtf8Mark;
    while (!text.empty()) TakeCharacter(text, isEscaped, making);
    StoreLetters(making);
    return making;
}

static std::string EscapedNote(const CodePage& page, std::string_view text) {
    const bool isInUtf8 = text.starts_with(kStoredInUtf8);
    if (isInUtf8) text.remove_prefix(kStoredInUtf8.size());
    NoteInMaking making = Made(page, text, true, isInUtf8);
    return making.isLacking ? Made(page, text, true, true).note : making.note;
}

std::string StoredNoteOf(const CodePage& page, const PortableText& text) {
    if (text.isEscaped) return EscapedNote(page, text.text);
    std::string note = Made(page, text.text, false, true).note;
    note.erase(0, kUtf8Mark.size());
    const bool isAscii = std::ranges::all_of(note, IsAscii);
    return isAscii ? note : NoteOfLetters(page, LettersOfUtf8(note));
}

// ---- Marks ----------------------------------------------------------------------------------------------------------

static constexpr std::size_t kDigestLetters = 8;

std::string MarkText(const NoteMark& mark) {
    std::string text;
    if (mark.digest)
        for (std::size_t i = kDigestLetters; i-- > 0;) text += static_cast<char>('a' + (*mark.digest >> (4 * i) & 15));
    if (mark.isEscaped) text.append(text.empty() ? "" : " ").append(kEscapedWord);
    if (mark.isGuarded) text.append(text.empty() ? "" : " ").append(kGuardedWord);
    return text;
}

static std::optional<std::uint32_t> DigestIn(std::string_view word) {
    if (word.size() != kDigestLetters) return std::nullopt;
    std::uint32_t digest = 0;
    for (const char c : word) {
        const char letter = LowerCased(c);
        if (letter < 'a' || letter > 'p') return std::nullopt;
        digest = digest << 4 | static_cast<std::uint32_t>(letter - 'a');
    }
    return digest;
}

NoteMark MarkOf(std::string_view text) {
    NoteMark mark;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find_first_of(" \t"));
        text.remove_prefix(std::min(text.size(), word.size() + 1));
        if (EqualIgnoringCase(word, kEscapedWord)) mark.isEscaped = true;
        if (EqualIgnoringCase(word, kGuardedWord)) mark.isGuarded = true;
        if (const auto digest = DigestIn(word)) mark.digest = digest;
    }
    return mark;
}
