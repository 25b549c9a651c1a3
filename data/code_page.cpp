#include "data/code_page.h"

#include <algorithm>
#include <iterator>

namespace {

// Code points of the bytes 0x80 to 0x9F; 0 for bytes that are not assigned.
constexpr std::uint32_t kWindowsPoints[] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,
};

// Letters of the DOS code page for the control codes 0x80 to 0x9F. Text does not contain these control codes, so if a
// module has them, its maker took text in the DOS code page for another encoding.
constexpr unsigned char kDosLetters[] = {
    0xC7, 0xFC, 0xE9, 0xE2, 0xE4, 0xE0, 0xE5, 0xE7, 0xEA, 0xEB, 0xE8, 0xEF, 0xEE, 0xEC, 0xC4, 0xC5,
    0xC9, 0xE6, 0xC6, 0xF4, 0xF6, 0xF2, 0xFB, 0xF9, 0xFF, 0xD6, 0xDC, 0xA2, 0xA3, 0xA5, 'P',  0x83,
};

constexpr std::uint32_t kNoBreakSpace = 0xA0;

struct PointSpelling {
    std::uint32_t point;
    const char* letters;
};

constexpr PointSpelling kGreek[] = {
    {0x391, "A"},  {0x392, "B"},  {0x393, "G"},  {0x394, "D"}, {0x395, "E"}, {0x396, "Z"}, {0x397, "E"},
    {0x398, "Th"}, {0x399, "I"},  {0x39A, "K"},  {0x39B, "L"}, {0x39C, "M"}, {0x39D, "N"}, {0x39E, "X"},
    {0x39F, "O"},  {0x3A0, "P"},  {0x3A1, "R"},  {0x3A3, "S"}, {0x3A4, "T"}, {0x3A5, "U"}, {0x3A6, "Ph"},
    {0x3A7, "Ch"}, {0x3A8, "Ps"}, {0x3A9, "O"},  {0x3AC, "a"}, {0x3AD, "e"}, {0x3AE, "e"}, {0x3AF, "i"},
    {0x3B1, "a"},  {0x3B2, "b"},  {0x3B3, "g"},  {0x3B4, "d"}, {0x3B5, "e"}, {0x3B6, "z"}, {0x3B7, "e"},
    {0x3B8, "th"}, {0x3B9, "i"},  {0x3BA, "k"},  {0x3BB, "l"}, {0x3BC, "m"}, {0x3BD, "n"}, {0x3BE, "x"},
    {0x3BF, "o"},  {0x3C0, "p"},  {0x3C1, "r"},  {0x3C2, "s"}, {0x3C3, "s"}, {0x3C4, "t"}, {0x3C5, "u"},
    {0x3C6, "ph"}, {0x3C7, "ch"}, {0x3C8, "ps"}, {0x3C9, "o"}, {0x3CA, "i"}, {0x3CB, "u"}, {0x3CC, "o"},
    {0x3CD, "u"},  {0x3CE, "o"},
};

constexpr PointSpelling kHebrew[] = {
    {0x5D0, "'"},  {0x5D1, "b"},  {0x5D2, "g"}, {0x5D3, "d"}, {0x5D4, "h"},  {0x5D5, "w"}, {0x5D6, "z"},
    {0x5D7, "ch"}, {0x5D8, "t"},  {0x5D9, "y"}, {0x5DA, "k"}, {0x5DB, "k"},  {0x5DC, "l"}, {0x5DD, "m"},
    {0x5DE, "m"},  {0x5DF, "n"},  {0x5E0, "n"}, {0x5E1, "s"}, {0x5E2, "'"},  {0x5E3, "p"}, {0x5E4, "p"},
    {0x5E5, "ts"}, {0x5E6, "ts"}, {0x5E7, "q"}, {0x5E8, "r"}, {0x5E9, "sh"}, {0x5EA, "t"},
};

// Accented Greek letters are arranged in rows of one letter each, with capitals in the second half of a row. `last` is
// the last code point of a row. Rho is placed among the upsilons.
struct AccentedRow {
    std::uint32_t last;
    char letter;
};

constexpr AccentedRow kAccentedGreek[] = {
    {0x1F0F, 'a'}, {0x1F1F, 'e'}, {0x1F2F, 'e'}, {0x1F3F, 'i'}, {0x1F4F, 'o'}, {0x1F5F, 'u'},
    {0x1F6F, 'o'}, {0x1F71, 'a'}, {0x1F73, 'e'}, {0x1F75, 'e'}, {0x1F77, 'i'}, {0x1F79, 'o'},
    {0x1F7B, 'u'}, {0x1F7D, 'o'}, {0x1F8F, 'a'}, {0x1F9F, 'e'}, {0x1FAF, 'o'}, {0x1FBC, 'a'},
    {0x1FC1, ' '}, {0x1FCC, 'e'}, {0x1FCF, ' '}, {0x1FDB, 'i'}, {0x1FDF, ' '}, {0x1FE3, 'u'},
    {0x1FE5, 'r'}, {0x1FEB, 'u'}, {0x1FEC, 'r'}, {0x1FF1, ' '}, {0x1FFC, 'o'},
};

// The letters 0x100 to 0x17F without their accents.
constexpr std::string_view kLatinWithAccents =
    "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiJjJjKkkLlLlLlLlLlNnNnNnnNnOoOoOoOoRrRrRrSsSsSsSsTtTtTtUuUuUuUuUu"
    "Uu"
    "WwYyYZzZzZzs";
static_assert(kLatinWithAccents.size() == 0x80);

constexpr PointSpelling kLookAlikes[] = {
    {0x2010, "-"}, {0x2011, "-"}, {0x2012, "-"}, {0x2015, "--"}, {0x2032, "'"}, {0x2033, "\""}, {0x02B9, "'"},
    {0x02BB, "'"}, {0x02BC, "'"}, {0x02BE, "'"}, {0x02BF, "'"},  {0x05BE, "-"}, {0x2212, "-"},  {0x1E25, "h"},
    {0x1E63, "s"}, {0x1E6D, "t"}, {0x1E24, "H"}, {0x1E62, "S"},  {0x1E6C, "T"},
};

struct Decoded {
    std::uint32_t point = 0;
    std::size_t length = 0;  // bytes; 0 if the text is not valid UTF-8
};

}  // namespace

static Decoded DecodeFirst(std::string_view utf8) {
    const auto byteAt = [utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char first = byteAt(0);
    if (first < 0x80) return {first, 1};
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || utf8.size() < length) return {};
    std::uint32_t point = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) return {};
        point = point << 6 | (byteAt(i) & 0x3Fu);
    }
    return {point, length};
}

template <std::size_t kCount>
static const char* LettersOf(const PointSpelling (&spellings)[kCount], std::uint32_t point) {
    const auto* found = std::find_if(std::begin(spellings), std::end(spellings),
                                     [point](const PointSpelling& spelling) { return spelling.point == point; });
    return found == std::end(spellings) ? nullptr : found->letters;
}

static bool IsMark(std::uint32_t point) {
    return (point >= 0x300 && point <= 0x36F) || (point >= 0x591 && point <= 0x5C7 && point != 0x5BE);
}

// Blanks that are replaced by the ordinary one, because a search for words recognizes only that.
static bool IsOtherBlank(std::uint32_t point) {
    return point == kNoBreakSpace || (point >= 0x2000 && point <= 0x200A) || point == 0x202F || point == 0x205F ||
           point == 0x3000;
}

// Invisible characters: zero-width spaces and joiners, direction marks, byte order marks.
static bool IsInvisible(std::uint32_t point) {
    return point == 0 || point == 0xFEFF || (point >= 0x200B && point <= 0x200F) ||
           (point >= 0x202A && point <= 0x202E) || (point >= 0x2060 && point <= 0x2064);
}

static bool Add(std::string& text, std::string_view letters) {
    text += letters;
    return true;
}

static bool Add(std::string& text, std::uint32_t byte) {
    text += static_cast<char>(byte);
    return true;
}

static char AccentedGreek(std::uint32_t point) {
    if (point < 0x1F00) return ' ';
    const auto* row = std::find_if(std::begin(kAccentedGreek), std::end(kAccentedGreek),
                                   [point](const AccentedRow& each) { return point <= each.last; });
    if (row == std::end(kAccentedGreek) || row->letter == ' ') return ' ';
    const bool isCapital = (point & 8) != 0 && (point < 0x1F70 || point > 0x1F7D);
    return isCapital ? static_cast<char>(row->letter - 'a' + 'A') : row->letter;
}

static bool Transliterate(std::uint32_t point, std::string& text) {
    if (const char* letters = LettersOf(kGreek, point)) return Add(text, letters);
    if (const char* letters = LettersOf(kHebrew, point)) return Add(text, letters);
    const char accented = AccentedGreek(point);
    return accented != ' ' && Add(text, std::string_view(&accented, 1));
}

static bool ReplaceByLookAlike(std::uint32_t point, std::string& text) {
    if (point >= 0x80 && point <= 0x9F) return Add(text, kDosLetters[point - 0x80]);
    if (point >= 0x100 && point <= 0x17F) return Add(text, kLatinWithAccents.substr(point - 0x100, 1));
    if (IsOtherBlank(point)) return Add(text, " ");
    const char* letters = LettersOf(kLookAlikes, point);
    return letters != nullptr && Add(text, letters);
}

static bool AddAsItIs(std::uint32_t point, std::string& text) {
    if (point < 0x80 || (point > kNoBreakSpace && point <= 0xFF)) return Add(text, point);
    const auto* found = std::find(std::begin(kWindowsPoints), std::end(kWindowsPoints), point);
    return found != std::end(kWindowsPoints) &&
           Add(text, 0x80 + static_cast<std::uint32_t>(found - std::begin(kWindowsPoints)));
}

static void AddPoint(std::uint32_t point, std::string& text, LostCharacters& lost) {
    if (IsInvisible(point) || AddAsItIs(point, text)) return;
    if (Transliterate(point, text)) {
        ++lost.transliterated;
    } else if (ReplaceByLookAlike(point, text)) {
        ++lost.replaced;
    } else {
        ++lost.dropped;
        if (!IsMark(point)) text += '?';
    }
}

std::string InCodePage(std::string_view utf8, LostCharacters& lost) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded first = DecodeFirst(utf8);
        if (first.length == 0) {
            text += utf8.front();
        } else {
            AddPoint(first.point, text, lost);
        }
        utf8.remove_prefix(std::max<std::size_t>(first.length, 1));
    }
    return text;
}
