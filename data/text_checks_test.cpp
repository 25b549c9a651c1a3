#include "data/text_checks.h"

#include <gtest/gtest.h>

#include "scripture/books.h"

namespace {

struct TextRow {
    const char* text;
    const char* complaint;
};

}  // namespace

static constexpr TextRow kTexts[] = {
    {"Jesus wept.", ""},
    {"\xB6"
     "And it (was) so: [is it], sons' well-beloved; who? Lo! --",
     ""},
    {"\xB6[There is]", ""},
    {"[a] [b]", ""},
    {"", "is empty"},
    {"\xB6", "is empty"},
    {"a\xB6"
     "b",
     "has a character that is not allowed, code 182"},
    {"\xB6\xB6"
     "a",
     "has a character that is not allowed, code 182"},
    {"caf\xe9", "has a character that is not allowed, code 233"},
    {"a{b}", "has a character that is not allowed, code 123"},
    {"a <b", "has a character that is not allowed, code 60"},
    {"verse 1", "has a character that is not allowed, code 49"},
    {"a\tb", "has a character that is not allowed, code 9"},
    {"a  b", "has a blank too many"},
    {" a", "has a blank too many"},
    {"a ", "has a blank too many"},
    {"\xB6 a", "has a blank too many"},
    {"[a", "has brackets that do not pair"},
    {"a]", "has brackets that do not pair"},
    {"]a[", "has brackets that do not pair"},
    {"[a [b] c]", "has brackets that do not pair"},
    {"[a] b]", "has brackets that do not pair"},
    {"a [] b", "has empty brackets"},
    {"[ a]", "has a blank inside a bracket"},
    {"[a ]", "has a blank inside a bracket"},
};

TEST(TextChecks, ReportAFaultyVerse) {
    for (const TextRow& row : kTexts) EXPECT_EQ(CheckVerseText(row.text), row.complaint) << row.text;
}

// 31,102 verses in 1,189 chapters of 66 books, but distributed differently from the real ones.
static Verses WholeCanon() {
    Verses verses;
    const auto addChapter = [&verses](int book, int chapter, int verseCount) {
        for (int verse = 1; verse <= verseCount; ++verse) verses.push_back({book, chapter, verse, "Text."});
    };
    for (int book = 1; book < kBookCount; ++book) addChapter(book, 1, 1);
    for (int chapter = 1; chapter <= 1124; ++chapter) addChapter(kBookCount, chapter, chapter == 1 ? 29914 : 1);
    return verses;
}

TEST(TextChecks, AcceptACompleteText) {
    EXPECT_EQ(CheckVerses(WholeCanon()), "");
}

TEST(TextChecks, ReportMissingVersesAndChapters) {
    Verses verses = WholeCanon();
    verses.pop_back();
    EXPECT_EQ(CheckVerses(verses), "there are 1188 chapters instead of 1189");
    verses.push_back({66, 1123, 2, "Text."});
    EXPECT_EQ(CheckVerses(verses), "there are 1188 chapters instead of 1189");
    verses.push_back({66, 1124, 1, "Text."});
    EXPECT_EQ(CheckVerses(verses), "there are 31103 verses instead of 31102");
    verses.resize(65);
    EXPECT_EQ(CheckVerses(verses), "there are 65 books instead of 66");
    EXPECT_EQ(CheckVerses({}), "there are 0 books instead of 66");
}

TEST(TextChecks, NameTheVerseAtFault) {
    Verses verses = WholeCanon();
    verses[2].text = "a  b";
    EXPECT_EQ(CheckVerses(verses), "Le 1:1 has a blank too many");
    verses = WholeCanon();
    verses.erase(verses.begin() + 70);
    EXPECT_EQ(CheckVerses(verses), "Re 1:7 is out of order");
    verses = WholeCanon();
    std::swap(verses[0], verses[1]);
    EXPECT_EQ(CheckVerses(verses), "Ex 1:1 is out of order");
    verses = WholeCanon();
    verses[3].chapter = 2;
    EXPECT_EQ(CheckVerses(verses), "Nu 2:1 is out of order");
}
