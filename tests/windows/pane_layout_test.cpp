// The layout of the panes for every combination of shown and hidden ones.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/search_steps.h"

namespace {

// The rules of the layout: if both upper panes are shown, each takes half of the width. If the notes are shown too, the
// upper row takes 0.55 of the height between toolbar and status bar. The rectangle of a hidden pane is empty.
struct Panes {
    RECT list;
    RECT passage;
    RECT notes;
};

}  // namespace

static Panes ExpectedPanes(const Program& program, bool list, bool passage, bool notes, bool toolbar) {
    const RECT client = ClientRectOf(program.frame);
    const RECT status = RectIn(Child(program.frame, {IDC_STATUS_BAR}), program.frame);
    const RECT tools = RectIn(Child(program.frame, {IDC_TOOLBAR}), program.frame);
    const LONG top = toolbar ? tools.bottom - tools.top + 2 : 0;
    const LONG height = client.bottom - (status.bottom - status.top) - top;
    const LONG row = static_cast<LONG>(height * 0.55);
    const LONG upper = notes ? row : height;
    const LONG middle = list && passage ? static_cast<LONG>(client.right * 0.5) : 0;
    const LONG notesTop = list || passage ? row : 0;
    Panes panes{};
    if (list) panes.list = {0, top, passage ? middle : client.right, top + upper};
    if (passage) panes.passage = {middle, top, client.right, top + upper};
    if (notes) panes.notes = {0, top + notesTop, client.right, top + height};
    return panes;
}

static std::string Describe(const RECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
           std::to_string(rect.bottom);
}

static void ExpectAt(const Program& program, int tabs, std::initializer_list<int> panes, const RECT& expected) {
    const HWND control = Child(program.frame, {tabs});
    EXPECT_EQ(IsShown(control), !IsRectEmpty(&expected)) << "tabs " << tabs;
    if (IsRectEmpty(&expected)) return;
    EXPECT_EQ(Describe(RectIn(control, program.frame)), Describe(expected)) << "tabs " << tabs;
    const RECT whole{0, 0, expected.right - expected.left, expected.bottom - expected.top};
    for (const int pane : panes)
        EXPECT_EQ(Describe(RectIn(Child(control, {pane}), control)), Describe(TabDisplayRect(program, control, whole)))
            << "pane " << pane;
}

static void ExpectPanes(const Program& program, const Panes& panes) {
    ExpectAt(program, IDC_LIST_TABS, {IDC_VERSE_LIST, IDC_REFERENCE_LIST}, panes.list);
    ExpectAt(program, IDC_PASSAGE_TABS, {IDC_PASSAGE}, panes.passage);
    ExpectAt(program, IDC_NOTE_TABS, {IDC_NOTES}, panes.notes);
    if (IsRectEmpty(&panes.notes)) return;
    const HWND notes = Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES});
    EXPECT_EQ(Describe(RectIn(Child(notes, {IDC_NOTE_VIEW}), notes)), Describe(ClientRectOf(notes)));
}

static void ExpectSwitch(const Program& program, int command, bool isShown) {
    EXPECT_EQ(IsTicked(program, command), isShown) << command;
    EXPECT_EQ((ToolState(program, command) & TBSTATE_CHECKED) != 0, isShown) << command;
    EXPECT_NE(ToolState(program, command) & TBSTATE_ENABLED, 0) << command;
}

namespace {

// Bits: 1 the list, 2 the passage, 4 the notes.
struct PaneCombination : testing::TestWithParam<int> {};

}  // namespace

TEST_P(PaneCombination, HasTheExpectedLayout) {
    const bool list = (GetParam() & 1) != 0;
    const bool passage = (GetParam() & 2) != 0;
    const bool notes = (GetParam() & 4) != 0;
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {20, 20, 1020, 720});
    if (!list) Press(program, "F2");
    if (!passage) Press(program, "F3");
    if (!notes) Press(program, "F4");
    ExpectSwitch(program, IDM_VIEW_LIST, list);
    ExpectSwitch(program, IDM_VIEW_PASSAGE, passage);
    ExpectSwitch(program, IDM_VIEW_NOTES, notes);
    ExpectPanes(program, ExpectedPanes(program, list, passage, notes, true));
    SavePicture(PictureOfWindow(program.frame), "panes-" + std::to_string(GetParam()));

    PlaceFrame(program, {20, 20, 821, 567});
    ExpectPanes(program, ExpectedPanes(program, list, passage, notes, true));

    Command(program, IDM_VIEW_TOOLBAR);
    EXPECT_FALSE(IsTicked(program, IDM_VIEW_TOOLBAR));
    ExpectPanes(program, ExpectedPanes(program, list, passage, notes, false));

    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "VIEW", "VerseListWindow"), list ? "1" : "0");
    EXPECT_EQ(Setting(folder, "VIEW", "ReadWindow"), passage ? "1" : "0");
    EXPECT_EQ(Setting(folder, "VIEW", "NotesWindow"), notes ? "1" : "0");
    EXPECT_EQ(Setting(folder, "VIEW", "ToolBar"), "0");

    Program again = StartProgram(folder);
    ExpectSwitch(again, IDM_VIEW_LIST, list);
    ExpectSwitch(again, IDM_VIEW_PASSAGE, passage);
    ExpectSwitch(again, IDM_VIEW_NOTES, notes);
    ExpectPanes(again, ExpectedPanes(again, list, passage, notes, false));
}

INSTANTIATE_TEST_SUITE_P(Panes, PaneCombination, testing::Range(0, 8));

TEST(PaneLayout, DividesTheStatusBar) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {20, 20, 1020, 720});
    const double width = ClientRectOf(Child(program.frame, {IDC_STATUS_BAR})).right;
    const std::vector<int> edges = StatusEdges(program);
    ASSERT_EQ(edges.size(), 5u);
    EXPECT_NEAR(edges[0], (0.4 * width - 1) * 0.57, 1);
    EXPECT_NEAR(edges[1], 0.45 * width - 1, 1);
    EXPECT_NEAR(edges[2], 0.55 * width, 1);
    EXPECT_NEAR(edges[3], 0.4 * width * 0.43 + 0.6 * width, 1);
    EXPECT_EQ(edges[4], -1);
}

TEST(PaneLayout, SurvivesTheSmallestSizes) {
    Program program = StartProgram(FolderWithScripture());
    for (const RECT& place : {RECT{20, 20, 150, 90}, RECT{20, 20, 112, 47}, RECT{0, 0, 1280, 1024}}) {
        PlaceFrame(program, place);
        EXPECT_TRUE(IsRunning(program));
    }
    PostMessageA(program.frame, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    Settle(program);
    PostMessageA(program.frame, WM_SYSCOMMAND, SC_RESTORE, 0);
    Settle(program);
    ExpectPanes(program, ExpectedPanes(program, true, true, true, true));
}

// What is on the screen after a resize is what painting the whole frame again would show.
TEST(PaneLayout, LeavesNothingStaleWhenResized) {
    Program program = StartProgram(FolderWithScripture());
    for (const char* alsoHidden : {"", "F2", "F4", "F3"}) {
        if (*alsoHidden != '\0') Press(program, alsoHidden);
        for (const RECT& place :
             {RECT{20, 20, 720, 520}, RECT{20, 20, 1020, 520}, RECT{20, 20, 1020, 760}, RECT{80, 60, 900, 700}}) {
            PlaceFrame(program, place);
            const Picture resized = PictureOfWindow(program.frame);
            RedrawWindow(program.frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
            Settle(program);
            const RECT stale = DifferingArea(resized, PictureOfWindow(program.frame));
            EXPECT_TRUE(IsRectEmpty(&stale)) << Describe(stale) << " at " << Describe(place) << " after " << alsoHidden;
        }
    }
}

TEST(PaneLayout, GivesAHiddenEditorItsPlaceWhenItIsShown) {
    Program program = StartProgram(FolderWithScripture());
    for (const RECT& place : {RECT{20, 20, 720, 520}, RECT{20, 20, 1020, 760}}) {
        PlaceFrame(program, place);
        Press(program, "Alt+e");
        const HWND editor = ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR);
        EXPECT_EQ(Describe(RectIn(editor, program.frame)),
                  Describe(ExpectedPanes(program, true, true, true, true).notes));
        const RECT text = RectIn(Child(editor, {IDC_NOTE_EDIT}), editor), client = ClientRectOf(editor);
        EXPECT_EQ(text.right, client.right);
        EXPECT_EQ(text.bottom, client.bottom);
        Press(program, "Esc");
        EXPECT_FALSE(IsShown(editor));
    }
}

TEST(PaneLayout, KeepsTheLinesOfAHiddenReferenceListThatIsResized) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    PlaceFrame(program, {20, 20, 720, 520});
    const HWND tabs = Child(program.frame, {IDC_LIST_TABS});
    ClickTab(program, tabs, 1);
    const HWND references = Child(tabs, {IDC_REFERENCE_LIST});
    const std::vector<std::string> lines = ListStrings(references);
    ASSERT_EQ(lines.size(), 159u);
    EXPECT_EQ(lines.front(), "Genesis 6:8");
    EXPECT_EQ(Describe(RectIn(references, program.frame)),
              Describe(RectIn(Child(tabs, {IDC_VERSE_LIST}), program.frame)));
}

TEST(PaneLayout, SwitchesTheListView) {
    Program program = StartProgram(FolderWithScripture());
    const HWND tabs = Child(program.frame, {IDC_LIST_TABS});
    ClickTab(program, tabs, 1);
    EXPECT_FALSE(IsShown(Child(tabs, {IDC_VERSE_LIST})));
    EXPECT_TRUE(IsShown(Child(tabs, {IDC_REFERENCE_LIST})));
    ClickTab(program, tabs, 0);
    EXPECT_TRUE(IsShown(Child(tabs, {IDC_VERSE_LIST})));
    EXPECT_FALSE(IsShown(Child(tabs, {IDC_REFERENCE_LIST})));
}
