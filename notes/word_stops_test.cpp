#include "notes/word_stops.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using testing::ElementsAre;

static std::vector<std::size_t> StopsFromLeft(std::u16string_view text) {
    std::vector<std::size_t> stops{WordStopFrom(text, 0)};
    while (stops.back() < text.size()) stops.push_back(WordStopFrom(text, stops.back() + 1));
    return stops;
}

TEST(WordStops, AreTheStartsOfWordsAndTheEndsOfLines) {
    EXPECT_THAT(StopsFromLeft(u""), ElementsAre(0u));
    EXPECT_THAT(StopsFromLeft(u"word"), ElementsAre(0u, 4u));
    EXPECT_THAT(StopsFromLeft(u"two words"), ElementsAre(0u, 4u, 9u));
    EXPECT_THAT(StopsFromLeft(u"  in \t blanks "), ElementsAre(0u, 2u, 7u, 14u));
    EXPECT_THAT(StopsFromLeft(u"a\rb\nc"), ElementsAre(0u, 1u, 2u, 3u, 4u, 5u));
    EXPECT_THAT(StopsFromLeft(u"a-b.c,\u00E9\u00A0\u03B1"), ElementsAre(0u, 9u)) << "neither signs nor hard blanks";
}

TEST(WordStops, AreWhereTheyAreLookedFor) {
    const std::u16string text = u"two words\r\nand more";
    EXPECT_EQ(WordStopFrom(text, 4), 4u);
    EXPECT_EQ(WordStopUpTo(text, 4), 4u);
    EXPECT_EQ(WordStopFrom(text, 5), 9u);
    EXPECT_EQ(WordStopUpTo(text, 8), 4u);
    EXPECT_EQ(WordStopUpTo(text, 3), 0u);
    EXPECT_EQ(WordStopFrom(text, 11), 11u) << "the start of the second line";
    EXPECT_EQ(WordStopUpTo(text, 14), 11u);
    EXPECT_EQ(WordStopFrom(text, 99), text.size());
    EXPECT_EQ(WordStopUpTo(text, 99), text.size());
}

// ---- Any texts ------------------------------------------------------------------------------------------------------

// Is `place` a stop, told from the characters that a caret has on both sides there?
static bool IsStopByHand(const std::u16string& text, std::size_t place) {
    const std::u16string before = u"\n" + text.substr(0, place), behind = text.substr(place) + u"\r";
    const std::u16string ends = u"\r\n", blanks = u" \t";
    if (ends.find(before.back()) != ends.npos || ends.find(behind.front()) != ends.npos) return true;
    return blanks.find(before.back()) != blanks.npos && blanks.find(behind.front()) == blanks.npos;
}

TEST(WordStops, AreThoseFoundLetterByLetter) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        std::u16string text;
        for (std::size_t size = random() % 40; text.size() < size;) text += u"abcdefg-\u00E9 \t\r\n"[random() % 13];
        for (std::size_t place = 0; place <= text.size(); ++place) {
            std::size_t right = place, left = place;
            while (!IsStopByHand(text, right)) ++right;
            while (!IsStopByHand(text, left)) --left;
            EXPECT_EQ(WordStopFrom(text, place), right);
            EXPECT_EQ(WordStopUpTo(text, place), left);
        }
    }
}
