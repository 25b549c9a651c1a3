// Apart from the other signs because of its table.
#include <algorithm>
#include <array>

#include "notes/reference_signs.h"
#include "scripture/books.h"

namespace {

// How a book is written beside its abbreviation in the program: by the beginning of its name, from so many letters on,
// and in other ways. Books with a number in front share the row of their name.
struct Spellings {
    int book;                  // the first one of that name
    std::string_view letters;  // that a spelling can begin with, one or two
    std::size_t least;
    std::string_view others;  // small letters, a blank before and behind each
};

}  // namespace

static constexpr Spellings kSpellings[] = {
    {1, "g", 3, " gn "},
    {2, "e", 2, " "},
    {3, "l", 3, " lv "},
    {4, "n", 3, " nm nb "},
    {5, "d", 3, " dt "},
    {6, "j", 3, " jsh "},
    {7, "j", 4, " jdg jdgs jud "},
    {8, "r", 3, " rth "},
    {15, "e", 3, " "},
    {16, "n", 3, " "},
    {17, "e", 3, " "},
    {18, "j", 3, " jb "},
    {19, "p", 3, " psalm psalme psalmes pss psm "},
    {20, "p", 3, " prv "},
    {21, "eq", 3, " qoh "},
    {22, "sc", 4, " cant canticle canticles sol sos "},
    {23, "ie", 3, " is esay esai esaias "},
    {24, "j", 3, " jr "},
    {25, "l", 3, " "},
    {26, "e", 3, " ezk ezech ezechiel "},
    {27, "d", 3, " dn "},
    {28, "ho", 3, " osee "},
    {29, "j", 4, " jl "},
    {30, "a", 4, " "},
    {31, "o", 3, " obd "},
    {32, "j", 3, " jonas jnh "},
    {33, "m", 3, " mi mc "},
    {34, "n", 3, " "},
    {35, "h", 3, " ha hb habac "},
    {36, "zs", 3, " zp zph soph "},
    {37, "h", 3, " hg "},
    {38, "z", 3, " zch zach zachar zachariah "},
    {39, "m", 3, " ml malac "},
    {40, "m", 3, " mathew "},
    {41, "m", 3, " mk mrk "},
    {42, "l", 3, " lk "},
    {43, "j", 3, " jn jhn jo "},
    {44, "a", 3, " "},
    {45, "r", 3, " rm "},
    {48, "g", 3, " "},
    {49, "e", 3, " ep ephe "},
    {50, "p", 7, " phil "},
    {51, "c", 3, " colos "},
    {56, "t", 3, " "},
    {57, "p", 6, " phlm phile "},
    {58, "h", 3, " he "},
    {59, "j", 3, " jm "},
    {65, "j", 4, " jd "},
    {66, "ra", 3, " rv revelations apoc apocalypse "},
};

// Behind a number: 1 Samuel and so on.
static constexpr Spellings kNumbered[] = {
    {9, "s", 2, " sm "},    {11, "k", 3, " ki kgs "}, {13, "c", 2, " "},    {46, "c", 2, " "},
    {52, "t", 2, " thes "}, {54, "t", 2, " tm "},     {60, "p", 2, " pt "}, {62, "j", 2, " jn "},
};

// They are words of the language or of others, or names of months: "So 5 men", "De 6", "Mar. 3".
static constexpr std::string_view kWeak =
    " is am so he ho ha re de da la le ne na es ex mi jo ja ti ec ep pr pro ac act mar sol song so sam num numb ";

// Those in small letters are words even before a chapter and a verse: "numbers 3:1".
static constexpr std::string_view kNeverSmall = " numbers song jud ";

static constexpr std::size_t kLongestWeak = 4;

static bool IsInList(std::string_view list, std::string_view word) {
    for (std::size_t at = 0; (at = list.find(word, at + 1)) != std::string_view::npos;)
        if (list[at - 1] == ' ' && ByteAt(list, at + word.size()) == ' ') return true;
    return false;
}

// The name without its number.
static std::string_view PlainName(int book) {
    const std::string_view name = BookName(book);
    return IsDigit(name.front()) ? name.substr(2) : name;
}

static std::string_view PlainAbbreviation(int book) {
    const std::string_view abbreviation = BookAbbreviation(book);
    return IsDigit(abbreviation.front()) ? abbreviation.substr(1) : abbreviation;
}

// `word` is in small letters.
static bool Fits(const Spellings& row, std::string_view word) {
    if (row.letters.front() != word.front() && row.letters.back() != word.front()) return false;
    const std::string_view name = PlainName(row.book);
    const bool isBeginning =
        word.size() >= row.least && word.size() <= name.size() && EqualIgnoringCase(word, name.substr(0, word.size()));
    return isBeginning || EqualIgnoringCase(word, PlainAbbreviation(row.book)) || IsInList(row.others, word);
}

static constexpr std::size_t kLongestWord = 14;

// The letters of a word in small ones; empty if it is too long for a book.
struct SmallWord {
    std::array<char, kLongestWord> letters{};
    std::size_t size = 0;
};

static SmallWord SmallWordAt(std::string_view text, std::size_t at, std::size_t end) {
    SmallWord word;
    if (end - at > kLongestWord) return word;
    for (; at < end; ++at) word.letters[word.size++] = LowerCased(text[at]);
    return word;
}

static std::string_view TextOf(const SmallWord& word) {
    return {word.letters.data(), word.size};
}

template <std::size_t kRows>
static int BookOf(const Spellings (&rows)[kRows], std::string_view word) {
    if (word.size() < 2) return 0;
    const auto row = std::ranges::find_if(rows, [&](const Spellings& one) { return Fits(one, word); });
    return row == std::end(rows) ? 0 : row->book;
}

// ---- Numbers of books -----------------------------------------------------------------------------------------------

namespace {

struct BookNumber {
    int number = 0;
    std::size_t end = 0;  // where the name begins
};

}  // namespace

static BookNumber NumberInWords(std::string_view text, std::size_t at) {
    static constexpr std::string_view kWords[3][5] = {
        {"I", "First", "1st", "1", ""}, {"II", "Second", "2nd", "2d", "2"}, {"III", "Third", "3rd", "3d", "3"}};
    if (std::string_view("123IFST").find(ByteAt(text, at)) == std::string_view::npos) return {};
    for (int number = 1; number <= 3; ++number) {
        for (const std::string_view word : kWords[number - 1]) {
            if (word.empty() || word.front() != text[at] || text.substr(at, word.size()) != word) continue;
            std::size_t end = at + word.size();
            if (IsLetterOrDigit(ByteAt(text, end)) && word.size() > 1) continue;
            if (IsDigit(ByteAt(text, end)) || (word == "I" && IsLetter(ByteAt(text, end)))) continue;
            if (word.front() == 'I' && ByteAt(text, end) == '.') ++end;
            return {number, BlanksEnd(text, end)};
        }
    }
    return {};
}

// ---- Names ----------------------------------------------------------------------------------------------------------

// The end of the name, which may have more words.
static std::size_t NameEnd(std::string_view text, std::size_t end, int book) {
    static constexpr std::string_view kSongs[] = {" of solomon", " of songs", " of sol"};
    static constexpr std::string_view kActs[] = {" of the apostles"};
    const auto longer = [&](std::string_view words) { return IsWordAt(text, end, words); };
    if (book == 22) {
        const auto found = std::ranges::find_if(kSongs, longer);
        return found == std::end(kSongs) ? end : end + found->size();
    }
    return book == 44 && longer(kActs[0]) ? end + kActs[0].size() : end;
}

static bool IsFirstName(int book) {
    return book == 59 || book == 43 || book == 60 || book == 61 || book == 62;
}

static std::optional<SpeltBook> Named(std::string_view text, std::size_t at, int number) {
    const std::size_t end = LettersEnd(text, at);
    const SmallWord small = SmallWordAt(text, at, end);
    const std::string_view word = TextOf(small);
    int book = number > 0 ? BookOf(kNumbered, word) : BookOf(kSpellings, word);
    if (book == 0 || (number == 3 && book != 62)) return std::nullopt;
    if (number > 0) book += number - 1;
    const bool isSmall = !IsCapital(text[at]);
    const bool isPsalm = book == 19 && word.size() > 4;
    if (isSmall && IsInList(kNeverSmall, word)) return std::nullopt;
    const bool isWeak = (isSmall && !isPsalm) || (number == 0 && word.size() <= kLongestWeak && IsInList(kWeak, word));
    const bool isPlural = book == 19 && word.size() > 2 && word.back() == 's';
    const bool isFullName = word.size() == PlainName(book).size();
    return SpeltBook{book, NameEnd(text, end, book), isWeak, isPlural, IsFirstName(book), isFullName};
}

std::optional<SpeltBook> BookAt(std::string_view text, std::size_t at) {
    if (const BookNumber number = NumberInWords(text, at); number.number > 0)
        if (auto book = Named(text, number.end, number.number)) return book;
    return IsLetter(ByteAt(text, at)) ? Named(text, at, 0) : std::nullopt;
}
