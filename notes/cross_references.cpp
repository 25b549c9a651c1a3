#include "notes/cross_references.h"

#include <algorithm>
#include <optional>

#include "scripture/books.h"
#include "scripture/letters.h"

static bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

static bool IsInNumber(char c) {
    return IsDigit(c) || c == ':' || c == '.';
}

// ---- The line -----------------------------------------------------------------------------------------------------

static std::string_view ListAt(std::string_view note, std::size_t caret) {
    const std::size_t mark = note.find_last_of("#\n", caret);
    if (mark == std::string_view::npos || note[mark] == '\n') return {};
    std::string_view list = note.substr(mark + 1);
    list = list.substr(0, list.find('\n'));
    const auto first = std::ranges::find_if(list, [](char c) { return IsLetterOrDigit(c); });
    list.remove_prefix(static_cast<std::size_t>(first - list.begin()));
    return list;
}

// ---- Items --------------------------------------------------------------------------------------------------------

namespace {

struct NamedVerse {
    int book = 0;
    int chapter = 0;
    int verse = 0;
};

}  // namespace

static int VerseOf(const VerseRecords& records, const NamedVerse& place) {
    return VerseLookup(records, place.book, place.chapter, place.verse);
}

static char Front(std::string_view text) {
    return text.empty() ? '\0' : text.front();
}

static void SkipBlanks(std::string_view& text) {
    while (IsBlank(Front(text))) text.remove_prefix(1);
}

// Is the shorter one a prefix of the other, ignoring case?
static bool AgreeAtFirst(std::string_view a, std::string_view b) {
    const std::size_t length = std::min(a.size(), b.size());
    return EqualIgnoringCase(a.substr(0, length), b.substr(0, length));
}

// Most names are told apart by that alone. Neither text is empty.
static bool HaveSameFirstLetter(const char* name, std::string_view text) {
    return LowerCased(*name) == LowerCased(text.front());
}

static int BookThatFits(std::string_view typed) {
    for (int book = 1; book <= kBookCount; ++book) {
        if (!HaveSameFirstLetter(BookName(book), typed)) continue;
        const std::string_view name = BookName(book);
        if (name.size() >= typed.size() && AgreeAtFirst(name, typed)) return book;
    }
    for (int book = 1; book <= kBookCount; ++book)
        if (HaveSameFirstLetter(BookAbbreviation(book), typed) && AgreeAtFirst(BookAbbreviation(book), typed))
            return book;
    return 0;
}

// A book name of several words at the start of `text`. Names that begin with a digit are not included, because they are
// written without the space.
static std::string_view NameOfSeveralWords(std::string_view text) {
    if (text.empty()) return {};
    for (int book = 1; book <= kBookCount; ++book) {
        if (!HaveSameFirstLetter(BookName(book), text)) continue;
        const std::string_view name = BookName(book);
        if (IsLetter(name.front()) && name.find(' ') != std::string_view::npos && text.size() >= name.size() &&
            AgreeAtFirst(name, text))
            return text.substr(0, name.size());
    }
    return {};
}

// Text that may be a book at the start of `text`: letters, or one digit and letters. Empty if there is neither.
static std::string_view BookTextAt(std::string_view text) {
    const std::string_view words = NameOfSeveralWords(text);
    if (!words.empty()) return words;
    std::size_t end = IsDigit(Front(text)) ? 1 : 0;
    const std::size_t letters = end;
    while (end < text.size() && IsLetter(text[end])) ++end;
    return text.substr(0, end > letters ? end : 0);
}

// Consumes a book at the start of `text`, with a full stop and spaces after it. Returns 0 if there is none.
static int TakeBook(std::string_view& text) {
    const std::string_view typed = BookTextAt(text);
    const int book = typed.empty() ? 0 : BookThatFits(typed);
    if (book == 0) return 0;
    text.remove_prefix(typed.size());
    if (Front(text) == '.') text.remove_prefix(1);
    SkipBlanks(text);
    return book;
}

// Consumes digits and returns their value; nullopt if there are none. Long numbers stop far beyond any verse.
static std::optional<int> TakeFigures(std::string_view& text) {
    static constexpr int kBeyondAnyVerse = 100000;
    if (!IsDigit(Front(text))) return std::nullopt;
    int number = 0;
    for (; IsDigit(Front(text)); text.remove_prefix(1)) {
        number = std::min(number * 10 + (text.front() - '0'), kBeyondAnyVerse);
    }
    return number;
}

// Consumes a chapter and a verse, or a verse alone, and any digits, colons and full stops after it, as in "3:16.".
static void TakeNumber(std::string_view& text, NamedVerse& place) {
    if (const auto first = TakeFigures(text)) {
        std::optional<int> second;
        if (Front(text) == ':' || Front(text) == '.') {
            text.remove_prefix(1);
            second = TakeFigures(text);
        }
        if (second) place.chapter = *first;
        place.verse = second ? *second : *first;
    }
    while (IsInNumber(Front(text))) text.remove_prefix(1);
}

static bool TakeItem(std::string_view& text, NamedVerse& place) {
    const int book = TakeBook(text);
    if (book == 0 && !IsDigit(Front(text))) return false;
    if (book != 0) place.book = book;
    TakeNumber(text, place);
    return true;
}

// Consumes the character that ended an item, with the spaces around it, and returns it.
static char TakeSeparator(std::string_view& text) {
    const bool parted = IsBlank(Front(text));
    SkipBlanks(text);
    const char separator = Front(text);
    if (parted && IsLetterOrDigit(separator)) return ' ';  // separated only by spaces
    if (!text.empty()) text.remove_prefix(1);
    SkipBlanks(text);
    return separator;
}

// ---- Verses -------------------------------------------------------------------------------------------------------

static bool IsFull(const std::vector<std::int32_t>& verses) {
    return verses.size() >= std::size_t{kVerseCount};
}

// The verse of the number ahead; kNoVerse if there is none. "3Jo" is a book, not a number.
static int EndOfRange(const VerseRecords& records, std::string_view ahead, NamedVerse place) {
    if (!IsDigit(Front(ahead)) || TakeBook(ahead) != 0) return kNoVerse;
    TakeNumber(ahead, place);
    return VerseOf(records, place);
}

// Adds the verses between `first` and the number ahead; the number itself is the next item.
static void AddRange(const VerseRecords& records, std::string_view ahead, const NamedVerse& place, int first,
                     std::vector<std::int32_t>& verses) {
    const int end = EndOfRange(records, ahead, place);
    for (int verse = first + 1; verse < end && !IsFull(verses); ++verse) verses.push_back(verse);
}

static NamedVerse PlaceOf(const VerseRecords& records, int verse) {
    const VerseRecord record = RecordOf(records, verse);
    return {record.book, record.chapter, record.verse};
}

std::vector<std::int32_t> CrossReferences(const VerseRecords& records, std::string_view note, std::size_t caret,
                                          int noteVerse) {
    std::vector<std::int32_t> verses;
    std::string_view text = ListAt(note, caret);
    NamedVerse place = PlaceOf(records, noteVerse);
    while (!IsFull(verses) && TakeItem(text, place)) {
        const int verse = VerseOf(records, place);
        const bool isRange = TakeSeparator(text) == '-';
        if (verse == kNoVerse) continue;
        verses.push_back(verse);
        if (isRange) AddRange(records, text, place, verse, verses);
    }
    return verses;
}

// ---- Items in their places ----------------------------------------------------------------------------------------

static void AddItems(const VerseRecords& records, std::string_view note, std::string_view list, NamedVerse place,
                     std::vector<TextReference>& references) {
    for (;;) {
        const std::string_view before = list;
        if (!TakeItem(list, place)) return;
        std::string_view item = before.substr(0, before.size() - list.size());
        while (IsBlank(item.back())) item.remove_suffix(1);
        const int verse = VerseOf(records, place);
        const bool isRange = TakeSeparator(list) == '-';
        if (verse == kNoVerse) continue;
        const int last = isRange ? std::max(verse, EndOfRange(records, list, place)) : verse;
        references.push_back({static_cast<std::uint32_t>(item.data() - note.data()),
                              static_cast<std::uint32_t>(item.size()), verse, last});
    }
}

std::vector<TextReference> ListedReferences(const VerseRecords& records, std::string_view note, int noteVerse) {
    std::vector<TextReference> references;
    const NamedVerse here = PlaceOf(records, noteVerse);
    for (std::size_t mark = note.find('#'); mark != std::string_view::npos; mark = note.find('#', mark + 1)) {
        const std::size_t end = std::min(note.find_first_of("#\n", mark + 1), note.size());
        AddItems(records, note, ListAt(note.substr(0, end), mark), here, references);
    }
    return references;
}
