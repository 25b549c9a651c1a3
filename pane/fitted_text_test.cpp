// Tests of texts that are shortened to the room for them.
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

TEST(FittedText, AbbreviatesBooks) {
    static constexpr struct {
        const char* text;
        const char* brief;
    } kRows[] = {
        {"1 Thessalonians 4:11", "1Th 4:11"},
        {"John 3:16", "Joh 3:16"},
        {"2 John 1:3", "2Jo 1:3"},
        {"Song of Solomon 8:14", "So 8:14"},
        {"x-refs for 1 Samuel 30:31", "x-refs for 1Sa 30:31"},
        {"Genesis 1:1, Revelation 22:21", "Ge 1:1, Re 22:21"},
    };
    for (const auto& row : kRows) {
        const int room = static_cast<int>(std::string_view(row.brief).size()) * 10;
        EXPECT_EQ(Fitted(row.text, room), row.brief);
        EXPECT_NE(Fitted(row.text, room - 1), row.brief);
    }
}

TEST(FittedText, TellsTheVerseIfThereIsNoRoomForTheBook) {
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 79), "4:11");
    EXPECT_EQ(Fitted("1 Thessalonians 4:11", 40), "4:11");
    EXPECT_EQ(Fitted("Psalms 119:176", 70), "119:176");
    EXPECT_EQ(Fitted("Psalms 119:176", 69), "119...") << "no part of a number";
}

TEST(FittedText, BringsTheEndsOfARangeTogether) {
    EXPECT_EQ(Fitted("Ge 1:1 - Re 22:21", 169), "Ge 1:1-Re 22:21");
    EXPECT_EQ(Fitted("Ge 1:1 - Re 22:21", 150), "Ge 1:1-Re 22:21");
    EXPECT_EQ(Fitted("Ge 1:1 - Re 22:21", 149), "Ge 1:1-Re...") << "no part of a number";
}

TEST(FittedText, HasAnEllipsisForWhatDoesNotFit) {
    EXPECT_EQ(Fitted("No such note", 119), "No such...");
    EXPECT_EQ(Fitted("No such note", 110), "No such...") << "no blank before it";
    EXPECT_EQ(Fitted("No such note", 99), "No suc...");
    EXPECT_EQ(Fitted("No such note", 40), "N...");
    EXPECT_EQ(Fitted("Genesis", 69), "Gen...") << "no number, no reference";
    EXPECT_EQ(Fitted("Genesis ", 79), "Gene...");
    EXPECT_EQ(Fitted("Genesis one", 109), "Genesis...");
    EXPECT_EQ(Fitted("Genesis1:1", 99), "Genesi...");
    EXPECT_EQ(Fitted("NewGenesis 1:1", 139), "NewGenesis...");
}

TEST(FittedText, NeverShowsAPartOfANumber) {
    EXPECT_EQ(Fitted("159 verses, 170 occurrences", 269), "159 verses, 170 occurre...");
    EXPECT_EQ(Fitted("159 verses, 170 occurrences", 180), "159 verses, 170...");
    for (const int room : {179, 170, 160, 150, 140})
        EXPECT_EQ(Fitted("159 verses, 170 occurrences", room), "159 verses,...") << room;
    for (const int room : {69, 59, 50, 40, 30}) EXPECT_EQ(Fitted("15912 verses", room), "...") << room;
}

TEST(FittedText, IsTheEllipsisIfNothingFits) {
    for (const int room : {39, 30, 29, 1, 0, -20}) EXPECT_EQ(Fitted("No Matches", room), "...") << room;
    EXPECT_EQ(Fitted("    x", 40), "...");
}
