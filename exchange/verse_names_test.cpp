#include "exchange/verse_names.h"

#include <gmock/gmock.h>

#include "scripture/books.h"
#include "tests/support/exchange_samples.h"

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

// "Romans 8:28", or what the problem is.
static std::string VerseFor(std::string_view name, NameEnd end = NameEnd::kExact) {
    const VerseName found = VerseNamed(Records(), name, end);
    EXPECT_EQ(found.verse == kNoVerse, found.problem != nullptr);
    return found.problem != nullptr ? found.problem : ReferenceText(Records(), found.verse, BookForm::kName);
}

TEST(VerseNames, AreThoseOfTheProgram) {
    for (int verse = 0; verse < kVerseCount; verse += 7)
        for (const BookForm form : {BookForm::kName, BookForm::kAbbreviation})
            EXPECT_EQ(VerseNamed(Records(), ReferenceText(Records(), verse, form)).verse, verse);
}

TEST(VerseNames, MayBeAnchors) {
    for (int verse = 0; verse < kVerseCount; verse += 11)
        EXPECT_EQ(VerseNamed(Records(), VerseAnchor(Records(), verse)).verse, verse) << verse;
    EXPECT_EQ(VerseAnchor(Records(), VerseAt("Romans", 8, 28)), "Rom.8.28");
    EXPECT_EQ(BookAnchor(1), "Gen");
    EXPECT_EQ(BookAnchor(66), "Rev");
    EXPECT_EQ(BookAnchor(0), "");
    EXPECT_EQ(BookAnchor(67), "");
}

TEST(VerseNames, MayBeWrittenInManyWays) {
    for (const char* name : {"Rom 8:28", "romans 8.28", "ROMANS 8 28", "Rom.8.28", "Ro 8-28", "Rom8.28", "Romans_8_28",
                             "45-Rom-008-028", "045 Romans 8v28", "Romans chapter 8 verse 28", "Rom. 8, 28",
                             "Romans 8:28-30", " Rom  8 : 28 ", "1 Rom 8:28"})
        EXPECT_EQ(VerseFor(name), "Romans 8:28") << name;
    for (const char* name : {"1 John 3:16", "1John 3.16", "I John 3:16", "1Jn 3:16", "1jo-3-16", "62_1John_3_16",
                             "62 1 John 3 16", "1 Joh 3,16"})
        EXPECT_EQ(VerseFor(name), "1 John 3:16") << name;
    EXPECT_EQ(VerseFor("Song of Solomon 2:1"), "Song of Solomon 2:1");
    EXPECT_EQ(VerseFor("Song of Songs 2:1"), "Song of Solomon 2:1");
    EXPECT_EQ(VerseFor("Psalm 119:105"), "Psalms 119:105");
    EXPECT_EQ(VerseFor("Mk 1:1"), "Mark 1:1");
    EXPECT_EQ(VerseFor("III John 4"), "3 John 1:4");
    EXPECT_EQ(VerseFor("43 John 3:16"), "John 3:16");
    EXPECT_EQ(VerseFor("04-John-3-16"), "John 3:16");
}

TEST(VerseNames, MayOmitOneNumber) {
    EXPECT_EQ(VerseFor("Romans 8"), "Romans 8:1");
    EXPECT_EQ(VerseFor("Jude 5"), "Jude 1:5");
    EXPECT_EQ(VerseFor("Jude 1:5"), "Jude 1:5");
    EXPECT_EQ(VerseFor("Obadiah v. 3"), kNoVerseNamed);
}

TEST(VerseNames, AreNotRounded) {
    for (const char* name :
         {"Romans 8:40", "Romans 17:1", "Romans 0:1", "Romans 8:0", "Jude 26", "Romans 99999999999:1"})
        EXPECT_EQ(VerseFor(name), kNoSuchVerse) << name;
}

TEST(VerseNames, AreNotGuessed) {
    for (const char* name : {"",
                             " ",
                             "Romans",
                             "Introduction",
                             "8:28",
                             "3",
                             "R 8:28",
                             "Road 8:28",
                             "Romanticism 8:28",
                             "Roadmap 2.0",
                             "Romans eight",
                             "Samuel 3:1",
                             "4 John 1:1",
                             "62 John 3:16",
                             "Romans 8:28 and more",
                             "Romans 8:28:30:31",
                             "Romans 8:28-27",
                             "100 Romans 8:28",
                             "see Romans 8:28",
                             "\xC3\xA4"})
        EXPECT_EQ(VerseFor(name), kNoVerseNamed) << name;
}

TEST(VerseNames, MayHaveATitleInNamesOfFiles) {
    EXPECT_EQ(VerseFor("Rom 8.28 - All things", NameEnd::kMayHaveTitle), "Romans 8:28");
    EXPECT_EQ(VerseFor("Rom 8.28a", NameEnd::kMayHaveTitle), "Romans 8:28");
    EXPECT_EQ(VerseFor("Rom 8.28 (2)", NameEnd::kMayHaveTitle), kNoVerseNamed);
    EXPECT_EQ(VerseFor("notes on Rom 8.28", NameEnd::kMayHaveTitle), kNoVerseNamed);
}

TEST(VerseNames, MayStandInColumns) {
    const auto named = [](const char* book, const char* chapter, const char* verse) {
        return VerseNamed(Records(), book, chapter, verse).verse;
    };
    EXPECT_EQ(named("Romans", "8", "28"), VerseAt("Romans", 8, 28));
    EXPECT_EQ(named("45", "8", "28"), VerseAt("Romans", 8, 28));
    EXPECT_EQ(named("1 John", "3", "16"), VerseAt("1 John", 3, 16));
    EXPECT_EQ(named("67", "1", "1"), kNoVerse);
    EXPECT_EQ(named("", "1", "1"), kNoVerse);
    EXPECT_EQ(named("Romans", "", ""), kNoVerse);
}
