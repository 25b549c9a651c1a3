#include "app/navigation.h"

#include <gtest/gtest.h>

#include "scripture/reference_parser.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

static int VerseNamed(const char* reference) {
    const ParsedReference parsed = ParseReference(TheRealScripture().records, reference);
    EXPECT_TRUE(parsed.ok) << reference;
    return parsed.verse;
}

static std::string Abbreviated(int verse) {
    return ReferenceText(TheRealScripture().records, verse, BookForm::kAbbreviation);
}

TEST(Navigation, MovesByChapterAndBook) {
    static constexpr struct {
        const char* from;
        const char* previousChapter;
        const char* nextChapter;
        const char* previousBook;
        const char* nextBook;
    } kRows[] = {
        {"Ge 1:1", "Ge 1:1", "Ge 2:1", "Ge 1:1", "Ex 1:1"},
        {"Ge 1:31", "Ge 1:1", "Ge 2:1", "Ge 1:1", "Ex 1:1"},
        {"Ge 2:1", "Ge 1:1", "Ge 3:1", "Ge 1:1", "Ex 1:1"},
        {"Ge 50:26", "Ge 49:1", "Ex 1:1", "Ge 1:1", "Ex 1:1"},
        // From the middle of a chapter or book, back goes to the previous one, not to the beginning of the same one.
        {"Ex 3:14", "Ex 2:1", "Ex 4:1", "Ge 1:1", "Le 1:1"},
        {"Ex 1:1", "Ge 50:1", "Ex 2:1", "Ge 1:1", "Le 1:1"},
        // Neighbouring books that have one chapter each.
        {"2 John 1:5", "1Jo 5:1", "3Jo 1:1", "1Jo 1:1", "3Jo 1:1"},
        {"3 John 1:1", "2Jo 1:1", "Jude 1:1", "2Jo 1:1", "Jude 1:1"},
        {"Ps 119:176", "Ps 118:1", "Ps 120:1", "Job 1:1", "Pr 1:1"},
        {"Mal 4:6", "Mal 3:1", "Mt 1:1", "Zec 1:1", "Mt 1:1"},
        {"Re 1:1", "Jude 1:1", "Re 2:1", "Jude 1:1", "Re 22:21"},
        {"Re 22:1", "Re 21:1", "Re 22:21", "Jude 1:1", "Re 22:21"},
        {"Re 22:21", "Re 21:1", "Re 22:21", "Jude 1:1", "Re 22:21"},
    };
    const VerseRecords& records = TheRealScripture().records;
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.from);
        const int verse = VerseNamed(row.from);
        EXPECT_EQ(Abbreviated(PreviousChapter(records, verse)), row.previousChapter);
        EXPECT_EQ(Abbreviated(NextChapter(records, verse)), row.nextChapter);
        EXPECT_EQ(Abbreviated(PreviousBook(records, verse)), row.previousBook);
        EXPECT_EQ(Abbreviated(NextBook(records, verse)), row.nextBook);
    }
}

TEST(Navigation, ClampsAtTheEndsOfTheBible) {
    static constexpr struct {
        int verse;
        int previousChapter, nextChapter, previousBook, nextBook;
    } kRows[] = {
        {-1, 0, 31, 0, 1533},
        {-2147483647 - 1, 0, 31, 0, 1533},
        {31102, 31054, 31101, 30673, 31101},
        {2147483647, 31054, 31101, 30673, 31101},
    };
    const VerseRecords& records = TheRealScripture().records;
    for (const auto& row : kRows) {
        EXPECT_EQ(PreviousChapter(records, row.verse), row.previousChapter) << row.verse;
        EXPECT_EQ(NextChapter(records, row.verse), row.nextChapter) << row.verse;
        EXPECT_EQ(PreviousBook(records, row.verse), row.previousBook) << row.verse;
        EXPECT_EQ(NextBook(records, row.verse), row.nextBook) << row.verse;
    }
}

TEST(Navigation, StaysInTheBibleWithDamagedRecords) {
    HandMadeFiles noFirstVerse;  // with a chapter that does not begin with verse 1
    for (int verse = 5; verse < 9; ++verse) AddRecord(noFirstVerse, 1, 2, verse, 0);
    for (const VerseRecords& records : {VerseRecords{}, ScriptureOf(noFirstVerse).records}) {
        for (const int verse : {0, 2, 3, 4, 31101}) {
            for (const auto step : {PreviousChapter, PreviousBook, NextChapter, NextBook}) {
                const int reached = step(records, verse);
                EXPECT_EQ(reached, ClampVerse(reached)) << verse;
            }
        }
    }
}

TEST(BookmarkLabel, ShowsVerseAndKey) {
    static constexpr struct {
        int number, verse;
        const char* label;
    } kRows[] = {
        {0, 0, "Genesis 1:1\tCtrl+1"},          {1, 26136, "John 3:16\tCtrl+2"},
        {8, 31101, "Revelation 22:21\tCtrl+9"}, {9, 0, "Genesis 1:1\tCtrl+0"},  // not Ctrl+10
        {9, 26136, "John 3:16\tCtrl+0"},
    };
    for (const auto& row : kRows) {
        Bookmarks bookmarks;
        bookmarks.verses[static_cast<std::size_t>(row.number)] = row.verse;
        EXPECT_EQ(BookmarkLabel(TheRealScripture().records, bookmarks, row.number), row.label);
    }
    EXPECT_EQ(Bookmarks{}.verses, (std::array<int, 10>{}));
}

// ---- The day --------------------------------------------------------------------------------------------------------

struct ReadingRow {
    Date date;
    TimeOfDay reading;
    std::size_t entry;  // of the table: eight bytes per day, four per reading, 31 days per month
};

static constexpr ReadingRow kReadings[] = {
    {{1, 1}, TimeOfDay::kMorning, 0},    {{1, 1}, TimeOfDay::kEvening, 1},     {{1, 31}, TimeOfDay::kEvening, 61},
    {{2, 1}, TimeOfDay::kMorning, 62},   {{2, 29}, TimeOfDay::kMorning, 118},  {{3, 1}, TimeOfDay::kMorning, 124},
    {{12, 1}, TimeOfDay::kMorning, 682}, {{12, 31}, TimeOfDay::kMorning, 742}, {{12, 31}, TimeOfDay::kEvening, 743},
};

TEST(Devotional, ReadsEachReadingFromItsSlot) {
    for (const auto& [date, reading, entry] : kReadings) {
        NoteSets notes;
        notes.devotionalTable[entry] = 777;
        EXPECT_EQ(VerseOfDevotional(notes, date, reading), 777) << date.month << '/' << date.day;
    }
}

TEST(Devotional, ClampsEntriesToTheBible) {
    NoteSets notes;
    notes.devotionalTable[1] = 31102;
    notes.devotionalTable[2] = 0xFFFFFFFF;
    EXPECT_EQ(VerseOfDevotional(notes, {1, 1}, TimeOfDay::kMorning), 0);
    EXPECT_EQ(VerseOfDevotional(notes, {1, 1}, TimeOfDay::kEvening), kLastVerse);
    EXPECT_EQ(VerseOfDevotional(notes, {1, 2}, TimeOfDay::kMorning), kLastVerse);
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
