#include "app/zoom.h"

#include <gtest/gtest.h>

#include <vector>

static FontChoice WithHeight(int height) {
    return {.height = height};
}

static int After(int height, int steps) {
    return ZoomedHeight(WithHeight(height), steps, 96);
}

static int Height(int points) {
    return HeightOfPoints(points, 96);
}

TEST(Zoom, StoresHeightsAsTheFontDialogDoes) {
    EXPECT_EQ(HeightOfPoints(9, 96), 12);
    EXPECT_EQ(HeightOfPoints(12, 96), 16);
    EXPECT_EQ(HeightOfPoints(18, 96), 24);
    EXPECT_EQ(HeightOfPoints(11, 96), 15);
    EXPECT_EQ(HeightOfPoints(11, 120), 14);  // 18 pixels there
}

// With some scalings two sizes are stored as the same height.
static std::vector<int> ListedHeights(int dpi) {
    std::vector<int> heights;
    for (const int points : {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72}) {
        const int height = HeightOfPoints(points, dpi);
        if (heights.empty() || height != heights.back()) heights.push_back(height);
    }
    return heights;
}

TEST(Zoom, WalksThroughTheListedSizes) {
    for (const int dpi : {96, 120, 144, 168, 192, 240, 288}) {
        const std::vector<int> listed = ListedHeights(dpi);
        EXPECT_GE(listed.size(), 15u) << dpi;
        std::vector<int> larger{listed.front()}, smaller{listed.back()};
        while (larger.size() < listed.size()) {
            larger.push_back(ZoomedHeight(WithHeight(larger.back()), 1, dpi));
            smaller.insert(smaller.begin(), ZoomedHeight(WithHeight(smaller.front()), -1, dpi));
        }
        EXPECT_EQ(larger, listed) << dpi;
        EXPECT_EQ(smaller, listed) << dpi;
        EXPECT_EQ(ZoomedHeight(WithHeight(listed.back()), 1, dpi), listed.back()) << dpi;
        EXPECT_EQ(ZoomedHeight(WithHeight(listed.front()), -1, dpi), listed.front()) << dpi;
    }
}

TEST(Zoom, TakesSeveralStepsAtOnce) {
    EXPECT_EQ(After(Height(12), 3), Height(18));
    EXPECT_EQ(After(Height(12), -2), Height(10));
    EXPECT_EQ(After(Height(12), 1000), Height(72));
    EXPECT_EQ(After(Height(12), -1000), Height(8));
    EXPECT_EQ(After(Height(12), 0), Height(12));
}

TEST(Zoom, LeadsFromOtherSizesToListedOnes) {
    EXPECT_EQ(After(Height(13), 1), Height(14));
    EXPECT_EQ(After(Height(13), -1), Height(12));
    EXPECT_EQ(After(Height(30), 1), Height(36));
    EXPECT_EQ(After(Height(100), -1), Height(72));
    EXPECT_EQ(After(Height(5), 1), Height(8));
}

// It would be no step in that direction.
TEST(Zoom, LeavesWhatIsBeyondTheListedSizes) {
    EXPECT_EQ(After(Height(100), 1), Height(100));
    EXPECT_EQ(After(Height(5), -1), Height(5));
}

// As a file that was edited by hand may have them; they are shown in another height (ShownHeight).
TEST(Zoom, BeginsAtTheHeightThatIsShown) {
    for (const int unreadable : {0, 1, 3, 401, 10000, -1, -10000, -2147483647 - 1}) {
        EXPECT_EQ(After(unreadable, 0), unreadable);
        EXPECT_EQ(After(unreadable, 1), Height(14)) << unreadable;
        EXPECT_EQ(After(unreadable, -1), Height(11)) << unreadable;
    }
    EXPECT_EQ(After(-24, 1), Height(20)) << "of a cell; the font dialog shows it without its sign, too";
}
