// Fonts of the three panes and the colour of key words.

#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

// Chooses a size in the open font dialog, as by its list.
static void ChooseSize(HWND dialog, const char* points) {
    const HWND sizes = Child(dialog, {cmb3});
    const LRESULT row =
        SendMessageA(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(points));
    ASSERT_GE(row, 0) << points << " points are not offered";
    SendMessageA(sizes, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_SELCHANGE), reinterpret_cast<LPARAM>(sizes));
}

static void AskForFont(const Program& program, int command, const char* points, WORD button) {
    PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
    const HWND dialog = WaitForDialog(program, "Font");
    ChooseSize(dialog, points);
    PostMessageA(dialog, WM_COMMAND, button, 0);
    WaitForNoDialog(program);
    Settle(program);
}

// 24 points are 32 pixels of the test's screen.
TEST(Fonts, AreChosenForEachPane) {
    const struct {
        int command;
        const char* key;
        const char* before;
    } kRows[] = {{IDM_LIST_FONT, "VerseListFontHeight", "16"},
                 {IDM_PASSAGE_FONT, "ReadWindowFontHeight", "16"},
                 {IDM_NOTES_FONT, "NoteFontHeight", "12"}};
    for (const auto& row : kRows) {
        Program program = StartProgram(FolderWithScripture());
        AskForFont(program, row.command, "24", IDOK);
        CloseProgram(program);
        for (const auto& other : kRows)
            EXPECT_EQ(Setting(program.folder, "OPTIONS", other.key), &other == &row ? "32" : other.before) << other.key;
    }
}

TEST(Fonts, OfThePassageTakesPlaceAtOnce) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_GOTO_BOOK + 2);
    AskForFont(program, IDM_PASSAGE_FONT, "24", IDCANCEL);
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ex 1:1 "}}}}), "");
    AskForFont(program, IDM_PASSAGE_FONT, "24", IDOK);
    const PaintedFont large{"Times New Roman", 32, 400};
    EXPECT_EQ(
        WrongLines(PassageOf(program), {{{{Style::kBold, " Ex 1:1 "}, {Style::kRegular, "\xB6 Now these "}}}}, large),
        "");
    EXPECT_EQ(Top(program), "Exodus 1:1");
}

TEST(Fonts, OfTheVerseListTakesPlaceAtOnce) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "Down");
    Command(program, IDM_FOCUS_PASSAGE);  // the caret would stand in the line
    AskForFont(program, IDM_LIST_FONT, "24", IDCANCEL);
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 19:19 "}}}}), "");
    AskForFont(program, IDM_LIST_FONT, "24", IDOK);
    const PaintedFont large{"Times New Roman", 32, 400};
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 19:19 "}, {Style::kRegular, "Behold "}}}}, large),
              "");
    EXPECT_EQ(StatusPart(program, 1), "Genesis 19:19");
}

TEST(Fonts, OfTheNotesTakesPlaceAtOnce) {
    Program program = StartProgram(FolderWithScripture());
    const Picture before = PictureOfClient(NoteViewOf(program));
    AskForFont(program, IDM_NOTES_FONT, "24", IDOK);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:1.");
    const RECT changed = DifferingArea(before, PictureOfClient(NoteViewOf(program)));
    EXPECT_GE(changed.bottom, 24) << "the letters have not grown";
}

TEST(HighlightColor, IsChosenAndShownAtOnce) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_WORD_SEARCH);
    SetDlgItemTextA(WaitForDialog(program, "Word Search"), IDC_SEARCH_TEXT, "grace");
    Press(program, "Enter");
    WaitForNoDialog(program);
    Settle(program);
    const HWND list = VerseListOf(program);
    const RECT all = ClientRectOf(list);
    ASSERT_EQ(CountPixels(PictureOfClient(list), all, 0xC00080), 0);

    Command(program, IDM_HIGHLIGHT_COLOR);
    const HWND dialog = WaitForDialog(program, "Color");
    for (const auto& [field, value] : {std::pair{706, "192"}, {707, "0"}, {708, "128"}})
        SetDlgItemTextA(dialog, field, value);
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitForNoDialog(program);
    Settle(program);
    EXPECT_GT(CountPixels(PictureOfClient(list), all, 0xC00080), 0);
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "KeyHighlightColor"), std::to_string(RGB(192, 0, 128)));
}

// The three modes of italics stand for the Verse List too.
TEST(Italics, AreShownInTheVerseListAtOnce) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_PHRASE_SEARCH);
    SetDlgItemTextA(WaitForDialog(program, "Phrase Search"), IDC_SEARCH_TEXT, "in the beginning");
    Press(program, "Enter");
    WaitForNoDialog(program);
    Command(program, IDM_FOCUS_PASSAGE);
    Picture before = PictureOfClient(VerseListOf(program));
    for (const int command : {IDM_ITALIC_BRACKETS, IDM_ITALIC_NORMAL, IDM_ITALIC_TEXT}) {
        Command(program, command);
        const Picture after = PictureOfClient(VerseListOf(program));
        const RECT changed = DifferingArea(before, after);
        EXPECT_GT(changed.right - changed.left, 0) << command;
        before = after;
    }
}
