// Starting and working in folders with letters beyond the code page, with long paths, and in read-only ones.

#include <memory>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/help_viewers.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/session_steps.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

enum class UsedAs { kCurrentFolder, kProgramsFolder, kApplicationData };

struct FolderUse {
    const char* name;
    ScratchFolder (*make)();
    UsedAs use;
};

// The program is in `home` and started in `elsewhere`, unless `odd` is used as one of them.
struct OddFolder : testing::TestWithParam<FolderUse> {
    ScratchFolder odd = GetParam().make();
    ScratchFolder elsewhere = EmptyFolder();
    ScratchFolder home = GetParam().use == UsedAs::kApplicationData ? EmptyFolder() : odd;
    ScratchFolder folder = odd;  // where notes and settings are
    std::unique_ptr<ReadOnlyFolder> readOnly;
    std::unique_ptr<WithApplicationData> applicationData;

    OddFolder() {
        CopyScriptureTo(home);
        CopyProgramTo(home);
        CopyHelpTo(home);
        if (GetParam().use != UsedAs::kApplicationData) return;
        folder.path /= "Versewell";
        std::filesystem::create_directory(folder.path);
        readOnly = std::make_unique<ReadOnlyFolder>(home.path);
        applicationData = std::make_unique<WithApplicationData>(odd.path);
    }

    Program Launch() const {
        if (GetParam().use == UsedAs::kCurrentFolder) return LaunchProgram(folder);
        return LaunchProgram(elsewhere, ProgramIn(home));
    }

    Program Start() const {
        Program program = Launch();
        WaitForFrame(program);
        program.folder = folder;
        return program;
    }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(
    Folders, OddFolder,
    testing::Values(FolderUse{"ForeignLettersCurrent", FolderWithForeignLetters, UsedAs::kCurrentFolder},
                    FolderUse{"ForeignLettersOfProgram", FolderWithForeignLetters, UsedAs::kProgramsFolder},
                    FolderUse{"ForeignLettersOfUser", FolderWithForeignLetters, UsedAs::kApplicationData},
                    FolderUse{"LongPathOfUser", FolderWithLongPath, UsedAs::kApplicationData}),
    [](const auto& row) { return std::string(row.param.name); });

static void CloseDialogs(const Program& program) {
    while (HasDialog(program)) Press(program, "Esc");
}

static void SaveNoteText(const Program& program, const char* text) {
    OpenNoteEditor(program);
    SendMessageA(NoteEditOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    ClickEditorButton(program, IDC_NOTE_SAVE);
    WaitForNoDialog(program);
}

TEST_P(OddFolder, KeepsNotesAndSettings) {
    {
        Program program = Start();
        EXPECT_FALSE(HasDialog(program));
        EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
        GoTo(program, "Joh 3:16");
        SaveNoteText(program, "so loved");
        SearchInVain(program, {"caf\xE9 \x80\x81\xB6"});
        CloseDialogs(program);
        SearchFor(program, {"grace"});
        EXPECT_EQ(StatusPart(program, 0), "159 verses, 170 occurrences");
        EXPECT_EQ(CloseProgram(program), 0);
    }
    EXPECT_THAT(FilesIn(elsewhere), IsEmpty());
    EXPECT_NE(ReadFile(folder, "My Notes.nmd").find("so loved"), std::string::npos);
    const std::string settings = ReadFile(folder, "Versewell.INI");
    EXPECT_THAT(settings, HasSubstr("PreviousSearch0=grace\r\n"));
    EXPECT_THAT(settings, HasSubstr("PreviousSearch1=caf\xE9 \x80\x81\xB6\r\n"));
    Program again = Start();
    EXPECT_EQ(StatusPart(again, 3), "John 3:16");
    EXPECT_EQ(TextOf(NoteViewOf(again)), "so loved");
    EXPECT_EQ(CloseProgram(again), 0);
    EXPECT_EQ(ReadFile(folder, "Versewell.INI"), settings);
}

TEST_P(OddFolder, KeepsBackupsAndFindsSets) {
    WriteNoteSet(folder, "First", {{0, "in the beginning"}});
    Program program = Start();
    EXPECT_THAT(NoteSetNames(program), ElementsAre("First"));
    SaveNoteText(program, "changed");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_NE(ReadFile(folder, "First.nmd").find("changed"), std::string::npos);
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder.path / "backup" / "First 20*.nmd").c_str(), &found);
    ASSERT_NE(search, INVALID_HANDLE_VALUE);
    FindClose(search);
}

TEST_P(OddFolder, OpensTheHelp) {
    Program program = Start();
    {
        const UniqueListeningViewer viewer = ListenAsViewer();
        Press(program, "F1");
        ASSERT_EQ(TakeRequests(*viewer).size(), 1u);
    }
    const WithoutViewer without;
    const WritingBrowser browser(elsewhere);
    Command(program, IDM_HELP_PREFACE);
    WaitUntil(program, "the page in the browser",
              [&] { return ReadFile(elsewhere, "pages.txt").find("\\ID_Preface.html") != std::string::npos; });
}

TEST_P(OddFolder, IsUsedByOneCopyAtATime) {
    Program first = Start();
    Program second = Launch();
    EXPECT_EQ(WaitForExit(second), 0);
    EXPECT_TRUE(IsRunning(first));
}

static void NameSet(const Program& program, int command, const char* title, const char* name) {
    Command(program, command);
    WaitForDialog(program, title);
    Press(program, "Ctrl+a");
    Type(program, name);
    Press(program, "Enter");
    WaitForNoDialog(program);
}

static void Answer(const Program& program, const char* title, const char* key) {
    WaitForDialog(program, title);
    Press(program, key);
}

TEST_P(OddFolder, HoldsAllThatBelongsToNotes) {
    const std::string copy = "First.sync-conflict-20240501-120000-ABCDEFG";
    WriteNoteSet(folder, "First", {{0, "first"}});
    WriteNoteSet(folder, copy, {{0, "first"}, {5, "elsewhere"}});
    WriteNoteSet(folder, "Readings", {{0, "for every day"}});
    WriteFile(folder, "Readings.dti", std::string(2976, '\0'));
    {
        Program program = Launch();
        Answer(program, "Copy of a Note Set", "y");
        Answer(program, "Merge Sets", "Enter");
        WaitForFrame(program);
        program.folder = folder;
        WaitForNoDialog(program);
        EXPECT_NE(ReadFile(folder, "First.nmd").find("elsewhere"), std::string::npos);
        EXPECT_TRUE(HasFile(folder, "backup/" + copy + " merged.nmd"));

        SaveNoteText(program, "changed");
        EXPECT_EQ(KeptNotes(folder, "First").at(0).text, "first");
        Command(program, IDM_EARLIER_NOTES);
        const HWND notes = WaitForDialog(program, "Earlier Notes for Genesis 1:1 in \"First\"");
        EXPECT_THAT(TextOf(notes, IDC_STATE_TEXT), HasSubstr("first"));
        Press(program, "Esc");
        WaitForNoDialog(program);
        Command(program, IDM_EARLIER_STATES);
        Answer(program, "Earlier States of Note Sets", "Alt+s");
        Answer(program, "Restore Set", "y");
        WaitForNoDialog(program);
        EXPECT_EQ(TextOf(NoteViewOf(program)), "first");

        NameSet(program, IDM_CREATE_NOTE_SET, "Create New Note Set", "Second");
        EXPECT_TRUE(HasFile(folder, "Second.nmd"));
        NameSet(program, IDM_RENAME_NOTE_SET, "Change name of note set First", "Third");
        EXPECT_TRUE(HasFile(folder, "Third.nmi"));
        EXPECT_FALSE(HasFile(folder, "First.nmi"));
        Command(program, IDM_DELETE_NOTE_SET);
        Answer(program, "Delete Note Set", "y");
        WaitForNoDialog(program);
        EXPECT_FALSE(HasFile(folder, "Third.nmd"));

        Command(program, IDM_THIS_MORNING);
        EXPECT_EQ(TextOf(NoteViewOf(program)), "for every day");
        OpenNoteEditor(program);
        Type(program, "Mine. ");
        WaitForSession(program, "Mine. for every day");
        Kill(program);
    }
    Program again = Launch();
    Answer(again, "Versewell97", "y");
    WaitForFrame(again);
    EXPECT_EQ(TextInEditor(again), "Mine. for every day");
}

TEST(ForeignLetters, LeadToNotesUnderADoubleByteCodePage) {
    StartOptions japanese;
    japanese.locale = "ja_JP.UTF-8";
    const ScratchFolder folder = FolderWithForeignLetters();
    CopyScriptureTo(folder);
    WriteNoteSet(folder, "First", {{0, "first"}});
    {
        Program program = StartProgram(folder, japanese);
        EXPECT_THAT(NoteSetNames(program), ElementsAre("First"));
        SaveNoteText(program, "changed");
        EXPECT_EQ(CloseProgram(program), 0);
    }
    EXPECT_EQ(KeptNotes(folder, "First").at(0).text, "first");
    EXPECT_NE(ReadFile(folder, "First.nmd").find("changed"), std::string::npos);
    EXPECT_TRUE(HasFile(folder, "Versewell.INI"));
    Program again = StartProgram(folder, japanese);
    EXPECT_EQ(TextOf(NoteViewOf(again)), "changed");
}

TEST(ForeignLetters, LeadToASavedRange) {
    const ScratchFolder folder = FolderWithForeignLetters();
    CopyScriptureTo(folder);
    WriteNoteSet(folder, "First", {{0, "of the first"}});
    Program program = StartProgram(folder);
    SaveRangeWithNotes(program, "Ge 1:1", L"\u05D0.txt");
    std::filesystem::rename(folder.path / L"\u05D0.txt", folder.path / "saved.txt");
    EXPECT_NE(ReadFile(folder, "saved.txt").find("of the first"), std::string::npos);
}

// A file name that the code page lacks could only be listed as another one.
TEST(ForeignFileNames, AreNotTakenForNoteSets) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Lukasz", {{0, "mine"}});
    for (const wchar_t* ending : {L".nmi", L".nmd"})
        std::filesystem::copy_file(folder.path / (std::wstring(L"Lukasz") + ending),
                                   folder.path / (std::wstring(L"\u0141ukasz \u05D0") + ending));
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Lukasz"));
}

// ---- Read-only folders ----------------------------------------------------------------------------------------------

// A start from a shortcut into the folder of a program that an administrator installed.
TEST(ReadOnlyFolders, CurrentOneIsNotTheWorkingFolder) {
    const ScratchFolder home = EmptyFolder();
    CopyProgramTo(home);
    const ScratchFolder current = FolderWithScripture();
    const ReadOnlyFolder readOnly(current.path);
    Program program = StartProgram(current, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
    SaveNoteText(program, "kept");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_NE(ReadFile(home, "My Notes.nmd").find("kept"), std::string::npos);
    EXPECT_TRUE(HasFile(home, "Versewell.INI"));
    EXPECT_EQ(FilesIn(current).size(), 5u);
}

TEST(ReadOnlyFolders, AreToldIfTheyHaveNotes) {
    const ScratchFolder home = EmptyFolder();
    CopyProgramTo(home);
    const ScratchFolder current = FolderWithScripture();
    WriteNoteSet(current, "Years", {{0, "of notes"}});
    const ReadOnlyFolder readOnly(current.path);
    const Program program = StartProgram(current, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
    EXPECT_THAT(StatusPart(program, 0),
                AllOf(testing::StartsWith("The notes in "), HasSubstr(current.path.filename().string()),
                      testing::EndsWith(" are not shown: no files can be created there.")));
}

TEST(ReadOnlyFolders, LeaveApplicationData) {
    const ScratchFolder home = FolderWithHelp();
    CopyProgramTo(home);
    const std::vector<std::string> files = FilesIn(home);
    const ScratchFolder data = EmptyFolder();
    const WithApplicationData applicationData(data.path);
    const ReadOnlyFolder readOnly(home.path);
    Program program = StartProgram(home, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    SaveNoteText(program, "kept");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(FilesIn(home), files);
    EXPECT_TRUE(HasFile(data, "Versewell/Versewell.INI"));
    EXPECT_NE(ReadFile(data, "Versewell/My Notes.nmd").find("kept"), std::string::npos);
}

// ---- Installed copies -----------------------------------------------------------------------------------------------

// Also if it is started in its own folder, or in one with notes. Without the mark, both would be used.
TEST(InstalledCopies, KeepNotesInApplicationData) {
    const ScratchFolder home = FolderWithHelp();
    CopyProgramTo(home);
    WriteFile(home, "installed.txt", "");
    const std::vector<std::string> files = FilesIn(home);
    const ScratchFolder data = EmptyFolder();
    const WithApplicationData applicationData(data.path);
    const ScratchFolder other = FolderWithScripture();
    WriteNoteSet(other, "Other", {{0, "elsewhere"}});
    const std::vector<std::string> filesOfOther = FilesIn(other);
    for (const ScratchFolder* start : {&home, &other}) {
        Program program = LaunchProgram(*start, ProgramIn(home));
        if (start == &home)
            PostMessageA(WaitForDialog(program, "Take Over Notes"), WM_COMMAND, IDNO, 0);  // no notes yet
        WaitForFrame(program);
        EXPECT_FALSE(HasDialog(program));
        EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
        SaveNoteText(program, "kept");
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_NE(ReadFile(data, "Versewell/My Notes.nmd").find("kept"), std::string::npos);
    }
    EXPECT_TRUE(HasFile(data, "Versewell/Versewell.INI"));
    EXPECT_EQ(FilesIn(home), files);
    EXPECT_EQ(FilesIn(other), filesOfOther);

    // As the system starts it again, and as someone may try it who thinks that any folder will do.
    StartOptions options = ProgramIn(home);
    options.arguments = "/folder \"" + (data.path / "Versewell").string() + "\"";
    {
        Program again = StartProgram(other, options);
        EXPECT_FALSE(HasDialog(again));
        EXPECT_EQ(CloseProgram(again), 0);
    }
    options.arguments = "/folder \"" + other.path.string() + "\"";
    const Program program = LaunchProgram(home, options);
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_THAT(MessageText(box), HasSubstr("because an installed copy keeps all notes in one folder."));
    PostMessageA(box, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(WaitForExit(program), 0);
}

namespace {

// Nothing can be written anywhere.
struct NowhereToWrite : testing::Test {
    ScratchFolder home = FolderWithScripture();
    WithApplicationData applicationData{home.path / "none" / "at all"};

    // Starts the program and confirms the only message.
    Program Start() {
        CopyProgramTo(home);
        files = FilesIn(home);
        readOnly = std::make_unique<ReadOnlyFolder>(home.path);
        Program program = LaunchProgram(home, ProgramIn(home));
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_THAT(MessageText(box), HasSubstr("notes and settings cannot be kept."));
        EXPECT_EQ(IconOf(box), "exclamation");
        SavePicture(PictureOfWindow(box), "nowhere-to-write");
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        WaitForFrame(program);
        return program;
    }

    std::vector<std::string> files;
    std::unique_ptr<ReadOnlyFolder> readOnly;
};

}  // namespace

TEST_F(NowhereToWrite, ThereIsOneMessageAndNothingIsChanged) {
    Program program = Start();
    EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:1.");
    ASSERT_TRUE(IsTicked(program, IDM_BIND_NOTES));
    for (int line = 0; line < 5; ++line) ScrollPassage(program, SB_PAGEDOWN);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for " + StatusPart(program, 3) + ".");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(FilesIn(home), files);
}

TEST_F(NowhereToWrite, NotesAreShownButNotEdited) {
    WriteNoteSet(home, "Mine", {{0, "in the beginning"}});
    Program program = Start();
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "in the beginning");
    for (const int command :
         {IDM_EDIT_NOTE, IDM_CREATE_NOTE_SET, IDM_RENAME_NOTE_SET, IDM_DELETE_NOTE_SET, IDM_IMPORT_NOTES}) {
        EXPECT_TRUE(IsGreyed(program, command)) << command;
        Command(program, command);
        EXPECT_FALSE(HasDialog(program)) << command;
    }
    Press(program, "Alt+e");
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(CloseProgram(program), 0);
}
