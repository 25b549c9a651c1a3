// The dialog Go to Note for Verse.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;

static constexpr char kTitle[] = "Go to Note for Verse";

static Program ProgramWithNotes() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{57, "On the serpent."}, {26136, "On love."}});
    WriteSetting(folder, "MISC", "NoteVerse", "57");
    WriteSetting(folder, "MISC", "BindNotes", "0");
    return StartProgram(folder);
}

static HWND OpenDialog(const Program& program) {
    Press(program, "Alt+n");
    return WaitForDialog(program, kTitle);
}

TEST(GotoNote, ShowsTheNoteOfTheTypedVerse) {
    static constexpr struct {
        const char* typed;
        const char* verse;
        const char* note;
    } kRows[] = {
        {"joh 3:16", "John 3:16", "On love."},
        {"Genesis 3:2", "Genesis 3:2", "On the serpent."},
        {"re 22:21", "Revelation 22:21", "No note for Revelation 22:21."},
    };
    Program program = ProgramWithNotes();
    Command(program, IDM_FOCUS_PASSAGE);
    const std::string top = Top(program);
    for (const auto& [typed, verse, note] : kRows) {
        const HWND dialog = OpenDialog(program);
        EXPECT_EQ(TextOf(dialog, IDC_REFERENCE), StatusPart(program, 2)) << "it starts with the note's verse";
        Type(program, typed);
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, 2), verse);
        EXPECT_EQ(TextOf(NoteViewOf(program)), note);
        EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    }
    EXPECT_EQ(Top(program), top);
}

TEST(GotoNote, RejectsAnInvalidReference) {
    Program program = ProgramWithNotes();
    const HWND dialog = OpenDialog(program);
    SavePicture(PictureOfWindow(program.frame), "go-to-note");
    EXPECT_THAT(ButtonsOf(dialog), ElementsAre("OK", "Cancel", "&Help"));
    EXPECT_THAT(TabOrder(program, dialog), ElementsAre(IDC_REFERENCE, IDOK, IDCANCEL, IDC_HELP_BUTTON));
    SetDlgItemTextA(dialog, IDC_REFERENCE, "Xyz 1:1");
    Press(program, "Enter");
    EXPECT_EQ(MessageText(WaitForDialog(program, "Error")), "Unrecognized Refrence");  // (sic)
    Press(program, "Enter");
    EXPECT_EQ(WaitForDialog(program, kTitle), dialog) << "it stays";
    EXPECT_EQ(FocusOf(program), GetDlgItem(dialog, IDC_REFERENCE));
    Type(program, std::string(105, 'x'));
    EXPECT_EQ(TextOf(dialog, IDC_REFERENCE), std::string(99, 'x'));
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 3:2");
}

// The notes are shown and focused, no matter how the dialog is closed.
TEST(GotoNote, ShowsAndFocusesTheNotes) {
    Program program = ProgramWithNotes();
    for (const char* how : {"Esc", "Enter"}) {
        Press(program, "F4");
        Command(program, IDM_FOCUS_PASSAGE);
        ASSERT_FALSE(IsShown(NoteViewOf(program)));
        const HWND dialog = OpenDialog(program);
        SetDlgItemTextA(dialog, IDC_REFERENCE, "");
        Press(program, how);  // with an empty field, OK closes the dialog too
        WaitForNoDialog(program);
        EXPECT_TRUE(IsShown(NoteViewOf(program))) << how;
        EXPECT_EQ(FocusOf(program), NoteViewOf(program)) << how;
        EXPECT_EQ(StatusPart(program, 2), "Genesis 3:2") << how;
    }
}

TEST(GotoNote, HelpButtonAsksForHelp) {
    Program program = ProgramWithNotes();
    const HWND dialog = OpenDialog(program);
    Press(program, "Alt+h");
    WaitForDialog(program, "Help");
    Press(program, "Enter");
    EXPECT_EQ(WaitForDialog(program, kTitle), dialog);
}
