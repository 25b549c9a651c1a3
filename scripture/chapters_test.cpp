#include "scripture/chapters.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/native_scripture.h"

static const Chapters& TheChapters() {
    static const Chapters chapters = ChaptersOf(TheRealScripture().records);
    return chapters;
}

TEST(ChaptersTest, EveryVerseIsFound) {
    const VerseRecords& records = TheRealScripture().records;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const VerseRecord record = RecordOf(records, verse);
        ASSERT_EQ(ExactVerse(TheChapters(), record.book, record.chapter, record.verse), verse);
    }
}

TEST(ChaptersTest, CountsChaptersAndVerses) {
    EXPECT_EQ(ChapterCount(TheChapters(), 1), 50);
    EXPECT_EQ(ChapterCount(TheChapters(), 19), 150);
    EXPECT_EQ(ChapterCount(TheChapters(), 65), 1);
    int chapters = 0, verses = 0;
    for (int book = 1; book <= kBookCount; ++book) {
        chapters += ChapterCount(TheChapters(), book);
        for (int chapter = 1; chapter <= kChapterLimit; ++chapter) verses += VersesIn(TheChapters(), book, chapter);
    }
    EXPECT_EQ(chapters, 1189);
    EXPECT_EQ(verses, kVerseCount);
}

TEST(ChaptersTest, WhatDoesNotExistIsNotFound) {
    struct Row {
        int book, chapter, verse;
    };
    for (const Row& row : {Row{0, 1, 1}, Row{67, 1, 1}, Row{-1, 1, 1}, Row{1, 51, 1}, Row{1, 0, 1}, Row{1, 1, 0},
                           Row{1, 1, 32}, Row{19, 151, 1}, Row{19, 119, 177}, Row{65, 2, 1}, Row{1, 1, -1}})
        EXPECT_EQ(ExactVerse(TheChapters(), row.book, row.chapter, row.verse), kNoVerse)
            << row.book << ' ' << row.chapter << ':' << row.verse;
    EXPECT_EQ(ChapterCount(TheChapters(), 67), 0);
    EXPECT_EQ(VersesIn(TheChapters(), 1, 51), 0);
}

// A chapter whose verses are out of order has those up to there, and nothing is outside of the file.
TEST(ChaptersTest, DamagedRecordsGiveNoWrongVerse) {
    const VerseRecords& records = TheRealScripture().records;
    std::vector<unsigned char> bytes(records.bytes.begin(), records.bytes.end());
    bytes[5 * kVerseRecordSize + 2] = 77;  // Genesis 1:6
    const Chapters chapters = ChaptersOf({bytes});
    EXPECT_EQ(VersesIn(chapters, 1, 1), 5);
    EXPECT_EQ(ExactVerse(chapters, 1, 1, 5), 4);
    EXPECT_EQ(ExactVerse(chapters, 1, 1, 7), kNoVerse);
    EXPECT_EQ(ExactVerse(chapters, 1, 2, 1), 31);
    EXPECT_EQ(ChapterCount(ChaptersOf({}), 1), 0);
}
