#include "pane/scrolling.h"

#include <gtest/gtest.h>

#include <vector>

TEST(CorrectedLastVisible, IsAfterTheTopButNotAfterTheLast) {
    struct Row {
        ScrollPlace place;
        int corrected;
    };
    const Row rows[] = {
        {{10, 14, 99}, 14},                                     //
        {{10, 10, 99}, 11},                                     // one item fills the pane; page down must still move
        {{98, 98, 99}, 99},                                     //
        {{99, 99, 99}, 99},                                     // the last item
        {{97, 120, 99}, 99}, {{0, 0, 0}, 0}, {{0, 0, -1}, -1},  // no items
    };
    for (const Row& row : rows)
        EXPECT_EQ(CorrectedLastVisible(row.place), row.corrected) << row.place.top << ", " << row.place.lastVisible;
}

// A pane with items of these heights in lines, each at least 1.
struct Pane {
    std::vector<int> heights;
    int height;
};

static int LastVisibleFrom(const Pane& pane, int top) {
    const int last = static_cast<int>(pane.heights.size()) - 1;
    int item = top;
    for (int used = pane.heights[static_cast<std::size_t>(top)]; item < last && used < pane.height; ++item)
        used += pane.heights[static_cast<std::size_t>(item + 1)];
    return CorrectedLastVisible({top, item, last});
}

static int TopAfter(const Pane& pane, int top, ScrollCode code, int thumb = 0) {
    const int last = static_cast<int>(pane.heights.size()) - 1;
    return ScrolledTo({top, LastVisibleFrom(pane, top), last}, code, thumb,
                      [&pane](int trial) { return LastVisibleFrom(pane, trial); });
}

struct ScrollRow {
    int top;
    ScrollCode code;
    int newTop;
};

TEST(ScrolledTo, MovesByLinesAndPages) {
    const Pane pane = {{2, 1, 3, 2, 1, 1, 9, 9, 2, 1}, 5};
    const ScrollRow rows[] = {
        {0, ScrollCode::kLineUp, 0},
        {1, ScrollCode::kLineUp, 0},
        {8, ScrollCode::kLineDown, 9},
        {9, ScrollCode::kLineDown, 9},
        {0, ScrollCode::kPageDown, 2},  // partly visible at the bottom, so it moves to
                                        // the top
        {6, ScrollCode::kPageDown, 7},  // taller than the pane
        {9, ScrollCode::kPageDown, 9},
        {0, ScrollCode::kPageUp, 0},
        {2, ScrollCode::kPageUp, 0},
        {5, ScrollCode::kPageUp, 2},  // from 3 the pane ends with 6, from 2 with 3
        {7, ScrollCode::kPageUp, 6},  // moves even though the item above is taller than the pane
        {9, ScrollCode::kPageUp, 8},
    };
    for (const ScrollRow& row : rows)
        EXPECT_EQ(TopAfter(pane, row.top, row.code), row.newTop)
            << "from " << row.top << ", code " << static_cast<int>(row.code);
}

TEST(ScrolledTo, PageUpChoosesTheEarliestTopThatShowsTheOldOneLast) {
    const Pane pane = {{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, 4};
    for (int top = 1; top < 12; ++top) {
        const int newTop = TopAfter(pane, top, ScrollCode::kPageUp);
        EXPECT_EQ(newTop, std::max(0, top - 3));
        if (newTop > 0) {
            EXPECT_EQ(LastVisibleFrom(pane, newTop), top);
        }
    }
}

TEST(ScrolledTo, PageUpChoosesTheFirstItemIfItShowsTheOldTopLast) {
    EXPECT_EQ(TopAfter({{1, 1, 5, 1}, 4}, 2, ScrollCode::kPageUp), 0);  // from 1 it is the last one too
}

TEST(ScrolledTo, PageUpMovesEvenIfNoTopShowsTheOldOneLast) {
    const Pane pane = {{1, 4, 1, 1, 1, 1}, 4};
    // From 2 the pane ends with 5; from 1 it ends with 1 itself, which counts as 2.
    EXPECT_EQ(TopAfter(pane, 4, ScrollCode::kPageUp), 1);
    EXPECT_EQ(TopAfter(pane, 2, ScrollCode::kPageUp), 1);
}

TEST(ScrolledTo, ThumbPositionIsClamped) {
    const Pane pane = {{1, 1, 1, 1, 1}, 2};
    EXPECT_EQ(TopAfter(pane, 0, ScrollCode::kThumb, 3), 3);
    EXPECT_EQ(TopAfter(pane, 2, ScrollCode::kThumb, -5), 0);
    EXPECT_EQ(TopAfter(pane, 2, ScrollCode::kThumb, 40000), 4);
}

TEST(ScrolledTo, EmptyPaneDoesNotMove) {
    const auto neverCalled = [](int) -> int {
        ADD_FAILURE() << "nothing to lay out";
        return 0;
    };
    for (const ScrollCode code :
         {ScrollCode::kLineUp, ScrollCode::kLineDown, ScrollCode::kPageUp, ScrollCode::kPageDown, ScrollCode::kThumb})
        EXPECT_EQ(ScrolledTo({0, -1, -1}, code, 7, neverCalled), 0);
}

TEST(WheelSteps, AddUpFractionsOfANotch) {
    int rest = 0;
    EXPECT_EQ(WheelSteps(120, 3, rest), 3);
    EXPECT_EQ(WheelSteps(-240, 1, rest), -2);
    EXPECT_EQ(rest, 0);
    EXPECT_EQ(WheelSteps(30, 3, rest), 0);
    EXPECT_EQ(rest, 90);
    EXPECT_EQ(WheelSteps(30, 3, rest), 1);
    EXPECT_EQ(rest, 60);
    EXPECT_EQ(WheelSteps(230, 1, rest), 2);
    EXPECT_EQ(rest, 50);
}

TEST(WheelSteps, DropTheRestWhenTheWheelTurnsBack) {
    int rest = 0;
    EXPECT_EQ(WheelSteps(100, 1, rest), 0);
    EXPECT_EQ(WheelSteps(-100, 1, rest), 0);
    EXPECT_EQ(rest, -100);
    EXPECT_EQ(WheelSteps(-20, 1, rest), -1);
    EXPECT_EQ(WheelSteps(119, 1, rest), 0);
    EXPECT_EQ(rest, 119);
}

TEST(WheelSteps, AreNoneWhereANotchIsWorthNothing) {
    int rest = 0;
    EXPECT_EQ(WheelSteps(1200, 0, rest), 0);
    EXPECT_EQ(rest, 0);
}
