// The end of the user's session: logging off, shutting down, restarting for updates.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/session_steps.h"

static ScratchFolder FolderWithNote() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "The first."}});
    return folder;
}

static Program ProgramInEdit() {
    Program program = StartProgram(FolderWithNote());
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    return program;
}

TEST(EndOfSession, IsAllowedAtOnceAndTheNoteIsKept) {
    Program program = ProgramInEdit();
    EXPECT_EQ(SendMessageA(program.frame, WM_QUERYENDSESSION, 0, 0), TRUE);
    EXPECT_TRUE(HoldsSession(program.folder, "Mine. The first."));
    EXPECT_FALSE(HasDialog(program));
    SendMessageA(program.frame, WM_ENDSESSION, FALSE, 0);  // another program has cancelled it
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
    EXPECT_EQ(Setting(program.folder, "MISC", "ReadVerse"), "(none)");
}

TEST(EndOfSession, WritesTheSettings) {
    Program program = StartProgram(FolderWithNote());
    Command(program, IDM_VIEW_TOOLBAR);
    EXPECT_EQ(SendMessageA(program.frame, WM_QUERYENDSESSION, 0, 0), TRUE);
    EXPECT_EQ(Setting(program.folder, "VIEW", "ToolBar"), "(none)");
    SendMessageA(program.frame, WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(Setting(program.folder, "VIEW", "ToolBar"), "0");
    EXPECT_FALSE(HasFile(program.folder, kSessionFileName));
    Kill(program);
    program = StartProgram(program.folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_FALSE(IsShown(Child(program.frame, {IDC_TOOLBAR})));
}

TEST(EndOfSession, LeavesTheNoteForTheNextStart) {
    Program program = ProgramInEdit();
    EXPECT_EQ(SendMessageA(program.frame, WM_QUERYENDSESSION, 0, 0), TRUE);
    SendMessageA(program.frame, WM_ENDSESSION, TRUE, 0);
    Kill(program);
    EXPECT_EQ(Setting(program.folder, "VIEW", "ToolBar"), "1");
    program = StartAfterKill(program.folder, "y");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
}

// A message box is open, which must not stop the end.
TEST(EndOfSession, IsAllowedWhileAQuestionIsOpen) {
    Program program = ProgramInEdit();
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    WaitForDialog(program, "Versewell97");
    EXPECT_EQ(SendMessageA(program.frame, WM_QUERYENDSESSION, 0, 0), TRUE);
    SendMessageA(program.frame, WM_ENDSESSION, TRUE, 0);
    Kill(program);
    program = StartAfterKill(program.folder, "y");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
}

// The restart manager waits for the end of the program that it closes for an installer.
static void CloseForInstaller(const Program& program) {
    EXPECT_EQ(SendMessageA(program.frame, WM_QUERYENDSESSION, 0, ENDSESSION_CLOSEAPP), TRUE);
    EXPECT_TRUE(IsRunning(program));
    SendMessageA(program.frame, WM_ENDSESSION, FALSE, ENDSESSION_CLOSEAPP);  // another program cannot be closed
    EXPECT_TRUE(IsRunning(program));
    SendMessageA(program.frame, WM_ENDSESSION, TRUE, ENDSESSION_CLOSEAPP);
    EXPECT_EQ(WaitForExit(program), 0);
}

TEST(EndForAnInstaller, KeepsTheNoteAndTheSettings) {
    for (const bool asks : {false, true}) {
        Program program = ProgramInEdit();
        Command(program, IDM_VIEW_TOOLBAR);
        if (asks) {
            PostMessageA(program.frame, WM_CLOSE, 0, 0);
            WaitForDialog(program, "Versewell97");
        }
        CloseForInstaller(program);
        EXPECT_EQ(Setting(program.folder, "VIEW", "ToolBar"), "0");
        program = StartAfterKill(program.folder, "y");
        EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
    }
}

TEST(EndForAnInstaller, LeavesNothingToAskAbout) {
    Program program = StartProgram(FolderWithNote());
    CloseForInstaller(program);
    EXPECT_FALSE(HasFile(program.folder, kSessionFileName));
    program = StartProgram(program.folder);
    EXPECT_FALSE(HasDialog(program));
}

// Wine's own way: it sends the messages to every program with windows and then ends those that are still running.
TEST(EndOfSession, OfTheWholeSystemKeepsTheNoteAndTheSettings) {
    static constexpr std::chrono::seconds kLongPatience{90};
    Program program = ProgramInEdit();
    Command(program, IDM_VIEW_TOOLBAR);
    StartOptions ending;
    ending.programFile = "C:\\windows\\system32\\wineboot.exe";
    ending.arguments = "-e";
    const Program ender = LaunchProgram(program.folder, ending);
    WaitUntil(
        program, "the end of the session", [&] { return !IsRunning(program); }, kLongPatience);
    WaitUntil(
        ender, "the end of the ending program", [&] { return !IsRunning(ender); }, kLongPatience);
    EXPECT_EQ(Setting(program.folder, "VIEW", "ToolBar"), "0");
    program = StartAfterKill(program.folder, "y");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
}

// As the system starts the program after a restart for updates.
TEST(Restart, ReturnsToTheWorkingFolder) {
    const ScratchFolder folder = FolderWithNote();
    const ScratchFolder elsewhere = EmptyFolder();
    StartOptions restart;
    restart.arguments = "/folder \"" + folder.path.string() + "\"";
    Program program = StartProgram(elsewhere, restart);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "The first.");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_TRUE(HasFile(folder, "Versewell.INI"));
}
