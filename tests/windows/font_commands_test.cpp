// Fonts of the three panes and the colour of key words.

#include <windows.h>

#include <commdlg.h>
#include <dlgs.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

// Chooses a size in the list of the open font dialog.
static void ChooseSize(HWND dialog, const char* points) {
    const HWND sizes = Child(dialog, {cmb3});
    const LRESULT row =
        SendMessageA(sizes, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(points));
    ASSERT_GE(row, 0) << points << " points are not offered";
    SendMessageA(sizes, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(cmb3, CBN_SELCHANGE), reinterpret_cast<LPARAM>(sizes));
}

// The selection in a list of the open font dialog: cmb1 is the face, cmb2 the style, cmb3 the size.
static std::string ChosenIn(HWND dialog, int list) {
    const HWND combo = Child(dialog, {list});
    const LRESULT row = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    return row < 0 ? "nothing" : ComboStrings(combo)[static_cast<std::size_t>(row)];
}

// The current choice in the open font dialog: "Times New Roman, Regular, 12".
static std::string FontOnOffer(HWND dialog) {
    return ChosenIn(dialog, cmb1) + ", " + ChosenIn(dialog, cmb2) + ", " + ChosenIn(dialog, cmb3);
}

static HWND OpenFontDialog(const Program& program, int command) {
    PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
    return WaitForDialog(program, "Font");
}

static void LeaveDialog(const Program& program, HWND dialog, WORD button) {
    PostMessageA(dialog, WM_COMMAND, button, 0);
    WaitForNoDialog(program);
    Settle(program);
}

static void AskForFont(const Program& program, int command, const char* points, WORD button) {
    const HWND dialog = OpenFontDialog(program, command);
    ChooseSize(dialog, points);
    LeaveDialog(program, dialog, button);
}

// On the screen of the tests (96 dpi) a height in points is three quarters of the height in pixels.
TEST(Fonts, AreChosenPerPaneAndSaved) {
    const struct {
        int command;
        const char* offered;
        const char* points;
        const char* key;
        const char* height;
    } kRows[] = {
        {IDM_LIST_FONT, "Times New Roman, Regular, 12", "18", "VerseListFontHeight", "24"},
        {IDM_PASSAGE_FONT, "Times New Roman, Regular, 12", "24", "ReadWindowFontHeight", "32"},
        {IDM_NOTES_FONT, "Courier New, Bold, 9", "12", "NoteFontHeight", "16"},
    };
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "NoteFontWeight", "700");
    Program program = StartProgram(folder);
    for (const auto& row : kRows) {
        const HWND dialog = OpenFontDialog(program, row.command);
        EXPECT_EQ(FontOnOffer(dialog), row.offered);
        ChooseSize(dialog, row.points);
        LeaveDialog(program, dialog, IDOK);
    }
    CloseProgram(program);
    for (const auto& row : kRows) EXPECT_EQ(Setting(folder, "OPTIONS", row.key), row.height) << row.key;
    EXPECT_EQ(Setting(folder, "OPTIONS", "NoteFontWeight"), "700");

    Program again = StartProgram(folder);
    const PaintedFont large{"Times New Roman", 32, 400};
    EXPECT_EQ(WrongLines(PassageOf(again), {{{{Style::kBold, " Ge 1:1 "}}}}, large), "");
    const HWND dialog = OpenFontDialog(again, IDM_PASSAGE_FONT);
    EXPECT_EQ(FontOnOffer(dialog), "Times New Roman, Regular, 24");
    ChooseSize(dialog, "8");
    LeaveDialog(again, dialog, IDCANCEL);
    EXPECT_EQ(WrongLines(PassageOf(again), {{{{Style::kBold, " Ge 1:1 "}}}}, large), "");
    CloseProgram(again);
    EXPECT_EQ(Setting(folder, "OPTIONS", "ReadWindowFontHeight"), "32");
}

// What the program asked of the system's font dialog: CF_ bits. Wine keeps them with the dialog's window.
static DWORD AskedOf(const Program& program, HWND dialog) {
    CHOOSEFONTA asked{};
    const HANDLE place = GetPropA(dialog, "__WINE_FONTDLGDATA_A");
    if (!ReadProcessMemory(program.process.get(), place, &asked, sizeof asked, nullptr))
        Fail(&program, "the font dialog does not tell what it was asked");
    return asked.Flags;
}

// Where Windows refuses the name and keeps its dialog open, Wine closes it with the font that was chosen last.
TEST(Fonts, AreNeverOnesThatDoNotExist) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenFontDialog(program, IDM_PASSAGE_FONT);
    EXPECT_TRUE(AskedOf(program, dialog) & CF_FORCEFONTEXIST);
    SetDlgItemTextA(dialog, cmb1, "");
    Type(program, "No Such Font");
    EXPECT_EQ(TextOf(dialog, cmb1), "No Such Font");
    LeaveDialog(program, dialog, IDOK);
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ge 1:1 "}}}}), "");
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "ReadWindowFontName"), "Times New Roman");
}

// As a file that was edited by hand may have them. They stay stored, without their sign, until a font is chosen.
TEST(Fonts, WithAHeightThatCannotBeReadHaveAUsualOne) {
    static constexpr PaintedFont kUsual{"Times New Roman", 16, 400};
    for (const std::string height : {"10000", "-10000", "2147483647", "1000", "3", "-1"}) {
        SCOPED_TRACE(height);
        const ScratchFolder folder = FolderWithScripture();
        for (const char* pane : {"ReadWindow", "VerseList", "Note"})
            WriteSetting(folder, "OPTIONS", std::string(pane) + "FontHeight", height);
        Program program = StartProgram(folder);
        SearchFor(program, {"grace"});
        Press(program, "Down");
        Command(program, IDM_FOCUS_PASSAGE);
        EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ge 1:1 "}}}}, kUsual), "");
        EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 19:19 "}}}}, kUsual), "");
        const Picture note = PictureOfClient(NoteViewOf(program));
        EXPECT_GT(CountPixels(note, {0, 0, note.width, 30}, 0x000000), 100);
        EXPECT_EQ(CountPixels(note, {0, 30, note.width, note.height}, 0x000000), 0);
        LeaveDialog(program, OpenFontDialog(program, IDM_PASSAGE_FONT), IDCANCEL);
        CloseProgram(program);
        const std::string written = height.starts_with('-') ? height.substr(1) : height;
        EXPECT_EQ(Setting(folder, "OPTIONS", "ReadWindowFontHeight"), written);
    }
}

TEST(Fonts, PassageFontChangesImmediately) {
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

TEST(Fonts, VerseListFontChangesImmediately) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "Down");
    Command(program, IDM_FOCUS_PASSAGE);  // otherwise the caret is in the line
    AskForFont(program, IDM_LIST_FONT, "24", IDCANCEL);
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 19:19 "}}}}), "");
    AskForFont(program, IDM_LIST_FONT, "24", IDOK);
    const PaintedFont large{"Times New Roman", 32, 400};
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 19:19 "}, {Style::kRegular, "Behold "}}}}, large),
              "");
    EXPECT_EQ(StatusPart(program, 1), "Genesis 19:19");
}

TEST(Fonts, NotesFontChangesImmediately) {
    Program program = StartProgram(FolderWithScripture());
    const Picture before = PictureOfClient(NoteViewOf(program));
    AskForFont(program, IDM_NOTES_FONT, "24", IDOK);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:1.");
    const RECT changed = DifferingArea(before, PictureOfClient(NoteViewOf(program)));
    EXPECT_GE(changed.bottom, 24) << "the letters have not grown";
}

static constexpr int kAddToCustomColors = 712;  // ids in the system's dialog: a button, and the custom colour squares
static constexpr int kCustomColors = 721;
static constexpr int kRedPart = 706, kGreenPart = 707, kBluePart = 708;

static HWND OpenColorDialog(const Program& program) {
    PostMessageA(program.frame, WM_COMMAND, IDM_HIGHLIGHT_COLOR, 0);
    const HWND dialog = WaitForDialog(program, "Color");
    Settle(program);
    return dialog;
}

static std::string ColorOnOffer(HWND dialog) {
    return TextOf(dialog, kRedPart) + " " + TextOf(dialog, kGreenPart) + " " + TextOf(dialog, kBluePart);
}

static void TypeColor(HWND dialog) {
    for (const auto& [field, value] : {std::pair{kRedPart, "192"}, {kGreenPart, "0"}, {kBluePart, "128"}})
        SetDlgItemTextA(dialog, field, value);
}

TEST(HighlightColor, ChangesImmediately) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_WORD_SEARCH);
    SetDlgItemTextA(WaitForDialog(program, "Word Search"), IDC_SEARCH_TEXT, "grace");
    Press(program, "Enter");
    WaitForNoDialog(program);
    Settle(program);
    const HWND list = VerseListOf(program);
    const RECT all = ClientRectOf(list);
    ASSERT_EQ(CountPixels(PictureOfClient(list), all, 0xC00080), 0);

    const HWND dialog = OpenColorDialog(program);
    TypeColor(dialog);
    LeaveDialog(program, dialog, IDOK);
    EXPECT_GT(CountPixels(PictureOfClient(list), all, 0xC00080), 0);
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "KeyHighlightColor"), std::to_string(RGB(192, 0, 128)));
}

TEST(HighlightColor, DialogShowsTheCurrentColorAndKeepsCustomColors) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(RGB(10, 20, 30)));
    Program program = StartProgram(folder);
    HWND dialog = OpenColorDialog(program);
    EXPECT_EQ(ColorOnOffer(dialog), "10 20 30");
    const RECT squares = RectIn(Child(dialog, {kCustomColors}), dialog);
    TypeColor(dialog);
    ASSERT_EQ(CountPixels(PictureOfClient(dialog), squares, 0xC00080), 0);
    SendMessageA(dialog, WM_COMMAND, kAddToCustomColors, 0);
    LeaveDialog(program, dialog, IDCANCEL);

    dialog = OpenColorDialog(program);
    EXPECT_EQ(ColorOnOffer(dialog), "10 20 30") << "Cancel has changed the colour";
    EXPECT_GT(CountPixels(PictureOfClient(dialog), squares, 0xC00080), 0);
    LeaveDialog(program, dialog, IDCANCEL);
    CloseProgram(program);
    EXPECT_EQ(Setting(folder, "OPTIONS", "KeyHighlightColor"), std::to_string(RGB(10, 20, 30)));
}

// The three italics modes apply to the Verse List too.
TEST(Italics, ModeChangesTheVerseListImmediately) {
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
