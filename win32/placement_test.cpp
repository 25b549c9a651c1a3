// Tests of placing windows on screens that a test makes up.
#include "win32/placement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <vector>

static constexpr int kBorder = 8;

static void PrintTo(const ScreenArea& area, std::ostream* out) {
    *out << area.left << "," << area.top << " to " << area.right << "," << area.bottom;
}

namespace {

struct Row {
    const char* what;
    ScreenArea window, placed;
};

}  // namespace

static void ExpectPlaced(const std::vector<ScreenArea>& workAreas, const std::vector<Row>& rows) {
    for (const Row& row : rows) EXPECT_EQ(BroughtInside(row.window, kBorder, workAreas), row.placed) << row.what;
}

TEST(Placement, OnOneScreenWithATaskBarBelow) {
    ExpectPlaced({{0, 0, 1920, 1040}},
                 {
                     {"fits", {100, 100, 900, 700}, {100, 100, 900, 700}},
                     {"fits exactly", {0, 0, 1920, 1040}, {0, 0, 1920, 1040}},
                     {"only its sizing frame is outside", {-8, 0, 1928, 1048}, {-8, 0, 1928, 1048}},
                     {"one pixel more", {-9, 0, 800, 600}, {0, 0, 809, 600}},
                     {"the title bar is outside", {100, -1, 900, 600}, {100, 0, 900, 601}},
                     {"beyond the right edge", {5000, 20, 5800, 620}, {1120, 20, 1920, 620}},
                     {"close button outside", {1800, 20, 2600, 620}, {1120, 20, 1920, 620}},
                     {"above", {20, -3000, 820, -2400}, {20, 0, 820, 600}},
                     {"under the task bar", {20, 700, 820, 1080}, {20, 660, 820, 1040}},
                     {"larger than the screen", {10, 10, 5000, 4000}, {0, 0, 1920, 1040}},
                     {"too wide", {-100, 50, 2100, 650}, {0, 50, 1920, 650}},
                     {"too high", {50, 50, 650, 2000}, {50, 0, 650, 1040}},
                 });
}

TEST(Placement, WithTaskBarsOnAnySide) {
    const ScreenArea window{-50, -50, 750, 550}, low{1500, 900, 2300, 1500};
    ExpectPlaced({{60, 0, 1920, 1080}}, {{"left", window, {60, 0, 860, 600}}, {"left", low, {1120, 480, 1920, 1080}}});
    ExpectPlaced({{0, 40, 1920, 1080}},
                 {{"above", window, {0, 40, 800, 640}}, {"above", low, {1120, 480, 1920, 1080}}});
    ExpectPlaced({{0, 0, 1860, 1080}}, {{"right", window, {0, 0, 800, 600}}, {"right", low, {1060, 480, 1860, 1080}}});
    ExpectPlaced({{0, 40, 1920, 1080}}, {{"the title bar under it", {9, 20, 809, 620}, {9, 40, 809, 640}}});
}

// One screen to the left of the first, one above it, and a gap between those two.
TEST(Placement, OnSeveralScreens) {
    static const std::vector<ScreenArea> kScreens = {{0, 0, 1920, 1040}, {-1280, 100, 0, 1124}, {200, -900, 1640, 0}};
    ExpectPlaced(kScreens, {
                               {"on the left one", {-1200, 200, -400, 800}, {-1200, 200, -400, 800}},
                               {"across two of them", {-400, 200, 400, 800}, {-400, 200, 400, 800}},
                               {"across two, one of them is too low", {-300, 60, 500, 660}, {0, 60, 800, 660}},
                               {"mostly on the left one", {-700, 60, 100, 660}, {-800, 100, 0, 700}},
                               {"above, across two", {300, -400, 1100, 200}, {300, -400, 1100, 200}},
                               {"in the gap, nearer to the left one", {-500, -200, -100, 50}, {-500, 100, -100, 350}},
                               {"in the gap, nearer to the upper one", {-100, -800, 150, -300}, {200, -800, 450, -300}},
                               {"far to the left", {-9000, 300, -8200, 900}, {-1280, 300, -480, 900}},
                               {"larger than the left one", {-1900, 0, -100, 1300}, {-1280, 100, 0, 1124}},
                           });
}

// A screen that was taken away: the window is on the one that is left.
TEST(Placement, AfterAScreenIsGone) {
    ExpectPlaced({{0, 0, 1366, 728}}, {{"was on the right", {1500, 100, 2800, 900}, {66, 0, 1366, 728}},
                                       {"was on the left", {-1280, 0, -480, 600}, {0, 0, 800, 600}}});
}

TEST(Placement, OfWindowsWithoutASize) {
    ExpectPlaced({{0, 0, 1920, 1040}}, {{"none inside", {10, 10, 10, 10}, {10, 10, 10, 10}},
                                        {"none outside", {3000, 10, 3000, 10}, {1920, 10, 1920, 10}},
                                        {"negative", {10, 10, -40, -40}, {10, 10, 10, 10}},
                                        {"no height", {10, 2000, 500, 2000}, {10, 1040, 500, 1040}}});
}

TEST(Placement, OfWindowsAtTheEndOfTheNumbers) {
    static constexpr int kMost = 32767;
    ExpectPlaced({{0, 0, 1920, 1040}}, {{"all", {-kMost, -kMost, kMost, kMost}, {0, 0, 1920, 1040}},
                                        {"last", {kMost, kMost, 2 * kMost, 2 * kMost}, {0, 0, 1920, 1040}}});
    EXPECT_EQ(BroughtInside({5, 6, 7, 8}, kBorder, {}), (ScreenArea{5, 6, 7, 8})) << "no screen";
}

TEST(KeptBetween, MovesWhatIsOutside) {
    EXPECT_EQ(KeptBetween(300, 200, 0, 1280), 300);
    EXPECT_EQ(KeptBetween(-20, 200, 0, 1280), 0);
    EXPECT_EQ(KeptBetween(1200, 200, 0, 1280), 1080);
    EXPECT_EQ(KeptBetween(1080, 200, 0, 1280), 1080);
    EXPECT_EQ(KeptBetween(-1300, 200, -1280, 0), -1280);
    EXPECT_EQ(KeptBetween(-100, 200, -1280, 0), -200);
    EXPECT_EQ(KeptBetween(100, 2000, 0, 1280), 0) << "its title bar is seen";
    EXPECT_EQ(KeptBetween(-2147483647, 2147483647, -2147483647, 2147483647), -2147483647);
}
