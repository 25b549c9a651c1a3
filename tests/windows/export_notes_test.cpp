// Notes into files and back by keys: each format in a folder with foreign letters, what the dialog offers and keeps,
// and files that cannot be written. What is in the files is tested natively (exchange/*_test.cpp).

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/exchange_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

static constexpr int kSummary = 0;  // part of the status bar
static constexpr int kHtml = 0, kText = 2;

static const std::map<int, std::string> kNotes = {
    {0, "In the beginning:\r\n# Joh 1:1; Ro 8:28\r\n\r\n  with \"quotes\", commas; and <b>tags</b> &amp;\t\\ tabs "},
    {5, "\xEF\xBB\xBF\xCE\xB1\xCE\xB3\xCE\xAC\xCF\x80\xCE\xB7"},
    {26045, "=== not a heading ===\r\n## nor this\r\n\r\n\r\n"},
    {kLastVerse,
     "Gr\xFC\xDF"
     "e\r\n"}};

static Program ProgramWithNotes() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kNotes);
    return StartProgram(folder);
}

static void ExpectSameSet(const ScratchFolder& folder, const std::string& set, const std::string& other) {
    for (const std::string ending : {".nmd", ".nmi"})
        EXPECT_TRUE(ReadFile(folder, set + ending) == ReadFile(folder, other + ending)) << set << ending;
}

TEST(ExportNotes, WritesInEachFormatWhatImportBringsBack) {
    const Program program = ProgramWithNotes();
    const ScratchFolder elsewhere = FolderWithForeignLetters();
    for (int format = 0; format < 4; ++format) {
        const std::string ending = kFormatEndings[format];
        SCOPED_TRACE(ending);
        ExportTo(program, format, elsewhere.path / L"\u05D0 notes");
        EXPECT_EQ(StatusPart(program, kSummary), "4 notes exported.");
        const std::filesystem::path file =
            elsewhere.path / (L"\u05D0 notes" + std::wstring(ending.begin(), ending.end()));
        ASSERT_TRUE(std::filesystem::exists(file)) << "the extension is added";
        const HWND dialog = OpenImportOf(program, file);
        EXPECT_EQ(TextOf(dialog, IDC_IMPORT_COUNTS), "4 notes: 4 the same.") << "into the set that the file names";
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDOK)));
        ChooseNewSet(program, dialog, "From " + ending);
        EXPECT_EQ(TextOf(dialog, IDC_IMPORT_COUNTS), "4 notes: 4 new.");
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, kSummary), "4 notes imported into From " + ending + ".");
        EXPECT_EQ(NoteSetNames(program).back(), "From " + ending);
        EXPECT_EQ(TextOf(NoteViewOf(program)), kNotes.at(0)) << "the new set is in front";
        ExpectSameSet(program.folder, "From " + ending, "Mine");
    }
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "From .html", "From .md", "From .txt", "From .csv"));
}

TEST(ExportNotes, HasTheExpectedControlsAndKeepsWhatWasChosen) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kNotes);
    WriteNoteSet(folder, "Empty");
    WriteSetting(folder, "MISC", "Note", "1");
    Program program = StartProgram(folder);
    HWND dialog = OpenExport(program);
    EXPECT_EQ(TabOrder(program, dialog), (std::vector<int>{IDC_EXPORTED_SET, IDC_EXPORT_FORMAT, IDC_EXPORT_VERSES, IDOK,
                                                           IDCANCEL, IDC_HELP_BUTTON}));
    EXPECT_THAT(ComboStrings(Child(dialog, {IDC_EXPORTED_SET})), ElementsAre("Empty", "Mine"));
    EXPECT_EQ(TextOf(dialog, IDC_EXPORTED_SET), "Mine");
    EXPECT_THAT(
        ComboStrings(Child(dialog, {IDC_EXPORT_FORMAT})),
        ElementsAre("Web page (*.html)", "Markdown (*.md)", "Plain text (*.txt)", "Comma-separated values (*.csv)"));
    SavePicture(PictureOfWindow(dialog), "export-notes");
    ChooseLine(program, "Alt+f", 3);
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDC_EXPORT_VERSES}))) << "a table has no room for them";
    ChooseLine(program, "Alt+f", kHtml);
    EXPECT_TRUE(IsWindowEnabled(Child(dialog, {IDC_EXPORT_VERSES})));
    Press(program, "Alt+s");
    Press(program, "Home");
    Press(program, "Enter");
    ExpectComplaint(program, "Error", "There are no notes in this set.");
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_EXPORTED_SET}));
    Press(program, "End");
    Press(program, "Alt+v");
    Press(program, "Enter");
    WaitForDialog(program, "Save As");
    EXPECT_EQ(TextOf(FocusOf(program)), "Mine.html");
    Press(program, "Esc");
    WaitForDialog(program, kExportNotes);
    ASSERT_TRUE(IsWindow(dialog)) << "another choice can be made";
    Press(program, "Enter");
    GivePath(program, "Save As", folder.path / "with verses.html");
    WaitForNoDialog(program);
    EXPECT_THAT(ReadFile(folder, "with verses.html"), HasSubstr("In the beginning God created"));
    EXPECT_FALSE(HasFile(folder, "Versewell.more.ini"));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), HasSubstr("ExportVerses=1"));
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), Not(HasSubstr("ExportFormat")));
    program = StartProgram(folder);
    dialog = OpenExport(program);
    EXPECT_TRUE(IsChecked(dialog, IDC_EXPORT_VERSES));
    ChooseLine(program, "Alt+f", kText);
    Press(program, "Alt+f");
    Press(program, "Enter");
    GivePath(program, "Save As", folder.path / "a.txt");
    WaitForNoDialog(program);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), HasSubstr("ExportFormat=2"));
}

// What is there stays, and the dialog stays open with its choices.
TEST(ExportNotes, TellsWhyAFileCannotBeWritten) {
    const Program program = ProgramWithNotes();
    const ScratchFolder folder = EmptyFolder();
    WriteFile(folder, "old.txt", "old");
    const HWND dialog = OpenExport(program);
    ChooseLine(program, "Alt+f", kText);
    const auto expect = [&](const std::filesystem::path& path, const char* why) {
        Press(program, "Enter");
        GivePath(program, "Save As", path);
        const HWND box = WaitForDialog(program, "Save Error");
        EXPECT_THAT(MessageText(box), HasSubstr(why));
        Press(program, "Enter");
        WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
        Settle(program);
        EXPECT_TRUE(IsWindow(dialog));
        EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_EXPORT_FORMAT}));
        EXPECT_EQ(ReadFile(folder, "old.txt"), "old");
        EXPECT_THAT(FilesIn(folder), ElementsAre("old.txt"));
    };
    SetFileAttributesW((folder.path / "old.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    expect(folder.path / "old.txt", "It may be write-protected");
    SetFileAttributesW((folder.path / "old.txt").c_str(), FILE_ATTRIBUTE_NORMAL);
    {
        const ReadOnlyFolder readOnly(folder.path);
        expect(folder.path / "new.txt", "no right to write in this folder");
    }
    expect(program.folder.path / "Mine.nmd", "a file of Versewell's own");
    expect(Surroundings().fullDisk, "The disk may be full.");
    Press(program, "Esc");
    WaitForNoDialog(program);
}

static HWND ProgressCalled(const char* title) {
    const HWND window = FindWindowA(nullptr, title);
    return window != nullptr && IsShown(window) ? window : nullptr;
}

static void CancelProgress(const Program& program, const char* title) {
    WaitUntil(program, title, [&] { return ProgressCalled(title) != nullptr; });
    SavePicture(PictureOfWindow(ProgressCalled(title)), title[0] == 'E' ? "exporting" : "reading");
    PostMessageA(GetDlgItem(ProgressCalled(title), IDCANCEL), BM_CLICK, 0, 0);
    WaitUntil(program, "the box to be closed", [&] { return ProgressCalled(title) == nullptr; });
    Settle(program);
}

// Each note names many verses, which takes longer than other notes of its size.
TEST(ExportNotes, AndImportCanBeCancelled) {
    const ScratchFolder folder = FolderWithScripture();
    std::map<int, std::string> notes;
    std::string all = "# Ge 1:1";
    for (int time = 0; time < 60; ++time) all += "; Ps 1:1-6; 2:3; Joh 3:16";
    for (int verse = 0; verse < 12000; ++verse) notes[verse] = all;
    WriteNoteSet(folder, "Mine", notes);
    const Program program = StartProgram(folder);
    const ScratchFolder elsewhere = EmptyFolder();
    WriteFile(elsewhere, "old.html", "old");
    HWND dialog = OpenExport(program);
    Press(program, "Enter");
    const HWND asked = WaitForDialog(program, "Save As");
    SendMessageW(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>((elsewhere.path / "old.html").c_str()));
    Press(program, "Enter");
    ASSERT_NE(ActiveWindowOf(program), asked) << "whether to replace the file";
    PostMessageA(ActiveWindowOf(program), WM_COMMAND, IDYES, 0);
    CancelProgress(program, "Exporting...");
    EXPECT_TRUE(IsWindow(dialog)) << "another choice can be made";
    EXPECT_EQ(ActiveWindowOf(program), dialog);
    EXPECT_THAT(FilesIn(elsewhere), ElementsAre("old.html"));
    EXPECT_EQ(ReadFile(elsewhere, "old.html"), "old");
    Press(program, "Esc");
    WaitForNoDialog(program);

    std::string page = "<html><body data-set=\"Mine\">\n";
    for (int note = 0; note < 300'000; ++note) page += "<h2>Genesis 1:1</h2><p>a note</p>\n";
    WriteFile(elsewhere, "large.html", page);
    dialog = OpenImport(program);
    const std::string before = TextOf(dialog, IDC_IMPORT_COUNTS);
    Press(program, "Alt+f");
    WaitForDialog(program, "Open");
    SendMessageW(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>((elsewhere.path / "large.html").c_str()));
    PostMessageA(FocusOf(program), WM_KEYDOWN, VK_RETURN, 0);
    CancelProgress(program, "Reading...");
    EXPECT_EQ(TextOf(dialog, IDC_IMPORT_COUNTS), before);
    EXPECT_EQ(TextOf(dialog, IDC_IMPORT_FROM), "");
    EXPECT_EQ(ActiveWindowOf(program), dialog);
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, kSummary), "");
}

TEST(ExportNotes, AndImportWaitForTheEditor) {
    const Program program = ProgramInEditor("text");
    for (const int command : {IDM_EXPORT_NOTES, IDM_IMPORT_NOTES}) {
        EXPECT_TRUE(IsGreyed(program, command));
        Command(program, command);
        EXPECT_FALSE(HasDialog(program));
    }
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    for (const int command : {IDM_EXPORT_NOTES, IDM_IMPORT_NOTES}) EXPECT_FALSE(IsGreyed(program, command));
}
