// Effects of the keyboard focus in the Passage: caret, commands, Copy.

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"

static constexpr int kMoves[] = {IDM_PREVIOUS_CHAPTER, IDM_NEXT_CHAPTER, IDM_PREVIOUS_BOOK, IDM_NEXT_BOOK};

// Number of enabled commands among the four that move by chapter and book.
static int CountMoves(const Program& program) {
    int count = 0;
    for (const int command : kMoves) count += IsGreyed(program, command) ? 0 : 1;
    return count;
}

static GUITHREADINFO Carets(const Program& program) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(program.threadId, &state);
    return state;
}

static void ExpectNoCopy(const Program& program) {
    EXPECT_TRUE(IsGreyed(program, IDM_COPY));
    EXPECT_NE(ToolState(program, IDM_COPY) & TBSTATE_INDETERMINATE, 0);
}

TEST(PassageFocus, FirstClickFocusesWithoutSelecting) {
    Program program = StartProgram(FolderWithScripture());
    const HWND pane = PassageOf(program);
    EXPECT_EQ(FocusOf(program), program.frame);
    EXPECT_EQ(CountMoves(program), 0);
    const Picture before = PictureOfClient(pane);
    Click(program, pane, {60, 8});
    EXPECT_EQ(FocusOf(program), pane);
    EXPECT_EQ(CountMoves(program), 4);
    ExpectNoCopy(program);
    const RECT changed = DifferingArea(before, PictureOfClient(pane));
    EXPECT_LE(changed.right, 3) << "more than the caret has changed";
}

TEST(PassageFocus, ShowsACaretInTheFirstLine) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(Carets(program).hwndCaret, nullptr);
    Command(program, IDM_FOCUS_PASSAGE);
    const GUITHREADINFO shown = Carets(program);
    EXPECT_EQ(shown.hwndCaret, PassageOf(program));
    EXPECT_EQ(shown.rcCaret.left, 0);
    EXPECT_EQ(shown.rcCaret.top, 0);
    EXPECT_EQ(shown.rcCaret.right, 3);
    EXPECT_EQ(shown.rcCaret.bottom, LineHeightOf());
    Press(program, "PgDn");
    EXPECT_EQ(Carets(program).rcCaret.top, 0);
    Command(program, IDM_FOCUS_LIST);
    EXPECT_NE(Carets(program).hwndCaret, PassageOf(program));
}

TEST(PassageFocus, ShowsACompleteCaretWhenThePaneWasHidden) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "ReadWindow", "0");
    Program program = StartProgram(folder);
    Press(program, "Alt+2");
    EXPECT_EQ(Carets(program).hwndCaret, PassageOf(program));
    EXPECT_EQ(Carets(program).rcCaret.bottom, LineHeightOf());
}

TEST(PassageFocus, EnablesChapterAndBookCommands) {
    Program program = StartProgram(FolderWithScripture());
    const struct {
        const char* keys;
        int enabled;
    } kSteps[] = {{"Alt+2", 4}, {"Alt+1", 0}, {"Alt+2", 4}, {"Left", 0}, {"Ctrl+PgDn", 0}};
    for (const auto& [keys, enabled] : kSteps) {
        Press(program, keys);
        EXPECT_EQ(CountMoves(program), enabled) << keys;
        ExpectNoCopy(program);
    }
    EXPECT_EQ(Top(program), "Genesis 1:1") << "a greyed command has run";
    Click(program, NoteViewOf(program));
    EXPECT_EQ(CountMoves(program), 0);
}

TEST(PassageFocus, ClearsTheSelectionInTheNote) {
    Program program = StartProgram(FolderWithScripture());
    Click(program, NoteViewOf(program));
    SelectRich(program, NoteViewOf(program), {0, 7});
    EXPECT_FALSE(IsGreyed(program, IDM_COPY));
    EXPECT_EQ(ToolState(program, IDM_COPY) & TBSTATE_INDETERMINATE, 0);
    Click(program, PassageOf(program));
    ExpectNoCopy(program);
    SetClipboardText("before");
    Command(program, IDM_COPY);
    EXPECT_EQ(ClipboardText(), "before");
}

TEST(PassageFocus, MovesAwayWhenThePaneIsHidden) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_FOCUS_PASSAGE);
    Press(program, "F3");
    EXPECT_FALSE(IsShown(PassageOf(program)));
    EXPECT_NE(FocusOf(program), PassageOf(program));
    EXPECT_EQ(CountMoves(program), 0);
    Press(program, "Alt+2");
    EXPECT_TRUE(IsShown(PassageOf(program)));
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    EXPECT_EQ(CountMoves(program), 4);
}
