#include "exchange/file_text.h"

#include <algorithm>

// ---- Encodings ------------------------------------------------------------------------------------------------------

static std::string TextOfUtf16(std::string_view bytes, bool isBigEndian) {
    std::u16string letters;
    letters.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        const auto first = static_cast<unsigned char>(bytes[at]), second = static_cast<unsigned char>(bytes[at + 1]);
        letters += static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    }
    return Utf8Of(letters);
}

namespace {

// Of what is not ASCII.
struct ByteCounts {
    std::size_t letters = 0;     // of UTF-8
    std::size_t otherBytes = 0;  // that belong to none
};

}  // namespace

static bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

static ByteCounts CountLetters(std::string_view bytes) {
    ByteCounts counts;
    while (!bytes.empty()) {
        if (IsAscii(bytes.front())) {
            bytes.remove_prefix(1);
        } else if (TakeLetter(bytes)) {
            ++counts.letters;
        } else {
            ++counts.otherBytes;
            bytes.remove_prefix(1);
        }
    }
    return counts;
}

// Letters of UTF-8, and others of the code page between them.
static std::string MendedUtf8(const CodePage& page, std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::string_view rest = bytes;
        if (TakeLetter(rest)) {
            text += bytes.substr(0, bytes.size() - rest.size());
            bytes = rest;
        } else {
            text += Utf8Of(page.lettersOf(page.device, bytes.substr(0, 1)));
            bytes.remove_prefix(1);
        }
    }
    return text;
}

static std::string Utf8OfFile(const CodePage& page, std::string_view bytes) {
    const bool isMarked = bytes.starts_with(kUtf8Mark);
    if (isMarked) bytes.remove_prefix(kUtf8Mark.size());
    if (bytes.starts_with("\xFF\xFE")) return TextOfUtf16(bytes.substr(2), false);
    if (bytes.starts_with("\xFE\xFF")) return TextOfUtf16(bytes.substr(2), true);
    const ByteCounts counts = CountLetters(bytes);
    if (counts.otherBytes == 0) return std::string(bytes);
    if (isMarked || counts.letters > counts.otherBytes) return MendedUtf8(page, bytes);
    return Utf8Of(page.lettersOf(page.device, bytes));
}

// ---- Lines ----------------------------------------------------------------------------------------------------------

static std::string WithLf(std::string text) {
    if (text.find('\r') == std::string::npos) return text;
    std::size_t size = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') continue;
        text[size++] = text[at] == '\r' ? '\n' : text[at];
    }
    text.resize(size);
    return text;
}

std::string TextOfFile(const CodePage& page, std::string_view bytes) {
    return WithLf(Utf8OfFile(page, bytes));
}

std::vector<std::string_view> LinesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        lines.push_back(line);
        text.remove_prefix(std::min(text.size(), line.size() + 1));
    }
    return lines;
}

std::string WithCrLf(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') result += '\r';
        result += c;
    }
    return result;
}

std::string_view Trimmed(std::string_view text) {
    static constexpr std::string_view kBlanks = " \t\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}
