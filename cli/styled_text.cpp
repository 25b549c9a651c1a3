#include "cli/styled_text.h"

#include <algorithm>
#include <array>

#include "notes/note_letters.h"
#include "scripture/latin_letters.h"
#include "typeset/html_text.h"

namespace {

struct StyleNow {
    bool isReference = false;
    bool isSupplied = false;
    int keyDepth = 0;  // marks of key words may be nested
};

}  // namespace

static TextStyle StyleOf(const StyleNow& now) {
    return static_cast<TextStyle>((now.isReference ? kReference : 0) | (now.isSupplied ? kSupplied : 0) |
                                  (now.keyDepth > 0 ? kKeyWord : 0));
}

// The letters that were added behind the last run become one, or part of it.
static void EndRun(StyledText& text, TextStyle style) {
    const std::size_t end = text.letters.size();
    if (!text.runs.empty() && text.runs.back().style == style)
        text.runs.back().end = end;
    else if (end > (text.runs.empty() ? 0 : text.runs.back().end))
        text.runs.push_back({style, end});
}

void AppendStyled(StyledText& text, std::string_view bytes, TextStyle style) {
    const std::size_t before = text.letters.size();
    text.letters.resize(before + bytes.size());
    std::ranges::transform(bytes, text.letters.begin() + static_cast<std::ptrdiff_t>(before), [](char byte) {
        const auto ascii = static_cast<unsigned char>(byte);
        return ascii < 0x80 ? char32_t{ascii} : LatinLetter(byte);
    });
    EndRun(text, style);
}

// ---- Marks ----------------------------------------------------------------------------------------------------------

static constexpr std::array<bool, 256> kIsMark = [] {
    std::array<bool, 256> marks{};
    for (const char mark : {kReferenceFollows, kPlainFollows, '[', ']', '{', '}', '\r'})
        marks[static_cast<unsigned char>(mark)] = true;
    return marks;
}();

static bool IsMark(char byte) {
    return kIsMark[static_cast<unsigned char>(byte)];
}

static void TakeMark(StyleNow& now, char mark) {
    switch (mark) {
        case kReferenceFollows: now.isReference = true; break;
        case kPlainFollows: now.isReference = false; break;
        case '[': now.isSupplied = true; break;
        case ']': now.isSupplied = false; break;
        case '{': ++now.keyDepth; break;
        case '}': now.keyDepth -= now.keyDepth > 0 ? 1 : 0; break;
        default: break;
    }
}

static std::size_t SizeUntilMark(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::find_if(text, IsMark) - text.begin());
}

static bool IsShownBracket(char mark, ShownBrackets brackets) {
    return brackets == ShownBrackets::kYes && (mark == '[' || mark == ']');
}

void AppendStyled(StyledText& text, std::string_view marked, ShownBrackets brackets) {
    StyleNow now;
    while (!marked.empty()) {
        const std::size_t before = SizeUntilMark(marked);
        AppendStyled(text, marked.substr(0, before), StyleOf(now));
        marked.remove_prefix(before);
        if (marked.empty()) return;
        if (IsShownBracket(marked[0], brackets)) AppendStyled(text, marked.substr(0, 1), kPlain);
        TakeMark(now, marked[0]);
        marked.remove_prefix(1);
    }
}

void AppendPlain(std::string& utf8, std::string_view marked, ShownBrackets brackets) {
    const auto isOther = [](char byte) { return IsMark(byte) || static_cast<unsigned char>(byte) >= 0x80; };
    while (!marked.empty()) {
        const auto before = static_cast<std::size_t>(std::ranges::find_if(marked, isOther) - marked.begin());
        utf8.append(marked.substr(0, before));
        marked.remove_prefix(before);
        if (marked.empty()) return;
        const char other = marked[0];
        if (!IsMark(other) || IsShownBracket(other, brackets)) AppendUtf8(LatinLetter(other), utf8);
        marked.remove_prefix(1);
    }
}

// ---- UTF-8 ----------------------------------------------------------------------------------------------------------

void AppendUtf8Styled(StyledText& text, std::string_view utf8, TextStyle style) {
    static constexpr char32_t kUnknown = 0xFFFD;
    while (!utf8.empty()) {
        const auto letter = TakeLetter(utf8);
        if (!letter) utf8.remove_prefix(1);
        if (letter != U'\r') text.letters += letter.value_or(kUnknown);
    }
    EndRun(text, style);
}

// ---- Parts ----------------------------------------------------------------------------------------------------------

void AppendPart(StyledText& text, const StyledText& other, std::size_t begin, std::size_t end) {
    for (const StyledRun& run : other.runs) {
        const std::size_t stop = std::min(run.end, end);
        if (stop <= begin) continue;
        text.letters.append(other.letters, begin, stop - begin);
        EndRun(text, run.style);
        begin = stop;
    }
}

// ---- Places ---------------------------------------------------------------------------------------------------------

std::vector<std::pair<std::size_t, std::size_t>> StretchesOf(const StyledText& text, TextStyle style) {
    std::vector<std::pair<std::size_t, std::size_t>> stretches;
    std::size_t begin = 0;
    for (const StyledRun& run : text.runs) {
        const std::size_t from = std::exchange(begin, run.end);
        if ((run.style & style) == 0) continue;
        if (!stretches.empty() && stretches.back().second == from)
            stretches.back().second = run.end;
        else
            stretches.emplace_back(from, run.end);
    }
    return stretches;
}
