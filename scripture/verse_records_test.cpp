#include "scripture/verse_records.h"

#include <gtest/gtest.h>

#include "scripture/books.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

TEST(Books, HaveTheirNames) {
    static constexpr struct {
        int book;
        const char* name;
        const char* abbreviation;
    } kRows[] = {
        {1, "Genesis", "Ge"},
        {7, "Judges", "Jg"},
        {9, "1 Samuel", "1Sa"},
        {18, "Job", "Job"},
        {19, "Psalms", "Ps"},
        {22, "Song of Solomon", "So"},
        {34, "Nahum", "Na"},
        {39, "Malachi", "Mal"},
        {40, "Matthew", "Mt"},
        {52, "1 Thessalonians", "1Th"},
        {64, "3 John", "3Jo"},
        {65, "Jude", "Jude"},
        {66, "Revelation", "Re"},
        {0, "", ""},
        {67, "", ""},
        {-1, "", ""},
        {255, "", ""},
        {-2147483647, "", ""},
    };
    for (const auto& row : kRows) {
        EXPECT_STREQ(BookName(row.book), row.name) << row.book;
        EXPECT_STREQ(BookAbbreviation(row.book), row.abbreviation) << row.book;
    }
}

TEST(Books, HaveABlankAfterTheDigitOnlyInTheName) {
    for (int book = 1; book <= kBookCount; ++book) {
        const std::string name = BookName(book);
        const std::string abbreviation = BookAbbreviation(book);
        EXPECT_EQ(name[0] <= '9', name[1] == ' ') << name;
        EXPECT_EQ(abbreviation.find(' '), std::string::npos) << abbreviation;
    }
}

TEST(VerseLookup, FindsAndClampsInTheWholeBible) {
    static constexpr struct {
        int book, chapter, verse;
        int index;
        const char* text;
    } kRows[] = {
        {1, 1, 1, 0, "Ge 1:1"},
        {1, 0, 0, 0, "Ge 1:1"},
        {1, -3, -1, 0, "Ge 1:1"},
        {1, 1, 999, 30, "Ge 1:31"},
        {1, 51, 1, 1532, "Ge 50:26"},  // a chapter beyond the last gives the last verse of the book, for any verse
        {1, 500, 500, 1532, "Ge 50:26"},
        {2, 0, 0, 1533, "Ex 1:1"},
        {19, 500, 500, 16400, "Ps 150:6"},
        {19, 119, 500, 16074, "Ps 119:176"},
        {20, 1, 1, 16401, "Pr 1:1"},
        {40, 1, 1, 23145, "Mt 1:1"},
        {43, 3, 16, 26136, "Joh 3:16"},
        {43, 3, 0, 26121, "Joh 3:1"},
        {65, 1, 25, 30698 - 1, "Jude 1:25"},
        {65, 2, 3, 30698 - 1, "Jude 1:25"},
        {66, 1, 1, 30698, "Re 1:1"},
        {66, 22, 21, 31101, "Re 22:21"},
        {66, 500, 500, 31101, "Re 22:21"},
        {66, 22, 2147483647, 31101, "Re 22:21"},
        {66, -2147483647 - 1, 1, 30698, "Re 1:1"},
        {0, 1, 1, kNoVerse, ""},
        {67, 1, 1, kNoVerse, ""},
        {-1, 1, 1, kNoVerse, ""},
        {256 + 1, 1, 1, kNoVerse, ""},
    };
    const VerseRecords& records = TheRealScripture().records;
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.book << ' ' << row.chapter << ':' << row.verse);
        EXPECT_EQ(VerseLookup(records, row.book, row.chapter, row.verse), row.index);
        EXPECT_EQ(ReferenceText(records, row.index, BookForm::kAbbreviation), row.text);
    }
}

TEST(VerseLookup, IsTheInverseOfRecordOf) {
    const VerseRecords& records = TheRealScripture().records;
    // Only every seventeenth verse, because each lookup starts at the first verse.
    for (int verse = 0; verse < kVerseCount; verse += 17) {
        const VerseRecord record = RecordOf(records, verse);
        ASSERT_EQ(VerseLookup(records, record.book, record.chapter, record.verse), verse);
    }
}

static const HandMadeVerse kFewVerses[] = {
    {1, 1, 1, "a"}, {1, 1, 2, "b"}, {1, 2, 1, "c"}, {1, 2, 2, "d"}, {18, 1, 1, "e"}, {65, 1, 1, "f"}, {65, 1, 2, "g"},
};

TEST(VerseLookup, WorksWithFewRecords) {
    static constexpr struct {
        int book, chapter, verse;
        int index;
    } kRows[] = {
        {1, 1, 2, 1},  {1, 1, 3, 1},  {1, 2, 0, 2},      {1, 3, 1, 3},         {18, 1, 1, 4},
        {18, 9, 9, 4}, {65, 1, 2, 6}, {65, 500, 500, 6}, {66, 1, 1, kNoVerse}, {2, 1, 1, kNoVerse},
    };
    const HandMadeFiles files = MakeFiles(kFewVerses);
    const VerseRecords records = ScriptureOf(files).records;
    for (const auto& row : kRows)
        EXPECT_EQ(VerseLookup(records, row.book, row.chapter, row.verse), row.index)
            << row.book << ' ' << row.chapter << ':' << row.verse;
}

// Books of damaged files may stand in any order.
TEST(VerseLookup, FindsABookThatIsNotInItsPlace) {
    static constexpr HandMadeVerse kVerses[] = {{5, 1, 1, ""}, {1, 1, 1, ""}, {2, 1, 1, ""}};
    const HandMadeFiles files = MakeFiles(kVerses);
    for (const auto& [book, index] : {std::pair{5, 0}, {1, 1}, {2, 2}, {3, kNoVerse}})
        EXPECT_EQ(VerseLookup(ScriptureOf(files).records, book, 1, 1), index) << book;
}

TEST(VerseLookup, FindsNothingInAnEmptyFile) {
    for (const int book : {0, 1, 66}) EXPECT_EQ(VerseLookup({}, book, 1, 1), kNoVerse);
}

TEST(VerseLookup, FindsNothingPastTheLastVerse) {
    HandMadeFiles files;
    for (int verse = 0; verse < kVerseCount; ++verse) AddRecord(files, 1, 1, 1, 0);
    AddRecord(files, 2, 1, 1, 0);  // one record too many
    EXPECT_EQ(VerseLookup(ScriptureOf(files).records, 2, 1, 1), kNoVerse);
    EXPECT_EQ(VerseLookup(ScriptureOf(files).records, 1, 500, 500), kLastVerse);
}

TEST(RecordOf, IsZeroOutsideTheFile) {
    HandMadeFiles files = MakeFiles(kFewVerses);
    files.records.resize(files.records.size() + 6, 0xFF);  // adds an incomplete eighth record
    const VerseRecords records = ScriptureOf(files).records;
    EXPECT_EQ(RecordOf(records, 6).book, 65);
    for (const int outside : {-1, -2147483647 - 1, 7, 8, kLastVerse, 613566757, 2147483647}) {
        const VerseRecord record = RecordOf(records, outside);
        EXPECT_EQ(record.book, 0) << outside;
        EXPECT_EQ(record.chapter, 0) << outside;
        EXPECT_EQ(record.verse, 0) << outside;
        EXPECT_EQ(record.textOffset, 0u) << outside;
    }
    EXPECT_EQ(RecordOf(TheRealScripture().records, kVerseCount).book, 0);
    EXPECT_EQ(RecordOf(TheRealScripture().records, kLastVerse).book, 66);
}

TEST(RecordOf, ReadsUnalignedLittleEndianOffsets) {
    HandMadeFiles files;
    AddRecord(files, 66, 150, 176, 0x01020304);
    AddRecord(files, 1, 255, 254, 0xFFFEFDFC);
    const VerseRecords records = ScriptureOf(files).records;
    EXPECT_EQ(RecordOf(records, 0).textOffset, 0x01020304u);
    EXPECT_EQ(RecordOf(records, 1).textOffset, 0xFFFEFDFCu);
    EXPECT_EQ(RecordOf(records, 0).chapter, 150);
    EXPECT_EQ(RecordOf(records, 0).verse, 176);
    EXPECT_EQ(RecordOf(records, 1).chapter, 255);
}

TEST(ClampVerse, StaysInTheBible) {
    static constexpr struct {
        int verse, clamped;
    } kRows[] = {{-2147483647 - 1, 0}, {-1, 0}, {0, 0}, {31101, 31101}, {31102, 31101}, {2147483647, 31101}};
    for (const auto& row : kRows) EXPECT_EQ(ClampVerse(row.verse), row.clamped) << row.verse;
}

TEST(ReferenceText, FormatsReferences) {
    static constexpr struct {
        int verse;
        const char* withName;
        const char* withAbbreviation;
    } kRows[] = {
        {0, "Genesis 1:1", "Ge 1:1"},
        {3, "Genesis 2:2", "Ge 2:2"},
        {4, "Job 1:1", "Job 1:1"},
        {6, "Jude 1:2", "Jude 1:2"},
        {7, "", ""},
        {-1, "", ""},
    };
    const HandMadeFiles files = MakeFiles(kFewVerses);
    const VerseRecords records = ScriptureOf(files).records;
    for (const auto& row : kRows) {
        EXPECT_EQ(ReferenceText(records, row.verse, BookForm::kName), row.withName);
        EXPECT_EQ(ReferenceText(records, row.verse, BookForm::kAbbreviation), row.withAbbreviation);
    }
    EXPECT_EQ(RangeText(records, 0, 6), "Ge 1:1 - Jude 1:2");
    EXPECT_EQ(RangeText(records, 3, 3), "Ge 2:2 - Ge 2:2");
    EXPECT_EQ(RangeText(records, 0, 7), "");
    EXPECT_EQ(RangeText({}, 0, kLastVerse), "");
    EXPECT_EQ(RangeText(TheRealScripture().records, 0, kLastVerse), "Ge 1:1 - Re 22:21");
}
