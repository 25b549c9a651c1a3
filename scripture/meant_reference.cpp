#include "scripture/meant_reference.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "scripture/books.h"
#include "scripture/letters.h"

// ---- Books ----------------------------------------------------------------------------------------------------------

namespace {

struct Nickname {
    std::string_view typed;
    std::string_view name;  // without a number before it
};

// A book as it is typed: a number before it, 0 if there is none, and its letters in lower case.
struct TypedBook {
    int number = 0;
    std::string letters{};
};

}  // namespace

// Usual names that are neither an abbreviation of the program nor the beginning of a name.
static constexpr Nickname kNicknames[] = {
    {"gn", "genesis"},
    {"lv", "leviticus"},
    {"lev", "leviticus"},
    {"nm", "numbers"},
    {"nb", "numbers"},
    {"dt", "deuteronomy"},
    {"jsh", "joshua"},
    {"jdg", "judges"},
    {"jdgs", "judges"},
    {"rt", "ruth"},
    {"rth", "ruth"},
    {"sm", "samuel"},
    {"kgs", "kings"},
    {"kin", "kings"},
    {"jb", "job"},
    {"psalm", "psalms"},
    {"pslm", "psalms"},
    {"psm", "psalms"},
    {"pss", "psalms"},
    {"prv", "proverbs"},
    {"qoheleth", "ecclesiastes"},
    {"eccles", "ecclesiastes"},
    {"canticles", "songofsolomon"},
    {"canticle", "songofsolomon"},
    {"cant", "songofsolomon"},
    {"songofsongs", "songofsolomon"},
    {"sos", "songofsolomon"},
    {"ss", "songofsolomon"},
    {"sg", "songofsolomon"},
    {"is", "isaiah"},
    {"jr", "jeremiah"},
    {"jerm", "jeremiah"},
    {"lm", "lamentations"},
    {"ezk", "ezekiel"},
    {"dn", "daniel"},
    {"jl", "joel"},
    {"ob", "obadiah"},
    {"jnh", "jonah"},
    {"mc", "micah"},
    {"hb", "habakkuk"},
    {"hg", "haggai"},
    {"zp", "zephaniah"},
    {"zph", "zephaniah"},
    {"zc", "zechariah"},
    {"ml", "malachi"},
    {"mk", "mark"},
    {"mrk", "mark"},
    {"lk", "luke"},
    {"jn", "john"},
    {"jhn", "john"},
    {"actsoftheapostles", "acts"},
    {"rm", "romans"},
    {"phil", "philippians"},
    {"pp", "philippians"},
    {"philem", "philemon"},
    {"pm", "philemon"},
    {"thes", "thessalonians"},
    {"tm", "timothy"},
    {"jm", "james"},
    {"jms", "james"},
    {"pt", "peter"},
    {"ptr", "peter"},
    {"jud", "jude"},
    {"jd", "jude"},
    {"rv", "revelation"},
    {"apocalypse", "revelation"},
    {"revelations", "revelation"},
};

// The name of a book without its number and blanks, in lower case: "samuel", "songofsolomon".
static TypedBook PartsOfName(std::string_view name) {
    TypedBook parts;
    for (const char c : name) {
        if (IsDigit(c)) parts.number = c - '0';
        if (IsLetter(c)) parts.letters += LowerCased(c);
    }
    return parts;
}

// The first book of which `isMeant` is true; one with a number is only meant with it, or as the first of its name.
template <typename IsMeant>
static int FirstBook(int number, IsMeant isMeant) {
    for (int book = 1; book <= kBookCount; ++book) {
        const TypedBook name = PartsOfName(BookName(book));
        const bool hasNumber = name.number == number || (number == 0 && name.number == 1);
        if (hasNumber && isMeant(book, name.letters)) return book;
    }
    return 0;
}

// Changed, missing and surplus letters, and neighbours that were swapped, that make one of the two out of the other.
static std::size_t LettersWrong(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> wrong(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) {
        for (std::size_t j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                wrong[i][j] = i + j;
                continue;
            }
            const std::size_t changed = wrong[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            wrong[i][j] = std::min({changed, wrong[i - 1][j] + 1, wrong[i][j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                wrong[i][j] = std::min(wrong[i][j], wrong[i - 2][j - 2] + 1);
        }
    }
    return wrong[a.size()][b.size()];
}

// The longer a name, the more letters of it may be wrong. The first one is usually right; without that, half of the
// short words there are would be books.
static int NearestBook(const TypedBook& typed) {
    static constexpr std::size_t kShortest = 4, kLongest = 30, kLettersForOneMore = 3;
    const std::string& letters = typed.letters;
    if (letters.size() < kShortest || letters.size() > kLongest) return 0;
    const std::size_t most = letters.size() / kLettersForOneMore;
    for (std::size_t wrong = 1; wrong <= most; ++wrong) {
        const int book = FirstBook(typed.number, [&](int, const std::string& name) {
            return name[0] == letters[0] && LettersWrong(letters, name) == wrong;
        });
        if (book != 0) return book;
    }
    return 0;
}

static int BookOf(const TypedBook& typed) {
    static constexpr std::size_t kShortestBeginning = 2;
    std::string letters = typed.letters;
    if (letters.empty()) return 0;
    for (const Nickname& nickname : kNicknames)
        if (letters == nickname.typed) letters = nickname.name;
    int book = FirstBook(typed.number, [&](int each, const std::string& name) {
        return letters == name || letters == PartsOfName(BookAbbreviation(each)).letters;
    });
    if (book == 0 && letters.size() >= kShortestBeginning)
        book = FirstBook(typed.number, [&](int, const std::string& name) { return name.starts_with(letters); });
    return book != 0 ? book : NearestBook(typed);
}

// ---- Words and numbers ----------------------------------------------------------------------------------------------

namespace {

enum class Part { kEnd, kWord, kNumber, kColon, kHyphen, kOther };

struct Token {
    Part part = Part::kEnd;
    std::string word{};  // in lower case
    int number = 0;
};

struct Tokens {
    std::vector<Token> all;
    std::size_t next = 0;
};

}  // namespace

static Token TokenOfWord(std::string word) {
    static constexpr std::string_view kVerseWords[] = {"v", "vs", "vv", "verse", "verses"};
    static constexpr std::string_view kUntilWords[] = {"to", "through", "until"};
    if (std::ranges::find(kVerseWords, word) != std::end(kVerseWords)) return {Part::kColon};
    if (std::ranges::find(kUntilWords, word) != std::end(kUntilWords)) return {Part::kHyphen};
    return {Part::kWord, std::move(word)};
}

static Token TokenOfSign(char sign) {
    return {sign == ':' || sign == '.' ? Part::kColon : sign == '-' ? Part::kHyphen : Part::kOther};
}

// The point behind an abbreviation is no separator: one directly behind a word is left out.
static Tokens TokensOf(std::string_view text) {
    static constexpr int kMost = 100000;
    Tokens tokens;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (IsLetter(text[at])) {
            while (at < text.size() && IsLetter(text[at])) ++at;
            tokens.all.push_back(TokenOfWord(LowerCased(text.substr(start, at - start))));
            if (at < text.size() && text[at] == '.') ++at;
        } else if (IsDigit(text[at])) {
            Token number{Part::kNumber};
            for (; at < text.size() && IsDigit(text[at]); ++at)
                number.number = std::min(10 * number.number + (text[at] - '0'), kMost);
            tokens.all.push_back(number);
        } else {
            if (text[at] != ' ' && text[at] != '\t') tokens.all.push_back(TokenOfSign(text[at]));
            ++at;
        }
    }
    return tokens;
}

static const Token& Ahead(const Tokens& tokens, std::size_t further = 0) {
    static const Token end;
    const std::size_t place = tokens.next + further;
    return place < tokens.all.size() ? tokens.all[place] : end;
}

static bool Take(Tokens& tokens, Part part) {
    if (Ahead(tokens).part != part) return false;
    ++tokens.next;
    return true;
}

// ---- References -----------------------------------------------------------------------------------------------------

static int NumberOfWord(const Token& token) {
    static constexpr std::array<std::array<std::string_view, 3>, 3> kWords = {
        {{"i", "first", "st"}, {"ii", "second", "nd"}, {"iii", "third", "rd"}}};
    for (std::size_t i = 0; i < kWords.size(); ++i)
        if (std::ranges::find(kWords[i], token.word) != kWords[i].end()) return static_cast<int>(i) + 1;
    return 0;
}

// The number before a book: of one of the three kinds, with a word behind it.
static int TakeNumberOfBook(Tokens& tokens) {
    static constexpr int kMost = 3;
    const Token& first = Ahead(tokens);
    const int number = first.part == Part::kNumber ? first.number : NumberOfWord(first);
    if (number < 1 || number > kMost || Ahead(tokens, 1).part != Part::kWord) return 0;
    ++tokens.next;
    if (NumberOfWord(Ahead(tokens)) == number && Ahead(tokens, 1).part == Part::kWord) ++tokens.next;  // "1st"
    return number;
}

// "ch" is Chronicles at the beginning, and else a chapter.
static TypedBook TakeBook(Tokens& tokens) {
    static constexpr std::string_view kChapterWords[] = {"chapter", "chapters", "chap", "ch"};
    TypedBook book{TakeNumberOfBook(tokens)};
    for (; Ahead(tokens).part == Part::kWord; ++tokens.next) {
        const std::string& word = Ahead(tokens).word;
        const bool tellsChapter = std::ranges::find(kChapterWords, word) != std::end(kChapterWords);
        if (!tellsChapter || book.letters.empty()) book.letters += word;
    }
    return book;
}

int MeantBook(std::string_view typed) {
    Tokens tokens = TokensOf(typed);
    const TypedBook book = TakeBook(tokens);
    return Ahead(tokens).part == Part::kEnd ? BookOf(book) : 0;
}

namespace {

struct TypedPlace {
    int book = 0;
    int chapter = 0;  // 0: none was typed
    int verse = 0;
    bool isGood = true;
};

}  // namespace

static bool HasOneChapter(const VerseRecords& records, int book) {
    return RecordOf(records, VerseLookup(records, book, kLast, kLast)).chapter == 1;
}

// In a book of one chapter a lone number is a verse: "Jude 5".
static void TakeNumbers(const VerseRecords& records, Tokens& tokens, TypedPlace& place) {
    if (Ahead(tokens).part != Part::kNumber) return;
    place.chapter = Ahead(tokens).number;
    ++tokens.next;
    if (Take(tokens, Part::kColon)) {
        place.verse = Ahead(tokens).number;
        place.isGood = Take(tokens, Part::kNumber) && place.verse > 0;
    } else if (HasOneChapter(records, place.book) && place.chapter > 1) {
        place.verse = std::exchange(place.chapter, 1);
    }
    place.isGood = place.isGood && place.chapter > 0;
}

static TypedPlace TakePlace(const VerseRecords& records, Tokens& tokens) {
    TypedPlace place;
    place.book = BookOf(TakeBook(tokens));
    place.isGood = place.book != 0;
    if (place.isGood) TakeNumbers(records, tokens, place);
    return place;
}

// The place behind a hyphen. A lone number is a verse if the first place has one.
static TypedPlace TakeLastPlace(const VerseRecords& records, Tokens& tokens, const TypedPlace& first) {
    const bool hasBook = Ahead(tokens).part == Part::kWord || Ahead(tokens, 1).part == Part::kWord;
    if (hasBook) return TakePlace(records, tokens);
    TypedPlace place{first.book};
    if (Ahead(tokens).part == Part::kNumber && Ahead(tokens, 1).part != Part::kColon && first.verse != 0) {
        place.chapter = first.chapter;
        place.verse = Ahead(tokens).number;
        ++tokens.next;
        place.isGood = place.verse > 0;
        return place;
    }
    place.isGood = Ahead(tokens).part == Part::kNumber;
    TakeNumbers(records, tokens, place);
    return place;
}

// The first or the last verse of what was typed; kNoVerse if the Bible does not have it.
static int VerseOf(const VerseRecords& records, const TypedPlace& place, int missing) {
    const int chapter = place.chapter != 0 ? place.chapter : missing;
    const int verse = VerseLookup(records, place.book, chapter, place.verse != 0 ? place.verse : missing);
    const VerseRecord record = RecordOf(records, verse);
    const bool isThere =
        (place.chapter == 0 || place.chapter == record.chapter) && (place.verse == 0 || place.verse == record.verse);
    return isThere ? verse : kNoVerse;
}

std::optional<VerseSpan> MeantVerses(const VerseRecords& records, std::string_view typed) {
    Tokens tokens = TokensOf(typed);
    const TypedPlace first = TakePlace(records, tokens);
    TypedPlace last = first;
    if (first.isGood && Take(tokens, Part::kHyphen)) last = TakeLastPlace(records, tokens, first);
    if (!first.isGood || !last.isGood || Ahead(tokens).part != Part::kEnd) return std::nullopt;
    const VerseSpan span{VerseOf(records, first, 0), VerseOf(records, last, kLast)};
    if (span.first == kNoVerse || span.last == kNoVerse) return std::nullopt;
    return VerseSpan{std::min(span.first, span.last), std::max(span.first, span.last)};
}

std::string SpanName(const VerseRecords& records, const VerseSpan& span) {
    std::string name = ReferenceText(records, span.first, BookForm::kName);
    if (span.first == span.last) return name;
    const VerseRecord first = RecordOf(records, span.first), last = RecordOf(records, span.last);
    if (first.book != last.book) return name + " to " + ReferenceText(records, span.last, BookForm::kName);
    return name + " to " + std::to_string(last.chapter) + ':' + std::to_string(last.verse);
}
