// Tests of what reading options and fonts lead to.
#include "typeset/reading_options.h"

#include <gtest/gtest.h>

TEST(ReadingOptions, TellHowBracketsAreUsed) {
    static constexpr struct {
        int italics;
        BracketUse inType, use;
    } kRows[] = {
        {kItalicType, BracketUse::kShown, BracketUse::kShown},
        {kItalicType, BracketUse::kDropped, BracketUse::kDropped},
        {kBracketed, BracketUse::kDropped, BracketUse::kShown},
        {kPlainType, BracketUse::kShown, BracketUse::kDropped},
        {3, BracketUse::kShown, BracketUse::kDropped},
        {-1, BracketUse::kShown, BracketUse::kDropped},
    };
    for (const auto& row : kRows) {
        ReadingOptions reading;
        reading.Italics = static_cast<std::int8_t>(row.italics);
        EXPECT_EQ(BracketsOf(reading, row.inType), row.use) << row.italics;
    }
}

static int Shown(int height) {
    FontChoice choice;
    choice.height = height;
    return ShownHeight(choice);
}

TEST(FontChoice, IsShownAtItsHeight) {
    for (const int height : {0, 4, -4, 9, 16, -16, 96, -96, 399, 400, -400}) EXPECT_EQ(Shown(height), height);
}

TEST(FontChoice, IsShownAtTheUsualHeightIfItCouldNotBeRead) {
    for (const int height : {1, -1, 3, -3, 401, -401, 10000, -10000, 2147483647, -2147483647, -2147483647 - 1})
        EXPECT_EQ(Shown(height), 16) << height;
}
