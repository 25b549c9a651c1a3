// Tests of texts that are cut to the room for them.
#include "pane/fitted_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// Every letter is ten pixels wide.
static int TenEach(void*, std::string_view text) {
    return static_cast<int>(text.size()) * 10;
}

static std::string Fitted(std::string_view text, int room) {
    return FittedText(text, room, {nullptr, TenEach});
}

TEST(FittedText, IsWholeIfItFits) {
    EXPECT_EQ(Fitted("Psalms 1:1", 100), "Psalms 1:1");
    EXPECT_EQ(Fitted("Psalms 1:1", 500), "Psalms 1:1");
    EXPECT_EQ(Fitted("", 0), "");
    EXPECT_EQ(Fitted("Ps", 20), "Ps") << "shorter than an ellipsis";
}

TEST(FittedText, HasAnEllipsisForWhatDoesNotFit) {
    EXPECT_EQ(Fitted("Psalms 1:1", 99), "Psalms...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 100), "1 Thess...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 109), "1 Thess...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:111", 209), "1 Thessalonians 4...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 199), "1 Thessalonians...") << "no blank before it";
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 180), "1 Thessalonians...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 50), "1...");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 40), "1...");
}

TEST(FittedText, IsTheEllipsisIfNothingFits) {
    for (const int room : {39, 30, 29, 1, 0, -20}) EXPECT_EQ(Fitted("Genesis 1:1", room), "...") << room;
    EXPECT_EQ(Fitted("    x", 40), "...");
}
