// Clicks in the reading panes that do more than select: with Shift, and double clicks.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/selection_steps.h"

using testing::EndsWith;
using testing::StartsWith;

// Lists John 11:35 and 36, one line each.
static Program ProgramWithWeeping() {
    const ScratchFolder folder = FolderWithScripture();
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1240"}, {"Height", "600"}})
        WriteSetting(folder, "MISC", key, value);
    Program program = StartProgram(folder);
    SetSearchRange(program, "Joh 11:35 - Joh 11:36");
    SearchFor(program, {"Jesus Jews", IDM_WORD_SEARCH, IDC_ANY_WORD});
    return program;
}

TEST(VerseListDoubleClick, ReadsTheContext) {
    Program program = ProgramWithWeeping();
    const HWND pane = VerseListOf(program);
    Press(program, "Alt+2");
    DoubleClick(program, pane, {30, LinesDown(1)});
    EXPECT_EQ(Top(program), "John 11:36") << "the first click only gave the focus";
    EXPECT_EQ(FocusOf(program), pane);
    DoubleClick(program, pane, {30, LinesDown(0)});
    EXPECT_EQ(Top(program), "John 11:35");
    Press(program, "F3");
    DoubleClick(program, pane, {30, LinesDown(1)});
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(Top(program), "John 11:36");
    Press(program, "Alt+2");
    Press(program, "Down");
    DoubleClick(program, pane, {30, LinesDown(5)});
    EXPECT_EQ(Top(program), "John 11:37") << "there is no entry";
}

TEST(VerseListDoubleClick, BeginsADragLikeAnyPress) {
    Program program = ProgramWithWeeping();
    const HWND pane = VerseListOf(program);
    const POINT label{20, LinesDown(0)};
    Click(program, pane, label);
    PostMessageA(pane, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(label.x, label.y));
    PostMessageA(pane, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(20, LinesDown(1)));
    PostMessageA(pane, WM_LBUTTONUP, 0, MAKELPARAM(20, LinesDown(1)));
    Settle(program);
    EXPECT_EQ(Copied(program), " Joh 11:35 Jesus wept. \r\n Joh 11:36 ");
    EXPECT_EQ(Top(program), "Genesis 1:1");
}

// All in one go, because the pointer's own movements can make Wine forget a key that only a program holds.
static void ShiftClick(const Program& program, HWND pane, POINT point) {
    INPUT shift{}, button{};
    shift.type = INPUT_KEYBOARD;
    shift.ki.wVk = VK_SHIFT;
    shift.ki.wScan = static_cast<WORD>(MapVirtualKeyA(VK_SHIFT, MAPVK_VK_TO_VSC));
    button.type = INPUT_MOUSE;
    button.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    INPUT events[] = {shift, button, button, shift};
    events[2].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    events[3].ki.dwFlags = KEYEVENTF_KEYUP;
    PointAt(pane, point);
    Settle(program);
    SendInput(static_cast<UINT>(std::size(events)), events, sizeof(INPUT));
    Settle(program);
}

TEST(ShiftClick, ExtendsTheSelectionInTheVerseList) {
    Program program = ProgramWithWeeping();
    const HWND pane = VerseListOf(program);
    const POINT first{20, LinesDown(0)}, second{20, LinesDown(1)};
    ShiftClick(program, pane, second);
    EXPECT_EQ(Copied(program), " Joh 11:36 ") << "without a selection it is a click";
    ShiftClick(program, pane, first);
    EXPECT_EQ(Copied(program), " Joh 11:35 Jesus wept. \r\n Joh 11:36 ");
    ShiftClick(program, pane, second);
    EXPECT_EQ(Copied(program), " Joh 11:36 ") << "the first click stays where the selection begins";
    ShiftClick(program, pane, first);
    ShiftClick(program, pane, {20, LinesDown(6)});
    EXPECT_EQ(Copied(program), " Joh 11:35 Jesus wept. \r\n Joh 11:36 ") << "there is no word";
    Click(program, pane, first);
    EXPECT_EQ(Copied(program), " Joh 11:35 ");
    Press(program, "Alt+2");
    ShiftClick(program, pane, second);
    EXPECT_FALSE(CanCopy(program)) << "the first click only gives the focus";
}

TEST(ShiftClick, ExtendsTheSelectionInThePassageAcrossItsScrolling) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ps 117:1");
    const HWND pane = PassageOf(program);
    Click(program, pane, {10, LinesDown(0)});
    EXPECT_EQ(Copied(program), " Ps 117:1 ");
    Press(program, "Down");
    ShiftClick(program, pane, {10, LinesDown(0)});
    EXPECT_THAT(Copied(program), StartsWith(" Ps 117:1 \xB6 O praise the LORD, all ye nations"));
    EXPECT_THAT(Copied(program), EndsWith("\r\n 2 "));
}
