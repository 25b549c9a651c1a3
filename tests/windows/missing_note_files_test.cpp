// Files of note sets that are missing or cannot be read, at the start and while the program runs.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"

static HWND TabsOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS});
}

static std::string Shown(const Program& program) {
    Settle(program);
    return TextOf(NoteViewOf(program));
}

// The sets "First", which is opened, and "Second".
static ScratchFolder FolderWithTwoSets() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "First", {{0, "of the first"}});
    WriteNoteSet(folder, "Second", {{0, "of the second"}, {5, "fifth"}});
    WriteFile(folder, "Versewell.more.ini", "[NOTES]\r\nCurrentSet=First\r\n");
    return folder;
}

static Program ProgramAfterReport(const ScratchFolder& folder, const std::string& report, const char* icon) {
    Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    EXPECT_EQ(MessageText(box), report);
    EXPECT_EQ(IconOf(box), icon);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    EXPECT_EQ(Shown(program), "of the first");
    return program;
}

static int TabOf(const Program& program, const std::string& name) {
    const std::vector<std::string> names = NoteSetNames(program);
    return static_cast<int>(std::ranges::find(names, name) - names.begin());
}

static void ConfirmReadError(const Program& program) {
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box), "Error reading note file");
    Press(program, "Enter");
    WaitForNoDialog(program);
}

// The former note stays, as after any reading that fails.
static void ExpectNoNoteOfSecond(const Program& program) {
    ClickTab(program, TabsOf(program), TabOf(program, "Second"));
    ConfirmReadError(program);
    EXPECT_EQ(Shown(program), "of the first");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
    Press(program, "Alt+e");
    ConfirmReadError(program);
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
}

static void ExpectToldAtStart(const Program& program, const std::string& line) {
    WaitUntil(program, line, [&] { return StatusPart(program, 0) == line; });
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(Shown(program), "of the first");
}

TEST(MissingDataFile, IsToldAndIsNotEdited) {
    for (const bool isFolder : {false, true}) {
        SCOPED_TRACE(isFolder);
        const ScratchFolder folder = FolderWithTwoSets();
        std::filesystem::rename(folder.path / "Second.nmd", folder.path / "away");
        if (isFolder) std::filesystem::create_directory(folder.path / "Second.nmd");
        Program program = StartProgram(folder);
        ExpectToldAtStart(program, "Second.nmd is missing.");
        ExpectNoNoteOfSecond(program);
        SavePicture(PictureOfWindow(program.frame), "missing-data-file");
        if (isFolder) std::filesystem::remove(folder.path / "Second.nmd");
        std::filesystem::rename(folder.path / "away", folder.path / "Second.nmd");
        Press(program, "F10");
        EXPECT_EQ(Shown(program), "of the second");
        EXPECT_EQ(CloseProgram(program), 0);
    }
}

// The last state is the set's own.
TEST(MissingDataFile, IsShownAgainWhenTheProgramIsActivated) {
    Program program = StartProgram(FolderWithTwoSets());
    const auto data = program.folder.path / "Second.nmd", away = program.folder.path / "away";
    std::filesystem::rename(data, away);
    ClickTab(program, TabsOf(program), TabOf(program, "Second"));
    ConfirmReadError(program);
    EXPECT_EQ(Shown(program), "of the first");
    std::filesystem::rename(away, data);
    Press(program, "Alt+g");
    WaitForDialog(program, "Go To Verse");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(Shown(program), "of the second");
}

TEST(MissingDataFile, CanBeReplacedByAnEarlierState) {
    const ScratchFolder folder = FolderWithTwoSets();
    std::filesystem::create_directory(folder.path / "backup");
    std::filesystem::rename(folder.path / "Second.nmd", folder.path / "backup" / "Second 2024-05-01.nmd");
    Program program = StartProgram(folder);
    Command(program, IDM_EARLIER_STATES);
    WaitForDialog(program, "Earlier States of Note Sets");
    Press(program, "Alt+s");
    EXPECT_THAT(MessageText(WaitForDialog(program, "Restore Set")),
                testing::MatchesRegex("The data file .Second.nmd. is missing. Do you want the notes of .*2024.* in its "
                                      "place."))
        << "nothing is there that could be replaced or copied";
    Press(program, "y");
    WaitForNoDialog(program);
    ClickTab(program, TabsOf(program), TabOf(program, "Second"));
    EXPECT_EQ(Shown(program), "of the second");
    EXPECT_EQ(CloseProgram(program), 0);
}

// Starts the program while another one has the notes of "Second" open, and ends that when this was told.
static Program ProgramToldOfFileInUse(const ScratchFolder& folder) {
    const std::string path = (folder.path / "Second.nmd").string();
    const UniqueHandle held(CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_NE(held.get(), INVALID_HANDLE_VALUE);
    Program program = StartProgram(folder);
    ExpectToldAtStart(program, "Second.nmd cannot be opened.");
    ExpectNoNoteOfSecond(program);
    return program;
}

TEST(DataFileInUse, IsToldAndIsNotEdited) {
    Program program = ProgramToldOfFileInUse(FolderWithTwoSets());
    Press(program, "F10");
    EXPECT_EQ(Shown(program), "of the second");
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(DataFileInUse, IsToldAlsoIfItsIndexIsMissing) {
    const ScratchFolder folder = FolderWithTwoSets();
    std::filesystem::remove(folder.path / "Second.nmi");
    Program program = ProgramToldOfFileInUse(folder);
    ClickTab(program, TabsOf(program), TabOf(program, "First"));
    ClickTab(program, TabsOf(program), TabOf(program, "Second"));
    EXPECT_EQ(Shown(program), "of the second");
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(EmptyDataFile, IsToldAsDamaged) {
    const ScratchFolder folder = FolderWithTwoSets();
    WriteFile(folder, "Second.nmd", "");
    Program program = ProgramAfterReport(folder,
                                         "The data file \"Second.nmd\" is damaged: it should hold 31102 notes, but it "
                                         "has 0. It is left as it is, so that you can rescue what it holds: the set "
                                         "can be read, but no note can be saved in it.",
                                         "exclamation");
    ClickTab(program, TabsOf(program), TabOf(program, "Second"));
    EXPECT_EQ(Shown(program), "No note for Genesis 1:1.");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(ReadFile(folder, "Second.nmd"), "");
}

TEST(UnusableIndexFile, IsMadeAgain) {
    static constexpr struct {
        const char* why;
        void (*spoil)(const ScratchFolder& folder);
        const char* fault;
    } kRows[] = {
        {"missing", [](const ScratchFolder&) {}, " was missing."},
        {"empty", [](const ScratchFolder& folder) { WriteFile(folder, "Second.nmi", ""); },
         " did not match its notes."},
        {"a folder", [](const ScratchFolder& folder) { std::filesystem::create_directory(folder.path / "Second.nmi"); },
         " was missing."},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        const ScratchFolder folder = FolderWithTwoSets();
        const std::string index = ReadFile(folder, "Second.nmi");
        std::filesystem::remove(folder.path / "Second.nmi");
        row.spoil(folder);
        const bool isFolder = std::filesystem::is_directory(folder.path / "Second.nmi");
        Program program = ProgramAfterReport(
            folder,
            std::string("The index file of the note set \"Second\"") + row.fault +
                " It has been made again from the notes, which are all there." +
                (isFolder ? " It could not be written to the disk: this will be tried at the next start." : ""),
            "information");
        ClickTab(program, TabsOf(program), TabOf(program, "Second"));
        EXPECT_EQ(Shown(program), "of the second");
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_TRUE(isFolder || ReadFile(folder, "Second.nmi") == index);
    }
}

// ---- Files that go away while a note is edited ----------------------------------------------------------------------

static void MoveFiles(const ScratchFolder& folder, const char* from, const char* to) {
    for (const char* ending : {".nmd", ".nmi"})
        std::filesystem::rename(folder.path / (std::string(from) + ending), folder.path / (std::string(to) + ending));
}

static Program ProgramThatLosesItsFiles() {
    Program program = StartProgram(FolderWithTwoSets());
    OpenNoteEditor(program);
    Type(program, "New: ");
    MoveFiles(program.folder, "First", "Moved");
    return program;
}

static HWND SaveInVain(const Program& program) {
    ClickEditorButton(program, IDC_NOTE_SAVE);
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box),
              "There was an error opening the file \"First.nmd\". Please make sure this file is not being used by any "
              "other program.");
    return box;
}

TEST(FilesMovedAwayFromTheEditor, LeaveItsTextInItAfterCancel) {
    Program program = ProgramThatLosesItsFiles();
    SaveInVain(program);
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "New: of the first");
    MoveFiles(program.folder, "Moved", "First");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(Shown(program), "New: of the first");
}

TEST(FilesMovedAwayFromTheEditor, LeaveItsTextAmongTheEarlierNotes) {
    Program program = ProgramThatLosesItsFiles();
    const HWND box = SaveInVain(program);
    Press(program, "Enter");
    WaitUntil(program, "the next box", [&] { return !IsWindow(box); });
    for (const char* text : {"Failure saving note (file creation error)", "Failure writing. Disk may be full!"}) {
        const HWND failure = WaitForDialog(program, "Error");
        WaitUntil(program, text, [&] { return IsWindow(failure) && MessageText(failure) == text; });
        Press(program, "Enter");
        WaitUntil(program, "the box to close", [&] { return !IsWindow(failure); });
    }
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "The text is kept: see Notes, Earlier Notes for this Verse.");
    EXPECT_FALSE(HasFile(program.folder, "First.nmd"));
    MoveFiles(program.folder, "Moved", "First");
    Command(program, IDM_EARLIER_NOTES);
    EXPECT_TRUE(WaitForDialog(program, "Earlier Notes for Genesis 1:1 in \"First\"") != nullptr);
    Press(program, "Enter");  // the latest goes into the editor
    WaitForNoDialog(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "New: of the first");
}

// ---- Files that cannot be written -----------------------------------------------------------------------------------

TEST(MissingBackup, IsToldOncePerStart) {
    Program program = StartProgram(FolderWithTwoSets());
    WriteFile(program.folder, "backup", "in the place of the folder");
    OpenNoteEditor(program);
    Type(program, "New: ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box),
              "The note is saved. But before the first save of a day the note set \"First\" is copied into the folder "
              "\"backup\", and that was not possible: the disk may be full, or the folder cannot be written to. Each "
              "further save tries it again; if it fails, you are not told before the next start.");
    EXPECT_EQ(IconOf(box), "exclamation");
    SavePicture(PictureOfWindow(box), "missing-backup");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(Shown(program), "New: of the first");
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    OpenNoteEditor(program);
    Type(program, "Very ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(Shown(program), "Very New: of the first");
    RunOnHost(program.folder, "rm backup");
    OpenNoteEditor(program);
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_TRUE(HasFile(program.folder, "backup"));
    EXPECT_EQ(CloseProgram(program), 0);
}
