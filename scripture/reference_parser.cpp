#include "scripture/reference_parser.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <utility>

#include "scripture/books.h"
#include "scripture/letters.h"

// Always keeps the first character, so that a field containing one space is not treated as empty.
static void TrimEnd(std::string& text) {
    while (text.size() > 1 && !IsLetterOrDigit(text.back())) text.pop_back();
}

static void JoinBlanks(std::string& text) {
    for (const char* numberAndBlank : {"1 ", "2 ", "3 "}) {
        std::size_t found = 0;
        while ((found = text.find(numberAndBlank, found)) != std::string::npos) text.erase(found + 1, 1);
    }
}

static std::string Prepared(std::string text) {
    text.resize(std::min<std::size_t>(text.size(), kReferenceLimit));
    TrimEnd(text);
    JoinBlanks(text);
    return text;
}

namespace {

struct Cursor {
    const std::string& text;
    std::size_t at = 0;
    std::size_t read = 0;  // the end of the last number that was read
    std::string unused{};  // what was passed over
};

}  // namespace

// The character at the cursor; '\0' at the end.
static char Current(const Cursor& cursor) {
    return cursor.text.c_str()[cursor.at];
}

static bool IsAtEnd(const Cursor& cursor) {
    return cursor.at >= cursor.text.size();
}

static void SkipLetters(Cursor& cursor) {
    while (IsLetter(Current(cursor))) ++cursor.at;
}

static void SkipDigits(Cursor& cursor) {
    while (IsDigit(Current(cursor))) ++cursor.at;
}

static void SkipToLetterOrDigit(Cursor& cursor) {
    while (!IsAtEnd(cursor) && !IsLetterOrDigit(Current(cursor))) ++cursor.at;
}

static void SkipToWordOrHyphen(Cursor& cursor) {
    while (!IsAtEnd(cursor) && !IsLetterOrDigit(Current(cursor)) && Current(cursor) != '-') ++cursor.at;
}

static bool HasLetterAhead(const Cursor& cursor) {
    return std::any_of(cursor.text.begin() + static_cast<std::ptrdiff_t>(cursor.at), cursor.text.end(), IsLetter);
}

static bool BeginsWith(const Cursor& cursor, std::string_view begin) {
    return StartsWithIgnoringCase(std::string_view(cursor.text).substr(cursor.at), begin);
}

// "1Samuel": the book's name in the form that JoinBlanks produces from the typed text.
static std::string JoinedName(int book) {
    std::string name = BookName(book);
    if (IsDigit(name[0])) name.erase(1, 1);
    return name;
}

static std::size_t LettersAhead(const Cursor& cursor) {
    Cursor end = cursor;
    SkipLetters(end);
    return end.at - cursor.at;
}

// Moves past a book's abbreviation, or else past as much of a book's name as was typed. If there is no letter at the
// cursor, nothing is compared and the first book matches: "3:16" and abbreviated numbered books ("1 J 1:9") depend on
// this.
static std::optional<int> ReadBook(Cursor& cursor) {
    for (int book = 1; book <= kBookCount; ++book) {
        if (!BeginsWith(cursor, BookAbbreviation(book))) continue;
        cursor.at += std::strlen(BookAbbreviation(book));
        return book;
    }
    const std::size_t typed = LettersAhead(cursor);
    for (int book = 1; book <= kBookCount; ++book) {
        const std::string name = JoinedName(book).substr(0, typed);
        if (!BeginsWith(cursor, name)) continue;
        cursor.at += name.size();
        return book;
    }
    return std::nullopt;
}

// Decimal number at the cursor, after optional spaces and a sign; 0 when there is none. Long numbers saturate far
// beyond any verse.
static int NumberAt(const Cursor& cursor) {
    const long number = std::strtol(cursor.text.c_str() + cursor.at, nullptr, 10);
    return static_cast<int>(std::clamp(number, -100000L, 100000L));
}

// Moves `read` behind the number that NumberAt gives.
static void TakeNumber(Cursor& cursor) {
    Cursor end{cursor.text, cursor.at};
    while (std::isspace(static_cast<unsigned char>(Current(end)))) ++end.at;
    if (Current(end) == '+' || Current(end) == '-') ++end.at;
    SkipDigits(end);
    cursor.read = end.at;
}

// Notes what is between the last number and `next` unless it only separates.
static void PassOver(Cursor& cursor, std::size_t next) {
    const std::size_t from = std::min(cursor.text.find_first_not_of(' ', cursor.read), next);
    const std::string passed = cursor.text.substr(from, next - from);
    if (std::none_of(passed.begin(), passed.end(), IsLetterOrDigit)) return;
    cursor.unused += (cursor.unused.empty() ? "" : " ... ") + passed;
}

// Reads a chapter at the cursor, and the verse after the next colon (or point, if there is no colon) anywhere ahead;
// without a separator `verse` is unchanged. The cursor ends before the verse number: what follows a colon and a space
// is read again as the second half of a range. False for a zero.
static bool ReadChapterAndVerse(Cursor& cursor, int& chapter, int& verse) {
    chapter = NumberAt(cursor);
    if (chapter == 0) return false;
    TakeNumber(cursor);
    SkipDigits(cursor);
    std::size_t separator = cursor.text.find(':', cursor.at);
    if (separator == std::string::npos) separator = cursor.text.find('.', cursor.at);
    if (separator == std::string::npos) return true;
    PassOver(cursor, separator);
    cursor.at = separator + 1;
    verse = NumberAt(cursor);
    TakeNumber(cursor);
    return verse != 0;
}

namespace {

struct Place {
    int book = 0;
    int chapter = 0;
    int verse = 0;
};

}  // namespace

static std::optional<Place> ReadFirstHalf(Cursor& cursor) {
    const std::optional<int> book = ReadBook(cursor);
    if (!book) return std::nullopt;
    SkipLetters(cursor);
    SkipToWordOrHyphen(cursor);
    Place place{*book};
    if (IsDigit(Current(cursor)) && !ReadChapterAndVerse(cursor, place.chapter, place.verse)) return std::nullopt;
    return place;
}

// Last verse of the book, chapter or verse named by a range without a second half.
static Place EndOf(const Place& first) {
    if (first.chapter == 0) return {first.book, kLast, kLast};
    if (first.verse == 0) return {first.book, first.chapter, kLast};
    return first;
}

// The book is read at the cursor, not at the next letter: in "5 Ex 6" the second half is in Genesis again.
static std::optional<Place> ReadSecondHalf(Cursor& cursor, int firstBook) {
    Place place{firstBook, kLast, kLast};
    if (HasLetterAhead(cursor)) {
        const std::optional<int> book = ReadBook(cursor);
        if (!book) return std::nullopt;
        place.book = *book;
        SkipLetters(cursor);
    }
    if (!IsAtEnd(cursor) && !ReadChapterAndVerse(cursor, place.chapter, place.verse)) return std::nullopt;
    return place;
}

static int VerseOf(const VerseRecords& records, const Place& place) {
    return VerseLookup(records, place.book, place.chapter, place.verse);
}

ParsedReference ParseReference(const VerseRecords& records, std::string text) {
    const std::string prepared = Prepared(std::move(text));
    Cursor cursor{prepared};
    const std::optional<Place> place = ReadFirstHalf(cursor);
    if (!place) return {};
    const int verse = VerseOf(records, *place);
    return {verse != kNoVerse, verse};
}

static std::optional<std::pair<Place, Place>> ReadHalves(Cursor& cursor) {
    const std::optional<Place> first = ReadFirstHalf(cursor);
    if (!first) return std::nullopt;
    SkipDigits(cursor);
    SkipToLetterOrDigit(cursor);
    if (IsAtEnd(cursor)) return std::pair{*first, EndOf(*first)};
    const std::optional<Place> last = ReadSecondHalf(cursor, first->book);
    if (!last) return std::nullopt;
    if (!IsAtEnd(cursor)) PassOver(cursor, cursor.text.size());
    return std::pair{*first, *last};
}

ParsedRange ParseRange(const VerseRecords& records, std::string text) {
    ParsedRange range;
    range.text = Prepared(std::move(text));
    Cursor cursor{range.text};
    const auto halves = ReadHalves(cursor);
    if (!halves) return range;
    range.unused = cursor.unused;
    const int first = VerseOf(records, halves->first);
    const int last = VerseOf(records, halves->second);
    range.ok = first != kNoVerse && last != kNoVerse;
    range.first = std::min(first, last);
    range.last = std::max(first, last);
    return range;
}
