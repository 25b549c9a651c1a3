// Notes as a list: the dialog by keys, what fills the Verse List, and the note that follows it. Which notes are found
// is tested natively (notes/listed_notes_test.cpp).

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;

static constexpr int kSummary = 0, kEntry = 1, kNote = 2;  // parts of the status bar

// "love" in Greek letters, in capitals as a user may type them, and as notes have it.
static constexpr char kGreekNote[] = "\xEF\xBB\xBF\xCE\xB1\xCE\xB3\xCE\xAC\xCF\x80\xCE\xB7";
static constexpr wchar_t kGreekWord[] = L"\x0391\x0393\x0386\x03A0\x0397";

static Program ProgramWithNotes() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{5, "grace"}, {100, "Truth and grace"}, {26045, "of the Word"}});
    WriteNoteSet(folder, "Sermons", {{5, "another"}, {40, kGreekNote}, {kLastVerse, "graceful truth"}});
    WriteNoteSet(folder, "Without");
    return StartProgram(folder);
}

static HWND OpenList(const Program& program) {
    Press(program, "Ctrl+l");
    return WaitForDialog(program, "List Notes");
}

// Presses Enter and returns what is listed.
static std::vector<std::string> Listed(const Program& program) {
    Press(program, "Enter");
    WaitForNoDialog(program);
    Settle(program);
    return ListStrings(ReferenceListOf(program));
}

static void ExpectNone(const Program& program, const char* why) {
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Search Results");
    EXPECT_EQ(MessageText(box), why);
    Press(program, "Enter");
    WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
    EXPECT_EQ(FocusOf(program), GetDlgItem(WaitForDialog(program, "List Notes"), IDC_LISTED_WORDS));
}

// The note that is shown, with its set: "Genesis 1:6 of Mine".
static std::string ShownNote(const Program& program) {
    Settle(program);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    return StatusPart(program, kNote) + " of " + NoteSetNames(program)[static_cast<std::size_t>(SelectedTab(tabs))];
}

TEST(ListNotes, FillsTheVerseListAndTheNoteFollows) {
    Program program = ProgramWithNotes();
    SearchFor(program, {"rasor"});
    const std::vector<std::string> before = ListStrings(ReferenceListOf(program));
    OpenList(program);
    EXPECT_THAT(Listed(program),
                ElementsAre("Genesis 1:6", "Genesis 2:10", "Genesis 4:21", "John 1:1", "Revelation 22:21"));
    EXPECT_EQ(StatusPart(program, kSummary), "5 verses with notes in 2 sets");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    EXPECT_EQ(ShownNote(program), "Genesis 1:6 of Mine");
    SavePicture(PictureOfWindow(program.frame), "list-notes");
    Click(program, VerseListOf(program), {100, 45});
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 1:6");
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons") << "of the entry that was clicked";

    // It stays when the focus goes, another set is chosen or the note is saved.
    Press(program, "Alt+3");
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons");
    Click(program, VerseListOf(program), {100, 10});  // sets only the focus
    Click(program, VerseListOf(program), {100, 45});
    Click(program, NoteViewOf(program), {30, 30});
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons");
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), 2);
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Without");
    Click(program, VerseListOf(program), {100, 10});  // sets only the focus
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Without");
    Click(program, VerseListOf(program), {100, 45});
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons") << "the same entry, clicked again";
    OpenNoteEditor(program);
    Type(program, "x");
    Press(program, "Ctrl+s");
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons") << "after it was saved";
    Press(program, "Alt+1");
    Press(program, "Down");
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 2:10");
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons") << "the current set has none";
    Press(program, "Alt+Right");  // another note is read meanwhile
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Without");
    Press(program, "End");
    EXPECT_EQ(ShownNote(program), "Revelation 22:21 of Sermons");
    Press(program, "Up");
    EXPECT_EQ(ShownNote(program), "John 1:1 of Mine");
    OpenNoteEditor(program);
    Command(program, IDM_FOCUS_LIST);
    Press(program, "Home");
    EXPECT_EQ(ShownNote(program), "John 1:1 of Mine") << "a note is edited";
    EXPECT_TRUE(IsGreyed(program, IDM_LIST_NOTES));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    Press(program, "F8");
    EXPECT_EQ(ClipboardText(), "# Ge 1:6 2:10 4:21 Joh 1:1 Re 22:21");
    EXPECT_FALSE(IsGreyed(program, IDM_SAVE_VERSE_LIST));

    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);  // the Reference List
    Press(program, "Alt+1");
    Press(program, "Down");
    const int line = static_cast<int>(SendMessageA(ReferenceListOf(program), LB_GETCARETINDEX, 0, 0));
    EXPECT_EQ(
        ShownNote(program).substr(0, ListStrings(ReferenceListOf(program))[static_cast<std::size_t>(line)].size()),
        ListStrings(ReferenceListOf(program))[static_cast<std::size_t>(line)]);
    Press(program, "Back");  // to before the other note
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons");
    for (int step = 0; step < 2; ++step) Press(program, "Back");
    EXPECT_EQ(ListStrings(ReferenceListOf(program)), before);
    EXPECT_EQ(StatusPart(program, kNote), "Genesis 1:1");
    Press(program, "Shift+Back");
    EXPECT_EQ(StatusPart(program, kSummary), "5 verses with notes in 2 sets");
}

TEST(ListNotes, FindsWordsInTheChosenSets) {
    Program program = ProgramWithNotes();
    HWND dialog = OpenList(program);
    Type(program, "GRACE truth");
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 4:21"));
    EXPECT_EQ(StatusPart(program, kSummary), "1 verse with a note in 1 set");
    dialog = OpenList(program);
    EXPECT_EQ(TextOf(dialog, IDC_LISTED_WORDS), "GRACE truth");
    Press(program, "Alt+s");
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 4:21", "Revelation 22:21"));
    // Of a verse that several sets have notes of, that of a set with the words.
    OpenList(program);
    Type(program, "another");
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 1:6"));
    EXPECT_EQ(ShownNote(program), "Genesis 1:6 of Sermons");
    OpenList(program);
    Type(program, "GRACE truth");
    Listed(program);
    SetSearchRange(program, "Ge");
    OpenList(program);
    Press(program, "Alt+o");
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 4:21"));
    OpenList(program);
    TypeWide(program, kGreekWord);
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 2:10"));
    EXPECT_EQ(ShownNote(program), "Genesis 2:10 of Sermons");

    // Nothing changes if there are none.
    OpenList(program);
    Type(program, "nowhere");
    ExpectNone(program, "No verses with notes that have these words.");
    Type(program, "truth");
    Press(program, "Alt+c");
    ExpectNone(program, "No verses with notes that have these words.");
    Press(program, "Delete");
    Press(program, "Alt+a");
    EXPECT_THAT(Listed(program), ElementsAre("Genesis 1:6", "Genesis 2:10", "Genesis 4:21"));
    SetSearchRange(program, "Ex");
    OpenList(program);
    ExpectNone(program, "No verses with notes.");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, kSummary), "3 verses with notes in 2 sets");

    // The next start keeps what was chosen, but not the words.
    OpenList(program);
    Type(program, "truth");
    Press(program, "Alt+c");
    ExpectNone(program, "No verses with notes that have these words.");
    Press(program, "Esc");
    WaitForNoDialog(program);
    const ScratchFolder folder = program.folder;
    CloseProgram(program);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"),
                testing::HasSubstr("ListSubString=1\r\nListAllSets=0\r\nListInRange=1\r\n"));
    const Program again = StartProgram(folder);
    dialog = OpenList(again);
    EXPECT_EQ(TextOf(dialog, IDC_LISTED_WORDS), "");
    EXPECT_TRUE(IsChecked(dialog, IDC_SUBSTRING));
    EXPECT_TRUE(IsChecked(dialog, IDC_LIST_CURRENT_SET));
    EXPECT_TRUE(IsChecked(dialog, IDC_LIST_IN_RANGE));
}

// Folded letters take longest. The notes have each word, so that each is searched for in all of them.
TEST(ListNotes, CanBeCancelled) {
    const ScratchFolder folder = FolderWithScripture();
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kLastVerse; ++verse) {
        std::string& note = notes[verse] = kGreekNote;
        for (int line = 0; line < 20; ++line) note += " \xCF\x80\xCF\x81\xCE\xBF\xCF\x82 a b c d e f g h i j\r\n";
    }
    WriteNoteSet(folder, "Mine", notes);
    const Program program = StartProgram(folder);
    OpenList(program);
    std::wstring words = kGreekWord;
    for (int i = 0; i < 8; ++i) words += L' ' + std::wstring(kGreekWord);
    TypeWide(program, words);
    const HWND dialog = WaitForDialog(program, "List Notes");
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    HWND progress = nullptr;
    WaitUntil(program, "the progress", [&] {
        progress = FindWindowA(nullptr, "Searching...");
        return progress != nullptr && IsShown(progress);
    });
    PostMessageA(GetDlgItem(progress, IDCANCEL), BM_CLICK, 0, 0);
    WaitUntil(program, "the search to end", [&] { return !IsShown(progress); });
    EXPECT_EQ(FocusOf(program), GetDlgItem(dialog, IDC_LISTED_WORDS));
    EXPECT_EQ(StatusPart(program, kSummary), "");
    Press(program, "Esc");
    WaitForNoDialog(program);
}
