#include "verselist/hits_by_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "scripture/verse_records.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

static constexpr int kRomans = 45, kPhilemon = 57, kMost = kBookCount;

static const PerBook<int>& RealWords() {
    static const PerBook<int> words = CountWordsOfBooks(TheRealScripture());
    return words;
}

static PerBook<HitsOfBook> HitsIn(const std::vector<std::int32_t>& entries) {
    return HitsOfEntries(TheRealScripture().records, entries, RealWords());
}

template <typename Value>
static const Value& Of(int book, const PerBook<Value>& all) {
    return all[static_cast<std::size_t>(book - 1)];
}

static std::int32_t VerseAt(int book, int chapter, int verse) {
    return VerseLookup(TheRealScripture().records, book, chapter, verse);
}

// ---- Counts ---------------------------------------------------------------------------------------------------------

TEST(WordsOfBooks, AreWhatStandsBetweenSpaces) {
    static constexpr HandMadeVerse kVerses[] = {
        {1, 1, 1, "\xB6In the beginning"},
        {1, 1, 2, "and darkness [was] upon it."},
        {2, 1, 1, "Now"},
        {66, 22, 21, ""},
    };
    const HandMadeFiles files = MakeFiles(kVerses);
    const PerBook<int> words = CountWordsOfBooks(ScriptureOf(files));
    EXPECT_EQ(Of(1, words), 8);
    EXPECT_EQ(Of(2, words), 1);
    EXPECT_EQ(Of(66, words), 0);
    EXPECT_EQ(std::accumulate(words.begin(), words.end(), 0), 9);
}

// Counted in another way: by the blanks before words.
TEST(WordsOfBooks, AreThoseOfTheRealText) {
    PerBook<int> expected{};
    for (int verse = 0; verse < kVerseCount; ++verse) {
        bool isInWord = false;
        for (const char c : VerseText(TheRealScripture(), verse)) {
            const bool isBlank = c == ' ';
            const int book = RecordOf(TheRealScripture().records, verse).book;
            expected[static_cast<std::size_t>(book - 1)] += !isBlank && !isInWord ? 1 : 0;
            isInWord = !isBlank;
        }
    }
    EXPECT_EQ(RealWords(), expected);
    EXPECT_GT(*std::ranges::min_element(RealWords()), 250);  // the letters of John are short
}

// Records of a file that is damaged may name any book.
TEST(WordsOfBooks, LeaveOutBooksThatDoNotExist) {
    HandMadeFiles files;
    for (const int book : {0, 67, 255}) AddRecord(files, book, 1, 1, 0);
    const PerBook<int> words = CountWordsOfBooks(ScriptureOf(files));
    EXPECT_EQ(words, PerBook<int>{});
    const std::vector<std::int32_t> entries{0, 1, 2, 3, -1, 40000};
    for (const HitsOfBook& of : HitsOfEntries(ScriptureOf(files).records, entries, words)) EXPECT_EQ(of.hits, 0);
}

TEST(HitsOfEntries, AreCountedInAnyOrder) {
    const std::vector<std::int32_t> entries{VerseAt(45, 8, 28), VerseAt(1, 1, 1), VerseAt(45, 1, 1), VerseAt(45, 1, 1)};
    const PerBook<HitsOfBook> hits = HitsIn(entries);
    EXPECT_EQ(Of(kRomans, hits).hits, 3) << "a verse listed twice is two entries";
    EXPECT_EQ(Of(kRomans, hits).firstEntry, 0);
    EXPECT_EQ(Of(1, hits).hits, 1);
    EXPECT_EQ(Of(1, hits).firstEntry, 1);
    EXPECT_EQ(Of(2, hits).hits, 0);
    EXPECT_EQ(Of(2, hits).firstEntry, -1);
    EXPECT_EQ(Of(2, hits).words, Of(2, RealWords()));
}

TEST(HitsOfEntries, AreAllVersesOfAListOfAll) {
    std::vector<std::int32_t> all(kVerseCount);
    std::iota(all.begin(), all.end(), 0);
    const PerBook<HitsOfBook> hits = HitsIn(all);
    int next = 0;
    for (const HitsOfBook& of : hits) {
        EXPECT_EQ(of.firstEntry, next);
        next += of.hits;
    }
    EXPECT_EQ(next, kVerseCount);
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

TEST(HitsTexts, TellTheRate) {
    const auto rate = [](int hits, int words) { return RateText({hits, hits > 0 ? 0 : -1, words}); };
    EXPECT_EQ(rate(23, 9447), "2.4");
    EXPECT_EQ(rate(1, 1000), "1.0");
    EXPECT_EQ(rate(0, 1000), "0.0");
    EXPECT_EQ(rate(1, 43000), "0.02");
    EXPECT_EQ(rate(19, 200000), "0.1") << "rounded";
    EXPECT_EQ(rate(1, 10000), "0.1");
    EXPECT_EQ(rate(155, 1000), "155.0");
    EXPECT_EQ(rate(1, 0), "0.0");
}

TEST(HitsTexts, NameTheBook) {
    const HitsOfBook many{23, 7, 9447}, one{1, 0, 430}, none{0, -1, 430};
    EXPECT_EQ(HitsTip(kRomans, many), "Romans: 23 hits, 2.4 per 1000 words");
    EXPECT_EQ(HitsTip(kPhilemon, one), "Philemon: 1 hit, 2.3 per 1000 words");
    EXPECT_EQ(HitsTip(kPhilemon, none), "Philemon: no hits");
    EXPECT_EQ(SpokenHits(kRomans, many), "Romans, 23 hits, 2.4 per thousand words");
    EXPECT_EQ(SpokenHits(22, one), "Song of Solomon, 1 hit, 2.3 per thousand words");
    EXPECT_EQ(SpokenHits(kPhilemon, none), "Philemon, no hits");
}

TEST(HitsTexts, MakeATableOfAllBooks) {
    const std::string table = HitsTable(HitsIn({VerseAt(45, 1, 1), VerseAt(45, 1, 7)}));
    EXPECT_EQ(std::ranges::count(table, '\n'), kBookCount + 1);
    EXPECT_EQ(std::ranges::count(table, '\t'), 3 * (kBookCount + 1));
    EXPECT_THAT(table,
                AllOf(StartsWith("Book\tHits\tWords\tHits per 1000 words\r\nGenesis\t0\t"), EndsWith("\t0.0\r\n"),
                      HasSubstr("\r\nRomans\t2\t" + std::to_string(Of(kRomans, RealWords())) + "\t0.2\r\n")));
}

// ---- The bars -------------------------------------------------------------------------------------------------------

// Genesis has the highest rate, Romans half of it, Revelation hardly any.
static PerBook<HitsOfBook> ThreeBooks() {
    PerBook<HitsOfBook> hits{};
    for (HitsOfBook& of : hits) of.words = 1000;
    hits[0] = {10, 0, 1000};
    hits[static_cast<std::size_t>(kRomans - 1)] = {10, 10, 2000};
    hits[static_cast<std::size_t>(kMost - 1)] = {1, 20, 40000};
    return hits;
}

TEST(HitsBars, HaveTheLengthOfTheirRates) {
    const PerBook<HitsBar> bars = LayOutHits(ThreeBooks(), 40, 660, 2);
    EXPECT_EQ(Of(1, bars).length, 40);
    EXPECT_EQ(Of(kRomans, bars).length, 20);
    EXPECT_EQ(Of(kMost, bars).length, 2) << "not less than the shortest bar";
    EXPECT_EQ(Of(2, bars).length, 0);
    EXPECT_EQ(Of(kMost, LayOutHits(ThreeBooks(), 1, 660, 2)).length, 1);
}

// From one line to a screen of 2160 lines: the slots follow each other without gaps and fill the strip, and each has a
// bar of at least one line.
TEST(HitsBars, DivideEveryHeight) {
    for (int height = 1; height < 2200; ++height) {
        const PerBook<HitsBar> bars = LayOutHits(ThreeBooks(), 40, height, 2);
        EXPECT_EQ(bars.front().top, 0);
        EXPECT_EQ(bars.back().bottom, height);
        int before = 0;
        for (const HitsBar& bar : bars) {
            ASSERT_LE(bar.top, before) << height;
            ASSERT_GT(bar.barBottom, bar.top) << height;
            ASSERT_LE(bar.barBottom, bar.bottom) << height;
            if (height >= kBookCount) {
                ASSERT_EQ(bar.top, before) << height;
            }
            if (height >= 2 * kBookCount) {
                ASSERT_GT(bar.bottom, bar.barBottom) << "no gap at " << height;
            }
            before = bar.bottom;
        }
    }
}

TEST(HitsBars, AreNoneWithoutRoomOrHits) {
    for (const auto& [width, height] : {std::pair{0, 100}, {40, 0}, {-1, -1}})
        for (const HitsBar& bar : LayOutHits(ThreeBooks(), width, height, 2)) EXPECT_EQ(bar.length, 0);
    for (const HitsBar& bar : LayOutHits({}, 40, 660, 2)) EXPECT_EQ(bar.length, 0);
}

TEST(HitsBars, AreFoundByTheirLines) {
    const PerBook<HitsBar> bars = LayOutHits(ThreeBooks(), 40, 660, 2);
    EXPECT_EQ(BookAtLine(bars, 0), 1);
    EXPECT_EQ(BookAtLine(bars, 9), 1) << "the gap belongs to the book above";
    EXPECT_EQ(BookAtLine(bars, 10), 2);
    EXPECT_EQ(BookAtLine(bars, 659), 66);
    for (const int outside : {-1, 660, 5000}) EXPECT_EQ(BookAtLine(bars, outside), 0);
    EXPECT_EQ(BookAtLine(LayOutHits({}, 40, 0, 2), 0), 0);
}

// In a strip of 33 lines two books share each of them.
TEST(HitsBars, ThatShareALineLeaveItToTheLongest) {
    PerBook<HitsOfBook> hits = ThreeBooks();
    hits[1] = {40, 5, 1000};
    const PerBook<HitsBar> bars = LayOutHits(hits, 40, 33, 2);
    EXPECT_EQ(BookAtLine(bars, 0), 2);
    EXPECT_EQ(BookAtLine(bars, 1), 3) << "the first of those without hits";
    EXPECT_EQ(BookAtLine(bars, 22), kRomans);
    EXPECT_EQ(BookAtLine(bars, 32), kMost);
}
