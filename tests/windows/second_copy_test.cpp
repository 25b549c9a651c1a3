// Starting the program twice in one folder: the second copy activates the first one and exits.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/note_set_files.h"

// Starts another copy in the folder, and expects it to exit by itself.
static void ExpectGivesWay(const ScratchFolder& folder) {
    Program second = LaunchProgram(folder);
    ASSERT_EQ(WaitForSingleObject(second.process.get(), 10000), WAIT_OBJECT_0);
    DWORD exitCode = 1;
    GetExitCodeProcess(second.process.get(), &exitCode);
    EXPECT_EQ(exitCode, 0u);
}

static void WaitForForeground(const Program& program, HWND window) {
    WaitUntil(program, "its window to be in front", [&] { return GetForegroundWindow() == window; });
}

TEST(SecondCopy, BringsTheFirstToTheFrontAndExits) {
    Program first = StartProgram(FolderWithScripture());
    Program elsewhere = StartProgram(FolderWithScripture());  // in another folder it must start
    WaitForForeground(elsewhere, elsewhere.frame);
    ExpectGivesWay(first.folder);
    WaitForForeground(first, first.frame);

    ShowWindow(first.frame, SW_MINIMIZE);
    WaitUntil(first, "it to be minimized", [&] { return IsIconic(first.frame) != FALSE; });
    ExpectGivesWay(first.folder);
    WaitUntil(first, "it to be restored", [&] { return IsIconic(first.frame) == FALSE; });
    WaitForForeground(first, first.frame);

    EXPECT_EQ(CloseProgram(first), 0);
    Program next = StartProgram(first.folder);
    EXPECT_EQ(CloseProgram(next), 0);
    EXPECT_EQ(CloseProgram(elsewhere), 0);
}

TEST(SecondCopy, BringsADialogOfTheFirstToTheFront) {
    Program first = StartProgram(FolderWithScripture());
    Command(first, IDM_ABOUT);
    const HWND dialog = WaitForDialog(first, "About Versewell97");
    Program elsewhere = StartProgram(FolderWithScripture());
    WaitForForeground(elsewhere, elsewhere.frame);
    ExpectGivesWay(first.folder);
    WaitForForeground(first, dialog);
}

// What a start tells comes before its window can be shown.
TEST(SecondCopy, BringsAMessageOfTheStartToTheFront) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    WriteFile(folder, "Mine.nmd", "damaged");
    Program first = LaunchProgram(folder);
    const HWND box = WaitForDialog(first, "Note Sets");
    Program elsewhere = StartProgram(FolderWithScripture());
    SetForegroundWindow(elsewhere.frame);
    WaitForForeground(elsewhere, elsewhere.frame);
    ExpectGivesWay(folder);
    WaitForForeground(first, box);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForFrame(first);
    ExpectGivesWay(folder);
    WaitForForeground(first, first.frame);
}

// The lock on the folder must not outlive a killed program.
TEST(SecondCopy, StartsNormallyAfterTheFirstWasKilled) {
    Program first = StartProgram(FolderWithScripture());
    TerminateProcess(first.process.get(), 9);
    WaitForSingleObject(first.process.get(), 10000);
    Program next = StartProgram(first.folder);
    EXPECT_EQ(CloseProgram(next), 0);
}
