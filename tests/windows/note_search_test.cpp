// Searching notes: what is found and shown, where the search continues, and what it does not change.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static constexpr char kTitle[] = "Search Note Set Mine";

static Program ProgramToSearch(const std::map<int, std::string>& notes, int noteVerse = 0) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", notes);
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(noteVerse));
    return StartProgram(folder);
}

static HWND OpenSearch(const Program& program) {
    Press(program, "Alt+t");
    return WaitForDialog(program, kTitle);
}

static void CloseSearch(const Program& program) {
    Press(program, "Esc");
    WaitForNoDialog(program);
}

// The note's verse and what is selected in the note: "Genesis 1:6 [love] at 3".
static std::string Shown(const Program& program) {
    Settle(program);
    const HWND view = NoteViewOf(program);
    const TextSelection selection = RichSelection(program, view);
    const std::string text = TextOf(view);
    const auto start = static_cast<std::size_t>(selection.start);
    return StatusPart(program, 2) + " [" + text.substr(start, static_cast<std::size_t>(selection.end) - start) +
           "] at " + std::to_string(start);
}

static void ExpectNotFound(const Program& program) {
    const HWND box = WaitForDialog(program, "Search Notes");
    EXPECT_EQ(MessageText(box), "Text not found");
    EXPECT_EQ(ButtonsOf(box), std::vector<std::string>{"OK"});
    Press(program, "Enter");
    WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
    EXPECT_TRUE(IsShown(WaitForDialog(program, kTitle))) << "the dialog stays open";
}

// ---- What is found --------------------------------------------------------------------------------------------------

TEST(NoteSearch, FindsWholeWordsOrSubstrings) {
    Program program = ProgramToSearch({{5, "My beloved is mine."}, {10, "two\r\nlines of Love"}, {kLastVerse, "love"}});
    const HWND dialog = OpenSearch(program);
    EXPECT_FALSE(IsChecked(dialog, IDC_SUBSTRING));
    Type(program, "love");
    Press(program, "Enter");  // Find First
    EXPECT_EQ(Shown(program), "Genesis 1:11 [Love] at 14");
    EXPECT_EQ(FocusOf(program), GetDlgItem(dialog, IDC_NOTE_TEXT));
    SavePicture(PictureOfWindow(program.frame), "note-search-match");
    Press(program, "Alt+s");
    Press(program, "Alt+f");
    EXPECT_EQ(Shown(program), "Genesis 1:6 [love] at 5");
    Press(program, "Alt+n");
    EXPECT_EQ(Shown(program), "Genesis 1:11 [Love] at 14");
    Press(program, "Alt+c");  // case sensitive
    Press(program, "Alt+n");
    EXPECT_EQ(Shown(program), "Revelation 22:21 [love] at 0");
    Press(program, "Alt+f");
    EXPECT_EQ(Shown(program), "Genesis 1:6 [love] at 5");
    CloseSearch(program);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "My beloved is mine.") << "as stored";
    EXPECT_EQ(Setting(program.folder, "SEARCH", "SubString"), "(none)");
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "SEARCH", "SubString"), "1");
    EXPECT_EQ(Setting(program.folder, "SEARCH", "CaseSensitive"), "1");
}

TEST(NoteSearch, FindNextContinuesAndFindFirstStartsAgain) {
    Program program =
        ProgramToSearch({{3, "grace and grace\r\nand GRACE"}, {4, "no match"}, {kLastVerse, "Grace."}}, 3);
    static constexpr const char* kPlaces[] = {"Genesis 1:4 [grace] at 0", "Genesis 1:4 [grace] at 10",
                                              "Genesis 1:4 [GRACE] at 21", "Revelation 22:21 [Grace] at 0"};
    OpenSearch(program);
    Type(program, "grace");
    std::vector<Picture> pictures;
    for (const char* place : kPlaces) {
        Press(program, "Alt+n");
        EXPECT_EQ(Shown(program), place);
        pictures.push_back(PictureOfWindow(NoteViewOf(program)));
    }
    const RECT selections = DifferingArea(pictures[0], pictures[1]);
    EXPECT_FALSE(IsRectEmpty(&selections)) << "the match must be visible while the dialog has the focus";
    for (int times = 0; times < 2; ++times) {  // a repeated search still starts after the note that is shown
        Press(program, "Alt+n");
        const HWND box = WaitForDialog(program, "Search Notes");
        if (times == 0) {
            const HWND progress = FindWindowA(nullptr, "Searching...");
            ASSERT_NE(progress, nullptr);
            EXPECT_TRUE(IsShown(GetDlgItem(progress, IDC_SEARCH_PROGRESS)));
            EXPECT_EQ(SendDlgItemMessageA(progress, IDC_SEARCH_PROGRESS, PBM_GETPOS, 0, 0), kLastVerse);
            SavePicture(PictureOfWindow(progress), "note-search-progress");
            SavePicture(PictureOfWindow(box), "note-search-not-found");
        }
        ExpectNotFound(program);
        EXPECT_EQ(Shown(program), kPlaces[3]);
    }
    Press(program, "Alt+f");
    EXPECT_EQ(Shown(program), kPlaces[0]);
    CloseSearch(program);

    // After the dialog is reopened, the search continues after the selection.
    const HWND dialog = OpenSearch(program);
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), "GRACE");
    Press(program, "Alt+n");
    EXPECT_EQ(Shown(program), kPlaces[1]);
}

TEST(NoteSearch, StaysInTheSearchRange) {
    Program program = ProgramToSearch({{3, "grace"}, {100, "grace"}, {200, "grace"}}, 100);
    SetSearchRange(program, "Ge 1 - 2");
    OpenSearch(program);
    Type(program, "grace");
    Press(program, "Alt+n");  // the range ends before the current note
    ExpectNotFound(program);
    EXPECT_EQ(Shown(program), "Genesis 4:21 [] at 0");
    Press(program, "Enter");
    EXPECT_EQ(Shown(program), "Genesis 1:4 [grace] at 0");
    Press(program, "Alt+r");
    const HWND range = WaitForDialog(program, "Set Search Range");
    SetDlgItemTextA(range, IDC_RANGE, "Ge 5 - 50");
    Press(program, "Enter");
    WaitUntil(program, "the range to be set", [&] { return !IsWindow(range); });
    EXPECT_EQ(StatusPart(program, 4), "Ge 5:1 - Ge 50:26");
    Press(program, "Alt+n");  // the range begins after the current note
    EXPECT_EQ(Shown(program), "Genesis 8:17 [grace] at 0");
}

// Deliberate: the end of a selection in the text "No note for ..." is the offset where the search of the next note
// starts.
TEST(NoteSearch, KeepsTheOffsetAcrossVersesWithoutNotes) {
    Program program = ProgramToSearch({{8, "grace, grace"}}, 5);
    SelectRich(program, NoteViewOf(program), {0, 3});
    OpenSearch(program);
    Type(program, "grace");
    Press(program, "Alt+n");
    EXPECT_EQ(Shown(program), "Genesis 1:9 [grace] at 7");
}

TEST(NoteSearch, ReportsAFileThatCannotBeRead) {
    Program program = ProgramToSearch({{3, "grace"}, {9, "grace"}}, 5);
    std::filesystem::rename(program.folder.path / "Mine.nmd", program.folder.path / "away.nmd");
    OpenSearch(program);
    Type(program, "grace");
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box), "Error reading note file");
    Press(program, "Enter");
    WaitUntil(program, "the box to be closed", [&] { return !IsWindow(box); });
    EXPECT_EQ(Shown(program), "Genesis 1:6 [] at 0");
    std::filesystem::rename(program.folder.path / "away.nmd", program.folder.path / "Mine.nmd");
    Press(program, "Enter");
    EXPECT_EQ(Shown(program), "Genesis 1:4 [grace] at 0");
}

// The search reads notes and converts them to capitals; none of that text may get into the editor.
TEST(NoteSearch, DoesNotChangeTheNoteInTheEditor) {
    Program program = ProgramToSearch({{0, "of Grace"}, {9, "Another note."}});
    for (const char* text : {"nowhere", "grace"}) {
        OpenSearch(program);
        Type(program, text);
        Press(program, "Alt+n");
        if (*text == 'n') ExpectNotFound(program);
        CloseSearch(program);
        EXPECT_EQ(TextOf(NoteViewOf(program)), "of Grace");
        OpenNoteEditor(program);
        EXPECT_EQ(TextOf(NoteEditOf(program)), "of Grace");
        ClickEditorButton(program, IDC_NOTE_CANCEL);
    }
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

TEST(NoteSearch, RemembersItsOwnTextInCapitals) {
    Program program = ProgramToSearch({{3, "Grace"}});
    SearchFor(program, {"love", IDM_WORD_SEARCH});
    HWND dialog = OpenSearch(program);
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), "");
    Type(program, "grace");
    Press(program, "Enter");
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), "grace") << "as typed, while the dialog is open";
    CloseSearch(program);
    dialog = OpenSearch(program);
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), "GRACE");
    Type(program, "Grace");
    Press(program, "Alt+c");
    Press(program, "Alt+f");
    EXPECT_EQ(Shown(program), "Genesis 1:4 [Grace] at 0");
    CloseSearch(program);
    dialog = OpenSearch(program);
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), "Grace");
    Press(program, "End");
    SetDlgItemTextA(dialog, IDC_NOTE_TEXT, std::string(149, 'x').c_str());
    Press(program, "End");
    Type(program, "y");
    EXPECT_EQ(TextOf(dialog, IDC_NOTE_TEXT), std::string(149, 'x'));
    SetDlgItemTextA(dialog, IDC_NOTE_TEXT, "");
    Press(program, "Alt+n");
    WaitForNoDialog(program);
    const HWND words = OpenSearchDialog(program, IDM_WORD_SEARCH);
    EXPECT_EQ(TextOf(words, IDC_SEARCH_TEXT), "love");
    EXPECT_TRUE(IsChecked(words, IDC_CASE_SENSITIVE)) << "the options are shared";
}

// A match is shown even if the notes were hidden, and can be copied.
TEST(NoteSearch, ShowsHiddenNotesAndTheMatchCanBeCopied) {
    Program program = ProgramToSearch({{3, "by grace alone"}});
    Command(program, IDM_VIEW_NOTES);
    OpenSearch(program);
    Type(program, "nothing");
    Press(program, "Enter");
    ExpectNotFound(program);
    EXPECT_FALSE(IsShown(NoteViewOf(program)));
    Press(program, "Alt+w");
    Type(program, "grace");
    Press(program, "Enter");
    EXPECT_TRUE(IsShown(NoteViewOf(program)));
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES));
    CloseSearch(program);
    Click(program, NoteViewOf(program), {400, 80});
    OpenSearch(program);
    Press(program, "Enter");
    CloseSearch(program);
    ASSERT_EQ(FocusOf(program), NoteViewOf(program));
    EXPECT_FALSE(IsGreyed(program, IDM_COPY));
    Press(program, "Ctrl+c");
    EXPECT_EQ(ClipboardText(), "grace");
}

// The selection overwrites the beginning of the last search text, and the text of the other searches is truncated to
// its length.
TEST(NoteSearch, StartsWithTheSelectionOfTheNote) {
    Program program = ProgramToSearch({{0, "hello, " + std::string(300, 'z')}});
    SearchFor(program, {"the beginning", IDM_WORD_SEARCH});
    const auto select = [&](int start, int end) { SelectRich(program, NoteViewOf(program), {start, end}); };
    const auto field = [&](int command) {
        Command(program, command);
        const std::string text = TextOf(WaitForDialog(program, kTitle), IDC_NOTE_TEXT);
        CloseSearch(program);
        return text;
    };
    select(0, 5);
    EXPECT_EQ(field(IDM_NOTE_NOTE_SEARCH), "hello");
    const HWND words = OpenSearchDialog(program, IDM_WORD_SEARCH);
    EXPECT_EQ(TextOf(words, IDC_SEARCH_TEXT), "the b");
    CloseSearch(program);

    const HWND dialog = OpenSearch(program);
    SetDlgItemTextA(dialog, IDC_NOTE_TEXT, "previous text");
    Press(program, "Alt+c");
    Press(program, "Enter");
    ExpectNotFound(program);
    CloseSearch(program);
    select(0, 5);
    EXPECT_EQ(field(IDM_NOTE_NOTE_SEARCH), "helloous text");
    EXPECT_EQ(field(IDM_SEARCH_NOTES), "helloous text");
    select(7, 207);
    EXPECT_EQ(field(IDM_NOTE_NOTE_SEARCH), std::string(149, 'z'));
}
