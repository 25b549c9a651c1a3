// The panes move what is on the screen and paint only the rest. Whatever happens between, the picture must be that of a
// pane that is painted as a whole.

#include <gtest/gtest.h>

#include <random>

#include "resources/ids.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

namespace {

struct PixelsRow {
    const char* name;
    const char* inParagraphs;
    const char* italics;
    int width, height;  // of the frame
};

void PrintTo(const PixelsRow& row, std::ostream* out) {
    *out << row.name;
}

struct PanePixels : testing::TestWithParam<PixelsRow> {};

}  // namespace

static HWND ListOf(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
}

static Program ProgramOf(const PixelsRow& row) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "Paragraph Format", row.inParagraphs);
    WriteSetting(folder, "OPTIONS", "Italics", row.italics);
    WriteSetting(folder, "MISC", "ReadVerse", "14000");
    Program program = StartProgram(folder);
    PlaceFrame(program, {10, 10, 10 + row.width, 10 + row.height});
    return program;
}

// Compares the pane with what it is after the system has had all of it painted.
static void ExpectWholePaint(const Program& program, HWND pane, const std::string& when) {
    const Picture shown = PictureOfClient(pane);
    RedrawWindow(pane, nullptr, nullptr, RDW_INVALIDATE);
    Settle(program);
    const Picture whole = PictureOfClient(pane);
    const RECT differing = DifferingArea(shown, whole);
    EXPECT_TRUE(IsRectEmpty(&differing)) << when << ": " << differing.left << ", " << differing.top << " to "
                                         << differing.right << ", " << differing.bottom;
    EXPECT_GT(CountColors(whole, {0, 0, whole.width, whole.height}), 1);
}

static void PostSteps(HWND pane, std::mt19937& random, int count) {
    static constexpr WPARAM kKeys[] = {VK_DOWN, VK_DOWN, VK_DOWN, VK_UP, VK_NEXT, VK_PRIOR};
    const WPARAM direction = random() % 2 == 0 ? VK_DOWN : VK_UP;
    for (int step = 0; step < count; ++step)
        PostMessageA(pane, WM_KEYDOWN, random() % 4 == 0 ? kKeys[random() % std::size(kKeys)] : direction, 0);
}

TEST_P(PanePixels, AreThoseOfAWholePaintAfterScrolling) {
    Program program = ProgramOf(GetParam());
    std::mt19937 random(11);
    SearchFor(program, {"lord"});
    for (const HWND pane : {PassageOf(program), ListOf(program)}) {
        for (int burst = 0; burst < 5; ++burst) {
            PostSteps(pane, random, 1 + static_cast<int>(random() % 9));
            Settle(program);
            ExpectWholePaint(program, pane, "burst " + std::to_string(burst));
        }
    }
    SavePicture(PictureOfWindow(program.frame), std::string("scrolled-") + GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Panes, PanePixels,
                         testing::Values(PixelsRow{"Lines", "0", "0", 1000, 800},
                                         PixelsRow{"Paragraphs", "1", "0", 1000, 800},
                                         PixelsRow{"Brackets", "1", "1", 620, 500}),
                         [](const auto& row) { return row.param.name; });

TEST(PanePixels, AreRightWithASelectionThatScrolls) {
    Program program = ProgramOf({"", "0", "0", 1000, 800});
    const HWND pane = PassageOf(program);
    Click(program, pane);
    Drag(program, pane, {60, 40}, {200, 130});
    ExpectWholePaint(program, pane, "selected");
    for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_UP, VK_DOWN, VK_UP, VK_UP, VK_UP}) {
        PostMessageA(pane, WM_KEYDOWN, key, 0);
        Settle(program);
        ExpectWholePaint(program, pane, "scrolled");
    }
    SavePicture(PictureOfWindow(program.frame), "scrolled-selection");
}

// A window in front of a part of the pane: what is behind it cannot be moved to where it is seen.
TEST(PanePixels, AreRightWhereAnotherWindowWas) {
    Program program = ProgramOf({"", "0", "0", 1000, 800});
    const HWND pane = PassageOf(program);
    const RECT place = RectOnScreen(pane);
    const HWND other = CreateWindowExA(WS_EX_TOPMOST | WS_EX_NOACTIVATE, "STATIC", "", WS_POPUP | WS_VISIBLE,
                                       place.left + 50, place.top + 60, 200, 90, nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(other);
    PostMessageA(pane, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(pane, WM_KEYDOWN, VK_DOWN, 0);
    Settle(program);
    SetWindowPos(other, nullptr, place.left + 120, place.top + 130, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    PostMessageA(pane, WM_KEYDOWN, VK_UP, 0);
    Settle(program);
    DestroyWindow(other);
    Settle(program);
    ExpectWholePaint(program, pane, "uncovered");
}

TEST(PanePixels, AreRightAfterTheSizeChanges) {
    Program program = ProgramOf({"", "1", "0", 1000, 800});
    const HWND pane = PassageOf(program);
    for (const int width : {900, 1001, 640, 1200}) {
        PostMessageA(pane, WM_KEYDOWN, VK_DOWN, 0);
        PlaceFrame(program, {10, 10, 10 + width, 10 + width * 3 / 4});
        PostMessageA(pane, WM_KEYDOWN, VK_DOWN, 0);
        Settle(program);
        ExpectWholePaint(program, pane, "width " + std::to_string(width));
    }
}
