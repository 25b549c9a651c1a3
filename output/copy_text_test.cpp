#include "output/copy_text.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

#include "output/rendering.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

// Verses of Genesis 1 with these texts.
static HandMadeFiles ChapterOf(const std::vector<std::string>& texts) {
    HandMadeFiles files;
    for (std::size_t i = 0; i < texts.size(); ++i) AddVerse(files, {1, 1, static_cast<int>(i) + 1, texts[i]});
    return files;
}

// Text of a first verse that has `size` bytes when it is copied, including " Ge 1:1 " and a line end.
static std::string TextForPiece(std::size_t size) {
    return std::string(size - 10, 'a');
}

static CopyText CopyOf(const HandMadeFiles& files, int first, int last) {
    return CopyRangeText(ScriptureOf(files), {}, first, last, RangeCopyBudget(first, last));
}

TEST(RangeCopyBudget, IsNineHundredBytesPerVerse) {
    EXPECT_EQ(RangeCopyBudget(7, 7), 900u);
    EXPECT_EQ(RangeCopyBudget(1000, 2999), 1'800'000u);
    EXPECT_EQ(RangeCopyBudget(0, kLastVerse), 27'991'800u);
    EXPECT_EQ(RangeCopyBudget(8, 7), 0u);
}

TEST(CopyRangeText, BudgetIsEnoughForEveryVerse) {
    for (const int brackets : {0, 1}) {
        FormatOptions format;
        format.SubsequentVerseStyle = 0;
        format.Brackets = brackets;
        for (int verse = 0; verse < kVerseCount; ++verse) {
            const CopyText copy =
                CopyRangeText(TheRealScripture(), format, verse, verse, RangeCopyBudget(verse, verse));
            ASSERT_TRUE(copy.complete && copy.complaints == 0 && copy.text.ends_with("\r\n")) << verse;
        }
    }
}

TEST(CopyRangeText, CanUseTheWholeBudget) {
    const CopyText copy = CopyOf(ChapterOf({TextForPiece(900)}), 0, 0);
    EXPECT_EQ(copy.text, " Ge 1:1 " + TextForPiece(900) + "\r\n");
    EXPECT_TRUE(copy.complete);
    EXPECT_EQ(copy.complaints, 0);
}

TEST(CopyRangeText, ComplainsTwiceWhenTheFirstVerseDoesNotFit) {
    for (const CopyText& copy :
         {CopyOf(ChapterOf({TextForPiece(901)}), 0, 0), CopyOf(ChapterOf({TextForPiece(1801), "next"}), 0, 1)}) {
        EXPECT_EQ(copy.text, "");
        EXPECT_TRUE(copy.allocated);
        EXPECT_FALSE(copy.complete);
        EXPECT_EQ(copy.complaints, 2);
    }
}

TEST(CopyRangeText, ComplainsOnceAndStopsWhenALaterVerseDoesNotFit) {
    const CopyText copy = CopyOf(ChapterOf({"[one]", std::string(3000, 'b'), "three"}), 0, 2);
    EXPECT_EQ(copy.text, " Ge 1:1 one\r\n") << "without the verse that did not fit, later verses and brackets";
    EXPECT_FALSE(copy.complete);
    EXPECT_EQ(copy.complaints, 1);
}

TEST(CopyRangeText, SharesTheBudgetAmongTheVerses) {
    const HandMadeFiles files = ChapterOf({"one", TextForPiece(1500), "three"});
    EXPECT_TRUE(CopyOf(files, 0, 1).complete) << "a short verse leaves its room to a long one";
    EXPECT_TRUE(CopyOf(files, 1, 2).complete) << "a later verse gives its room to the first";
    EXPECT_EQ(CopyOf(files, 1, 1).complaints, 2);
}

TEST(CopyRangeText, CountsRemovedBracketsInTheBudget) {
    const CopyText copy = CopyOf(ChapterOf({"[" + TextForPiece(899) + "]"}), 0, 0);
    EXPECT_EQ(copy.complaints, 2);
}

TEST(CopyRangeText, KeepsBracketsIfTheFormatHasThem) {
    FormatOptions format;
    format.Brackets = 1;
    const HandMadeFiles files = ChapterOf({"[one]"});
    EXPECT_EQ(CopyRangeText(ScriptureOf(files), format, 0, 0, 900).text, " Ge 1:1 [one]\r\n");
}

TEST(CopyRangeText, CopiesTheWholeBible) {
    const CopyText copy = CopyRangeText(TheRealScripture(), {}, 0, kLastVerse, RangeCopyBudget(0, kLastVerse));
    ASSERT_TRUE(copy.complete);
    EXPECT_EQ(std::count(copy.text.begin(), copy.text.end(), '\n'), kVerseCount);
    EXPECT_TRUE(copy.text.starts_with(" Ge 1:1 "));
    EXPECT_NE(copy.text.find("\r\n Re 1:1 "), std::string::npos);
    EXPECT_LT(copy.text.capacity(), RangeCopyBudget(0, kLastVerse) / 4)
        << "allocates only what it needs, not the whole budget";
}

// If all records point to the start of the text, every verse is long; the copy must not exceed its memory.
TEST(CopyRangeText, StaysWithinTheBudgetForDamagedRecords) {
    HandMadeFiles files = ChapterOf({std::string(5000, 'a')});
    for (int verse = 2; verse < 200; ++verse) AddRecord(files, 1, 1, verse, 0);
    const CopyText copy = CopyOf(files, 0, 198);
    EXPECT_FALSE(copy.complete);
    EXPECT_EQ(copy.complaints, 1);
    EXPECT_LE(copy.text.size(), RangeCopyBudget(0, 198));
    EXPECT_GT(copy.text.size(), RangeCopyBudget(0, 198) - 5010);
}

static CopyText ListCopyOf(const HandMadeFiles& files, const std::vector<std::int32_t>& verses, int brackets = 0) {
    const FormatOptions format{2, 2, 1, 0, 0, brackets};  // only the brackets apply to a list
    return CopyListText(ScriptureOf(files), format, verses, ListCopyBudget(ScriptureOf(files), verses));
}

TEST(CopyListText, HasFullLabelsAndParagraphMarks) {
    const HandMadeFiles files = ChapterOf({"\xB6[one]", "two \xB6[two]", "\xB6"});
    const CopyText copy = ListCopyOf(files, {2, 0, 1, 0});
    EXPECT_EQ(copy.text, " Ge 1:3 \xB6 \r\n Ge 1:1 \xB6 one\r\n Ge 1:2 two \xB6two\r\n Ge 1:1 \xB6 one\r\n");
    EXPECT_TRUE(copy.complete);
    EXPECT_EQ(ListCopyOf(files, {0}, 1).text, " Ge 1:1 \xB6 [one]\r\n");
}

TEST(CopyListText, BudgetIsEnoughForTheLongestLines) {
    HandMadeFiles files;
    for (int verse = 0; verse < 300; ++verse) AddVerse(files, {65, 255, 255, "\xB6[a]"});
    std::vector<std::int32_t> verses(300);
    std::iota(verses.begin(), verses.end(), 0);
    EXPECT_EQ(ListCopyBudget(ScriptureOf(files), verses), 300u * (4 + 27) + 100);
    EXPECT_EQ(ListCopyBudget(ScriptureOf(files), {}), 100u);
    const CopyText copy = ListCopyOf(files, verses, 1);
    EXPECT_TRUE(copy.complete);
    EXPECT_EQ(copy.text.size(), 300 * (4 + kLongestPieceFrame));
}

TEST(CopyListText, ComplainsOnceWhenAnythingDoesNotFit) {
    const HandMadeFiles files = ChapterOf({"[one]", "two", "three"});
    const std::vector<std::int32_t> verses{0, 1, 2};
    struct Row {
        std::size_t budget;
        const char* text;
        int complaints;
    };
    static constexpr Row kRows[] = {
        {0, "", 1},
        {14, "", 1},
        {15, " Ge 1:1 one\r\n", 1},
        {28, " Ge 1:1 one\r\n Ge 1:2 two\r\n", 1},
        {43, " Ge 1:1 one\r\n Ge 1:2 two\r\n Ge 1:3 three\r\n", 0},
    };
    for (const Row& row : kRows) {
        const CopyText copy = CopyListText(ScriptureOf(files), {}, verses, row.budget);
        EXPECT_EQ(copy.text, row.text) << row.budget;
        EXPECT_EQ(copy.complaints, row.complaints) << row.budget;
        EXPECT_EQ(copy.complete, row.complaints == 0) << row.budget;
    }
}

TEST(CopyReferencesText, RepeatsBookAndChapterOnlyWhenTheyChange) {
    HandMadeFiles files;
    struct {
        int book, chapter, verse;
    } static constexpr kPlaces[] = {{1, 1, 1}, {1, 1, 3}, {1, 2, 4}, {2, 2, 4}, {2, 2, 5}, {65, 1, 25}, {66, 1, 25}};
    for (const auto& [book, chapter, verse] : kPlaces) AddVerse(files, {book, chapter, verse, "a"});
    struct Row {
        std::vector<std::int32_t> verses;
        const char* text;
    };
    const Row rows[] = {
        {{}, "#"},
        {{0}, "# Ge 1:1"},
        {{0, 1, 3}, "# Ge 1:1,3 Ex 2:4"},
        {{0, 1, 2}, "# Ge 1:1,3 2:4"},
        {{2, 3, 4}, "# Ge 2:4 Ex 2:4,5"},  // a new book repeats the chapter
        {{5, 6}, "# Jude 1:25 Re 1:25"},
        {{4, 3, 0, 3}, "# Ex 2:5,4 Ge 1:1 Ex 2:4"},
    };
    for (const Row& row : rows) {
        const CopyText copy = CopyReferencesText({files.records}, row.verses);
        EXPECT_EQ(copy.text, row.text);
        EXPECT_TRUE(copy.allocated && copy.complete && copy.complaints == 0);
    }
}

TEST(CopyReferencesText, NeedsAtMostFifteenBytesPerVerse) {
    std::vector<std::int32_t> verses(kVerseCount);
    std::iota(verses.begin(), verses.end(), 0);
    const std::string text = CopyReferencesText(TheRealScripture().records, verses).text;
    EXPECT_TRUE(text.starts_with("# Ge 1:1,2,3"));
    EXPECT_TRUE(text.ends_with(",20,21"));
    EXPECT_LT(text.size(), kVerseCount * 15 + 100u);
}
