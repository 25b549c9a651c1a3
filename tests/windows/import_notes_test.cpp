// Importing notes: the list of what would change, the choices, what is stored and kept, and what is said about files
// that cannot be read. What is found in files is tested natively (exchange/*_test.cpp).

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/exchange_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static constexpr int kSummary = 0;     // part of the status bar
static constexpr int kText = 2;        // format
static constexpr int kRomans = 28144;  // Romans 8:28

using Notes = std::map<int, std::string>;

static std::string BothTexts(const std::string& here, const std::string& there) {
    return here + "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n" + there;
}

static void ExpectNotes(const ScratchFolder& folder, const std::string& set, const Notes& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "expected", notes);
    for (const std::string ending : {".nmd", ".nmi"})
        EXPECT_TRUE(ReadFile(folder, set + ending) == ReadFile(expected, "expected" + ending)) << set << ending;
}

static std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

static std::vector<std::string> Rows(HWND dialog) {
    return ListStrings(Child(dialog, {IDC_IMPORTED_NOTES}));
}

static std::string Counts(HWND dialog) {
    return TextOf(dialog, IDC_IMPORT_COUNTS);
}

static int CheckedChoice(HWND dialog) {
    for (const int button : {IDC_KEEP_SETS, IDC_TAKE_IMPORTED, IDC_KEEP_BOTH})
        if (IsChecked(dialog, button)) return button;
    return 0;
}

// ---- What would change ----------------------------------------------------------------------------------------------

static const Notes kExported = {{10, "ten"}, {11, "eleven"}, {12, "twelve"}, {13, "thirteen"}, {14, "fourteen"}};
static const Notes kHere = {
    {10, "ten"}, {11, "eleven"}, {12, "twelve here"}, {13, "thirteen here"}, {14, "fourteen here"}};

// Exports the set to "notes.txt", and then changes the file and the set.
static Program ProgramWithChangedFile() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kExported);
    WriteSetting(folder, "MISC", "NoteVerse", "12");
    Program program = StartProgram(folder);
    ExportTo(program, kText, folder.path / "notes.txt");
    std::string file = ReadFile(folder, "notes.txt");
    for (const char* note : {"ten", "twelve", "fourteen"})
        file = Replaced(file, "\n" + std::string(note) + "\r\n", "\n" + std::string(note) + " there\r\n");
    file += "=== Romans 8:28 ===\r\nadded\r\n\r\n=== Romans 8:99 ===\r\nnowhere\r\n";
    WriteFile(folder, "notes.txt", file);
    WriteNoteSet(folder, "Mine", kHere);
    return program;
}

TEST(ImportNotes, ListsWhatWouldChangeAndDoesWhatIsChosen) {
    const Program program = ProgramWithChangedFile();
    const ScratchFolder& folder = program.folder;
    const HWND dialog = OpenImportOf(program, folder.path / "notes.txt");
    EXPECT_EQ(TabOrder(program, dialog),
              (std::vector<int>{IDC_IMPORTED_NOTES, IDC_IMPORTED_TEXT, IDOK, IDCANCEL, IDC_HELP_BUTTON, IDC_IMPORT_FROM,
                                IDC_IMPORT_FILE, IDC_IMPORT_FOLDER, IDC_IMPORT_SET}))
        << "there is nothing to choose for what is not placed";
    EXPECT_EQ(TextOf(dialog, IDC_IMPORT_FROM), (folder.path / "notes.txt").string());
    EXPECT_EQ(TextOf(dialog, IDC_IMPORT_SET), "Mine");
    EXPECT_EQ(Counts(dialog), "6 notes: 1 new, 1 changed, 2 in conflict, 1 older, 1 the same, 1 not placed.");
    EXPECT_THAT(Rows(dialog), ElementsAre(AllOf(StartsWith("Romans 8:99\tnot placed\tline "), HasSubstr("\tnowhere")),
                                          "Genesis 1:11\tchanged\treplaces the note\tten\tten there",
                                          "Genesis 1:13\tin conflict\tgets both texts\ttwelve here\ttwelve there",
                                          "Genesis 1:14\tolder than the set's\tstays as it is\tthirteen here\tthirteen",
                                          "Genesis 1:15\tin conflict\tgets both texts\tfourteen here\tfourteen there",
                                          "Romans 8:28\tnew\tis added\t\tadded"));
    EXPECT_THAT(TextOf(dialog, IDC_IMPORTED_TEXT), AllOf(HasSubstr("Romans 8:99"), HasSubstr("nowhere")));
    SavePicture(PictureOfWindow(dialog), "import-notes");

    Press(program, "Alt+n");
    Press(program, "Down");
    Press(program, "Down");
    EXPECT_EQ(CheckedChoice(dialog), IDC_KEEP_BOTH);
    EXPECT_THAT(TextOf(dialog, IDC_IMPORTED_TEXT), AllOf(StartsWith("twelve "), HasSubstr("there")));
    Press(program, "Alt+k");
    EXPECT_THAT(Rows(dialog), Contains("Genesis 1:13\tin conflict\tstays as it is\ttwelve here\ttwelve there"));
    Press(program, "Alt+p");
    EXPECT_THAT(Rows(dialog), Contains("Genesis 1:13\tin conflict\treplaces the note\ttwelve here\ttwelve there"));
    Press(program, "Alt+a");
    EXPECT_THAT(Rows(dialog), Contains("Genesis 1:15\tin conflict\treplaces the note\tfourteen here\tfourteen there"));
    Press(program, "Alt+n");
    Press(program, "Down");
    Press(program, "Down");
    Press(program, "Alt+b");
    EXPECT_THAT(Rows(dialog), Contains("Genesis 1:15\tin conflict\tgets both texts\tfourteen here\tfourteen there"));
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_IMPORTED_NOTES, LB_GETCURSEL, 0, 0), 4);
    ExpectNotes(folder, "Mine", kHere);  // nothing is written before

    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, kSummary), "4 notes imported into Mine.");
    ExpectNotes(folder, "Mine",
                {{10, "ten there"},
                 {11, "eleven"},
                 {12, "twelve there"},
                 {13, "thirteen here"},
                 {14, BothTexts("fourteen here", "fourteen there")},
                 {kRomans, "added"}});
    EXPECT_EQ(TextOf(NoteViewOf(program)), "twelve there");
    std::vector<std::string> kept;
    for (const KeptNote& note : KeptNotes(folder, "Mine")) kept.push_back(note.text);
    EXPECT_THAT(kept, ElementsAre("ten", "twelve here", "fourteen here"));
    Command(program, IDM_EARLIER_NOTES);
    EXPECT_EQ(TextOf(WaitForDialog(program, "Earlier Notes for Genesis 1:13 in \"Mine\""), IDC_STATE_TEXT),
              "twelve therehere");  // with what only the note has now
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(Counts(OpenImportOf(program, folder.path / "notes.txt")), "6 notes: 1 older, 5 the same, 1 not placed.");
}

TEST(ImportNotes, LeavesEverythingAfterCancelAndOnAFullDisk) {
    const Program program = ProgramWithChangedFile();
    const ScratchFolder& folder = program.folder;
    Finish(program, OpenImportOf(program, folder.path / "notes.txt"), IDCANCEL);
    ExpectNotes(folder, "Mine", kHere);
    EXPECT_THAT(KeptNotes(folder, "Mine"), IsEmpty());

    const HWND dialog = OpenImportOf(program, folder.path / "notes.txt");
    const auto expectProblem = [&](const char* why) {
        FillDiskAtFileOperation(program, 1);
        Press(program, "Enter");
        const HWND box = WaitForDialog(program, "Error");
        FillDiskAtFileOperation(program, 0);
        EXPECT_THAT(MessageText(box), HasSubstr(why));
        Press(program, "Enter");
        WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
        Settle(program);
        EXPECT_TRUE(IsWindow(dialog));
        ExpectNotes(folder, "Mine", kHere);
        EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    };
    expectProblem("Mine cannot be written");
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_IMPORTED_NOTES}));
    ChooseNewSet(program, dialog, "New");
    expectProblem("");
    EXPECT_FALSE(HasFile(folder, "New.nmi"));
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_NEW_SET_NAME}));
    for (const char* name : {"", "Mine", "a?b"}) {  // names that no new set can have
        SetDlgItemTextA(dialog, IDC_NEW_SET_NAME, name);
        Press(program, "Enter");
        const HWND box = WaitForDialog(program, "Error");
        Press(program, "Enter");
        WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
        Settle(program);
        EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_NEW_SET_NAME}));
    }
    Type(program, "New");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "New"));
    ExpectNotes(folder, "New",
                {{10, "ten there"},
                 {11, "eleven"},
                 {12, "twelve there"},
                 {13, "thirteen"},
                 {14, "fourteen there"},
                 {kRomans, "added"}});
    ExpectNotes(folder, "Mine", kHere);
}

// ---- Folders, and what cannot be read -------------------------------------------------------------------------------

static void ChooseFolder(const Program& program, const std::filesystem::path& folder) {
    Press(program, "Alt+d");
    GivePath(program, "Folder of text files that are named by verses", folder);
}

TEST(ImportNotes, TakesAFolderOfTextFilesThatAreNamedByVerses) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{kRomans, "here"}});
    const Program program = StartProgram(folder);
    const ScratchFolder texts = FolderWithForeignLetters();
    WriteFile(texts, "Rom 8.28.txt", "from the folder\n");
    WriteFile(texts, "Genesis 1-1 - Beginning.md", "first\nlines");
    WriteFile(texts, "shopping.txt", "bread");
    WriteFile(texts, "Genesis 1-2.doc", "no text file");
    const HWND dialog = OpenImport(program);
    ChooseFolder(program, texts.path);
    EXPECT_EQ(Counts(dialog), "2 notes: 1 new, 1 in conflict, 1 not placed.");
    EXPECT_THAT(Rows(dialog), ElementsAre(AllOf(StartsWith("shopping.txt\tnot placed\t\t"), HasSubstr("\tbread")),
                                          "Genesis 1:1\tnew\tis added\t\tfirst lines",
                                          "Romans 8:28\tin conflict\tgets both texts\there\tfrom the folder"));
    WriteNoteSet(folder, "Mine", {{kRomans, "here again"}});  // as another computer would
    Press(program, "Enter");
    ExpectComplaint(program, "Error", "No notes were imported: Mine has changed meanwhile.");
    EXPECT_THAT(Rows(dialog), Contains("Romans 8:28\tin conflict\tgets both texts\there again\tfrom the folder"));
    ExpectNotes(folder, "Mine", {{kRomans, "here again"}});
    Press(program, "Enter");
    WaitForNoDialog(program);
    ExpectNotes(folder, "Mine", {{0, "first\r\nlines"}, {kRomans, BothTexts("here again", "from the folder")}});
    EXPECT_EQ(TextOf(NoteViewOf(program)), "first\r\nlines");
}

TEST(ImportNotes, SaysWhyAFileCannotBeRead) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{kRomans, "here"}});
    WriteFile(folder, "empty.csv", "");
    WriteFile(folder, "picture.png", "no notes");
    WriteFile(folder, "table.csv", "Colour,Size\r\nred,12\r\n");
    WriteFile(folder, "long.txt", "=== John 1:1 ===\r\n" + std::string(3'000'000, 'z'));
    std::filesystem::create_directory(folder.path / "no texts");
    const Program program = StartProgram(folder);
    const UniqueHandle held(
        CreateFileW((folder.path / "held.txt").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    const HWND dialog = OpenImport(program);
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_IMPORT_FILE}));
    EXPECT_THAT(Counts(dialog), StartsWith("Choose a file"));
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));
    const auto expect = [&](const std::string& why, int button) {
        const HWND box = WaitForDialog(program, "Error");
        const std::string text = MessageText(box);
        EXPECT_THAT(text, HasSubstr(why));
        Press(program, "Enter");
        WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
        Settle(program);
        EXPECT_EQ(Counts(dialog), text);
        EXPECT_THAT(Rows(dialog), IsEmpty());
        EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));
        EXPECT_EQ(FocusOf(program), Child(dialog, {button}));
    };
    const auto give = [&](const char* name) {
        Press(program, "Alt+f");
        GivePath(program, "Open", folder.path / name);
    };
    Press(program, "Enter");  // which is not for the disabled button
    GivePath(program, "Open", folder.path / "picture.png");
    expect("none of the formats", IDC_IMPORT_FILE);
    give("held.txt");
    expect("Another program may have it open", IDC_IMPORT_FILE);
    for (const char* name : {"empty.csv", "table.csv"}) {
        give(name);
        expect("", IDC_IMPORT_FILE);
    }
    ChooseFolder(program, folder.path / "no texts");
    expect("This folder has no text files", IDC_IMPORT_FOLDER);
    give("long.txt");
    EXPECT_EQ(Counts(dialog), "1 not placed.");
    EXPECT_THAT(TextOf(dialog, IDC_IMPORTED_TEXT), AllOf(HasSubstr("longer than a note"), EndsWith("zzz...")));
    WriteFile(folder, "good.csv", "Reference,Note\r\nGenesis 1:2,\"good\"\r\n");
    give("good.csv");
    EXPECT_EQ(Counts(dialog), "1 note: 1 new.");
    EXPECT_TRUE(IsWindowEnabled(Child(dialog, {IDOK})));
}
