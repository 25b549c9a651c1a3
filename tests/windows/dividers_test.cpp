// The dividers between the panes, which the mouse drags.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/system_scaling.h"

using testing::HasSubstr;
using testing::Not;

// Where the tab controls are in the frame.
static RECT PlaceOf(const Program& program, int tabs) {
    return RectIn(Child(program.frame, {tabs}), program.frame);
}

static int WidthOfList(const Program& program) {
    return static_cast<int>(PlaceOf(program, IDC_LIST_TABS).right);
}

static int TopOfNotes(const Program& program) {
    return static_cast<int>(PlaceOf(program, IDC_NOTE_TABS).top);
}

// A point on each divider, just left of it or above it.
static POINT BesideList(const Program& program) {
    const RECT list = PlaceOf(program, IDC_LIST_TABS);
    return {list.right - 2, (list.top + list.bottom) / 2};
}

static POINT AboveNotes(const Program& program) {
    return {100, TopOfNotes(program) - 2};
}

static void DragBy(const Program& program, POINT from, LONG x, LONG y) {
    Drag(program, program.frame, from, {from.x + x, from.y + y});
}

static std::string MoreSettings(const Program& program) {
    return ReadFile(program.folder, "Versewell.more.ini");
}

// Each process has its own handles of the system's cursors, so they can only be compared with each other.
static HCURSOR CursorAt(const Program& program, POINT point) {
    PointAt(program.frame, point);
    Settle(program);
    CURSORINFO shown{};
    shown.cbSize = sizeof shown;
    GetCursorInfo(&shown);
    return shown.hCursor;
}

static void ExpectNothingStale(const Program& program) {
    ReleaseMouse(program);
    const Picture shown = PictureOfWindow(program.frame);
    RedrawWindow(program.frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    Settle(program);
    const RECT stale = DifferingArea(shown, PictureOfWindow(program.frame));
    EXPECT_TRUE(IsRectEmpty(&stale));
}

TEST(Dividers, AreDraggedAndKept) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    PlaceFrame(program, {20, 20, 1020, 720});
    const int width = WidthOfList(program), top = TopOfNotes(program);
    const HCURSOR arrow = CursorAt(program, {100, 200}), beside = CursorAt(program, BesideList(program)),
                  above = CursorAt(program, AboveNotes(program));
    EXPECT_NE(beside, arrow);
    EXPECT_NE(above, arrow);
    EXPECT_NE(above, beside);
    EXPECT_EQ(CursorAt(program, {20, 200}), arrow);
    Press(program, "Alt+2");
    const HWND focus = FocusOf(program);
    HoldMouse(program, program.frame, BesideList(program));
    MoveMouse(program, program.frame, {width - 102, 200});
    EXPECT_EQ(WidthOfList(program), width - 100) << "while the button is held";
    LetMouseGo(program);
    DragBy(program, AboveNotes(program), 0, 90);
    EXPECT_EQ(WidthOfList(program), width - 100);
    EXPECT_EQ(PlaceOf(program, IDC_PASSAGE_TABS).left, width - 100);
    EXPECT_EQ(TopOfNotes(program), top + 90);
    EXPECT_EQ(PlaceOf(program, IDC_LIST_TABS).bottom, top + 90);
    EXPECT_EQ(FocusOf(program), focus);
    ExpectNothingStale(program);
    PlaceFrame(program, {20, 20, 820, 720});
    const int share = WidthOfList(program);
    EXPECT_NEAR(share, (width - 100) * 0.8, 4);
    for (const char* key : {"F2", "F2", "F4", "F4"}) Press(program, key);
    EXPECT_EQ(WidthOfList(program), share);
    EXPECT_EQ(TopOfNotes(program), top + 90);
    Press(program, "Alt+e");
    EXPECT_EQ(RectIn(ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR), program.frame).top, top + 90);
    DragBy(program, AboveNotes(program), 0, -30);
    EXPECT_EQ(RectIn(ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR), program.frame).top, top + 60);
    Press(program, "Esc");
    CloseProgram(program);
    EXPECT_THAT(MoreSettings(program), HasSubstr("ListShare="));
    EXPECT_THAT(MoreSettings(program), HasSubstr("UpperShare="));

    Program again = StartProgram(folder);
    EXPECT_EQ(WidthOfList(again), share);
    EXPECT_EQ(TopOfNotes(again), top + 60);
    PlaceFrame(again, {20, 20, 1020, 720});
    DoubleClick(again, again.frame, BesideList(again));
    EXPECT_EQ(WidthOfList(again), width);
    EXPECT_EQ(TopOfNotes(again), top + 60);
    DoubleClick(again, again.frame, AboveNotes(again));
    EXPECT_EQ(TopOfNotes(again), top);
    CloseProgram(again);
    EXPECT_THAT(MoreSettings(again), Not(HasSubstr("Share=")));
}

TEST(Dividers, StopAtLeastSizesAndGoBackWithEsc) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {20, 20, 1020, 720});
    const int width = WidthOfList(program);
    HoldMouse(program, program.frame, BesideList(program));
    MoveMouse(program, program.frame, {300, 200});
    Press(program, "Esc");
    EXPECT_EQ(WidthOfList(program), width);
    MoveMouse(program, program.frame, {250, 200});
    LetMouseGo(program);
    EXPECT_EQ(WidthOfList(program), width);
    DragBy(program, BesideList(program), -2000, 0);
    EXPECT_EQ(WidthOfList(program), 120);
    DragBy(program, AboveNotes(program), 0, 2000);
    const RECT notes = PlaceOf(program, IDC_NOTE_TABS);
    EXPECT_EQ(notes.bottom - notes.top, 80);
    ExpectNothingStale(program);
    for (const RECT& place : {RECT{20, 20, 150, 90}, RECT{20, 20, 112, 47}, RECT{20, 20, 1020, 720}})
        PlaceFrame(program, place);
    EXPECT_EQ(WidthOfList(program), 120);
    Press(program, "F2");
    DragBy(program, {120, 200}, 100, 0);
    Press(program, "F2");
    EXPECT_EQ(WidthOfList(program), 120) << "a divider that is hidden with a pane";
}

TEST(Dividers, HaveTheirSharesOnAScaledScreen) {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "Versewell.more.ini", "[VIEW]\r\nListShare=30000\r\nUpperShare=1\r\n");
    const SystemScaling scaling(144);
    Program program = StartProgram(folder);
    PlaceFrame(program, {0, 0, 1200, 900});
    EXPECT_EQ(WidthOfList(program), ClientRectOf(program.frame).right * 3 / 10);
    const RECT list = PlaceOf(program, IDC_LIST_TABS);
    EXPECT_EQ(list.bottom - list.top, 120) << "the least height, scaled";
    DragBy(program, BesideList(program), -2000, 0);
    EXPECT_EQ(WidthOfList(program), 180);
}
