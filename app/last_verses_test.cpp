#include "app/last_verses.h"

#include <gtest/gtest.h>

#include "scripture/verse_records.h"

TEST(LastVerses, BeginWithTheLastOne) {
    std::vector<int> verses;
    for (const int verse : {5, 7, 0, 7}) AddLastVerse(verses, verse);
    EXPECT_EQ(verses, (std::vector{7, 0, 5}));
}

TEST(LastVerses, AreLimited) {
    std::vector<int> verses;
    for (int verse = 0; verse < 30; ++verse) AddLastVerse(verses, verse);
    EXPECT_EQ(verses.size(), kLastVerseCount);
    EXPECT_EQ(verses.front(), 29);
    EXPECT_EQ(verses.back(), 20);
}

TEST(LastVerses, AreReadAsWritten) {
    for (const std::vector<int>& verses : {std::vector<int>{}, {0}, {kVerseCount - 1, 0, 12345}})
        EXPECT_EQ(LastVersesOf(TextOfLastVerses(verses)), verses);
    EXPECT_EQ(TextOfLastVerses({3, 12345}), "3 12345");
}

TEST(LastVerses, AreOnlyThoseThatThereAre) {
    EXPECT_EQ(LastVersesOf("-1 31102 x 7x 99999999999 3  4 3 "), (std::vector{3, 4}));
    EXPECT_EQ(LastVersesOf("1 2 3 4 5 6 7 8 9 10 11 12").size(), kLastVerseCount);
}
