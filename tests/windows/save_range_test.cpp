// Saving verses to text files: Save Range, with and without notes, and Save Verse List.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;

static void WaitUntilGone(const Program& program, HWND window) {
    WaitUntil(program, "a dialog to be closed", [&] { return !IsWindow(window); });
    Settle(program);
}

static HWND OpenSaveRange(const Program& program) {
    Command(program, IDM_SAVE_RANGE);
    return WaitForDialog(program, "Save Range");
}

static HWND OpenFileDialog(const Program& program, const char* range) {
    SetDlgItemTextA(OpenSaveRange(program), IDC_RANGE, range);
    Press(program, "Enter");
    return WaitForDialog(program, "Save As");
}

static std::string PathIn(const ScratchFolder& folder, const char* name) {
    return (folder.path / name).string();
}

// Types a path into the open file dialog and presses Enter.
static void GivePath(const Program& program, const std::string& path) {
    SendMessageA(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    Press(program, "Enter");
}

static void SaveRangeAs(const Program& program, const char* range, const char* name) {
    OpenFileDialog(program, range);
    GivePath(program, PathIn(program.folder, name));
    WaitForNoDialog(program);
}

static std::string Piece(const std::string& label, std::string_view reference) {
    return " " + label + " " + WithBlankAfterMark(TextAt(reference)) + "\r\n";
}

static const std::string kEnd(1, '\0');

// ---- The dialogs ----------------------------------------------------------------------------------------------------

TEST(SaveRange, HasTheExpectedControls) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Sermons.old");
    WriteNoteSet(folder, "Study");
    WriteSetting(folder, "MISC", "Note", "1");
    Program program = StartProgram(folder);
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
    GoTo(program, "Joh 3:16");
    const HWND dialog = OpenSaveRange(program);
    ExpectRangeWithNotesLook(program, dialog, "Save Range", "Joh 3:16 - ", "John 3:16, 1 verse", "dialog-save-range");
    ExpectMissingHelp(program, dialog);
    ExpectAccessKeys(program, dialog, {{"Alt+i", IDC_INCLUDE_NOTES}, {"Alt+s", IDC_NOTE_SET}, {"Alt+r", IDC_RANGE}});
    EXPECT_TRUE(IsChecked(dialog, IDC_INCLUDE_NOTES));
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_FALSE(IsChecked(OpenSaveRange(program), IDC_INCLUDE_NOTES));
}

static std::vector<std::string> FilterStrings(HWND dialog) {
    return ComboStrings(Child(dialog, {0x470}));
}

TEST(SaveRange, SuggestsTheRangeAsFileName) {
    Program program = StartProgram(FolderWithScripture());
    const HWND before = FocusOf(program);
    const HWND dialog = OpenFileDialog(program, "Ge 1 - 3");
    EXPECT_EQ(TextOf(FocusOf(program)), "Ge 1- 3");
    EXPECT_THAT(FilterStrings(dialog), ElementsAre("Text Files (*.TXT)", "All Files (*.*)"));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, 0x410))) << "the read-only check box";
    SavePicture(PictureOfWindow(dialog), "dialog-save-file");
    // Cancelling it closes Save Range too.
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_FALSE(HasFile(program.folder, "Ge 1- 3"));
    EXPECT_EQ(FocusOf(program), before);
}

TEST(SaveRange, SavesNothingWhenEmptyOrInvalid) {
    Program program = StartProgram(FolderWithScripture());
    const std::vector<std::string> files = FilesIn(program.folder);
    SetDlgItemTextA(OpenSaveRange(program), IDC_RANGE, "");
    Press(program, "Enter");
    WaitForNoDialog(program);
    const HWND dialog = OpenSaveRange(program);
    SetDlgItemTextA(dialog, IDC_RANGE, "Xyz 3");
    Press(program, "Enter");
    ExpectComplaint(program, "Error", "Unrecognized Refrence");  // (sic)
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_RANGE}));
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(FilesIn(program.folder), files);
}

// No file name can have the colon of the range.
TEST(SaveRange, SuggestsANameThatAFileCanHave) {
    Program program = StartProgram(FolderWithScripture());
    OpenFileDialog(program, "Jude 1:1 - 1:1");
    EXPECT_EQ(TextOf(FocusOf(program)), "Jude 1.1- 1.1");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(ReadFile(program.folder, "Jude 1.1- 1.1"), Piece("Jude 1:1", "Jude 1:1") + kEnd)
        << "in the current folder";
    OpenFileDialog(program, "Jude 1:1 / \\ * ? \"<>| - 1:2");  // what follows the numbers counts for nothing
    EXPECT_EQ(TextOf(FocusOf(program)), "Jude 1.1. . . . .... - 1.2");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(HasFile(program.folder, "Jude 1.1. . . . .... - 1.2"));
}

TEST(SaveRange, WaitsForTheEndOfTheRange) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_GOTO_BOOK + 40);
    for (const auto& [command, title, start] : {std::tuple{IDM_COPY_RANGE, "Copy Range", "Mt 1:1 - "},
                                                {IDM_SAVE_RANGE, "Save Range", "Mt 1:1 - "},
                                                {IDM_PRINT_RANGE, "Print Range", "Matthew 1:1 - "}}) {
        Command(program, command);
        const HWND dialog = WaitForDialog(program, title);
        EXPECT_EQ(TextOf(dialog, IDC_RANGE), start);
        EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_RANGE}));
        Type(program, "Mt 1:2");
        EXPECT_EQ(TextOf(dialog, IDC_RANGE), std::string(start) + "Mt 1:2");
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

// ---- What is written ------------------------------------------------------------------------------------------------

TEST(SaveRange, WritesVersesWithBracketsAndAZeroByte) {
    Program program = StartProgram(FolderWithScripture());
    ASSERT_NE(TextAt("Ge 1:30").find('['), std::string::npos);
    SaveRangeAs(program, "Ge 1:30 - Ge 2:1", "saved");  // no extension is added
    EXPECT_EQ(ReadFile(program.folder, "saved"),
              Piece("Ge 1:30", "Ge 1:30") + Piece("31", "Ge 1:31") + Piece("2:1", "Ge 2:1") + kEnd);
    SaveRangeAs(program, "Ge - Re", "bible.txt");
    const std::string bible = ReadFile(program.folder, "bible.txt");
    EXPECT_GT(bible.size(), 4000000u);
    const std::string end = Piece("21", "Re 22:21") + kEnd;
    EXPECT_EQ(bible.substr(bible.size() - end.size()), end);
}

TEST(SaveRange, AsksBeforeOverwriting) {
    Program program = StartProgram(FolderWithScripture());
    WriteFile(program.folder, "old.txt", std::string(5000, 'x'));
    const HWND dialog = OpenFileDialog(program, "Jude 1:1 - Jude 1:1");
    GivePath(program, PathIn(program.folder, "old.txt"));
    const HWND question = ActiveWindowOf(program);
    ASSERT_NE(question, dialog);
    Press(program, "Alt+n");
    WaitUntilGone(program, question);
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(ReadFile(program.folder, "old.txt"), std::string(5000, 'x'));
    Press(program, "Enter");
    Press(program, "Alt+y");
    WaitForNoDialog(program);
    EXPECT_EQ(ReadFile(program.folder, "old.txt"), Piece("Jude 1:1", "Jude 1:1") + kEnd);
}

static ScratchFolder FolderWithTwoSets() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "First", {{0, "first of all"}, {1, "unsaved"}});
    WriteNoteSet(folder, "Second", {{0, "in the\r\nbeginning"}, {2, "light"}, {31101, "the end"}});
    return folder;
}

static void IncludeNotesOf(HWND dialog, const char* set) {
    const HWND list = Child(dialog, {IDC_NOTE_SET});
    const LRESULT row = SendMessageA(list, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(set));
    ASSERT_GE(row, 0) << set;
    SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    CheckDlgButton(dialog, IDC_INCLUDE_NOTES, BST_CHECKED);
}

static void SaveWithNotes(const Program& program, const char* range, const char* set, const char* name) {
    const HWND dialog = OpenSaveRange(program);
    SetDlgItemTextA(dialog, IDC_RANGE, range);
    IncludeNotesOf(dialog, set);
    Press(program, "Enter");
    WaitForDialog(program, "Save As");
    GivePath(program, PathIn(program.folder, name));
}

TEST(SaveRange, WritesNotesAfterTheirVerses) {
    const ScratchFolder folder = FolderWithTwoSets();
    WriteSetting(folder, "FORMAT", "LineBreaks", "0");
    Program program = StartProgram(folder);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    ClickTab(program, tabs, NoteSetNames(program)[0] == "First" ? 0 : 1);
    const int tab = SelectedTab(tabs);
    const std::string shown = TextOf(NoteViewOf(program));
    ASSERT_EQ(shown, "first of all");

    SaveWithNotes(program, "Ge 1:1 - Ge 1:4", "Second", "noted.txt");
    WaitForNoDialog(program);
    const auto piece = [](const char* label, const char* reference) {
        const std::string whole = Piece(label, reference);
        return whole.substr(0, whole.size() - 2);  // without the line break, which is turned off
    };
    EXPECT_EQ(ReadFile(folder, "noted.txt"), piece("Ge 1:1", "Ge 1:1") + "\r\n\r\nin the\r\nbeginning\r\n\r\n" +
                                                 piece("2", "Ge 1:2") + piece("3", "Ge 1:3") + "\r\n\r\nlight\r\n\r\n" +
                                                 piece("4", "Ge 1:4") + kEnd);
    SaveWithNotes(program, "Re 22:21 - Re 22:21", "Second", "last.txt");
    WaitForNoDialog(program);
    EXPECT_EQ(ReadFile(folder, "last.txt"), piece("Re 22:21", "Re 22:21") + "\r\n\r\nthe end\r\n\r\n" + kEnd);

    EXPECT_EQ(SelectedTab(tabs), tab);
    EXPECT_EQ(TextOf(NoteViewOf(program)), shown);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
    Command(program, IDM_NEXT_NOTE);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "unsaved") << "of the previously current set";
}

TEST(SaveVerseList, WritesTheSameTextAsCopyWithBrackets) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_SAVE_VERSE_LIST);
    EXPECT_FALSE(HasDialog(program)) << "an empty list";
    SetSearchRange(program, "Ge 1:1 - Ge 1:3");
    SearchFor(program, {"god"});
    Command(program, IDM_SAVE_VERSE_LIST);
    WaitForDialog(program, "Save As");
    Press(program, "Esc");
    WaitForNoDialog(program);
    Command(program, IDM_SAVE_VERSE_LIST);
    const HWND dialog = WaitForDialog(program, "Save As");
    EXPECT_THAT(FilterStrings(dialog), ElementsAre("Text Files (*.TXT)", "All Files (*.*)"));
    GivePath(program, PathIn(program.folder, "list.txt"));
    WaitForNoDialog(program);
    EXPECT_EQ(ReadFile(program.folder, "list.txt"),
              Piece("Ge 1:1", "Ge 1:1") + Piece("Ge 1:2", "Ge 1:2") + Piece("Ge 1:3", "Ge 1:3") + kEnd);
}

// ---- Failures -------------------------------------------------------------------------------------------------------

// A file that this process has opened exclusively.
static UniqueHandle HeldFile(const ScratchFolder& folder, const char* name) {
    return UniqueHandle(
        CreateFileA(PathIn(folder, name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

// Gives the path of an existing file to the open Save As dialog and confirms overwriting.
static void GiveExistingPath(const Program& program, const std::string& path) {
    const HWND dialog = ActiveWindowOf(program);
    GivePath(program, path);
    if (IsWindow(dialog) && ActiveWindowOf(program) != dialog) Press(program, "Alt+y");
}

TEST(SaveRange, ReportsWhyWritingFailed) {
    Program program = StartProgram(FolderWithScripture());
    const UniqueHandle held = HeldFile(program.folder, "held.txt");
    OpenFileDialog(program, "Ge 1:1 - Ge 1:1");
    GiveExistingPath(program, PathIn(program.folder, "held.txt"));
    ExpectComplaint(program, "Save Error", "Could not open file for writing");
    EXPECT_FALSE(HasDialog(program));
    for (const char* range : {"Ge 1:1 - Ge 1:1", "Ge - Re"}) {
        OpenFileDialog(program, range);
        GiveExistingPath(program, Surroundings().fullDisk);
        ExpectComplaint(program, "Save Error", "Error in writing to file");
        EXPECT_FALSE(HasDialog(program));
    }
}

TEST(SaveRange, ReportsNotesThatCannotBeOpened) {
    Program program = StartProgram(FolderWithTwoSets());
    std::filesystem::remove(program.folder.path / "Second.nmd");
    SaveWithNotes(program, "Ge 1:1 - Ge 1:2", "Second", "noted.txt");
    ExpectComplaint(program, "Save Error", "Could not open notes file");
    EXPECT_FALSE(HasDialog(program));
    EXPECT_FALSE(HasFile(program.folder, "noted.txt"));
    SaveRangeAs(program, "Ge 1:2 - Ge 1:2", "noted2.txt");  // without notes it works
    EXPECT_EQ(ReadFile(program.folder, "noted2.txt"), Piece("Ge 1:2", "Ge 1:2") + kEnd);
}

TEST(SaveVerseList, ReportsAWriteError) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    const UniqueHandle held = HeldFile(program.folder, "held.txt");
    for (const std::string& path : {PathIn(program.folder, "held.txt"), Surroundings().fullDisk}) {
        Command(program, IDM_SAVE_VERSE_LIST);
        WaitForDialog(program, "Save As");
        GiveExistingPath(program, path);
        ExpectComplaint(program, "Save Error", "Error in writing to file");
        EXPECT_FALSE(HasDialog(program)) << path;
    }
}

// ---- Files that stay as they are ------------------------------------------------------------------------------------

namespace {

enum class Saving { kRange, kVerseList };

}  // namespace

static constexpr Saving kSavings[] = {Saving::kRange, Saving::kVerseList};

// Saves Jude 1:1, or the Verse List, to a path that may exist.
static void SaveTo(const Program& program, Saving saving, const std::filesystem::path& path) {
    if (saving == Saving::kRange) {
        OpenFileDialog(program, "Jude 1:1 - Jude 1:1");
    } else {
        Command(program, IDM_SAVE_VERSE_LIST);
        WaitForDialog(program, "Save As");
    }
    const HWND dialog = ActiveWindowOf(program);
    SendMessageW(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    Press(program, "Enter");
    if (IsWindow(dialog) && ActiveWindowOf(program) != dialog) Press(program, "Alt+y");
}

static void ListAVerse(Program& program) {
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
}

static std::filesystem::path ShortPathOf(const std::filesystem::path& path) {
    wchar_t text[MAX_PATH] = L"";
    GetShortPathNameW(path.c_str(), text, MAX_PATH);
    return text;
}

TEST(SaveTargets, AreNoFilesOfTheProgramsOwn) {
    const ScratchFolder folder = FolderWithTwoSets();
    const std::filesystem::path backup = folder.path / "backup";
    std::filesystem::create_directories(backup / "deeper");
    WriteFile(folder, "backup/First 2024-01-01.nmd", "kept");
    WriteFile(folder, "Versewell.INI", "[MISC]\r\nReadVerse=1\r\n");
    std::filesystem::create_hard_link(folder.path / "First.nmd", folder.path / "link.txt");
    std::vector<std::pair<std::string, std::string>> before;
    for (const char* name : {"First.nmd", "First.nmi", "Second.nmd", "Second.nmi", "_avtext.dat", "Versewell.INI",
                             "backup/First 2024-01-01.nmd"})
        before.emplace_back(name, ReadFile(folder, name));
    Program program = StartProgram(folder);
    ListAVerse(program);
    const auto expectRefusal = [&](Saving saving, const std::filesystem::path& path) {
        SCOPED_TRACE(path.string());
        SaveTo(program, saving, path);
        ExpectComplaint(program, "Save Error", "Could not open file for writing");
        EXPECT_FALSE(HasDialog(program));
    };
    for (const char* name : {"First.nmd", "SECOND.NMI", "backup\\..\\first.nmd", "First.nmd.temp", "new.nmd", "new.dti",
                             "Versewell.INI", "versewell.session", "_avtext.dat", "link.txt",
                             "backup\\First 2024-01-01.nmd", "backup\\letter.txt", "backup\\deeper\\letter.txt"})
        expectRefusal(Saving::kRange, folder.path / name);
    expectRefusal(Saving::kRange, ShortPathOf(folder.path / "First.nmd"));
    for (const char* name : {"First.nmd", "backup\\letter.txt", "new.nmi", "link.txt"})
        expectRefusal(Saving::kVerseList, folder.path / name);
    for (const auto& [name, bytes] : before) EXPECT_EQ(ReadFile(folder, name), bytes) << name;
    for (const char* name : {"First.nmd.temp", "new.nmd", "new.dti", "new.nmi"}) EXPECT_FALSE(HasFile(folder, name));
    EXPECT_EQ(FilesIn({backup, nullptr}).size(), 2u);

    // Such a name in another folder is the user's.
    const ScratchFolder elsewhere = EmptyFolder();
    SaveTo(program, Saving::kRange, elsewhere.path / "First.nmd");
    WaitForNoDialog(program);
    EXPECT_EQ(ReadFile(elsewhere, "First.nmd"), Piece("Jude 1:1", "Jude 1:1") + kEnd);
}

TEST(SaveTargets, MayHaveAnyLetters) {
    Program program = StartProgram(FolderWithScripture());
    ListAVerse(program);
    const ScratchFolder folder = FolderWithForeignLetters();
    for (const Saving saving : kSavings) {
        SaveTo(program, saving, folder.path / L"\u05D0\u0141.txt");
        WaitForNoDialog(program);
        EXPECT_TRUE(std::filesystem::exists(folder.path / L"\u05D0\u0141.txt"));
        std::filesystem::remove(folder.path / L"\u05D0\u0141.txt");
    }
}

static std::string RightsOf(const std::filesystem::path& path) {
    std::string rights(1024, '\0');
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), 1024, &size);
    rights.resize(size);
    return rights;
}

TEST(SaveTargets, KeepTheirAttributesAndRights) {
    Program program = StartProgram(FolderWithScripture());
    ListAVerse(program);
    WriteFile(program.folder, "plain.txt", "x");
    WriteFile(program.folder, "old.txt", "x");
    const std::filesystem::path file = program.folder.path / "old.txt";
    AllowAll(file, FILE_GENERIC_READ | FILE_GENERIC_WRITE | FILE_GENERIC_EXECUTE | DELETE | WRITE_DAC);
    const std::string rights = RightsOf(file);
    ASSERT_NE(rights, RightsOf(program.folder.path / "plain.txt"));
    for (const Saving saving : kSavings) {
        SaveTo(program, saving, file);
        WaitForNoDialog(program);
        EXPECT_EQ(RightsOf(file), rights);
    }
    EXPECT_NE(ReadFile(program.folder, "old.txt"), "x");
    for (const std::string& name : FilesIn(program.folder)) EXPECT_FALSE(name.ends_with(".tmp")) << name;
}

TEST(SaveTargets, StayWholeIfTheyCannotBeReplaced) {
    Program program = StartProgram(FolderWithScripture());
    ListAVerse(program);
    const ScratchFolder folder = EmptyFolder();
    WriteFile(folder, "old.txt", "old");
    const auto expect = [&](Saving saving) {
        SaveTo(program, saving, folder.path / "old.txt");
        ExpectComplaint(program, "Save Error",
                        saving == Saving::kRange ? "Could not open file for writing" : "Error in writing to file");
        EXPECT_EQ(ReadFile(folder, "old.txt"), "old");
        EXPECT_THAT(FilesIn(folder), ElementsAre("old.txt"));
    };
    SetFileAttributesW((folder.path / "old.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const Saving saving : kSavings) expect(saving);
    SetFileAttributesW((folder.path / "old.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
    const ReadOnlyFolder readOnly(folder.path);
    for (const Saving saving : kSavings) expect(saving);
}

TEST(SaveTargets, StayWholeIfNotesCannotBeRead) {
    Program program = StartProgram(FolderWithTwoSets());
    WriteFile(program.folder, "old.txt", "old");
    std::filesystem::remove(program.folder.path / "Second.nmd");
    const HWND dialog = OpenSaveRange(program);
    SetDlgItemTextA(dialog, IDC_RANGE, "Ge 1:1 - Ge 1:2");
    IncludeNotesOf(dialog, "Second");
    Press(program, "Enter");
    WaitForDialog(program, "Save As");
    GiveExistingPath(program, PathIn(program.folder, "old.txt"));
    ExpectComplaint(program, "Save Error", "Could not open notes file");
    EXPECT_EQ(ReadFile(program.folder, "old.txt"), "old");
}

TEST(SaveTargets, StayWholeIfTheProgramEndsWhileItWrites) {
    bool ended = false;
    for (unsigned last = 60; !ended; last += 60) {
        SCOPED_TRACE(last);
        Program program = StartProgram(FolderWithScripture());
        WriteFile(program.folder, "old.txt", "old");
        OpenFileDialog(program, "Ge - Re");
        const HWND dialog = ActiveWindowOf(program);
        SendMessageA(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("old.txt"));
        EndAtFileOperation(program, last);
        Press(program, "Enter");
        WaitUntil(program, "the question", [&] { return !IsRunning(program) || ActiveWindowOf(program) != dialog; });
        if (IsRunning(program) && IsWindow(dialog)) Press(program, "Alt+y");
        WaitUntil(program, "the end of the save", [&] { return !IsRunning(program) || !HasDialog(program); });
        Settle(program);
        ended = IsRunning(program);
        const std::string text = ReadFile(program.folder, "old.txt");
        if (ended)
            EXPECT_GT(text.size(), 4000000u);
        else
            EXPECT_EQ(text, "old");
        ASSERT_LT(last, 1000u);
    }
}
