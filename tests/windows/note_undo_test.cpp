// Undo, Redo and Select All in the note editor.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;

// What is in the editor after each Ctrl+Z, until there is nothing to undo.
static std::vector<std::string> TextsOfUndo(const Program& program) {
    std::vector<std::string> texts;
    while (!IsGreyed(program, IDM_UNDO) && texts.size() < 100) {
        Press(program, "Ctrl+z");
        texts.push_back(TextInEditor(program));
    }
    return texts;
}

// Waits as long as a user who thinks about the next words.
static void Pause(const Program& program) {
    static constexpr ULONGLONG kPause = 1600;
    const ULONGLONG start = GetTickCount64();
    WaitUntil(program, "the end of a pause", [&] { return GetTickCount64() - start > kPause; });
}

TEST(NoteUndo, TakesBackWordByWord) {
    Program program = ProgramInEditor("old");
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO)) << "what is opened cannot be undone";
    Press(program, "Ctrl+End");
    Type(program, " In the");
    Press(program, "Tab");
    Type(program, "beginning");
    Press(program, "Enter");
    Type(program, "God  created");
    EXPECT_EQ(TextInEditor(program), "old In the\tbeginning\r\nGod  created");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("old In the\tbeginning\r\nGod  ", "old In the\tbeginning\r\n",
                                                  "old In the\t", "old In ", "old ", "old"));
    for (const char* text : {"old ", "old In ", "old In the\t"}) {
        EXPECT_FALSE(IsGreyed(program, IDM_REDO));
        Press(program, "Ctrl+y");
        EXPECT_EQ(TextInEditor(program), text);
    }
    Type(program, "x");
    EXPECT_TRUE(IsGreyed(program, IDM_REDO));
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("old In the\t", "old In ", "old ", "old"));
}

TEST(NoteUndo, TakesBackWhatFollowsAPause) {
    Program program = ProgramInEditor("");
    Type(program, "begin");
    Pause(program);
    Type(program, "ning");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("begin", ""));
}

// Letters that are not ASCII belong to their word.
TEST(NoteUndo, TakesBackAWordWithAccents) {
    Program program = ProgramInEditor("");
    TypeWide(program, L"se\u00F1or \u00E9t\u00E9s");
    EXPECT_EQ(TextInEditor(program), "se\xF1or \xE9t\xE9s");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("se\xF1or ", ""));
}

TEST(NoteUndo, TakesBackEachPasteCutAndDeletion) {
    SetClipboardText("two words ");
    Program program = ProgramInEditor("");
    Type(program, "one");
    Press(program, "Ctrl+v");
    Type(program, "teh");
    for (const char* keys : {"Back", "Back"}) Press(program, keys);
    Type(program, "he");
    Press(program, "Ctrl+Home");
    for (const char* keys : {"Shift+Right", "Shift+Right", "Ctrl+x"}) Press(program, keys);
    for (const char* keys : {"Shift+Ctrl+End", "Delete"}) Press(program, keys);
    EXPECT_EQ(TextInEditor(program), "");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("etwo words the", "onetwo words the", "onetwo words t",
                                                  "onetwo words teh", "onetwo words ", "one", ""));
}

TEST(NoteUndo, TakesBackWhatWasTypedInOnePlace) {
    Program program = ProgramInEditor("");
    Type(program, "ab");
    Press(program, "Home");
    Type(program, "cd");
    Click(program, NoteEditOf(program), PointOfCharacter(program, NoteEditOf(program), 4));
    Type(program, "ef");
    EXPECT_EQ(TextInEditor(program), "cdabef");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("cdab", "ab", ""));
}

// Opens the menu Edit like a user, whose focus stays where it is, and returns the last three of its lines.
static std::vector<std::string> EndOfEditMenu(const Program& program) {
    Press(program, "Alt+s");
    Press(program, "Left");
    std::vector<std::string> lines = Described(OpenMenuLines(program));
    LeaveMenu(program);
    return {lines.end() - 3, lines.end()};
}

static std::vector<std::string> Lines(bool undo, bool redo, bool all) {
    const auto line = [](const char* text, bool enabled) { return std::string(text) + (enabled ? "" : " (greyed)"); };
    return {line("303 &Undo\tCtrl+Z", undo), line("304 Re&do\tCtrl+Y", redo), line("305 Select &All\tCtrl+A", all)};
}

TEST(NoteUndo, IsInTheMenuWhereItActs) {
    Program program = StartProgram(FolderToEdit(""));
    Command(program, IDM_FOCUS_PASSAGE);
    EXPECT_EQ(EndOfEditMenu(program), Lines(false, false, false));
    OpenNoteEditor(program);
    EXPECT_EQ(EndOfEditMenu(program), Lines(false, false, false)) << "there is no text yet";
    Type(program, "x");
    EXPECT_EQ(EndOfEditMenu(program), Lines(true, false, true));
    Press(program, "Back");
    EXPECT_EQ(EndOfEditMenu(program), Lines(true, false, false));
    Command(program, IDM_UNDO);
    EXPECT_EQ(TextInEditor(program), "x");
    EXPECT_EQ(EndOfEditMenu(program), Lines(true, true, true));
    Command(program, IDM_REDO);
    EXPECT_EQ(TextInEditor(program), "");
    Command(program, IDM_UNDO);
    Command(program, IDM_FOCUS_PASSAGE);
    EXPECT_EQ(EndOfEditMenu(program), Lines(false, false, false));
    Press(program, "Ctrl+z");
    Command(program, IDM_UNDO);
    EXPECT_EQ(TextInEditor(program), "x") << "the Passage has the focus";
    Click(program, NoteEditOf(program));
    EXPECT_EQ(EndOfEditMenu(program), Lines(true, true, true));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    OpenNoteEditor(program);
    EXPECT_EQ(EndOfEditMenu(program), Lines(false, false, false)) << "of another edit";
}

TEST(NoteUndo, SelectAllSelectsTheTextThatHasTheFocus) {
    Program program = StartProgram(FolderToEdit("one\r\ntwo"));
    Click(program, NoteViewOf(program));
    Press(program, "Ctrl+Home");
    EXPECT_EQ(EndOfEditMenu(program), Lines(false, false, true));
    for (const auto& act :
         {+[](const Program& p) { Press(p, "Ctrl+a"); }, +[](const Program& p) { Command(p, IDM_SELECT_ALL); }}) {
        Press(program, "Ctrl+Home");
        EXPECT_TRUE(IsGreyed(program, IDM_COPY));
        act(program);
        Press(program, "Ctrl+c");
        EXPECT_EQ(ClipboardText(), "one\r\ntwo");
        SetClipboardText("");
    }
    OpenNoteEditor(program);
    Press(program, "Ctrl+a");
    const TextSelection selection = RichSelection(program, NoteEditOf(program));
    EXPECT_EQ(selection.start, 0);
    EXPECT_EQ(selection.end, 8);
    Type(program, "x");
    EXPECT_EQ(TextInEditor(program), "x");
    EXPECT_THAT(TextsOfUndo(program), ElementsAre("one\r\ntwo"));
}

// Its keys are those of the fields of dialogs.
TEST(NoteUndo, KeysStillActInDialogs) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "Alt+w");
    const HWND dialog = WaitForDialog(program, "Word Search");
    Type(program, "grace");
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextOf(dialog, IDC_SEARCH_TEXT), "");
    Press(program, "Esc");
    WaitForNoDialog(program);
}
