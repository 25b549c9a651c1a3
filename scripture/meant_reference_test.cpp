#include "scripture/meant_reference.h"

#include <gtest/gtest.h>

#include "scripture/books.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

static std::string NameOf(std::string_view typed) {
    const auto span = MeantVerses(Records(), typed);
    return span ? SpanName(Records(), *span) : "nothing";
}

namespace {

struct Sample {
    const char* typed;
    const char* meant;
};

}  // namespace

TEST(MeantReference, NamesTheVerses) {
    static constexpr Sample kSamples[] = {
        {"John 3:16", "John 3:16"},
        {"jn 3.16", "John 3:16"},
        {"1 Jn 1:9", "1 John 1:9"},
        {"1Jn1:9", "1 John 1:9"},
        {"II Kings 4:1", "2 Kings 4:1"},
        {"1st Samuel 3:1", "1 Samuel 3:1"},
        {"first john 2:1", "1 John 2:1"},
        {"Cor 13:1", "1 Corinthians 13:1"},
        {"Rom 8:1-11", "Romans 8:1 to 8:11"},
        {"Ro 8", "Romans 8:1 to 8:39"},
        {"Ro 8-9", "Romans 8:1 to 9:33"},
        {"Ro 8 - 9:3", "Romans 8:1 to 9:3"},
        {"Ro 8:38 - 9:3", "Romans 8:38 to 9:3"},
        {"Mal 4 - Mt 1", "Malachi 4:1 to Matthew 1:25"},
        {"1 John - 3 John", "1 John 1:1 to 3 John 1:14"},
        {"Jude", "Jude 1:1 to 1:25"},
        {"Jude 5", "Jude 1:5"},
        {"Jude 5-7", "Jude 1:5 to 1:7"},
        {"Jude 1", "Jude 1:1 to 1:25"},
        {"Song of Songs 2:1", "Song of Solomon 2:1"},
        {"Genesis chapter 3 verse 5", "Genesis 3:5"},
        {"Ps. 23 v. 1 to 3", "Psalms 23:1 to 23:3"},
        {"Genisis 1:1", "Genesis 1:1"},
        {"Pslams 1:1", "Psalms 1:1"},
        {"Habbakuk 2:4", "Habakkuk 2:4"},
        {"1 Thesalonians 5:1", "1 Thessalonians 5:1"},
    };
    for (const Sample& sample : kSamples) EXPECT_EQ(NameOf(sample.typed), sample.meant) << sample.typed;
    EXPECT_EQ(NameOf("Ro 9:3 - 8:38"), "Romans 8:38 to 9:3");
}

TEST(MeantReference, IsNothingOtherwise) {
    for (const char* typed : {"",
                              " ",
                              "3:16",
                              "Foo 3",
                              "Bob 1",
                              "2 Mark 1",
                              "4 Kings 1",
                              "Ro 99",
                              "Ro 8:99",
                              "Ro 8:0",
                              "Ro 0",
                              "Ro 8:",
                              "Ro 8:1-",
                              "Ro 8:1,3",
                              "Ro 8:1; 9",
                              "Ro 8:1 x",
                              "-",
                              "Ro 8:1-99",
                              "99999999999999999999",
                              "J",
                              "Ro 999999999999:1"})
        EXPECT_EQ(NameOf(typed), "nothing") << typed;
}

TEST(MeantReference, KnowsTheBooks) {
    for (int book = 1; book <= kBookCount; ++book) {
        EXPECT_EQ(MeantBook(BookName(book)), book);
        EXPECT_EQ(MeantBook(BookAbbreviation(book)), book);
    }
    EXPECT_EQ(MeantBook("apocalypse"), 66);
    EXPECT_EQ(MeantBook("Genesis 1"), 0);
}

// What the program itself writes is understood alike in both ways.
TEST(MeantReference, AgreesWithTheParserOnTheProgramsTexts) {
    for (int verse = 0; verse < kVerseCount; verse += 7) {
        const std::string text = ReferenceText(Records(), verse, BookForm::kAbbreviation);
        EXPECT_EQ(MeantVerses(Records(), text), (VerseSpan{verse, verse})) << text;
        const int last = std::min(verse + 100, kLastVerse);
        EXPECT_EQ(MeantVerses(Records(), RangeText(Records(), verse, last)), (VerseSpan{verse, last}));
    }
}
