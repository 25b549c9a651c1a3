// Earlier Notes for this Verse: the list of earlier texts, what is marked in them, and bringing one back.

#include <windows.h>

#include <richedit.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_history_files.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/system_look.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

static constexpr char kTitle[] = "Earlier Notes for Genesis 1:2 in \"Mine\"";
static constexpr std::int64_t kMorning = 1735628400;  // 2024-12-31 07:00:00 UTC

// The local time as the test's own process writes it.
static std::string DateAndTime(std::int64_t seconds) {
    const auto time = static_cast<std::uint64_t>((seconds + 11644473600) * 10000000);
    const FILETIME file{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    FILETIME local{};
    FileTimeToLocalFileTime(&file, &local);
    SYSTEMTIME system{};
    FileTimeToSystemTime(&local, &system);
    char date[80] = "", clock[80] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &system, nullptr, date, sizeof date);
    GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &system, nullptr, clock, sizeof clock);
    return std::string(date) + " " + clock;
}

static ScratchFolder FolderWithNote(const std::string& note) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{1, note}, {3, "three"}});
    WriteSetting(folder, "MISC", "NoteVerse", "1");
    return folder;
}

static HWND OpenEarlierNotes(const Program& program, const char* title = kTitle) {
    Command(program, IDM_EARLIER_NOTES);
    return WaitForDialog(program, title);
}

static std::string ShownText(HWND dialog) {
    return TextOf(dialog, IDC_STATE_TEXT);
}

TEST(EarlierNotes, ListsTheTextsOfTheVerseLatestFirst) {
    const ScratchFolder folder = FolderWithNote("as it is now");
    WriteNoteHistory(folder, "Mine",
                     {{kMorning, 1, KeptReason::kReplaced, "the first\r\n\r\ntext of all"},
                      {kMorning + 1, 3, KeptReason::kReplaced, "of another verse"},
                      {kMorning + 3600, 1, KeptReason::kCancelled, ""},
                      {kMorning + 90000, 1, KeptReason::kNotSaved, "as it was then"}});
    Program program = StartProgram(folder);
    const HWND dialog = OpenEarlierNotes(program);
    EXPECT_THAT(ListStrings(Child(dialog, {IDC_STATES})),
                ElementsAre(DateAndTime(kMorning + 90000) + "\tcould not be saved\tas it was then",
                            DateAndTime(kMorning + 3600) + "\tedit was cancelled\t(empty)",
                            DateAndTime(kMorning) + "\treplaced by a save\tthe first text of all"));
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_STATES}));
    EXPECT_EQ(TabOrder(program, dialog),
              (std::vector<int>{IDC_STATES, IDC_STATE_TEXT, IDOK, IDC_COPY_STATE, IDCANCEL, IDC_HELP_BUTTON}));
    EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IDOK);
    SavePicture(PictureOfWindow(dialog), "earlier-notes");
    EXPECT_EQ(ShownText(dialog), "as it is nowwas then");
    Press(program, "Down");
    EXPECT_EQ(ShownText(dialog), "as it is now");
    Press(program, "End");
    EXPECT_THAT(ShownText(dialog), HasSubstr("the first\r\n\r\ntext of all"));
    CloseWithEsc(program);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "as it is now");
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
}

// Of each character: '_' underlined, '-' struck out, ' ' neither.
static std::string MarksOf(const Program& program, HWND dialog) {
    const HWND text = Child(dialog, {IDC_STATE_TEXT});
    std::string marks;
    const std::string shown = ShownText(dialog);
    for (int i = 0; i < static_cast<int>(shown.size()); ++i) {
        if (shown[static_cast<std::size_t>(i)] < ' ') {  // the halves of a line end cannot be selected
            marks += ' ';
            continue;
        }
        SelectRich(program, text, {i, i + 1});
        const DWORD effects = SelectedEffects(program, text);
        marks += (effects & CFE_UNDERLINE) != 0 ? '_' : (effects & CFE_STRIKEOUT) != 0 ? '-' : ' ';
    }
    return marks;
}

// The marks have colours of the system, which would otherwise stay those of before, dark on black.
TEST(EarlierNotes, FollowsTheColorsOfTheSystem) {
    const ScratchFolder folder = FolderWithNote("one two\r\nfour");
    WriteNoteHistory(folder, "Mine", {{kMorning, 1, KeptReason::kReplaced, "one 2\r\nthree four"}});
    Program program = StartProgram(folder);
    const HWND dialog = OpenEarlierNotes(program);
    const HWND text = Child(dialog, {IDC_STATE_TEXT});
    const auto count = [text](int element) {
        return CountPixels(PictureOfClient(text), ClientRectOf(text), InPicture(GetSysColor(element)));
    };
    const SystemColors black(program, kContrastBlack);
    EXPECT_GT(count(COLOR_WINDOW), 3000);
    EXPECT_GT(count(COLOR_WINDOWTEXT), 20);
    EXPECT_GT(count(COLOR_HOTLIGHT), 20);
    EXPECT_GT(count(COLOR_GRAYTEXT), 10);
    SavePicture(PictureOfWindow(dialog), "earlier-notes-black");
    CloseWithEsc(program);
}

TEST(EarlierNotes, MarksWhatDiffersFromTheNoteAsItIs) {
    const ScratchFolder folder = FolderWithNote("one two\r\nfour");
    WriteNoteHistory(folder, "Mine", {{kMorning, 1, KeptReason::kReplaced, "one 2\r\nthree four"}});
    Program program = StartProgram(folder);
    const HWND dialog = OpenEarlierNotes(program);
    EXPECT_EQ(ShownText(dialog), "one two2\r\nthree four");
    EXPECT_EQ(MarksOf(program, dialog), "    ---_  ______    ");
    const auto labels = ChildrenOf(dialog);
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](HWND label) {
        return TextOf(label) == "Underlined: only in the earlier text. Struck out: only in the note as it is now.";
    }));
}

// Windows scales an open dialog by giving its controls other fonts, and with these the text loses its marks. Wine keeps
// them, so they are taken away here.
TEST(EarlierNotes, KeepsTheMarksOnAnotherScreen) {
    const ScratchFolder folder = FolderWithNote("one two");
    WriteNoteHistory(folder, "Mine", {{kMorning, 1, KeptReason::kReplaced, "one 2"}});
    Program program = StartProgram(folder);
    const HWND dialog = OpenEarlierNotes(program);
    EXPECT_EQ(MarksOf(program, dialog), "    ---_");
    CHARFORMATA plain{};
    plain.cbSize = sizeof plain;
    plain.dwMask = CFM_UNDERLINE | CFM_STRIKEOUT;
    AskAbout(program, Child(dialog, {IDC_STATE_TEXT}), EM_SETCHARFORMAT, SCF_ALL, plain);
    EXPECT_EQ(MarksOf(program, dialog), "        ");
    RECT place = RectOnScreen(dialog);
    AskAbout(program, dialog, WM_DPICHANGED, MAKEWPARAM(144, 144), place);
    Settle(program);
    EXPECT_EQ(MarksOf(program, dialog), "    ---_");
    CloseWithEsc(program);
}

TEST(EarlierNotes, SaysWhenThereAreNone) {
    Program program = StartProgram(FolderWithNote("only one"));
    const HWND dialog = OpenEarlierNotes(program);
    EXPECT_THAT(ShownText(dialog), StartsWith("There are no earlier texts of this note."));
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDC_COPY_STATE})));
    SavePicture(PictureOfWindow(dialog), "earlier-notes-none");
    CloseWithEsc(program);
}

TEST(EarlierNotes, CopiesTheTextWithoutMarks) {
    const ScratchFolder folder = FolderWithNote("new");
    WriteNoteHistory(folder, "Mine", {{kMorning, 1, KeptReason::kReplaced, "old\r\ntext"}});
    Program program = StartProgram(folder);
    OpenEarlierNotes(program);
    SetClipboardText("before");
    Press(program, "Alt+c");
    EXPECT_EQ(ClipboardText(), "old\r\ntext");
    CloseWithEsc(program);
}

// Restore only opens the editor; the text is stored when it is saved there.
TEST(EarlierNotes, BringsATextBackThroughTheEditor) {
    const ScratchFolder folder = FolderWithNote("third");
    WriteNoteHistory(
        folder, "Mine",
        {{kMorning, 1, KeptReason::kReplaced, "first"}, {kMorning + 1, 1, KeptReason::kReplaced, "second"}});
    Program program = StartProgram(folder);
    HWND dialog = OpenEarlierNotes(program);
    Press(program, "Down");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "first");
    EXPECT_EQ(FocusOf(program), NoteEditOf(program));
    EXPECT_TRUE(IsGreyed(program, IDM_EARLIER_NOTES));
    EXPECT_THAT(ReadFile(folder, "Mine.nmd"), HasSubstr("third"));
    Command(program, IDM_EARLIER_NOTES);  // not while editing
    EXPECT_FALSE(HasDialog(program));
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "first");
    EXPECT_THAT(ReadFile(folder, "Mine.nmd"), HasSubstr("first"));
    dialog = OpenEarlierNotes(program);
    DoubleClick(program, Child(dialog, {IDC_STATES}), {5, 5});
    WaitForNoDialog(program);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
}

// Its letters, too, are those that were chosen for notes: the font of dialogs may lack them. Equal texts have no marks.
TEST(EarlierNotes, ShowTextsInTheFontOfTheNotes) {
    static const std::string kGreek = "\xEF\xBB\xBF\u03BB\u03CC\u03B3\u03BF\u03C2";
    const ScratchFolder folder = FolderWithNote(kGreek);
    WriteNoteHistory(folder, "Mine", {{kMorning, 1, KeptReason::kReplaced, kGreek}});
    WriteSetting(folder, "OPTIONS", "NoteFontHeight", "20");
    const Program program = StartProgram(folder);
    const auto firstLine = [](HWND text) {
        POINT corner{};
        ClientToScreen(text, &corner);
        return PictureOfScreen({corner.x, corner.y, corner.x + 150, corner.y + 24});
    };
    const Picture inView = firstLine(NoteViewOf(program));
    EXPECT_GT(CountPixels(inView, {0, 0, 150, 24}, 0x000000), 100);
    const HWND dialog = OpenEarlierNotes(program);
    SavePicture(PictureOfWindow(dialog), "earlier-notes-greek");
    const RECT differing = DifferingArea(inView, firstLine(Child(dialog, {IDC_STATE_TEXT})));
    EXPECT_TRUE(IsRectEmpty(&differing)) << differing.left << "," << differing.top;
    CloseWithEsc(program);
}
