#include "typeset/line_walk.h"

#include <gtest/gtest.h>

TEST(LineWalk, StaysOnTheLineWhileThereIsRoom) {
    LineWalk line{.x = 30, .y = 5, .lineStart = 10, .limit = 100, .lineHeight = 20};
    WrapBefore(line, 69);
    EXPECT_EQ(line.x, 30);
    EXPECT_EQ(line.y, 5);
}

TEST(LineWalk, BreaksBeforeAWordThatReachesTheLimit) {
    LineWalk line{.x = 30, .y = 5, .lineStart = 10, .limit = 100, .lineHeight = 20};
    WrapBefore(line, 70);
    EXPECT_EQ(line.x, 10);
    EXPECT_EQ(line.y, 25);
}

TEST(LineWalk, BreaksOnceBeforeAWordWiderThanALine) {
    LineWalk line{.x = 10, .y = 5, .lineStart = 10, .limit = 100, .lineHeight = 20};
    WrapBefore(line, 500);
    EXPECT_EQ(line.x, 10);
    EXPECT_EQ(line.y, 25);
}
