// Tests of the rows of the toolbar.
#include "app/toolbar_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

using testing::ElementsAre;
using testing::IsEmpty;

// "-" is a separator of 5 pixels, any other character a button of 10.
static std::vector<std::size_t> Ends(std::string_view items, int room) {
    std::vector<ToolbarItem> row;
    for (const char item : items) row.push_back({item == '-' ? 5 : 10, item == '-'});
    return RowEnds(row, room);
}

TEST(ToolbarRows, IsOneIfThereIsRoom) {
    EXPECT_THAT(Ends("", 0), IsEmpty());
    EXPECT_THAT(Ends("-", 0), IsEmpty());
    EXPECT_THAT(Ends("-ab-cd", 50), IsEmpty());
    EXPECT_THAT(Ends("-ab-cd-", 50), IsEmpty()) << "a separator needs no room";
}

TEST(ToolbarRows, EndBeforeSeparators) {
    EXPECT_THAT(Ends("-ab-cd", 49), ElementsAre(2));
    EXPECT_THAT(Ends("-ab-cd-ef", 50), ElementsAre(5));
    EXPECT_THAT(Ends("-ab-cd-ef", 49), ElementsAre(2, 5));
    EXPECT_THAT(Ends("-ab-cd-e-f", 40), ElementsAre(2, 7));
    EXPECT_THAT(Ends("-ab--cd", 50), ElementsAre(2));
    EXPECT_THAT(Ends("-a-b-c-d-e", 30), ElementsAre(3, 7));
}

TEST(ToolbarRows, DivideGroupsThatAreTooWide) {
    EXPECT_THAT(Ends("abcdef", 30), ElementsAre(2));
    EXPECT_THAT(Ends("-abcd", 44), ElementsAre(3));
    EXPECT_THAT(Ends("-a-bcdef", 40), ElementsAre(1, 5));
    EXPECT_THAT(Ends("-a-bcd", 30), ElementsAre(1, 4));
}

TEST(ToolbarRows, HaveAButtonEach) {
    EXPECT_THAT(Ends("ab", 5), ElementsAre(0));
    EXPECT_THAT(Ends("-a-b", 0), ElementsAre(1));
    EXPECT_THAT(Ends("--a--bc", 1), ElementsAre(2, 5));
    EXPECT_THAT(Ends("-ab", -100), ElementsAre(1));
}
