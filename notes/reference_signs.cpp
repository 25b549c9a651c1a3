#include "notes/reference_signs.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "scripture/books.h"

// ---- Blanks and dashes ----------------------------------------------------------------------------------------------

// The size of a blank at `at`; 0 if there is none. A0 is the one that does not break in the code pages, C2 A0 in UTF-8,
// and E2 80 A9 and the like are narrow ones.
static std::size_t BlankSize(std::string_view text, std::size_t at) {
    const char c = ByteAt(text, at);
    if (c == ' ' || c == '\t' || c == '\xA0') return 1;
    if (c == '\xC2' && ByteAt(text, at + 1) == '\xA0') return 2;
    const bool isNarrow = c == '\xE2' && ByteAt(text, at + 1) == '\x80' &&
                          (ByteAt(text, at + 2) == '\xAF' || ByteAt(text, at + 2) == '\x89');
    return isNarrow ? 3 : 0;
}

std::size_t BlanksEnd(std::string_view text, std::size_t at) {
    while (const std::size_t size = BlankSize(text, at)) at += size;
    return at;
}

// 96 and 97 are dashes in the code pages. In UTF-8 they are the ends of letters, but none ends behind a number.
static std::size_t DashSize(std::string_view text, std::size_t at) {
    const char c = ByteAt(text, at);
    if (c == '-') return ByteAt(text, at + 1) == '-' ? 2 : 1;
    if (c == '\x96' || c == '\x97') return 1;
    if (c != '\xE2') return 0;
    const char second = ByteAt(text, at + 1), third = ByteAt(text, at + 2);
    const bool isDash =
        (second == '\x80' && third >= '\x90' && third <= '\x95') || (second == '\x88' && third == '\x92');
    return isDash ? 3 : 0;
}

std::size_t DashEnd(std::string_view text, std::size_t at) {
    const std::size_t dash = BlanksEnd(text, at);
    const std::size_t size = DashSize(text, dash);
    return size > 0 ? BlanksEnd(text, dash + size) : at;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

std::size_t LettersEnd(std::string_view text, std::size_t at) {
    while (IsLetter(ByteAt(text, at))) ++at;
    return at;
}

bool IsWholeWordAt(std::string_view text, std::size_t at, std::string_view word) {
    if (at > text.size() || !StartsWithIgnoringCase(text.substr(at), word)) return false;
    return !IsLetterOrDigit(ByteAt(text, at + word.size()));
}

static constexpr std::string_view kVerseWords[] = {"v", "vv", "vs", "vss", "ver", "vers", "verse", "verses"};
static constexpr std::string_view kChapterWords[] = {"ch", "chs", "chap", "chaps", "chapter", "chapters"};

// "V." may be a number of a list, and "c." is a chapter only behind a book. Behind a whole word a full stop ends the
// sentence.
SpeltPlaceWord PlaceWordAt(std::string_view text, std::size_t at) {
    const char first = LowerCased(ByteAt(text, at));
    if (first != 'v' && first != 'c') return {};
    std::size_t end = LettersEnd(text, at);
    const std::string_view word = text.substr(at, end - at);
    const auto isWord = [&](std::string_view one) { return EqualIgnoringCase(one, word); };
    const bool isVerse = std::ranges::any_of(kVerseWords, isWord) && word != "V";
    if (!isVerse && std::ranges::none_of(kChapterWords, isWord)) return {};
    const bool isWhole = StartsWithIgnoringCase(word, "verse") || StartsWithIgnoringCase(word, "chapter");
    const bool hasStop = ByteAt(text, end) == '.' && !isWhole;
    if (!hasStop && IsDigit(ByteAt(text, end))) return {};  // "v5" is a version
    if (hasStop) ++end;
    return {isVerse ? PlaceWord::kVerse : PlaceWord::kChapter, BlanksEnd(text, end)};
}

// ---- Numbers --------------------------------------------------------------------------------------------------------

// Without a look at what follows it.
static SpeltNumber DigitsAt(std::string_view text, std::size_t at) {
    SpeltNumber number{0, at};
    for (; IsDigit(ByteAt(text, number.end)) && number.end < at + 4; ++number.end)
        number.value = number.value * 10 + (text[number.end] - '0');
    return number;
}

static bool IsNumber(const SpeltNumber& number, std::size_t at) {
    return number.end > at && number.end <= at + 3 && number.value > 0;
}

std::optional<SpeltNumber> FiguresAt(std::string_view text, std::size_t at) {
    const SpeltNumber number = DigitsAt(text, at);
    if (!IsNumber(number, at) || IsLetterOrDigit(ByteAt(text, number.end))) return std::nullopt;
    return number;
}

static int RomanValue(char letter) {
    switch (LowerCased(letter)) {
        case 'i': return 1;
        case 'v': return 5;
        case 'x': return 10;
        case 'l': return 50;
        case 'c': return 100;
        default: return 0;
    }
}

// Is it the usual way to write the value? "iiii" for 4 and "xxxx" for 40 are older ones.
static bool IsSpeltRight(std::string_view letters, int value) {
    static constexpr const char* kTens[] = {"", "x", "xx", "xxx", "xl", "l", "lx", "lxx", "lxxx", "xc"};
    static constexpr const char* kOnes[] = {"", "i", "ii", "iii", "iv", "v", "vi", "vii", "viii", "ix"};
    char spelt[16] = "";
    if (value >= 100) std::strcat(spelt, "c");
    std::strcat(spelt, kTens[value % 100 / 10]);
    std::strcat(spelt, kOnes[value % 10]);
    return EqualIgnoringCase(letters, spelt) ||
           (value % 10 == 4 && letters.size() > 4 && EqualIgnoringCase(letters.substr(letters.size() - 4), "iiii"));
}

static std::optional<SpeltNumber> RomanAt(std::string_view text, std::size_t at) {
    static constexpr std::size_t kLongest = 9;  // cxxxviii has 8
    std::size_t end = at;
    int value = 0, before = 0;
    for (; end < at + kLongest; ++end) {
        const int letter = RomanValue(ByteAt(text, end));
        if (letter == 0) break;
        value += letter > before ? letter - 2 * before : letter;
        before = letter;
    }
    const bool isWord = end == at || IsLetterOrDigit(ByteAt(text, end)) || ByteAt(text, end) == '\'';
    if (isWord || value < 1 || value > 150) return std::nullopt;
    const std::string_view letters = text.substr(at, end - at);
    const bool isInCapitals = std::ranges::all_of(letters, IsCapital);
    const bool isAbbreviation = ByteAt(text, end) == '.' && IsLetter(ByteAt(text, end + 1));  // "i.e."
    if (isAbbreviation || (!isInCapitals && std::ranges::any_of(letters, IsCapital))) return std::nullopt;
    if (!IsSpeltRight(letters, value)) return std::nullopt;
    return SpeltNumber{value, end, true, isInCapitals, letters.size() == 1};
}

std::optional<SpeltNumber> NumberAt(std::string_view text, std::size_t at) {
    return IsDigit(ByteAt(text, at)) ? FiguresAt(text, at) : RomanAt(text, at);
}

FollowingWord FollowingAt(std::string_view text, std::size_t at) {
    struct Word {
        std::string_view word;
        Following following;
    };
    static constexpr Word kWords[] = {{"f", Following::kOne},   {"ff", Following::kAll},  {"sq", Following::kOne},
                                      {"sqq", Following::kAll}, {"seq", Following::kOne}, {"seqq", Following::kAll}};
    std::size_t begin = BlanksEnd(text, at);
    const bool isApart = begin > at;
    if (isApart && IsWordAt(text, begin, "et")) begin = BlanksEnd(text, begin + 2);
    for (const Word& word : kWords) {
        if (!IsWordAt(text, begin, word.word)) continue;
        const std::size_t end = begin + word.word.size();
        const bool isSure = !isApart || ByteAt(text, end) == '.' || word.word == "ff";
        return isSure && IsDigit(ByteAt(text, at - 1)) ? FollowingWord{word.following, end} : FollowingWord{};
    }
    return {};
}

std::optional<SpeltNumber> VerseNumberAt(std::string_view text, std::size_t at) {
    SpeltNumber number = DigitsAt(text, at);
    if (!IsNumber(number, at)) return std::nullopt;
    const char next = ByteAt(text, number.end);
    if (next >= 'a' && next <= 'c' && !IsLetterOrDigit(ByteAt(text, number.end + 1)))
        ++number.end;
    else if (IsLetterOrDigit(next) && FollowingAt(text, number.end).following == Following::kNone)
        return std::nullopt;
    return number;
}
