// The notes that name a verse as a list, and the references in the Notes window with Ctrl held. What is recognised as a
// reference is tested natively (notes/references_in_text_test.cpp).

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/held_keys.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::Gt;
using testing::Lt;

static constexpr int kAboutPart = 0, kEntryPart = 1, kNotePart = 2;  // parts of the status bar
static constexpr int kJohn11 = 26524;                                // John 11:1

// The note that is shown, with its set: "Genesis 1:6 of Mine".
static std::string NoteWithSet(const Program& program) {
    Settle(program);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    return StatusPart(program, kNotePart) + " of " + NoteSetNames(program)[static_cast<std::size_t>(SelectedTab(tabs))];
}

static std::vector<std::string> ListedLines(const Program& program) {
    return ListStrings(ReferenceListOf(program));
}

static std::string FillerLines(int count) {
    std::string lines;
    for (int line = 0; line < count; ++line) lines += "a line\r\n";
    return lines;
}

static Program ProgramWithReferences() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine",
                 {{0, "nothing"},
                  {5, "Jesus wept (John 11:35)"},
                  {40, FillerLines(100) + "# Joh 11:30-40\r\n" + FillerLines(50)}});
    WriteNoteSet(folder, "Sermons", {{5, "all of John 11"}, {kJohn11 + 1, "v. 35"}, {kLastVerse, "# Ge 1:1"}});
    return StartProgram(folder);
}

TEST(NotesAbout, AreListedWithTheirSets) {
    Program program = ProgramWithReferences();
    SearchFor(program, {"rasor"});
    const std::vector<std::string> before = ListedLines(program);
    GoTo(program, "John 11:35");
    Press(program, "Ctrl+b");
    EXPECT_THAT(ListedLines(program),
                ElementsAre("Mine: Genesis 1:6", "Mine: Genesis 2:10", "Sermons: Genesis 1:6", "Sermons: John 11:2"));
    EXPECT_EQ(StatusPart(program, kAboutPart), "4 notes about John 11:35");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    EXPECT_EQ(NoteWithSet(program), "Genesis 1:6 of Mine");
    EXPECT_EQ(
        WrongLines(VerseListOf(program), {{{{Style::kBold, "Mine: *Ge 1:6 "}, {Style::kRegular, "\xB6 And God "}}}}),
        "");
    SavePicture(PictureOfWindow(program.frame), "notes-about");
    Press(program, "Down");
    EXPECT_EQ(NoteWithSet(program), "Genesis 2:10 of Mine");
    const LRESULT top = SendMessageA(NoteViewOf(program), EM_GETFIRSTVISIBLELINE, 0, 0);
    EXPECT_THAT(top, AllOf(Gt(90), Lt(100))) << "the line that names the verse is not at an edge";
    Press(program, "Down");
    EXPECT_EQ(NoteWithSet(program), "Genesis 1:6 of Sermons") << "the verse was listed before, of another set";
    Press(program, "End");
    EXPECT_EQ(NoteWithSet(program), "John 11:2 of Sermons");
    EXPECT_EQ(StatusPart(program, kEntryPart), "John 11:2");

    // A deleted entry comes back with its set.
    Press(program, "Delete");
    Press(program, "Home");
    Press(program, "Delete");
    EXPECT_EQ(NoteWithSet(program), "Genesis 2:10 of Mine");
    Press(program, "Ctrl+z");
    Press(program, "Ctrl+z");
    EXPECT_THAT(ListedLines(program),
                ElementsAre("Mine: Genesis 1:6", "Mine: Genesis 2:10", "Sermons: Genesis 1:6", "Sermons: John 11:2"));

    // So does the list.
    Press(program, "Back");
    while (StatusPart(program, kAboutPart) != "" && ListedLines(program).front().find(':') < 8) Press(program, "Back");
    EXPECT_EQ(ListedLines(program), before);
    Press(program, "Shift+Back");
    EXPECT_EQ(StatusPart(program, kAboutPart), "4 notes about John 11:35");
    EXPECT_EQ(ListedLines(program).back(), "Sermons: John 11:2");
    Press(program, "Alt+1");
    Press(program, "End");
    EXPECT_EQ(NoteWithSet(program), "John 11:2 of Sermons");

    // A set that is renamed is the same one.
    Command(program, IDM_RENAME_NOTE_SET);
    WaitForDialog(program, "Change name of note set Sermons");
    Type(program, "Talks");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(ListedLines(program).back(), "Talks: John 11:2");
    Press(program, "Alt+1");
    Press(program, "Home");
    EXPECT_EQ(NoteWithSet(program), "Genesis 1:6 of Mine");
    Press(program, "End");
    EXPECT_EQ(NoteWithSet(program), "John 11:2 of Talks");

    // Its entries go with it, in the list of an earlier place, too.
    Press(program, "Ctrl+l");
    WaitForDialog(program, "List Notes");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_THAT(ListedLines(program),
                ElementsAre("Genesis 1:1", "Genesis 1:6", "Genesis 2:10", "John 11:2", "Revelation 22:21"));
    Press(program, "End");
    EXPECT_EQ(NoteWithSet(program), "Revelation 22:21 of Talks");
    Command(program, IDM_DELETE_NOTE_SET);
    WaitForDialog(program, "Delete Note Set");
    Press(program, "y");
    WaitForNoDialog(program);
    EXPECT_THAT(ListedLines(program), ElementsAre("Genesis 1:1", "Genesis 1:6", "Genesis 2:10"));
    EXPECT_EQ(NoteWithSet(program), "Revelation 22:21 of Mine") << "as after any deletion of a set";
    EXPECT_EQ(StatusPart(program, kAboutPart), "");
    Press(program, "Alt+1");
    Press(program, "Home");
    EXPECT_EQ(NoteWithSet(program), "Genesis 1:1 of Mine");
    while (ListedLines(program).front() != "Mine: Genesis 1:6") Press(program, "Back");
    EXPECT_THAT(ListedLines(program), ElementsAre("Mine: Genesis 1:6", "Mine: Genesis 2:10"));
}

TEST(NotesAbout, FollowTheFocusAndWhatIsSaved) {
    Program program = ProgramWithReferences();
    Command(program, IDM_FOCUS_PASSAGE);
    Press(program, "Ctrl+b");
    EXPECT_EQ(StatusPart(program, kAboutPart), "1 note about Genesis 1:1");
    EXPECT_EQ(NoteWithSet(program), "Revelation 22:21 of Sermons");
    Press(program, "Ctrl+b");  // of the entry
    EXPECT_EQ(StatusPart(program, kAboutPart), "No notes about Revelation 22:21");
    EXPECT_THAT(ListedLines(program), ElementsAre("Sermons: Revelation 22:21")) << "the list stays";

    // The note of Revelation 22:21 is another one.
    OpenNoteEditor(program);
    EXPECT_TRUE(IsGreyed(program, IDM_NOTES_ABOUT));
    Press(program, "Ctrl+a");
    Type(program, "as in v. 21; ch. 1");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_FALSE(IsGreyed(program, IDM_NOTES_ABOUT));
    Press(program, "Alt+3");
    Press(program, "Ctrl+b");  // of the note
    EXPECT_EQ(StatusPart(program, kAboutPart), "1 note about Revelation 22:21");
    GoTo(program, "Revelation 1:5");
    Click(program, PassageOf(program), {60, 60}, MouseButton::Right);
    ChooseRow(program, "Notes About Re 1:5");
    EXPECT_EQ(StatusPart(program, kAboutPart), "1 note about Revelation 1:5");
    GoTo(program, "Genesis 1:1");
    Press(program, "Ctrl+b");
    EXPECT_EQ(StatusPart(program, kAboutPart), "No notes about Genesis 1:1") << "it was in the note that has gone";

    // Another computer brings a note.
    WriteNoteSet(program.folder, "Mine", {{500, "Ge 1:1"}});
    Press(program, "Ctrl+b");
    EXPECT_EQ(StatusPart(program, kAboutPart), "1 note about Genesis 1:1");
    EXPECT_THAT(ListedLines(program), ElementsAre("Mine: Genesis 20:5"));
}

static HWND Progress() {
    const HWND window = FindWindowA(nullptr, "Searching...");
    return window != nullptr && IsShown(window) ? window : nullptr;
}

// Each of these notes names thousands of verses, which takes much longer to read than other notes of this size.
TEST(NotesAbout, ShowHowFarTheyAreAndCanBeCancelled) {
    static constexpr int kNotes = 6000;
    const ScratchFolder folder = FolderWithScripture();
    std::map<int, std::string> notes;
    std::string all = "# Ge 1:1; Ps 1:1-150:6";
    for (int time = 0; time < 10; ++time) all += ", 1:1-150:6";
    for (int verse = 0; verse < kNotes; ++verse) notes[verse] = all;
    WriteNoteSet(folder, "Mine", notes);
    const Program program = StartProgram(folder);
    PostMessageA(program.frame, WM_COMMAND, IDM_NOTES_ABOUT, 0);
    WaitUntil(program, "the progress", [] { return Progress() != nullptr; });
    PostMessageA(GetDlgItem(Progress(), IDCANCEL), BM_CLICK, 0, 0);
    WaitUntil(program, "the search to end", [] { return Progress() == nullptr; });
    EXPECT_EQ(StatusPart(program, kAboutPart), "");
    EXPECT_TRUE(ListedLines(program).empty());
    EXPECT_EQ(ActiveWindowOf(program), program.frame);

    // The second time goes on from there.
    PostMessageA(program.frame, WM_COMMAND, IDM_NOTES_ABOUT, 0);
    const auto areListed = [&] { return StatusPart(program, kAboutPart) == "6000 notes about Genesis 1:1"; };
    WaitUntil(program, "all notes", areListed, 4 * kPatience);  // a busy machine takes a quarter of a minute
    EXPECT_EQ(Progress(), nullptr);
}

static std::uint64_t ProcessorTime(const Program& program) {
    FILETIME created{}, ended{}, kernel{}, user{};
    GetProcessTimes(program.process.get(), &created, &ended, &kernel, &user);
    const auto hundreds = [](const FILETIME& time) {
        return (std::uint64_t{time.dwHighDateTime} << 32) + time.dwLowDateTime;
    };
    return (hundreds(kernel) + hundreds(user)) / 10000;  // milliseconds
}

// When another program has the set open, only what has been read before is known.
TEST(NotesAbout, AreIndexedInIdleTime) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "Ge 1:3"}});
    const Program program = StartProgram(folder);
    const auto asked = [&] {
        const std::wstring data = (program.folder.path / "Mine.nmd").wstring();
        const UniqueHandle held(CreateFileW(data.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        Press(program, "Ctrl+b");
        return StatusPart(program, kAboutPart);
    };
    EXPECT_EQ(asked(), "No notes about Genesis 1:1; 1 set cannot be read");
    Sleep(3500);
    EXPECT_EQ(asked(), "No notes about Genesis 1:1");
    const std::uint64_t before = ProcessorTime(program);
    Sleep(3500);
    EXPECT_LT(ProcessorTime(program) - before, 200U) << "there is nothing left to do";
}

// ---- Ctrl -----------------------------------------------------------------------------------------------------------

static std::string LinkTip(const Program& program) {
    for (const HWND window : TopLevelWindows(program))
        if (ClassOf(window) == TOOLTIPS_CLASSA) return TextOf(window);
    return "";
}

static HCURSOR CursorShown() {
    CURSORINFO shown{};
    shown.cbSize = sizeof shown;
    GetCursorInfo(&shown);
    return shown.hCursor;
}

// Wine asks the display for the keys that are down when a window comes or goes, as the tool tip does, and the display
// does not know of those that are sent to the program.
static void PointWithCtrl(const Program& program, POINT place) {
    MoveMouse(program, NoteViewOf(program), place);
    LetKeysGo(program, "Ctrl");
    HoldKeysDown(program, "Ctrl");
}

static void ClickWithCtrl(const Program& program, POINT place, UINT second = 0) {
    const HWND view = NoteViewOf(program);
    const LPARAM at = MAKELPARAM(place.x, place.y);
    PostMessageA(view, WM_LBUTTONDOWN, MK_CONTROL | MK_LBUTTON, at);
    PostMessageA(view, WM_LBUTTONUP, MK_CONTROL, at);
    if (second != 0) {
        PostMessageA(view, second, MK_CONTROL | MK_LBUTTON, at);
        PostMessageA(view, WM_LBUTTONUP, MK_CONTROL, at);
    }
    Settle(program);
}

// A Greek letter is one in the view, and two bytes of the note.
static constexpr char kNoteWithLinks[] =
    "\xEF\xBB\xBF\xCE\xB1\xCE\xB3\xCE\xAC\xCF\x80\xCE\xB7 see Joh 11:35 and 1Th 5:16-17.\r\n# Ge 1:1; Ex 2:4";

TEST(NoteLinks, ShowAndOpenTheirVersesWithCtrl) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, kNoteWithLinks}, {1, "# Ge 1:3"}});
    const Program program = StartProgram(folder);
    const HWND view = NoteViewOf(program);
    const auto placeOf = [&](std::string_view text) {
        return PointOfCharacter(program, view, TextOf(view).find(text) + 2);
    };
    MoveMouse(program, view, placeOf("Joh 11:35"));
    const HCURSOR plain = CursorShown();
    EXPECT_EQ(LinkTip(program), "");
    HoldKeysDown(program, "Ctrl");
    EXPECT_EQ(LinkTip(program), "John 11:35\r\nJesus wept.") << "the mouse has not moved";
    const HCURSOR hand = CursorShown();
    EXPECT_NE(hand, plain);
    SavePicture(PictureOfScreen(RectOnScreen(program.frame)), "note-link");
    PointWithCtrl(program, placeOf("and"));
    EXPECT_EQ(LinkTip(program), "");
    EXPECT_EQ(CursorShown(), plain);
    PointWithCtrl(program, placeOf("5:16"));
    EXPECT_EQ(LinkTip(program), "1 Thessalonians 5:16-17\r\n16 Rejoice evermore.\r\n17 Pray without ceasing.");
    PointWithCtrl(program, {placeOf("Ex 2:4").x + 200, placeOf("Ex 2:4").y});
    EXPECT_EQ(LinkTip(program), "") << "behind the last letter of a line";
    PointWithCtrl(program, placeOf("Ex 2:4"));
    EXPECT_EQ(LinkTip(program).substr(0, 12), "Exodus 2:4\r\n");
    EXPECT_EQ(CursorShown(), hand);
    LetKeysGo(program, "Ctrl");
    WaitUntil(program, "the tool tip to go", [&] { return LinkTip(program).empty(); });

    // Without Ctrl a click is no other than before.
    Click(program, view, placeOf("Joh 11:35"));
    EXPECT_EQ(Top(program), "Genesis 1:1");
    ClickWithCtrl(program, placeOf("and"));
    EXPECT_EQ(Top(program), "Genesis 1:1");
    ClickWithCtrl(program, placeOf("Joh 11:35"));
    EXPECT_EQ(Top(program), "John 11:35");
    Press(program, "Back");
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, kNotePart), "Genesis 1:1");
    const POINT place = placeOf("Ge 1:1");
    ClickWithCtrl(program, place, WM_LBUTTONDBLCLK);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, kAboutPart), "") << "the second click lists no references";
    DoubleClickNote(program, "Ge 1:1");
    EXPECT_EQ(StatusPart(program, kAboutPart), "x-refs for Genesis 1:1") << "that does a double click without Ctrl";
    ClickWithCtrl(program, placeOf("Ex 2:4"));
    EXPECT_EQ(Top(program), "Exodus 2:4");

    // The line that says that there is no note names its verse, which is no reference.
    EXPECT_EQ(TextOf(view), "No note for Exodus 2:4.");
    PointWithCtrl(program, placeOf("Exodus"));
    EXPECT_EQ(LinkTip(program), "");
    LetKeysGo(program, "Ctrl");
}

TEST(NoteLinks, ShowTheirVersesOnADarkScreenOfDoubleSize) {
    const SystemScaling scaling(192);
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "Versewell.more.ini", "[OPTIONS]\r\nDarkPanes=1\r\n");
    WriteNoteSet(folder, "Mine", {{0, kNoteWithLinks}});
    const Program program = StartProgram(folder);
    const HWND view = NoteViewOf(program);
    const std::size_t reference = TextOf(view).find("1Th");
    PointWithCtrl(program, PointOfCharacter(program, view, reference + 2));
    EXPECT_EQ(LinkTip(program).substr(0, 23), "1 Thessalonians 5:16-17");
    const POINT letters = PointOfCharacter(program, view, reference);
    for (const HWND window : TopLevelWindows(program)) {
        if (ClassOf(window) != TOOLTIPS_CLASSA) continue;
        const RECT place = RectIn(window, view);
        EXPECT_GT(place.top, letters.y + 10) << "below the line";
        EXPECT_NEAR(place.left, letters.x, 4);
    }
    SavePicture(PictureOfScreen(RectOnScreen(program.frame)), "note-link-dark-200");
    LetKeysGo(program, "Ctrl");
}
