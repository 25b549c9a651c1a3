// Ctrl with plus, minus and the wheel: the letters of the panes made larger and smaller.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static constexpr char kFace[] = "Times New Roman";

static void TurnWithCtrl(const Program& program, HWND window, int delta) {
    const RECT client = ClientRectOf(window);
    POINT middle{client.right / 2, client.bottom / 2};
    ClientToScreen(window, &middle);
    PointAt(window, {client.right / 2, client.bottom / 2});
    PostMessageA(window, WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, delta), MAKELPARAM(middle.x, middle.y));
    Settle(program);
}

// The height of the control's letters: from one line to the next.
static LONG LineHeightIn(const Program& program, HWND richEdit) {
    return PointOfCharacter(program, richEdit, 5).y - PointOfCharacter(program, richEdit, 0).y;
}

TEST(Zoom, ChangesThePaneWithTheFocusAndIsKept) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "Ctrl+=");  // no pane has the focus yet
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ge 1:1 "}}}}, {kFace, 19, 400}), "");
    GoTo(program, "Ex 3:2");
    Command(program, IDM_ZOOM_IN);
    Press(program, "Ctrl+Shift+=");
    Press(program, "Ctrl+NumPlus");
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ex 3:2 "}}}}, {kFace, 27, 400}), "");
    EXPECT_EQ(Top(program), "Exodus 3:2");
    Press(program, "Ctrl+-");
    Press(program, "Ctrl+NumMinus");
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, " Ex 3:2 "}}}}, {kFace, 21, 400}), "");

    SearchFor(program, {"grace"});
    for (const char* key : {"Down", "Ctrl+-"}) Press(program, key);
    EXPECT_EQ(StatusPart(program, 1), "Genesis 19:19");
    EXPECT_EQ(Top(program), "Exodus 3:2");
    for (int step = 0; step < 9; ++step) Press(program, "Ctrl+-");
    Press(program, "Alt+3");
    Press(program, "Ctrl+=");
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "ReadWindowFontHeight"), "21");
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "VerseListFontHeight"), "11");
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "NoteFontHeight"), "13");
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "NoteFontName"), "Courier New");
}

TEST(Zoom, ByTheWheelChangesThePaneUnderTheMouse) {
    Program program = StartProgram(FolderToEdit("one\r\ntwo\r\n"));
    SearchFor(program, {"grace"});
    for (const char* key : {"Down", "Down"}) Press(program, key);
    const std::string entry = StatusPart(program, 1), top = Top(program);
    const LONG height = LineHeightIn(program, NoteViewOf(program));
    TurnWithCtrl(program, VerseListOf(program), 2 * WHEEL_DELTA);
    TurnWithCtrl(program, PassageOf(program), -WHEEL_DELTA);
    EXPECT_EQ(StatusPart(program, 1), entry);
    EXPECT_EQ(Top(program), top);
    EXPECT_EQ(LineHeightIn(program, NoteViewOf(program)), height);
    for (int part = 0; part < 5; ++part) TurnWithCtrl(program, NoteViewOf(program), WHEEL_DELTA / 4);
    const LONG larger = LineHeightIn(program, NoteViewOf(program));
    EXPECT_GT(larger, height);
    for (int part = 0; part < 3; ++part) TurnWithCtrl(program, NoteViewOf(program), WHEEL_DELTA / 4);
    EXPECT_GT(LineHeightIn(program, NoteViewOf(program)), larger) << "a step of eight quarters of a notch";
    EXPECT_EQ(FocusOf(program), VerseListOf(program));

    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    TurnWithCtrl(program, ReferenceListOf(program), -WHEEL_DELTA);
    EXPECT_EQ(Top(program), top) << "the letters are the system's";
    TurnWithCtrl(program, Child(program.frame, {IDC_TOOLBAR}), -WHEEL_DELTA);
    Press(program, "Ctrl+-");
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "VerseListFontHeight"), "21") << "the Reference List has no font";
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "ReadWindowFontHeight"), "15");
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "NoteFontHeight"), "15");
}

// The text at the top stays, also in a note that is scrolled.
TEST(Zoom, KeepsThePlaceInANote) {
    std::string note;
    for (int line = 0; line < 200; ++line) note += "line of the note " + std::to_string(line) + "\r\n";
    Program program = StartProgram(FolderToEdit(note));
    const HWND view = NoteViewOf(program);
    Press(program, "Alt+3");
    Wheel(program, view, -12);
    const auto first = [&] { return SendMessageA(view, EM_GETFIRSTVISIBLELINE, 0, 0); };
    const LRESULT top = first();
    EXPECT_GT(top, 20);
    Press(program, "Ctrl+=");
    EXPECT_EQ(first(), top);
    TurnWithCtrl(program, view, 3 * WHEEL_DELTA);
    EXPECT_EQ(first(), top);
    TurnWithCtrl(program, view, -5 * WHEEL_DELTA);
    EXPECT_EQ(first(), top);
}

// In dark panes the text gets its colour anew.
static void WorksInTheEditor(int darkPanes) {
    const ScratchFolder folder = FolderToEdit("old\r\n\r\n");
    WriteFile(folder, "Versewell.more.ini", "[OPTIONS]\r\nDarkPanes=" + std::to_string(darkPanes) + "\r\n");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    const LONG height = LineHeightIn(program, NoteEditOf(program));
    Press(program, "Ctrl+End");
    Type(program, "one two ");
    Press(program, "Ctrl+=");
    Type(program, "three");
    TurnWithCtrl(program, NoteEditOf(program), WHEEL_DELTA);
    EXPECT_GT(LineHeightIn(program, NoteEditOf(program)), height);
    EXPECT_EQ(TextInEditor(program), "old\r\n\r\none two three");
    std::vector<std::string> texts;
    while (!IsGreyed(program, IDM_UNDO) && texts.size() < 20) {
        Press(program, "Ctrl+z");
        texts.push_back(TextInEditor(program));
        if (texts.size() == 1) Press(program, "Ctrl+-");
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"old\r\n\r\none two ", "old\r\n\r\none ", "old\r\n\r\n"}));
    Press(program, "Ctrl+=");
    Press(program, "Ctrl+y");
    EXPECT_EQ(TextInEditor(program), "old\r\n\r\none ");
    Press(program, "Ctrl+s");
    EXPECT_EQ(StoredEdit(program), "old\r\n\r\none ");
}

TEST(Zoom, LeavesTypingCaretAndUndoInTheEditor) {
    WorksInTheEditor(0);
    WorksInTheEditor(1);
}
