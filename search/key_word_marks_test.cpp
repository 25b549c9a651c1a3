#include "search/key_word_marks.h"

#include <gtest/gtest.h>

enum MarkFlags { kPlain = 0, kCase = 1, kParts = 2, kPhrase = 4 };

static Query QueryFor(const std::string& text, int flags) {
    const SearchOptions options = {
        .CaseSensitive = (flags & kCase) != 0 ? 1 : 0,
        .SubString = (flags & kParts) != 0 ? 1 : 0,
    };
    return QueryOf(text, options, (flags & kPhrase) != 0 ? QueryKind::kPhrase : QueryKind::kWords);
}

struct MarkRow {
    const char* query;
    int flags;
    std::string text;
    std::string marked;
    int count;
};

static void ExpectMarks(const MarkRow& row) {
    Query query = QueryFor(row.query, row.flags);
    std::string text = row.text;
    EXPECT_EQ(MarkKeyWords(query, text), row.count) << row.query << "|" << row.text;
    EXPECT_EQ(text, row.marked) << row.query;
    EXPECT_EQ(CountKeyWords(query, row.text), row.count) << row.query << "|" << row.text;
    query.marksStayApart = false;  // the general path, which must give the same count
    EXPECT_EQ(CountKeyWords(query, row.text), row.count) << row.query << "|" << row.text;
}

TEST(MarkKeyWords, MarksWholeWords) {
    static const MarkRow kRows[] = {
        {"the", kPlain, "In the beginning", "In {the} beginning", 1},
        {"the", kPlain, "The THE tHe", "{The} {THE} {tHe}", 3},
        {"the", kPlain, "then the", "then {the}", 1},
        {"the", kPlain, "breathe the", "breathe {the}", 1},
        {"is", kPlain, "this [is], (is): is", "this [{is}], ({is}): {is}", 3},
        {"a", kPlain, "a an a", "{a} an {a}", 2},
        {"absent", kPlain, "In the beginning", "In the beginning", 0},
        {"the", kPlain, "", "", 0},
        {"", kPlain, "In the beginning", "In the beginning", 0},
        {"longer than this", kPlain, "than", "{than}", 1},
        {"the lord", kPlain, "the LORD of the lords", "{the} {LORD} of {the} lords", 3},
        // An apostrophe is not a letter, but it can be part of a word of the query.
        {"lord", kPlain, "the LORD's, LORD'S", "the {LORD}'s, {LORD}'S", 2},
        {"lord's", kPlain, "the LORD's lord", "the {LORD's} lord", 1},
        // Bytes from 0x80 are letters, except a paragraph mark before the word.
        {"and", kPlain,
         "\xB6"
         "And",
         "\xB6{And}", 1},
        {"and", kPlain, "and\xB6", "and\xB6", 0},
        {"and", kPlain,
         "\xE9"
         "and and\xE9",
         "\xE9"
         "and and\xE9",
         0},
        // A word that is typed twice is marked twice.
        {"end end", kPlain, "the end", "the {{end}}", 2},
        {"end the end", kPlain, "the end", "{the} {{end}}", 3},
        // Marks of earlier words separate the letters that later words must match.
        {"lord lord's", kPlain, "LORD's", "{LORD}'s", 1},
        {"lord's lord", kPlain, "LORD's", "{{LORD}'s}", 2},
        {"x 's", kPlain, "x's", "{x}{'s}", 2},
        {"'s", kPlain, "x's 's's", "x's {'s}'s", 1},
        {"'s 's", kPlain, "'s's", "{{'s}}{'s}", 3},
        // After a match that is not a whole word, the search continues after it.
        {"a'a", kPlain, "xa'a'a", "xa'a'a", 0},
    };
    for (const MarkRow& row : kRows) ExpectMarks(row);
}

TEST(MarkKeyWords, MarksWordsCaseSensitively) {
    static const MarkRow kRows[] = {
        {"LORD", kCase, "Lord LORD lord", "Lord {LORD} lord", 1},
        {"the The", kCase, "The the", "{The} {the}", 2},
        {"In", kCase, "\xB6In the", "\xB6{In} the", 1},
        {"the", kCase, "then the", "then {the}", 1},  // marked even though a search would not list this verse
        {"OR", kCase | kParts, "LORD lord", "L{OR}D lord", 1},
    };
    for (const MarkRow& row : kRows) ExpectMarks(row);
}

TEST(MarkKeyWords, MarksSubstrings) {
    static const MarkRow kRows[] = {
        {"he", kParts, "she them He", "s{he} t{he}m {He}", 3},
        {"love", kParts, "loved, beloved LOVE", "{love}d, be{love}d {LOVE}", 3},
        {"e e", kParts, "see", "s{{e}}{{e}}", 4},
        {"e", kParts,
         "[eEe]\xB6"
         "e",
         "[{e}{E}{e}]\xB6{e}", 4},
        // A match that overlaps the previous one is not marked.
        {"aa", kParts, "aaa aaaa", "{aa}a {aa}{aa}", 3},
        {"ana", kParts, "banana", "b{ana}na", 1},
        {"aa aa", kParts, "aaa", "{{aa}}a", 2},
        // Marks of earlier words separate the letters that later words must match.
        {"e the", kParts, "the", "th{e}", 1},
        {"the e", kParts, "the", "{th{e}}", 2},
        {"ab bc", kParts, "abc", "{ab}c", 1},
        {"ab cd", kParts, "abcd", "{ab}{cd}", 2},
    };
    for (const MarkRow& row : kRows) ExpectMarks(row);
}

TEST(MarkKeyWords, MarksThePhraseWordByWord) {
    static const MarkRow kRows[] = {
        {"in the beginning", kPhrase, "\xB6In the beginning God", "\xB6{In} {the} {beginning} God", 1},
        // It may begin and end inside a word, but the words between must be whole.
        {"he said", kPhrase, "she said, he saidst", "s{he} {said}, {he} {said}st", 2},
        {"e and t", kPhrase, "the and they", "th{e} {and} {t}hey", 1},
        {"a b c", kPhrase, "a b c a bb c", "{a} {b} {c} a bb c", 1},
        // Stops, brackets and paragraph marks are ignored and stay outside the marks at the ends of words.
        {"the light day", kPhrase,
         "the [light]: \xB6"
         "Day",
         "{the} [{light}]: \xB6{Day}", 1},
        {"bethel is", kPhrase, "Beth-el is", "{Beth-el} {is}", 1},
        {"jehovah jireh", kPhrase, "Jehovah-jireh", "Jehovah-jireh", 0},
        {"the lord's day", kPhrase, "the LORD's day, the LORDs day", "{the} {LORD's} {day}, the LORDs day", 1},
        {"the lord day", kPhrase, "the LORD's day", "the LORD's day", 0},
        // The next match begins after the end of the previous one.
        {"holy holy", kPhrase, "Holy, holy, holy", "{Holy}, {holy}, holy", 1},
        {"holy holy", kPhrase, "Holy, holy, holy, holy", "{Holy}, {holy}, {holy}, {holy}", 2},
        {"the LORD", kPhrase | kCase, "the lord, the LORD, The LORD", "the lord, {the} {LORD}, The LORD", 1},
        {"the lord", kPhrase | kParts, "bathe lords", "ba{the} {lord}s", 1},
        {"the lord", kPhrase, "", "", 0},
        {"", kPhrase, "the lord", "the lord", 0},
    };
    for (const MarkRow& row : kRows) ExpectMarks(row);
}

static std::string Repeated(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) repeated += text;
    return repeated;
}

// A marked verse has at most 3999 bytes; matches that would exceed that are not marked.
TEST(MarkKeyWords, LimitsTheMarkedText) {
    // The text is extended to `size` bytes by a tail without matches.
    const auto row = [](const char* query, int flags, std::string text, std::string marked, int count,
                        std::size_t size) {
        const std::string tail(size - text.size(), 'x');
        return MarkRow{query, flags, text + tail, marked + tail, count};
    };
    ExpectMarks(row("a", kPlain, "a a ", "a a ", 0, 5000));
    ExpectMarks(row("a", kPlain, "a a ", "a a ", 0, 3999));
    ExpectMarks(row("a", kPlain, "a a ", "a a ", 0, 3998));
    ExpectMarks(row("a", kPlain, "a a ", "{a} a ", 1, 3997));
    ExpectMarks(row("a", kPlain, "a a ", "{a} a ", 1, 3996));
    ExpectMarks(row("a", kPlain, "a a ", "{a} {a} ", 2, 3995));
    ExpectMarks(row("a a", kPlain, "a ", "{{a}} ", 2, 3995));
    ExpectMarks(row("a c", kPlain, "a c ", "{a} c ", 1, 3997));
    ExpectMarks(row("e e", kParts, "eee", "{e}{e}{e}", 3, 3993));
    ExpectMarks(row("e a", kParts, "eae", "{e}a{e}", 2, 3995));
    ExpectMarks(row("a c", kPhrase, "a c ", "a c ", 0, 3996));
    ExpectMarks(row("a c", kPhrase, "a c a c ", "{a} {c} a c ", 1, 3995));
    ExpectMarks(row("a c", kPhrase, "a c a c ", "{a} {c} {a} {c} ", 2, 3991));
    const std::string everyE = Repeated("e ", 100).substr(0, 199);
    std::string marked = Repeated("e", 500);
    EXPECT_EQ(MarkKeyWords(QueryFor(everyE, kParts), marked), 1749);
    EXPECT_EQ(marked.size(), 3998u);
    EXPECT_EQ(CountKeyWords(QueryFor(everyE, kParts), Repeated("e", 500)), 1749);
}

// A phrase is marked if it ends within the first thousand characters, not counting those that are ignored.
TEST(MarkKeyWords, SearchesForAPhraseInTheFirstThousandCharacters) {
    const auto row = [](const std::string& before, const std::string& marked, int count) {
        return MarkRow{"a c", kPhrase, before + "a c", before + marked, count};
    };
    ExpectMarks(row(Repeated("b", 997), "{a} {c}", 1));
    ExpectMarks(row(Repeated("b", 998), "a c", 0));
    ExpectMarks(row(Repeated("b,", 997), "{a} {c}", 1));
    ExpectMarks(row(Repeated("b,", 998), "a c", 0));
    const Query query = QueryFor("a c", kPhrase);
    EXPECT_TRUE(ContainsPhrase(query, Repeated("b", 2000) + "a c"));
    EXPECT_FALSE(ContainsPhrase(query, Repeated("b", 2000) + "ac"));
}
