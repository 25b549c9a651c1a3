// The window and `vw` of the host on the same note sets at the same time. Neither sees which files the other has open.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::HasSubstr;

// ---- The console ----------------------------------------------------------------------------------------------------

// Saves the text of the file "text" as the note of a verse: its editor copies it.
static constexpr char kSave[] =
    "save() { VERSEWELL_DATA=$PWD EDITOR='cp text' \"$console\" notes edit --folder . --set Mine \"$1\" 2>>told; }\n";

// Saves without a pause until there is a file "stop"; now and then into Genesis 3:2, but not so often that the window's
// user, who gets both texts then, would never come to an end. Writes how often it saved.
static constexpr char kSaveOnAndOn[] =
    "i=0\n"
    "while [ ! -e stop ]; do\n"
    "  i=$((i + 1))\n"
    "  verse=\"Psalm 119:$((i % 150 + 1))\"\n"
    "  [ $((i % 50)) != 0 ] || verse='Gen 3:2'\n"
    "  echo \"Console $i.\" >text\n"
    "  save \"$verse\" || { echo \"failed at $i\" >>told; break; }\n"
    "done\n"
    "echo $i >saves.new && mv saves.new saves\n";

static void WriteScript(const ScratchFolder& folder, const std::string& lines) {
    const char* const console = std::getenv("VERSEWELL_CONSOLE");
    ASSERT_NE(console, nullptr);
    WriteFile(folder, "script", "console='" + std::string(console) + "'\n" + kSave + lines);
}

static void RunOnConsole(const ScratchFolder& folder, const std::string& lines) {
    WriteScript(folder, lines);
    RunOnHost(folder, "sh script");
}

// ---- The window -----------------------------------------------------------------------------------------------------

// Answers all boxes with Enter, and saves both texts of a note that was changed elsewhere.
static void SaveInWindow(const Program& program, const std::string& text) {
    static constexpr int kTries = 50;
    OpenNoteEditor(program);
    Type(program, text);
    for (int tries = 0; tries < kTries && IsShown(NoteEditorOf(program)); ++tries) {
        Press(program, "Ctrl+s");
        for (; HasDialog(program); Settle(program)) Press(program, "Enter");
    }
    EXPECT_FALSE(IsShown(NoteEditorOf(program))) << text;
}

static std::string AllTexts(const ScratchFolder& folder) {
    return ReadFile(folder, "Mine.nmd") + ReadFile(folder, "backup/Mine.nmh");
}

// How many of the saved texts are not there.
static int Missing(const std::string& texts, const std::string& begin, int saves) {
    int missing = 0;
    for (int save = 1; save <= saves; ++save)
        missing += texts.find(begin + std::to_string(save) + '.') == std::string::npos;
    return missing;
}

TEST(ConsoleAndWindow, SeeWhatTheOtherOneSaves) {
    Program program = StartProgram(FolderToEdit("Before."));
    RunOnConsole(program.folder, "echo 'From the console.' >text\nsave 'Gen 3:2'\n");
    SetForegroundWindow(program.frame);
    Press(program, "Alt+Up");
    Press(program, "Alt+Down");
    Settle(program);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "From the console.");
    SaveInWindow(program, "From the window. ");
    EXPECT_EQ(StoredEdit(program), "From the window. From the console.");
    RunOnConsole(program.folder,
                 "VERSEWELL_DATA=$PWD \"$console\" notes show --folder . --set Mine 'Gen 3:2' >shown\n");
    EXPECT_THAT(ReadFile(program.folder, "shown"), HasSubstr("From the window. From the console."));
    EXPECT_EQ(ReadFile(program.folder, "told"), "");
}

TEST(ConsoleAndWindow, LoseNoNoteWhenBothSaveAtOnce) {
    const int saves = IsLongRun() ? 500 : 8;
    Program program = StartProgram(FolderToEdit("Before."));
    const ScratchFolder& folder = program.folder;
    WriteScript(folder, kSaveOnAndOn);
    StartOnHost(folder, "\"Z:\\bin\\sh\" script");
    for (int save = 1; save <= saves; ++save) SaveInWindow(program, "Window " + std::to_string(save) + ". ");
    WriteFile(folder, "stop", "");
    WaitUntil(program, "the end of the console's last save", [&] { return HasFile(folder, "saves"); });
    EXPECT_THAT(ReadFile(folder, "told"), testing::Not(HasSubstr("failed")));  // it may tell of both texts of a note
    const int ofConsole = std::atoi(ReadFile(folder, "saves").c_str());
    EXPECT_GE(ofConsole, saves);
    const std::string texts = AllTexts(folder);
    EXPECT_EQ(Missing(texts, "Window ", saves), 0);
    EXPECT_EQ(Missing(texts, "Console ", ofConsole), 0);
    RecordProperty("console", ofConsole);
    EXPECT_FALSE(HasFile(folder, "Mine.nmd.temp"));
    EXPECT_EQ(CloseProgram(program), 0);
}
