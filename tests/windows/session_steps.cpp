#include "tests/windows/session_steps.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"

const char* const kContinueMine =
    "Versewell ended while you were writing the note for Genesis 1:1 in \"Mine\". Continue?";

bool HoldsSession(const ScratchFolder& folder, std::string_view text) {
    return ReadFile(folder, kSessionFileName).find(text) != std::string::npos;
}

void WaitForSession(const Program& program, std::string_view text) {
    WaitUntil(program, "\"" + std::string(text) + "\" in the session file",
              [&] { return HoldsSession(program.folder, text); });
}

void Kill(const Program& program) {
    TerminateProcess(program.process.get(), 9);
    WaitForExit(program);
}

ScratchFolder FolderOfKilledEdit() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "The first."}});
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    WaitForSession(program, "Mine. The first.");
    Kill(program);
    return folder;
}

Program StartAfterKill(const ScratchFolder& folder, const char* answer) {
    Program program = StartProgram(folder);
    EXPECT_EQ(MessageText(WaitForDialog(program, "Versewell97")), kContinueMine);
    Press(program, answer);
    WaitForNoDialog(program);
    return program;
}

Program StartOnWhatWasLeft(const ScratchFolder& folder) {
    Program program = LaunchProgram(folder);
    WaitUntil(program, "the start", [&] {
        bool isShown = false;
        for (const HWND window : TopLevelWindows(program)) {
            if (ClassOf(window) == "#32770") PostMessageA(window, WM_COMMAND, IDOK, 0);
            isShown |= ClassOf(window) == "Versewell97" && IsWindowVisible(window) && IsWindowEnabled(window);
        }
        return isShown;
    });
    WaitForFrame(program);
    return program;
}
