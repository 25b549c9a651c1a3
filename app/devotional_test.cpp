#include "app/devotional.h"

#include <gtest/gtest.h>

#include "tests/support/native_scripture.h"

struct ReadingRow {
    Date date;
    ReadingTime reading;
    std::size_t entry;  // of the table: eight bytes per day, four per reading, 31 days per month
};

static constexpr ReadingRow kReadings[] = {
    {{1, 1}, ReadingTime::kMorning, 0},     {{1, 1}, ReadingTime::kEvening, 1},
    {{1, 31}, ReadingTime::kEvening, 61},   {{2, 1}, ReadingTime::kMorning, 62},
    {{2, 29}, ReadingTime::kMorning, 118},  {{3, 1}, ReadingTime::kMorning, 124},
    {{12, 1}, ReadingTime::kMorning, 682},  {{12, 31}, ReadingTime::kMorning, 742},
    {{12, 31}, ReadingTime::kEvening, 743},
};

TEST(Devotional, ReadsEachReadingFromItsSlot) {
    for (const auto& [date, reading, entry] : kReadings) {
        NoteSets notes;
        notes.devotionalTable[entry] = 777;
        EXPECT_EQ(VerseOfReading(notes, date, reading), 777) << date.month << '/' << date.day;
    }
}

TEST(Devotional, ClampsEntriesToTheBible) {
    NoteSets notes;
    notes.devotionalTable[1] = 31102;
    notes.devotionalTable[2] = 0xFFFFFFFF;
    EXPECT_EQ(VerseOfReading(notes, {1, 1}, ReadingTime::kMorning), 0);
    EXPECT_EQ(VerseOfReading(notes, {1, 1}, ReadingTime::kEvening), kLastVerse);
    EXPECT_EQ(VerseOfReading(notes, {1, 2}, ReadingTime::kMorning), kLastVerse);
}

TEST(Devotional, HasAChapterOfProverbsForEveryDay) {
    const VerseRecords& records = TheRealScripture().records;
    for (int day = 1; day <= 31; ++day) {
        const VerseRecord verse = RecordOf(records, TodaysProverb(records, {5, day}));
        EXPECT_EQ(verse.book, 20);
        EXPECT_EQ(verse.chapter, day);
        EXPECT_EQ(verse.verse, 1);
    }
}
