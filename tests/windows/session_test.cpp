// The session file: what is typed and set survives when the program is killed.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/session_steps.h"

static constexpr char kHistory[] = "backup/Mine.nmh";

static bool HasHistory(const ScratchFolder& folder, std::string_view text) {
    return ReadFile(folder, kHistory).find(text) != std::string::npos;
}

// ---- The note that was being written --------------------------------------------------------------------------------

TEST(Session, ContinuesAKilledEdit) {
    const ScratchFolder folder = FolderOfKilledEdit();
    Program program = StartAfterKill(folder, "y");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
    Kill(program);
    program = StartAfterKill(folder, "y");
    Press(program, "Ctrl+End");
    Type(program, " More.");
    WaitForSession(program, "Mine. The first. More.");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Mine. The first. More.");
    WaitUntil(program, "the note to leave the session file", [&] { return !HoldsSession(folder, "Mine. The"); });
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_FALSE(HasFile(folder, kSessionFileName));
    EXPECT_TRUE(ReadFile(folder, "Mine.nmd").starts_with("Mine. The first. More."));
}

TEST(Session, KeepsAnUnwantedTextAmongTheEarlierNotes) {
    const ScratchFolder folder = FolderOfKilledEdit();
    EXPECT_FALSE(HasHistory(folder, "Mine. The first."));
    Program program = StartAfterKill(folder, "n");
    EXPECT_TRUE(HasHistory(folder, "Mine. The first."));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "The first.");
    WaitUntil(program, "the note to leave the session file", [&] { return !HoldsSession(folder, "Mine. The"); });
    Kill(program);
    program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
}

// The text stays in the session file until it is stored elsewhere.
TEST(Session, OffersAnUnwantedTextAgainIfItCannotBeKept) {
    const ScratchFolder folder = FolderOfKilledEdit();
    WriteFile(folder, "backup", "a file where the folder should be");
    Program program = StartProgram(folder);
    WaitForDialog(program, "Versewell97");
    Press(program, "n");
    EXPECT_EQ(MessageText(WaitForDialog(program, "Versewell97")),
              "The text could not be stored elsewhere. It will be offered again at the next start.");
    Press(program, "Enter");
    WaitForNoDialog(program);
    Command(program, IDM_VIEW_TOOLBAR);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_TRUE(HoldsSession(folder, "Mine. The first."));
    std::filesystem::remove(folder.path / "backup");
    program = StartAfterKill(folder, "n");
    EXPECT_TRUE(HasHistory(folder, "Mine. The first."));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_FALSE(HasFile(folder, kSessionFileName));
}

TEST(Session, TellsWhereTheTextIsIfItsSetIsGone) {
    const ScratchFolder folder = FolderOfKilledEdit();
    for (const char* file : {"Mine.nmd", "Mine.nmi"}) std::filesystem::remove(folder.path / file);
    WriteNoteSet(folder, "Other");
    Program program = StartProgram(folder);
    EXPECT_EQ(MessageText(WaitForDialog(program, "Versewell97")),
              "Versewell ended while you were writing the note for Genesis 1:1 in \"Mine\". There is no such note set "
              "any more. The text is kept among the earlier notes of that name.");
    SavePicture(PictureOfWindow(ActiveWindowOf(program)), "session-set-gone");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(HasHistory(folder, "Mine. The first."));
}

// Killed between the save and the next writing of the session file.
TEST(Session, DoesNotOfferWhatWasSaved) {
    const ScratchFolder folder = FolderOfKilledEdit();
    WriteNoteSet(folder, "Mine", {{0, "Mine. The first."}});
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Mine. The first.");
}

TEST(Session, OffersTheTextWhenTheNoteHasChangedMeanwhile) {
    const ScratchFolder folder = FolderOfKilledEdit();
    WriteNoteSet(folder, "Mine", {{0, "Changed by another program."}});
    Program program = StartAfterKill(folder, "y");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
}

// ---- The settings ---------------------------------------------------------------------------------------------------

static bool HasToolbar(const Program& program) {
    return IsShown(Child(program.frame, {IDC_TOOLBAR}));
}

// The folder of a program that was killed after its toolbar had been hidden.
static ScratchFolder FolderWithoutToolbar() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    WriteSetting(folder, "VIEW", "ToolBar", "1");
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasFile(folder, kSessionFileName)) << "nothing has been changed";
    Command(program, IDM_VIEW_TOOLBAR);
    WaitUntil(program, "the session file", [&] { return HasFile(folder, kSessionFileName); });
    Kill(program);
    EXPECT_EQ(Setting(folder, "VIEW", "ToolBar"), "1");
    return folder;
}

TEST(Session, KeepsTheSettingsOfAKilledProgram) {
    const ScratchFolder folder = FolderWithoutToolbar();
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasToolbar(program));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "VIEW", "ToolBar"), "0");
    EXPECT_FALSE(HasFile(folder, kSessionFileName));
    EXPECT_FALSE(HasFile(folder, "Versewell.INI.temp"));
}

TEST(Session, LetsNewerSettingsHold) {
    const ScratchFolder folder = FolderWithoutToolbar();
    WriteSetting(folder, "VIEW", "ToolBar", "7");
    Program program = StartProgram(folder);
    EXPECT_TRUE(HasToolbar(program));
}

TEST(Session, KeepsADamagedFileAside) {
    const ScratchFolder folder = FolderWithoutToolbar();
    std::string damaged = ReadFile(folder, kSessionFileName);
    damaged.pop_back();
    WriteFile(folder, kSessionFileName, damaged);
    WriteFile(folder, "Versewell.session.damaged", "an older one");
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_TRUE(HasToolbar(program));
    EXPECT_EQ(ReadFile(folder, "Versewell.session.damaged"), damaged);
    EXPECT_FALSE(HasFile(folder, kSessionFileName));
}

// ---- When it is written ---------------------------------------------------------------------------------------------

TEST(Session, IsNotWrittenWithoutAChange) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    WaitForSession(program, "Mine. ");
    const std::filesystem::path file = folder.path / kSessionFileName;
    const auto written = std::filesystem::last_write_time(file);
    // Two seconds, in which the program is busy with other things.
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < 2000;) {
        MoveMouse(program, NoteEditOf(program), {static_cast<LONG>(GetTickCount64() % 50), 5});
        Press(program, "Left");
        Press(program, "Right");
    }
    EXPECT_EQ(std::filesystem::last_write_time(file), written);
}

// A message box has a message loop of its own, which may last for hours.
TEST(Session, IsWrittenBeforeAMessageBoxOrAMenuOpens) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "First");
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    WaitForDialog(program, "Versewell97");
    EXPECT_TRUE(HoldsSession(folder, "First"));
    Press(program, "Esc");
    WaitForNoDialog(program);
    Type(program, "Second");
    Press(program, "Alt+r");
    EXPECT_TRUE(IsInMenu(program));
    EXPECT_TRUE(HoldsSession(folder, "FirstSecond"));
    Press(program, "Esc");
    Press(program, "Esc");
    ASSERT_FALSE(IsInMenu(program));
    Type(program, "Third");
    Click(program, PassageOf(program), {20, 20}, MouseButton::Right);
    EXPECT_TRUE(IsInMenu(program));
    EXPECT_TRUE(HoldsSession(folder, "FirstSecondThird"));
}

// Like a folder that has become read-only: the program goes on, and writes when it can again.
TEST(Session, IsWrittenOnceThatIsPossibleAgain) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    const std::filesystem::path obstacle = folder.path / "Versewell.session.temp";
    std::filesystem::create_directory(obstacle);
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "First");
    SendMessageA(program.frame, WM_QUERYENDSESSION, 0, 0);  // writes at once
    EXPECT_FALSE(HasFile(folder, kSessionFileName));
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "First");
    std::filesystem::remove(obstacle);
    WaitForSession(program, "First");
}
