#include "exchange/verse_names.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "scripture/books.h"
#include "scripture/letters.h"
#include "scripture/reference_parser.h"

static constexpr std::array<const char*, kBookCount> kAnchors = {
    "Gen",   "Exod", "Lev",  "Num",  "Deut", "Josh", "Judg",  "Ruth",   "1Sam",   "2Sam",  "1Kgs",
    "2Kgs",  "1Chr", "2Chr", "Ezra", "Neh",  "Esth", "Job",   "Ps",     "Prov",   "Eccl",  "Song",
    "Isa",   "Jer",  "Lam",  "Ezek", "Dan",  "Hos",  "Joel",  "Amos",   "Obad",   "Jonah", "Mic",
    "Nah",   "Hab",  "Zeph", "Hag",  "Zech", "Mal",  "Matt",  "Mark",   "Luke",   "John",  "Acts",
    "Rom",   "1Cor", "2Cor", "Gal",  "Eph",  "Phil", "Col",   "1Thess", "2Thess", "1Tim",  "2Tim",
    "Titus", "Phlm", "Heb",  "Jas",  "1Pet", "2Pet", "1John", "2John",  "3John",  "Jude",  "Rev"};

namespace {

struct OtherName {
    std::string_view name;
    int book;
};

}  // namespace

// What is neither an abbreviation of the program nor the beginning of a name.
static constexpr OtherName kOtherNames[] = {
    {"gn", 1},
    {"lv", 3},
    {"nm", 4},
    {"dt", 5},
    {"jdg", 7},
    {"1sm", 9},
    {"2sm", 10},
    {"jb", 18},
    {"pss", 19},
    {"psm", 19},
    {"prv", 20},
    {"canticles", 22},
    {"song of songs", 22},
    {"sos", 22},
    {"jr", 24},
    {"ezk", 26},
    {"dn", 27},
    {"jl", 29},
    {"mk", 41},
    {"lk", 42},
    {"jn", 43},
    {"rm", 45},
    {"jn", 43},
    {"1pt", 60},
    {"2pt", 61},
    {"1jn", 62},
    {"2jn", 63},
    {"3jn", 64},
    {"rv", 66},
    {"revelations", 66},
    {"1thes", 52},
    {"2thes", 53},
    {"1tm", 54},
    {"2tm", 55},
};

// ---- Parts of a name ------------------------------------------------------------------------------------------------

namespace {

struct NamePart {
    std::string text;  // letters, in small ones, or figures
    bool isNumber = false;
};

using NameParts = std::vector<NamePart>;

}  // namespace

static NameParts PartsOf(std::string_view name) {
    NameParts parts;
    bool isApart = true;
    for (const char c : name) {
        const bool isNumber = IsDigit(c);
        if (isApart || (!parts.empty() && parts.back().isNumber != isNumber)) parts.push_back({"", isNumber});
        isApart = !IsLetterOrDigit(c);
        if (!isApart)
            parts.back().text += LowerCased(c);
        else if (parts.back().text.empty())
            parts.pop_back();
    }
    return parts;
}

static bool IsLetters(const NameParts& parts, std::size_t at) {
    return at < parts.size() && !parts[at].isNumber;
}

static bool IsNumber(const NameParts& parts, std::size_t at) {
    return at < parts.size() && parts[at].isNumber;
}

static int NumberOf(const std::string& figures) {
    static constexpr int kBeyondAnyVerse = 10000;
    int number = 0;
    for (const char c : figures) number = std::min(number * 10 + (c - '0'), kBeyondAnyVerse);
    return number;
}

// ---- Books ----------------------------------------------------------------------------------------------------------

// "1samuel"
static std::string JoinedName(std::string_view name) {
    std::string joined = LowerCased(name);
    if (IsDigit(joined.front())) joined.erase(1, 1);
    return joined;
}

static bool IsNameOf(int book, const std::string& typed) {
    const std::size_t least = IsDigit(typed.front()) ? 3 : 2;
    if (typed.size() >= least && JoinedName(BookName(book)).starts_with(typed)) return true;
    return EqualIgnoringCase(typed, BookAbbreviation(book)) || EqualIgnoringCase(typed, BookAnchor(book));
}

// `typed` is "romans", "1sam" or "song of solomon". 0 if it is no book.
static int BookNamed(const VerseRecords& records, const std::string& typed) {
    for (const OtherName& other : kOtherNames)
        if (other.name == typed) return other.book;
    for (int book = 1; book <= kBookCount; ++book)
        if (EqualIgnoringCase(typed, BookAnchor(book))) return book;
    const ParsedReference parsed = ParseReference(records, typed);
    const int book = parsed.ok ? RecordOf(records, parsed.verse).book : 0;
    return book != 0 && IsNameOf(book, typed) ? book : 0;
}

// The number in front of a book, as a figure; empty if the part is none.
static std::string OrdinalOf(const NamePart& part) {
    if (part.text == "1" || part.text == "i") return "1";
    if (part.text == "2" || part.text == "ii") return "2";
    return part.text == "3" || part.text == "iii" ? "3" : "";
}

// Takes a book of up to three words, the longest first. 0 if there is none.
static int TakeWords(const VerseRecords& records, const NameParts& parts, const std::string& ordinal, std::size_t& at) {
    static constexpr std::size_t kMostWords = 3;
    std::size_t count = 0;
    while (count < kMostWords && IsLetters(parts, at + count)) ++count;
    for (; count > 0; --count) {
        std::string typed = ordinal + parts[at].text;
        for (std::size_t i = 1; i < count; ++i) typed += ' ' + parts[at + i].text;
        const int book = BookNamed(records, typed);
        if (book == 0) continue;
        at += count;
        return book;
    }
    return 0;
}

static int TakeBook(const VerseRecords& records, const NameParts& parts, std::size_t& at) {
    if (at + 1 < parts.size() && !OrdinalOf(parts[at]).empty()) {
        std::size_t behind = at + 1;
        const int book = TakeWords(records, parts, OrdinalOf(parts[at]), behind);
        if (book != 0) return at = behind, book;
    }
    return TakeWords(records, parts, "", at);
}

// John has the namesake 1 John.
static bool HasNamesake(int book) {
    for (int other = 1; other <= kBookCount; ++other)
        if (std::string_view(BookName(other)).substr(1) == std::string(" ") + BookName(book)) return true;
    return false;
}

// Is the number that of the book among all, or among those of the New Testament? Books without namesakes may be counted
// in any way.
static bool IsOrderOf(int book, const std::string& figures) {
    static constexpr int kMostOrders = 99, kOldTestament = 39;
    const int order = NumberOf(figures);
    if (!HasNamesake(book)) return order <= kMostOrders;
    return figures.size() > 1 && (order == book || order == book - kOldTestament);
}

static int TakeOrderedBook(const VerseRecords& records, const NameParts& parts, std::size_t& at) {
    const int book = TakeBook(records, parts, at);
    if (book != 0 || !IsNumber(parts, at)) return book;
    const std::string& order = parts[at].text;
    const int ordered = TakeBook(records, parts, ++at);
    return ordered != 0 && IsOrderOf(ordered, order) ? ordered : 0;
}

// ---- Verses ---------------------------------------------------------------------------------------------------------

static std::optional<int> TakeNumber(const NameParts& parts, std::span<const std::string_view> words, std::size_t& at) {
    const bool hasWord = IsLetters(parts, at) && std::ranges::find(words, parts[at].text) != words.end();
    if (!IsNumber(parts, at + hasWord)) return std::nullopt;
    at += hasWord + std::size_t{1};
    return NumberOf(parts[at - 1].text);
}

static VerseName ExactVerse(const VerseRecords& records, int book, int chapter, int verse) {
    const int found = VerseLookup(records, book, chapter, verse);
    const VerseRecord record = RecordOf(records, found);
    if (record.book == book && record.chapter == chapter && record.verse == verse) return {found};
    return {kNoVerse, kNoSuchVerse};
}

static bool HasOneChapter(const VerseRecords& records, int book) {
    return RecordOf(records, VerseLookup(records, book, kLast, kLast)).chapter == 1;
}

VerseName VerseNamed(const VerseRecords& records, std::string_view name, NameEnd end) {
    static constexpr std::string_view kChapterWords[] = {"chapter", "chap", "ch", "c", "psalm"};
    static constexpr std::string_view kVerseWords[] = {"verse", "verses", "ver", "vers", "vv", "vs", "v"};
    static constexpr VerseName kNone{kNoVerse, kNoVerseNamed};
    static constexpr std::size_t kLongest = 1000;  // of a name that is looked at
    const NameParts parts = PartsOf(name.substr(0, kLongest));
    std::size_t at = 0;
    const int book = TakeOrderedBook(records, parts, at);
    const auto first = book == 0 ? std::nullopt : TakeNumber(parts, kChapterWords, at);
    if (!first) return kNone;
    const auto second = TakeNumber(parts, kVerseWords, at);
    if (second && IsNumber(parts, at) && NumberOf(parts[at].text) > *second) ++at;  // the end of a range
    if (IsNumber(parts, at) || (end == NameEnd::kExact && at < parts.size())) return kNone;
    if (second) return ExactVerse(records, book, *first, *second);
    return HasOneChapter(records, book) ? ExactVerse(records, book, 1, *first) : ExactVerse(records, book, *first, 1);
}

VerseName VerseNamed(const VerseRecords& records, std::string_view book, std::string_view chapter,
                     std::string_view verse) {
    const auto isNumber = [](std::string_view text) { return !text.empty() && std::ranges::all_of(text, IsDigit); };
    std::string name(book);
    if (isNumber(book)) name = BookName(NumberOf(name));
    return VerseNamed(records, name.append(" ").append(chapter).append(" ").append(verse));
}

// ---- Anchors --------------------------------------------------------------------------------------------------------

std::string BookAnchor(int book) {
    return book >= 1 && book <= kBookCount ? kAnchors[static_cast<std::size_t>(book - 1)] : "";
}

std::string VerseAnchor(const VerseRecords& records, int verse) {
    const VerseRecord record = RecordOf(records, verse);
    return BookAnchor(record.book) + '.' + std::to_string(record.chapter) + '.' + std::to_string(record.verse);
}
