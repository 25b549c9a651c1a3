#include "search/query.h"

#include <gtest/gtest.h>

using enum QueryKind;
using Words = std::vector<std::string>;

static constexpr SearchOptions kAnyCase;
static constexpr SearchOptions kCase{.CaseSensitive = 1};
static constexpr SearchOptions kParts{.SubString = 1};

TEST(QueryOf, SplitsTheTextIntoWords) {
    static const struct {
        const char* text;
        Words words;
    } kRows[] = {
        {"the Lord's", {"the", "Lord's"}},
        {"  Jehovah-jireh,2nd\xB6x\xE9y' ", {"Jehovah", "jireh", "nd", "x", "y'"}},
        {" The-LORD's 1st, the ", {"The", "LORD's", "st", "the"}},
        {"end the end", {"end", "the", "end"}},  // repeats are kept
        {"''", {"''"}},
        {"", {}},
        {"123", {}},
        {" 1:2-3 ", {}},
    };
    for (const auto& row : kRows)
        for (const QueryKind kind : {kWords, kPhrase}) EXPECT_EQ(QueryOf(row.text, kCase, kind).words, row.words);
}

TEST(QueryOf, LowersCaseUnlessCaseSensitive) {
    for (const QueryKind kind : {kWords, kPhrase}) {
        EXPECT_EQ(QueryOf(" The-LORD's 1st, the ", kAnyCase, kind).words, (Words{"the", "lord's", "st", "the"}));
        EXPECT_EQ(QueryOf("The the THE", kAnyCase, kind).words, (Words{"the", "the", "the"}));
        EXPECT_EQ(QueryOf("The the THE", kCase, kind).words, (Words{"The", "the", "THE"}));
    }
}

TEST(QueryOf, JoinsThePhraseBySingleBlanks) {
    static constexpr struct {
        const char* text;
        const char* anyCase;
        const char* asTyped;
    } kRows[] = {
        {"he said", "he said", "he said"},
        {"  In,the \xB6 Beginning. ", "in the beginning", "In the Beginning"},
        {"Jehovah-jireh", "jehovah jireh", "Jehovah jireh"},
        {"Holy holy HOLY", "holy holy holy", "Holy holy HOLY"},
        {"the LORD'S", "the lord's", "the LORD'S"},
        {"Lord", "lord", "Lord"},
        {" 1:2 ", "", ""},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(QueryOf(row.text, kAnyCase, kPhrase).phrase.phrase, row.anyCase);
        EXPECT_EQ(QueryOf(row.text, kCase, kPhrase).phrase.phrase, row.asTyped);
        EXPECT_EQ(QueryOf(row.text, kAnyCase, kWords).phrase.phrase, "") << row.text;
    }
}

TEST(QueryOf, KeepsTheOptions) {
    for (const int booleanType : {-1, 0, 1, 2, 7})
        EXPECT_EQ(QueryOf("the", {.BooleanType = booleanType}, kWords).booleanType, booleanType);
    for (const QueryKind kind : {kWords, kPhrase}) {
        const Query plain = QueryOf("the", kAnyCase, kind);
        EXPECT_EQ(plain.kind, kind);
        EXPECT_FALSE(plain.caseSensitive || plain.substring);
        EXPECT_TRUE(QueryOf("the", kCase, kind).caseSensitive);
        EXPECT_FALSE(QueryOf("the", kCase, kind).substring);
        EXPECT_TRUE(QueryOf("the", kParts, kind).substring);
        EXPECT_FALSE(QueryOf("the", kParts, kind).caseSensitive);
    }
}

TEST(QueryOf, SaysWhetherMarksStayApart) {
    static constexpr struct {
        const char* text;
        bool wholeWords, parts;
    } kRows[] = {
        {"", true, true},
        {"the", true, true},
        {"the lord", true, false},  // parts of two words may overlap
        {"the the", true, true},    // one word twice: the same places
        {"The the", true, true},    // the same word where case does not matter
        {"lord's", false, true},    // a whole word that begins or ends with an apostrophe may touch another
        {"the lord's", false, false},
        {"''", false, false},
        {"aa", true, false},  // "aaa" has two places that overlap
        {"ana", true, false},
        {"abab", true, false},
        {"abc", true, true},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(QueryOf(row.text, kAnyCase, kWords).marksStayApart, row.wholeWords) << row.text;
        EXPECT_EQ(QueryOf(row.text, kParts, kWords).marksStayApart, row.parts) << row.text;
    }
    EXPECT_FALSE(QueryOf("The the", {.CaseSensitive = 1, .SubString = 1}, kWords).marksStayApart);
    EXPECT_FALSE(Query{}.marksStayApart);
}

TEST(MarksPhrase, NeedsTwoWords) {
    static constexpr struct {
        const char* text;
        bool marksPhrase;
    } kRows[] = {{"he said", true}, {"Jehovah-jireh", true}, {"the the", true}, {"he", false},
                 {"", false},       {"1:2", false}};
    for (const auto& row : kRows)
        for (const SearchOptions& options : {kAnyCase, kCase, kParts}) {
            EXPECT_EQ(MarksPhrase(QueryOf(row.text, options, kPhrase)), row.marksPhrase) << row.text;
            EXPECT_FALSE(MarksPhrase(QueryOf(row.text, options, kWords))) << row.text;
        }
}

TEST(PushHistory, KeepsTheLastTenNewestFirst) {
    SearchState search;
    EXPECT_EQ(search.history, (std::array<std::string, 10>{" ", " ", " ", " ", " ", " ", " ", " ", " ", " "}));
    for (const char* text : {"one", "two", "two", "", "5", "6", "7", "8", "9", "10", "11"}) PushHistory(search, text);
    EXPECT_EQ(search.history, (std::array<std::string, 10>{"11", "10", "9", "8", "7", "6", "5", "", "two", "two"}));
}
