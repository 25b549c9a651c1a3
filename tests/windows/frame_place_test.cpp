// Where the frame opens, and where it goes when the screen changes.

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

static Program StartAt(const ScratchFolder& folder, const char* x, const char* y, const char* width,
                       const char* height) {
    const std::pair<const char*, const char*> values[] = {
        {"XPos", x}, {"YPos", y}, {"Width", width}, {"Height", height}};
    for (const auto& [key, value] : values)
        if (*value != '\0') WriteSetting(folder, "MISC", key, value);
    return StartProgram(folder);
}

// Title bar, close button and scroll bars are seen, whichever screen there was when the place was stored.
TEST(FramePlace, IsInsideTheScreen) {
    static constexpr struct {
        const char *x, *y, *width, *height;
        RECT place;  // empty: as the system makes it
    } kRows[] = {
        {"20", "30", "800", "600", {20, 30, 820, 630}},
        {"480", "424", "800", "600", {480, 424, 1280, 1024}},
        {"5000", "20", "800", "600", {480, 20, 1280, 620}},
        {"-1900", "200", "800", "600", {0, 200, 800, 800}},
        {"-300", "20", "800", "600", {0, 20, 800, 620}},
        {"700", "600", "800", "600", {480, 424, 1280, 1024}},
        {"20", "-40", "800", "600", {20, 0, 820, 600}},
        {"20", "-3000", "800", "600", {20, 0, 820, 600}},
        {"100", "100", "1920", "1040", {0, 0, 1280, 1024}},
        {"2147483647", "2147483647", "2147483647", "2147483647", {0, 0, 1280, 1024}},
        {"10", "10", "2147483647", "2147483647", {0, 0, 1280, 1024}},
        {"10", "10", "-50", "-50", {}},
        {"10", "10", "0", "0", {}},
        {"1270", "1020", "0", "0", {}},
        {"10", "10", "800", "-1", {}},
        {"none", "none", "none", "none", {}},
        {"", "", "5000", "4000", {}},
        {"100", "", "800", "600", {}},
    };
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    ASSERT_EQ(screen.right, 1280);
    ASSERT_EQ(screen.bottom, 1024);
    for (const auto& row : kRows) {
        SCOPED_TRACE(std::string(row.x) + " " + row.y + " " + row.width);
        const ScratchFolder folder = FolderWithScripture();
        Program program = StartAt(folder, row.x, row.y, row.width, row.height);
        const RECT place = RectOnScreen(program.frame);
        RECT seen{};
        IntersectRect(&seen, &place, &screen);
        EXPECT_TRUE(EqualRect(&seen, &place)) << place.left << "," << place.top << "," << place.right;
        EXPECT_GT(seen.right - seen.left, 300);
        EXPECT_GT(seen.bottom - seen.top, 200);
        EXPECT_TRUE(IsRectEmpty(&row.place) || EqualRect(&place, &row.place)) << place.left << "," << place.top;
        EXPECT_EQ(CloseProgram(program), 0);
    }
}

TEST(FramePlace, IsBroughtInsideWhenTheScreenChanges) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {1000, 100, 1800, 700});
    const auto changeScreen = [&] {
        PostMessageA(program.frame, WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 1024));
        Settle(program);
        return RectOnScreen(program.frame);
    };
    const RECT moved = changeScreen();
    EXPECT_EQ(moved.left, 480);
    EXPECT_EQ(moved.top, 100);
    PostMessageA(program.frame, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    Settle(program);
    changeScreen();
    EXPECT_TRUE(IsIconic(program.frame));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(program.folder, "MISC", "XPos"), "480");
}
