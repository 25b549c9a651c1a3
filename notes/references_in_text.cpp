#include "notes/references_in_text.h"

#include <algorithm>
#include <array>
#include <optional>

#include "notes/reference_places.h"

// ---- Beginnings -----------------------------------------------------------------------------------------------------
// Each returns the end of what it has added, or nothing.

using Taken = std::optional<std::size_t>;

static constexpr int kPsalms = 19, kMark = 41;

namespace {

// A book with the signs behind it.
struct BookAndSigns {
    SpeltBook book{};
    ListState state{};
    char sign = '\0';     // directly behind the name
    std::size_t end = 0;  // behind signs and blanks
};

}  // namespace

// Is there only a separator between the last reference and `begin`?
static bool IsBehindReference(const Reader& reader, std::size_t begin) {
    static constexpr std::size_t kReach = 16;  // so that no long run of signs is read again and again
    if (reader.found.empty()) return false;
    const std::size_t end = std::size_t{reader.found.back().begin} + reader.found.back().size;
    return end < begin && begin - end <= kReach && SeparatorAt(reader, end).end == begin;
}

// A full stop ("Am. 5") or a reference before it makes a book of a word, but not of a month ("Mar. 3").
static bool IsWeak(const Reader& reader, std::size_t begin, const SpeltBook& book, char sign) {
    if (!book.isWeak || !IsCapital(reader.text[begin]) || book.book == kMark) return book.isWeak;
    return sign != '.' && !IsBehindReference(reader, begin);
}

static std::optional<BookAndSigns> BookAndSignsAt(const Reader& reader, std::size_t begin) {
    const auto book = BookAt(reader.text, begin);
    if (!book) return std::nullopt;
    BookAndSigns read{*book};
    read.sign = CharAt(reader, book->end);
    read.book.isWeak = IsWeak(reader, begin, *book, read.sign);
    read.state.book = book->book;
    read.state.isPlural = book->isPlural;
    read.state.hasStop = read.sign == '.';
    std::size_t at = book->end;
    if (read.sign == '.' || read.sign == ',' || read.sign == ':') ++at;
    if (read.sign == '.' && CharAt(reader, at) == ',') ++at;
    read.end = BlanksEnd(reader.text, at);
    return read;
}

// "Jude v. 5"
static std::optional<ReadPlace> VersesOfOnlyChapter(const Reader& reader, const BookAndSigns& read) {
    const SpeltPlaceWord word = PlaceWordAt(reader.text, read.end);
    if (word.word != PlaceWord::kVerse || !HasOneChapter(reader, read.book.book)) return std::nullopt;
    ListState state = read.state;
    state.chapter = 1;
    return VersesAt(reader, state, word.end);
}

// The end of a chapter's word behind a book, where it may be "c."; `at` if there is none.
static std::size_t ChapterWordEnd(const Reader& reader, std::size_t at) {
    if (const SpeltPlaceWord word = PlaceWordAt(reader.text, at); word.word == PlaceWord::kChapter) return word.end;
    if (!IsWordAt(reader.text, at, "c")) return at;
    return BlanksEnd(reader.text, CharAt(reader, at + 1) == '.' ? at + 2 : at + 1);
}

// Is the book in the text one, and no other word? Its place has been read at `at`.
static bool IsLikely(const Reader& reader, const BookAndSigns& read, std::size_t at, const ReadPlace& place) {
    const SpeltNumber number = NumberAt(reader.text, at).value_or(SpeltNumber{0, at + 1});
    const bool hasColon = CharAt(reader, number.end) == ':';
    if (read.book.isWeak && !(HasVerse(place) && hasColon)) return false;
    if (at == read.book.end && !IsDigit(CharAt(reader, at))) return false;  // "Romi"
    const bool isApart = at == read.end && (read.sign == ',' || read.sign == ':');
    if (isApart && !hasColon && (!number.isRoman || number.isOneLetter)) return false;  // "in Acts, 3 men"
    if (HasVerse(place)) return true;
    if (read.book.book == kMark && !EndsPhrase(reader, place.state.end)) return false;  // "Mark 3 times"
    if (read.book.isFullName && read.state.hasStop) return false;                       // "of Job. 1. He"
    return !number.isInCapitals || (!number.isOneLetter && !read.book.isFirstName);     // "John I", "James II"
}

static Taken TakeOfBook(const Reader& reader, std::size_t begin) {
    const auto read = BookAndSignsAt(reader, begin);
    if (!read) return std::nullopt;
    if (const auto place = VersesOfOnlyChapter(reader, *read)) return TakePlaceAndList(reader, begin, *place);
    std::size_t at = read->end;
    auto place = PlaceAt(reader, read->state, at);
    if (!place) {  // behind that, because "Ps. c. 3" is Psalm 100
        at = ChapterWordEnd(reader, at);
        if (at > read->end) place = PlaceAt(reader, read->state, at);
    }
    if (!place || !IsLikely(reader, *read, at, *place)) return std::nullopt;
    return TakePlaceAndList(reader, begin, *place);
}

static ListState StateOfNote(const Reader& reader) {
    ListState state;
    state.book = reader.note.book;
    state.chapter = reader.note.chapter;
    state.isOfNote = true;
    return state;
}

// The verses at `at`, which end at `end`, if "of Psalm 40" or the like follows.
static std::optional<ReadPlace> VersesOfNamedChapter(const Reader& reader, std::size_t at, std::size_t end) {
    const std::size_t word = BlanksEnd(reader.text, end);
    const std::size_t behind = WordEnd(reader, word, {"of", "in"});
    if (behind == word) return std::nullopt;
    const auto read = BookAndSignsAt(reader, BlanksEnd(reader.text, behind));
    if (!read || read->book.isWeak) return std::nullopt;
    const auto chapter = PlaceAt(reader, read->state, read->end);
    if (!chapter || HasVerse(*chapter)) return std::nullopt;
    auto verses = VersesAt(reader, chapter->state, at);
    if (verses) verses->state.end = chapter->state.end;
    return verses;
}

static Taken TakeVersesOfNote(const Reader& reader, std::size_t begin, std::size_t at) {
    const auto number = VerseNumberAt(reader.text, at);
    const bool isVersion = number && CharAt(reader, number->end) == '.' && IsDigit(CharAt(reader, number->end + 1));
    if (!number || isVersion) return std::nullopt;  // "v. 2.0"
    const bool isPair = HasColon(reader, number->end);
    const ListState note = StateOfNote(reader);
    auto place = isPair ? PlaceAt(reader, note, at) : VersesAt(reader, note, at);
    if (const auto other = VersesOfNamedChapter(reader, at, place ? place->state.end : number->end)) place = other;
    return place ? Taken(TakePlaceAndList(reader, begin, *place)) : std::nullopt;
}

// "Josephus, Wars, Book 5, ch. 7": chapters of other works.
static bool IsOfOtherWork(const Reader& reader, std::size_t begin) {
    static constexpr std::size_t kReach = 16;
    const std::size_t from = begin - std::min(begin, kReach);
    std::string_view before = reader.text.substr(from, begin - from);
    before.remove_prefix(std::min(before.find_last_of('\n') + 1, before.size()));
    for (const std::string_view word : {"ook ", "lib.", "Lib.", "vol.", "Vol."})
        if (before.find(word) != std::string_view::npos) return true;
    return false;
}

// Nobody calls another psalm a chapter.
static bool IsChapterOfPsalms(const Reader& reader, const ListState& state, int chapter) {
    return state.book == kPsalms && chapter != reader.note.chapter;
}

// "chapter 8 of Romans"
static std::optional<ReadPlace> ChapterOfNamedBook(const Reader& reader, const SpeltNumber& number) {
    const std::size_t word = BlanksEnd(reader.text, number.end);
    const std::size_t behind = WordEnd(reader, word, {"of"});
    if (behind == word) return std::nullopt;
    const auto book = BookAt(reader.text, BlanksEnd(reader.text, behind));
    if (!book || book->isWeak || VersesIn(reader.chapters, book->book, number.value) == 0) return std::nullopt;
    ListState state;
    state.book = book->book;
    state.chapter = number.value;
    state.end = book->end;
    return WholeChapter(reader, state);
}

static Taken TakeChapterOfNote(const Reader& reader, std::size_t begin, std::size_t at) {
    const auto number = NumberAt(reader.text, at);
    if (!number) return std::nullopt;
    const ListState note = StateOfNote(reader);
    auto place = ChapterOfNamedBook(reader, *number);
    if (!place && !IsChapterOfPsalms(reader, note, number->value) && !IsOfOtherWork(reader, begin))
        place = PlaceAt(reader, note, at);
    return place ? Taken(TakePlaceAndList(reader, begin, *place)) : std::nullopt;
}

// The word that ends at `end`.
static std::string_view WordBefore(const Reader& reader, std::size_t end) {
    std::size_t begin = end;
    while (begin > 0 && IsLetter(reader.text[begin - 1])) --begin;
    return reader.text.substr(begin, end - begin);
}

// How likely is a reference without a book and a word at `at`?
enum class Opening { kNone, kComma, kParenthesis, kSure };
static Opening OpeningBefore(const Reader& reader, std::size_t at) {
    while (at > 0 && reader.text[at - 1] == ' ') --at;
    if (at == 0) return Opening::kNone;
    const char before = reader.text[at - 1];
    if (before == '(' || before == '[') return Opening::kParenthesis;
    if (before == ',' || before == ';') return Opening::kComma;
    const std::string_view word = WordBefore(reader, before == '.' ? at - 1 : at);
    const auto isWord = [&](std::string_view one) { return EqualIgnoringCase(one, word); };
    return std::ranges::any_of(std::initializer_list<std::string_view>{"see", "cf", "compare", "comp"}, isWord)
               ? Opening::kSure
               : Opening::kNone;
}

// Does the number that ends at `end` belong to something longer: a version ("2:1.3-4"), a time ("1:30 p.m.")?
static bool IsPartOfMore(const Reader& reader, std::size_t end) {
    static constexpr std::string_view kJoining = ".-+~/%=_@:";
    const bool isJoined = kJoining.find(CharAt(reader, end)) != std::string_view::npos;
    if (isJoined && IsLetterOrDigit(CharAt(reader, end + 1))) return true;
    const std::size_t behind = BlanksEnd(reader.text, end);
    return WordEnd(reader, behind, {"a", "p", "am", "pm", "o"}) > behind;
}

static bool CanBeTime(const ReadPlace& place) {
    return place.state.verse > 9 && place.state.verse < 60 && place.state.chapter <= 24;
}

static Taken TakeBare(const Reader& reader, std::size_t begin) {
    const auto place = PlaceAt(reader, StateOfNote(reader), begin);
    if (!place || !HasVerse(*place) || IsPartOfMore(reader, place->state.end)) return std::nullopt;
    const auto chapter = FiguresAt(reader.text, begin);
    const bool isOverChapters = chapter && place->state.chapter > chapter->value;
    const Opening opening = isOverChapters ? Opening::kSure : OpeningBefore(reader, begin);
    if (opening == Opening::kNone) return std::nullopt;
    const std::size_t end = place->state.end;
    const bool goesOn =
        place->last > place->first || NextItem(reader, place->state, SeparatorAt(reader, end)).has_value();
    const char behind = CharAt(reader, BlanksEnd(reader.text, end));
    const bool isEnded = !IsLetterOrDigit(behind) && behind != ':';
    const bool isLikely = goesOn || (isEnded && (opening == Opening::kParenthesis || !CanBeTime(*place)));
    if (opening != Opening::kSure && !isLikely) return std::nullopt;
    return TakePlaceAndList(reader, begin, *place);
}

// "Peter's defence. (1-18)" at the end of a line, and the parentheses alone in a line.
static Taken TakeOutline(const Reader& reader, std::size_t begin) {
    std::size_t before = begin - 1;
    while (before > 0 && reader.text[before - 1] == ' ') --before;
    const bool beginsLine = before == 0 || reader.text[before - 1] == '\n';
    if (!beginsLine && (reader.text[before - 1] != '.' || before == begin - 1)) return std::nullopt;
    const auto place = VersesAt(reader, StateOfNote(reader), begin);
    if (!place || CharAt(reader, place->state.end) != ')') return std::nullopt;
    const char next = CharAt(reader, BlanksEnd(reader.text, place->state.end + 1));
    const bool endsLine = next == '\r' || next == '\n' || next == '\0';
    if (!endsLine || (beginsLine && place->first == place->last)) return std::nullopt;
    return TakePlaceAndList(reader, begin, *place);
}

// ---- The sweep ------------------------------------------------------------------------------------------------------

static Taken TakeFigures(const Reader& reader, std::size_t begin, std::size_t end) {
    const char before = begin > 0 ? reader.text[begin - 1] : ' ';
    if (before == ':' || before == '/') return std::nullopt;
    if (const Taken taken = CharAt(reader, begin) <= '3' ? TakeOfBook(reader, begin) : std::nullopt) return taken;
    if (CharAt(reader, end) == ':') return TakeBare(reader, begin);
    return before == '(' ? TakeOutline(reader, begin) : std::nullopt;
}

namespace {

// What a byte can be, for the sweep.
struct ByteKinds {
    std::array<bool, 256> isInWord{};
    std::array<bool, 256> beginsNumber{};  // figures or a Roman one
};

}  // namespace

static constexpr ByteKinds MadeKinds() {
    ByteKinds kinds;
    for (std::size_t byte = 0; byte < 128; ++byte) {
        const char c = static_cast<char>(byte);
        kinds.isInWord[byte] = IsLetterOrDigit(c);
        kinds.beginsNumber[byte] = IsDigit(c) || std::string_view("ivxlcIVXLC").find(c) != std::string_view::npos;
    }
    return kinds;
}

static constexpr ByteKinds kKinds = MadeKinds();

static bool IsInWord(char c) {
    return kKinds.isInWord[static_cast<unsigned char>(c)];
}

static bool BeginsNumber(char c) {
    return kKinds.beginsNumber[static_cast<unsigned char>(c)];
}

// Can a number be behind the word that ends at `end`? Asked of every word, most of which have a blank and a letter
// behind them.
static bool IsBeforeNumber(const Reader& reader, std::size_t end) {
    std::size_t at = end;
    const char sign = CharAt(reader, at);
    if (sign == ' ' && IsInWord(CharAt(reader, at + 1))) return BeginsNumber(CharAt(reader, at + 1));
    if (sign == '.' || sign == ',' || sign == ':') ++at;
    if (CharAt(reader, at) == ',') ++at;
    return BeginsNumber(CharAt(reader, BlanksEnd(reader.text, at)));
}

// Does the word ("I", "Second", "Song", "Acts") go on in the next one?
static bool CanHaveMoreWords(const Reader& reader, std::size_t begin, std::size_t end) {
    const char c = reader.text[begin];
    if (c != 'I' && c != 'F' && c != 'S' && c != 'T' && c != 'A') return false;
    const std::string_view word = reader.text.substr(begin, end - begin);
    return word == "I" || word == "II" || word == "III" || word == "First" || word == "Second" || word == "Third" ||
           EqualIgnoringCase(word, "Song") || EqualIgnoringCase(word, "Acts");
}

static Taken TakeWord(const Reader& reader, std::size_t begin, std::size_t end) {
    const char first = reader.text[begin];
    const bool isBeforeNumber = IsBeforeNumber(reader, end);
    if (!isBeforeNumber && !CanHaveMoreWords(reader, begin, end)) return std::nullopt;
    if (const SpeltPlaceWord word = PlaceWordAt(reader.text, begin); word.word != PlaceWord::kNone && isBeforeNumber) {
        if (word.word == PlaceWord::kVerse) return TakeVersesOfNote(reader, begin, word.end);
        return TakeChapterOfNote(reader, begin, word.end);
    }
    if (!IsCapital(first)) {
        const std::size_t number = BlanksEnd(reader.text, CharAt(reader, end) == '.' ? end + 1 : end);
        if (!IsDigit(CharAt(reader, number))) return std::nullopt;
    }
    return TakeOfBook(reader, begin);
}

static std::size_t LineEnd(std::string_view text, std::size_t at) {
    return std::min(text.find('\n', at), text.size());
}

static std::size_t WordEndFrom(std::string_view text, std::size_t at) {
    while (at < text.size() && IsInWord(text[at])) ++at;
    return at;
}

// Bytes from C0 on are letters of a code page, or begin a letter in UTF-8.
static bool IsBehindLetter(std::string_view text, std::size_t at) {
    return at > 0 && static_cast<unsigned char>(text[at - 1]) >= 0xC0;
}

void FindReferences(const Chapters& chapters, const VerseRecord& noteVerse, std::string_view note,
                    std::vector<TextReference>& references) {
    references.clear();
    const Reader reader{chapters, note, noteVerse, references};
    for (std::size_t at = 0; at < note.size();) {
        if (!IsInWord(note[at])) {
            at = note[at] == '#' ? LineEnd(note, at) : at + 1;
            continue;
        }
        const std::size_t end = WordEndFrom(note, at);
        Taken taken;
        if (!IsBehindLetter(note, at))
            taken = IsDigit(note[at]) ? TakeFigures(reader, at, end) : TakeWord(reader, at, end);
        at = taken.value_or(end);
    }
}

const TextReference* ReferenceAt(std::span<const TextReference> references, std::size_t place) {
    const auto end = [](const TextReference& one) { return std::size_t{one.begin} + one.size; };
    const auto found = std::ranges::upper_bound(references, place, {}, end);
    return found != references.end() && found->begin <= place ? &*found : nullptr;
}
