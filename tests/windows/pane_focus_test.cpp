// Keys and wheel while no pane has the focus.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static HWND TabsOf(const Program& program, int id) {
    return Child(program.frame, {id});
}

static int PositionOf(const Program& program, HWND window) {
    return VerticalScroll(program, window).position;
}

static std::string LongNote() {
    std::string note;
    for (int line = 1; line <= 200; ++line) note += "line " + std::to_string(line) + "\r\n";
    return note;
}

static Program StartWithLongNote() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, LongNote()}});
    WriteNoteSet(folder, "Other", {{0, "Another."}});
    return StartProgram(folder);
}

// Hides all panes, which leaves the focus to the frame, and shows those again that the keys name.
static void ShowOnly(const Program& program, std::initializer_list<const char*> keys) {
    for (const int command : {IDM_VIEW_LIST, IDM_VIEW_PASSAGE, IDM_VIEW_NOTES})
        if (IsTicked(program, command)) Command(program, command);
    for (const char* key : keys) Press(program, key);
    ASSERT_EQ(FocusOf(program), program.frame);
}

// ---- Keys and wheel of the frame ------------------------------------------------------------------------------------

TEST(FrameKeys, MoveThePassageAfterTheStart) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    Program program = StartProgram(folder);
    const auto after = [&](const char* key) {
        Press(program, key);
        return Thumb(program);
    };
    EXPECT_EQ(after("Down"), 116);
    EXPECT_EQ(after("Up"), 115);
    const int below = after("PgDn");
    EXPECT_GT(below, 116);
    EXPECT_LT(after("PgUp"), below - 1);
    const int last = Thumb(program);
    for (const char* other : {"Home", "End", "Left", "Right", "Space"}) EXPECT_EQ(after(other), last) << other;
    EXPECT_EQ(FocusOf(program), program.frame);
}

TEST(FrameKeys, MoveByChapterAndBook) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    Program program = StartProgram(folder);
    const struct {
        const char *keys, *verse;
    } kSteps[] = {{"Ctrl+PgDn", "Genesis 6:1"},
                  {"Ctrl+PgUp", "Genesis 5:1"},
                  {"Ctrl+End", "Exodus 1:1"},
                  {"Ctrl+Home", "Genesis 1:1"}};
    for (const auto& [keys, verse] : kSteps) {
        Press(program, keys);
        EXPECT_EQ(Top(program), verse) << keys;
        EXPECT_EQ(FocusOf(program), program.frame) << keys;
        EXPECT_TRUE(IsGreyed(program, IDM_NEXT_CHAPTER)) << "the Passage has no focus";
    }
}

TEST(FrameKeys, ScrollTheListIfThePassageIsHidden) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    ShowOnly(program, {"F2", "F4"});
    const HWND list = VerseListOf(program);
    const auto after = [&](const char* keys) {
        Press(program, keys);
        return PositionOf(program, list);
    };
    EXPECT_EQ(after("Down"), 1);
    EXPECT_EQ(after("Up"), 0);
    EXPECT_GT(after("PgDn"), 1);
    EXPECT_EQ(after("PgUp"), 0);
    EXPECT_EQ(after("Ctrl+End"), 158);
    EXPECT_EQ(after("Ctrl+Home"), 0);
    EXPECT_FALSE(IsShown(PassageOf(program)));
    EXPECT_EQ(FocusOf(program), program.frame);
}

TEST(FrameKeys, ScrollTheReferenceListWithoutMarkingLines) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    ClickTab(program, TabsOf(program, IDC_LIST_TABS), 1);
    ShowOnly(program, {"F2"});
    const HWND list = ReferenceListOf(program);
    Press(program, "Down");
    Press(program, "PgDn");
    EXPECT_GT(SendMessageA(list, LB_GETTOPINDEX, 0, 0), 1);
    Press(program, "Ctrl+Home");
    EXPECT_EQ(SendMessageA(list, LB_GETTOPINDEX, 0, 0), 0);
    EXPECT_EQ(SendMessageA(list, LB_GETSELCOUNT, 0, 0), 0);
    EXPECT_EQ(FocusOf(program), program.frame);
}

TEST(FrameKeys, ScrollTheNoteIfItIsAlone) {
    Program program = StartWithLongNote();
    ShowOnly(program, {"F4"});
    const HWND view = NoteViewOf(program);
    const auto after = [&](const char* keys) {
        Press(program, keys);
        return PositionOf(program, view);
    };
    const int line = after("Down");
    EXPECT_GT(line, 0);
    EXPECT_GT(after("PgDn"), line);
    const int end = after("Ctrl+End");
    EXPECT_LT(after("PgUp"), end);
    EXPECT_EQ(after("Ctrl+Home"), 0);
    EXPECT_EQ(RichSelection(program, view).end, 0) << "the caret stays";
    EXPECT_EQ(FocusOf(program), program.frame);
}

TEST(FrameKeys, DoNothingWithoutPanes) {
    Program program = StartProgram(FolderWithScripture());
    ShowOnly(program, {});
    for (const char* keys : {"Down", "PgDn", "Ctrl+PgDn", "Ctrl+End", "Tab", "Shift+Tab"}) Press(program, keys);
    Wheel(program, program.frame, -2);
    EXPECT_FALSE(IsShown(PassageOf(program)));
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(FocusOf(program), program.frame);
}

// Over the toolbar the wheel reaches the frame.
TEST(FrameWheel, ScrollsThePassageOrTheFirstPane) {
    Program program = StartWithLongNote();
    SearchFor(program, {"grace"});
    const HWND toolbar = TabsOf(program, IDC_TOOLBAR);
    Wheel(program, toolbar, -2);
    EXPECT_NE(Top(program), "Genesis 1:1");
    EXPECT_EQ(PositionOf(program, VerseListOf(program)), 0);
    Wheel(program, toolbar, 2);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    ShowOnly(program, {"F2"});
    Wheel(program, toolbar, -1);
    EXPECT_GT(PositionOf(program, VerseListOf(program)), 0);
    ShowOnly(program, {"F4"});
    Wheel(program, toolbar, -1);
    EXPECT_GT(PositionOf(program, NoteViewOf(program)), 0);
    EXPECT_EQ(Top(program), "Genesis 1:1");
}
