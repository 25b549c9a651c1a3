// Who has the keyboard focus: clicks on tabs, the keys that walk from pane to pane, and keys and wheel without a pane.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;

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

// ---- Tabs -----------------------------------------------------------------------------------------------------------

TEST(Tabs, GiveTheFocusToTheirPaneWhenClicked) {
    Program program = StartWithLongNote();
    const HWND lists = TabsOf(program, IDC_LIST_TABS), notes = TabsOf(program, IDC_NOTE_TABS);
    const struct {
        HWND tabs;
        int tab;
        HWND pane;
    } kClicks[] = {
        {TabsOf(program, IDC_PASSAGE_TABS), 0, PassageOf(program)},
        {notes, 1, NoteViewOf(program)},
        {lists, 0, VerseListOf(program)},
        {lists, 1, ReferenceListOf(program)},
        {notes, 1, NoteViewOf(program)},  // the tab that is chosen already
        {notes, 0, NoteViewOf(program)},
        {lists, 1, ReferenceListOf(program)},
        {lists, 0, VerseListOf(program)},
    };
    for (const auto& [tabs, tab, pane] : kClicks) {
        ClickTab(program, tabs, tab);
        EXPECT_EQ(FocusOf(program), pane) << "tab " << tab << " of " << GetDlgCtrlID(tabs);
        EXPECT_EQ(SelectedTab(tabs), tab);
    }
}

TEST(Tabs, InSeveralRowsGiveTheFocusToTheNote) {
    const ScratchFolder folder = FolderWithScripture();
    for (int set = 0; set < 30; ++set)
        WriteNoteSet(folder, "A note set with a long name " + std::to_string(set), {{0, std::to_string(set)}});
    Program program = StartProgram(folder);
    const HWND tabs = TabsOf(program, IDC_NOTE_TABS);
    for (const int tab : {0, 29, 14}) {
        Press(program, "Alt+2");
        ClickTab(program, tabs, tab);
        EXPECT_EQ(SelectedTab(tabs), tab);
        EXPECT_EQ(FocusOf(program), NoteViewOf(program)) << tab;
    }
}

// A press beside its tabs, which only a message can reach: the mouse goes through to the frame there.
static void GiveFocus(const Program& program, HWND tabs) {
    PostMessageA(tabs, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(ClientRectOf(tabs).right - 20, 8));
    PostMessageA(tabs, WM_LBUTTONUP, 0, MAKELPARAM(ClientRectOf(tabs).right - 20, 8));
    Settle(program);
    ASSERT_EQ(FocusOf(program), tabs);
}

TEST(Tabs, EscGoesToTheirPane) {
    Program program = StartProgram(FolderWithScripture());
    const std::pair<int, HWND> kTabs[] = {{IDC_LIST_TABS, VerseListOf(program)},
                                          {IDC_PASSAGE_TABS, PassageOf(program)},
                                          {IDC_NOTE_TABS, NoteViewOf(program)}};
    for (const auto& [id, pane] : kTabs) {
        const HWND tabs = TabsOf(program, id);
        GiveFocus(program, tabs);
        Press(program, "Esc");
        EXPECT_EQ(FocusOf(program), pane) << id;
    }
}

// ---- Walking --------------------------------------------------------------------------------------------------------

static std::vector<HWND> FocusAfter(const Program& program, const char* keys, int times) {
    std::vector<HWND> panes;
    for (int time = 0; time < times; ++time) {
        Press(program, keys);
        panes.push_back(FocusOf(program));
    }
    return panes;
}

TEST(TabKey, WalksRoundThePanes) {
    Program program = StartProgram(FolderWithScripture());
    const HWND list = VerseListOf(program), passage = PassageOf(program), note = NoteViewOf(program);
    EXPECT_THAT(FocusAfter(program, "Tab", 4), ElementsAre(list, passage, note, list)) << "from the frame";
    EXPECT_THAT(FocusAfter(program, "Shift+Tab", 4), ElementsAre(note, passage, list, note));
    EXPECT_THAT(FocusAfter(program, "Ctrl+Tab", 1), ElementsAre(note));
    ClickTab(program, TabsOf(program, IDC_LIST_TABS), 1);
    const HWND references = ReferenceListOf(program);
    EXPECT_THAT(FocusAfter(program, "Tab", 3), ElementsAre(passage, note, references));
    EXPECT_THAT(FocusAfter(program, "Shift+Tab", 3), ElementsAre(note, passage, references));
    EXPECT_EQ(TextOf(note), "No note for Genesis 1:1.");
}

TEST(TabKey, LeavesOutHiddenPanes) {
    Program program = StartProgram(FolderWithScripture());
    const HWND list = VerseListOf(program), passage = PassageOf(program), note = NoteViewOf(program);
    Press(program, "F3");
    EXPECT_THAT(FocusAfter(program, "Tab", 3), ElementsAre(list, note, list));
    ShowOnly(program, {"F3", "F4"});
    EXPECT_THAT(FocusAfter(program, "Shift+Tab", 3), ElementsAre(note, passage, note)) << "from the frame";
    ShowOnly(program, {"F3"});
    EXPECT_THAT(FocusAfter(program, "Tab", 2), ElementsAre(passage, passage));
}

TEST(TabKey, WalksFromATabControlToItsPane) {
    Program program = StartProgram(FolderWithScripture());
    const HWND tabs = TabsOf(program, IDC_PASSAGE_TABS);
    GiveFocus(program, tabs);
    EXPECT_THAT(FocusAfter(program, "Tab", 1), ElementsAre(PassageOf(program)));
    GiveFocus(program, tabs);
    EXPECT_THAT(FocusAfter(program, "Shift+Tab", 1), ElementsAre(VerseListOf(program)));
}

TEST(TabKey, IsLeftToTheNoteEditor) {
    Program program = StartProgram(FolderWithScripture());
    OpenNoteEditor(program);
    const HWND edit = NoteEditOf(program);
    Type(program, "a");
    Press(program, "Tab");
    Type(program, "b");
    EXPECT_EQ(TextOf(edit), "a\tb");
    Press(program, "Shift+Tab");
    EXPECT_EQ(FocusOf(program), Child(NoteEditorOf(program), {IDC_NOTE_HELP}));
    Press(program, "Alt+2");  // outside the editor the walk leaves it out, because Tab could not leave it again
    EXPECT_THAT(FocusAfter(program, "Tab", 2), ElementsAre(VerseListOf(program), PassageOf(program)));
    Press(program, "Alt+3");
    EXPECT_EQ(FocusOf(program), edit);
}

// ---- Keys that lead to a pane ---------------------------------------------------------------------------------------

TEST(FocusKeys, GoToTheNote) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "Alt+3");
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    Press(program, "F4");
    EXPECT_NE(FocusOf(program), NoteViewOf(program));
    Press(program, "Alt+3");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES));
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    EXPECT_FALSE(IsInMenu(program));
}

TEST(FocusKeys, ArrowsShowAHiddenPane) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "F3");
    Press(program, "Alt+1");
    Press(program, "Right");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    Press(program, "F2");
    Press(program, "Left");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
}
