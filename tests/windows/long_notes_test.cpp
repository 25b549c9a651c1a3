// Notes that are long: of many lines, and of one line that is as long as a note can be.

#include <windows.h>

#include <richedit.h>

#include <algorithm>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

static constexpr int kPlace = 50000;  // of a word

static std::string LongLine(std::size_t size) {
    std::string line;
    for (int word = 0; line.size() < size; ++word) line += static_cast<char>('a' + word * 7 % 26);
    line.resize(size);
    return line;
}

static std::string LongLineWithWord() {
    return LongLine(60000).replace(kPlace, 8, " amidst ");
}

static std::string LongLineWithNumbers() {
    std::string line;
    for (int number = 0; line.size() < 20000; ++number) line += "word" + std::to_string(number) + '-';
    return line + " amidst.";
}

static std::string ManyLines() {
    std::string lines;
    for (int line = 1; lines.size() < 30000; ++line) lines += "line " + std::to_string(line) + " of this note\r\n";
    return lines + "the end of it";
}

static Program ProgramWithNotes(const std::map<int, std::string>& notes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", notes);
    return StartProgram(folder);
}

// Searches the notes and returns what is selected then, in the text of the view.
static TextSelection SelectionAfterSearch(const Program& program, const std::string& text) {
    Press(program, "Alt+t");
    WaitForDialog(program, "Search Note Set Mine");
    Type(program, text);
    Press(program, "Enter");
    Settle(program);
    const TextSelection found = RichSelection(program, NoteViewOf(program));
    Press(program, "Esc");
    WaitForNoDialog(program);
    return found;
}

static void ExpectCopiedWhole(const Program& program, const std::string& note) {
    SetClipboardText("nothing yet");
    Click(program, NoteViewOf(program), {5, 5});
    Press(program, "Ctrl+a");
    Command(program, IDM_COPY);
    EXPECT_TRUE(ClipboardText() == note);
}

// ---- In the Notes window --------------------------------------------------------------------------------------------

TEST(LongNote, IsShownSearchedAndCopied) {
    for (const std::string& note :
         {ManyLines().insert(20000, " amidst "), LongLineWithWord() + "\r\nlast", LongLineWithNumbers()}) {
        Program program = ProgramWithNotes({{0, note}, {1, "short"}});
        const HWND view = NoteViewOf(program);
        Command(program, IDM_NEXT_NOTE);
        EXPECT_EQ(TextOf(view), "short");
        Command(program, IDM_PREVIOUS_NOTE);
        EXPECT_TRUE(TextOf(view) == note);
        SavePicture(PictureOfWindow(program.frame), note.size() > 40000 ? "long-line" : "long-note");
        const TextSelection found = SelectionAfterSearch(program, "amidst");
        EXPECT_EQ(found.start, static_cast<int>(note.find("amidst")));
        EXPECT_EQ(found.end, found.start + 6);
        ExpectCopiedWhole(program, note);
    }
}

// The view lays out the beginning first. Whoever asks it must not see that.
TEST(LongNote, IsWholeForWhoeverAsks) {
    const std::string note = ManyLines();
    Program program = ProgramWithNotes({{0, note}, {1, "short"}});
    const HWND view = NoteViewOf(program);
    const LRESULT lines = SendMessageA(view, EM_GETLINECOUNT, 0, 0);
    EXPECT_GT(lines, 1000);
    const auto showAgain = [&] {
        SendMessageA(program.frame, WM_COMMAND, IDM_NEXT_NOTE, 0);
        SendMessageA(program.frame, WM_COMMAND, IDM_PREVIOUS_NOTE, 0);
    };
    for (int round = 0; round < 5; ++round) {
        showAgain();
        EXPECT_EQ(SendMessageA(view, EM_GETLINECOUNT, 0, 0), lines);
        showAgain();
        EXPECT_EQ(SendMessageA(view, WM_GETTEXTLENGTH, 0, 0), static_cast<LRESULT>(note.size()));
        showAgain();
        SendMessageA(view, WM_VSCROLL, SB_BOTTOM, 0);
        EXPECT_GT(SendMessageA(view, EM_GETFIRSTVISIBLELINE, 0, 0), lines / 2);
        showAgain();
        EXPECT_EQ(SendMessageA(view, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
    }
}

TEST(LongNote, LooksTheSameBeforeAndAfterItIsAsked) {
    Program program = ProgramWithNotes({{0, ManyLines()}, {1, "short"}});
    const HWND view = NoteViewOf(program);
    Command(program, IDM_NEXT_NOTE);
    Command(program, IDM_PREVIOUS_NOTE);
    const Picture before = PictureOfWindow(view);
    EXPECT_GT(SendMessageA(view, WM_GETTEXTLENGTH, 0, 0), 30000);
    RedrawWindow(view, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    Settle(program);
    EXPECT_TRUE(PictureOfWindow(view).pixels == before.pixels) << "text and scroll bar";
}

static std::string Tabs() {
    return std::string(65000, '\t') + "amidst";
}

static std::string EmptyLines() {
    std::string lines;
    while (lines.size() < 60000) lines += "\r\n";
    return lines + "amidst";
}

// The control needs most of a minute to remove such a text.
TEST(LongNote, IsLeftAtOnce) {
    Program program = ProgramWithNotes({{0, Tabs()}, {1, "short"}, {2, EmptyLines()}, {3, "last"}});
    for (const int look : {IDM_DARK_ON, IDM_DARK_OFF}) {
        Command(program, look);
        Command(program, IDM_FOCUS_NOTES);
        Command(program, IDM_NEXT_NOTE);
        const RECT place = RectOnScreen(NoteViewOf(program));
        const Picture brief = PictureOfWindow(NoteViewOf(program));
        const std::pair<int, std::string> steps[] = {{IDM_NEXT_NOTE, EmptyLines()},     {IDM_NEXT_NOTE, "last"},
                                                     {IDM_PREVIOUS_NOTE, EmptyLines()}, {IDM_PREVIOUS_NOTE, "short"},
                                                     {IDM_PREVIOUS_NOTE, Tabs()},       {IDM_NEXT_NOTE, "short"}};
        for (const auto& [command, shown] : steps) {
            Command(program, command);
            EXPECT_TRUE(TextOf(NoteViewOf(program)) == shown);
            EXPECT_EQ(FocusOf(program), NoteViewOf(program));
        }
        const RECT now = RectOnScreen(NoteViewOf(program));
        EXPECT_TRUE(EqualRect(&now, &place));
        EXPECT_TRUE(PictureOfWindow(NoteViewOf(program)).pixels == brief.pixels) << "font, frame and colours";
        ExpectCopiedWhole(program, "short");
        Command(program, IDM_PREVIOUS_NOTE);
    }
}

// The view goes on to show what is selected without having the focus.
TEST(LongNote, IsLeftWhileNotesAreSearched) {
    Program program = ProgramWithNotes({{0, Tabs()}, {1, EmptyLines()}});
    Command(program, IDM_NEXT_NOTE);
    Press(program, "Alt+t");
    WaitForDialog(program, "Search Note Set Mine");
    Type(program, "amidst");
    Press(program, "Enter");
    EXPECT_TRUE(TextOf(NoteViewOf(program)) == Tabs());
    EXPECT_EQ(RichSelection(program, NoteViewOf(program)).start, static_cast<int>(Tabs().size()) - 6);
    EXPECT_TRUE(SendMessageA(NoteViewOf(program), EM_GETOPTIONS, 0, 0) & ECO_NOHIDESEL);
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_FALSE(SendMessageA(NoteViewOf(program), EM_GETOPTIONS, 0, 0) & ECO_NOHIDESEL);
}

// ---- In a window that is resized ------------------------------------------------------------------------------------

static void ScrollToEnd(const Program& program, HWND text) {
    SendMessageA(text, WM_VSCROLL, SB_BOTTOM, 0);
    Settle(program);
}

static Picture PaintedAgain(const Program& program, HWND text) {
    RedrawWindow(text, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    Settle(program);
    return PictureOfWindow(text);
}

// At least a twentieth of an area with lines is not white.
static bool HasLines(const Picture& picture) {
    static constexpr int kFrame = 3, kScrollBar = 20;
    const RECT inside{kFrame, kFrame, std::min(picture.width - kScrollBar, 150), picture.height - kFrame};
    const int size = static_cast<int>((inside.right - inside.left) * (inside.bottom - inside.top));
    return CountPixels(picture, inside, 0xFFFFFF) < size / 20 * 19;
}

static void ExpectEndIsShown(const Program& program, HWND text, const char* when) {
    const Picture shown = PictureOfWindow(text);
    EXPECT_TRUE(HasLines(shown)) << when;
    EXPECT_TRUE(PaintedAgain(program, text).pixels == shown.pixels) << when;
    ScrollToEnd(program, text);
    EXPECT_TRUE(PaintedAgain(program, text).pixels == shown.pixels) << when << " it is not at the end";
}

static void Order(const Program& program, WPARAM order) {
    PostMessageA(program.frame, WM_SYSCOMMAND, order, 0);
    Settle(program);
}

// A text that needs less height in the new size, and had been scrolled to its end. The caret is where it was.
static void ExpectShownInEachSize(const Program& program, HWND text) {
    static constexpr RECT kNarrow{0, 0, 420, 700};
    PlaceFrame(program, kNarrow);
    ScrollToEnd(program, text);
    PlaceFrame(program, {0, 0, 1200, 700});
    ExpectEndIsShown(program, text, "wider");
    PlaceFrame(program, {0, 0, 1200, 950});
    ExpectEndIsShown(program, text, "higher");
    PlaceFrame(program, kNarrow);
    ScrollToEnd(program, text);
    Order(program, SC_MAXIMIZE);
    ExpectEndIsShown(program, text, "maximized");
    Order(program, SC_RESTORE);
    const Picture restored = PictureOfWindow(text);
    EXPECT_TRUE(HasLines(restored));
    EXPECT_TRUE(PaintedAgain(program, text).pixels == restored.pixels);
}

static std::string WideLines() {
    std::string lines;
    for (int line = 1; lines.size() < 20000; ++line)
        lines += "line " + std::to_string(line) + " of a note whose lines are wider than a narrow window is\r\n";
    return lines + "the end of it";
}

TEST(LongNote, IsShownInEachSizeOfTheWindow) {
    Program program = ProgramWithNotes({{0, WideLines()}});
    const HWND view = NoteViewOf(program);
    ExpectShownInEachSize(program, view);
}

TEST(LongNote, IsShownInEachSizeOfTheEditor) {
    Program program = ProgramInEditor(WideLines());
    const HWND edit = NoteEditOf(program);
    Command(program, IDM_FOCUS_PASSAGE);  // so that no caret blinks
    ExpectShownInEachSize(program, edit);
    Click(program, edit);
    Press(program, "Ctrl+End");
    Command(program, IDM_FOCUS_PASSAGE);
    ExpectShownInEachSize(program, edit);
}

// ---- In the editor --------------------------------------------------------------------------------------------------

TEST(LongLine, IsEditedAsItIsStored) {
    const std::string line = LongLineWithWord();
    Program program = ProgramInEditor(line + "\r\nlast");
    EXPECT_TRUE(TextInEditor(program) == line + "\r\nlast");
    const HWND edit = NoteEditOf(program);
    Click(program, edit, PointOfCharacter(program, edit, 20));
    Type(program, "Y");
    SelectRich(program, edit, {kPlace + 1, kPlace + 1});
    Type(program, "Z");
    SavePicture(PictureOfWindow(program.frame), "long-line-editor");
    const std::string changed = std::string(line).insert(20, "Y").insert(kPlace + 1, "Z") + "\r\nlast";
    EXPECT_TRUE(TextInEditor(program) == changed);
    Press(program, "Ctrl+s");
    EXPECT_TRUE(StoredEdit(program) == changed);
    EXPECT_TRUE(TextOf(NoteViewOf(program)) == changed);
}

static std::string Repeated(const std::string& part) {
    std::string line;
    while (line.size() < 60000) line += part;
    return line;
}

static std::string BytesFrom(int first, int last) {
    std::string bytes;
    for (int byte = first; byte <= last; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

// Each is of characters that the system measures in another way, or regards as many words.
TEST(LongLine, MayHaveAnyCharacters) {
    for (const std::string& part :
         {std::string("0123456789"), std::string("%"), std::string("1 "), std::string("1,2;3:4"), std::string("a1"),
          std::string("a,b ; "), BytesFrom('!', '~'), BytesFrom(0x80, 0x9F), BytesFrom(0xA0, 0xFF)}) {
        const std::string line = Repeated(part);
        Program program = StartProgram(FolderToEdit(line));
        const HWND view = NoteViewOf(program);
        EXPECT_TRUE(TextOf(view) == line) << part;
        const LRESULT rows = SendMessageA(view, EM_GETLINECOUNT, 0, 0);
        EXPECT_GT(rows, 200) << part;
        OpenNoteEditor(program);
        EXPECT_TRUE(TextInEditor(program) == line) << part;
        SelectRich(program, NoteEditOf(program), {kPlace, kPlace});
        Type(program, "xy");
        Press(program, "Back");
        const std::string changed = std::string(line).insert(kPlace, "x");
        EXPECT_TRUE(TextInEditor(program) == changed) << part;
        Press(program, "Ctrl+s");
        EXPECT_TRUE(StoredEdit(program) == changed) << part;
        Command(program, IDM_NEXT_NOTE);
        EXPECT_EQ(TextOf(view), "Of another verse.");
    }
}

TEST(LongLine, IsPastedAndTakenBackInOneStep) {
    const std::string line = LongLine(50000);
    Program program = ProgramInEditor("before and after");
    SelectRich(program, NoteEditOf(program), {7, 7});
    SetClipboardText(line);
    Press(program, "Ctrl+v");
    const std::string pasted = "before " + line + "and after";
    EXPECT_TRUE(TextInEditor(program) == pasted);
    Type(program, "xy");
    EXPECT_TRUE(TextInEditor(program) == "before " + line + "xyand after");
    Press(program, "Ctrl+z");
    EXPECT_TRUE(TextInEditor(program) == pasted);
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextInEditor(program), "before and after");
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO));
    Press(program, "Ctrl+y");
    EXPECT_TRUE(TextInEditor(program) == pasted);
    Press(program, "Ctrl+a");
    Press(program, "Ctrl+x");
    EXPECT_EQ(TextInEditor(program), "");
    EXPECT_TRUE(ClipboardText() == pasted);
    Press(program, "Ctrl+z");
    EXPECT_TRUE(TextInEditor(program) == pasted);
    Press(program, "Ctrl+s");
    EXPECT_TRUE(StoredEdit(program) == pasted);
}

TEST(LongLine, GrowsByPastes) {
    const std::string part = LongLine(2500);
    Program program = ProgramInEditor("");
    SetClipboardText(part);
    std::string whole;
    for (int times = 0; times < 8; ++times) {
        Press(program, "Ctrl+v");
        whole += part;
    }
    EXPECT_TRUE(TextInEditor(program) == whole);
    for (int times = 0; times < 8; ++times) {
        Press(program, "Ctrl+z");
        whole.resize(whole.size() - part.size());
        EXPECT_TRUE(TextInEditor(program) == whole) << times;
    }
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO));
}

// ---- Ctrl with arrow keys -------------------------------------------------------------------------------------------

namespace {

// The control keeps the end of the selection that keys move at `caret`.
struct Ends {
    int anchor = 0;
    int caret = 0;
};

}  // namespace

static void ExpectSelected(const Program& program, const Ends& ends, const std::string& keys) {
    const TextSelection selected = RichSelection(program, NoteEditOf(program));
    ASSERT_EQ(selected.start, std::min(ends.anchor, ends.caret)) << keys;
    ASSERT_EQ(selected.end, std::max(ends.anchor, ends.caret)) << keys;
    const POINT caret = PointOfCharacter(program, NoteEditOf(program), static_cast<std::size_t>(ends.caret));
    const RECT client = ClientRectOf(NoteEditOf(program));
    ASSERT_TRUE(caret.y > 0 && caret.y < client.bottom) << keys << " leads out of sight";
}

static int NextStop(const std::vector<int>& stops, int place, bool isRight) {
    if (isRight) {
        const auto next = std::upper_bound(stops.begin(), stops.end(), place);
        return next == stops.end() ? stops.back() : *next;
    }
    const auto next = std::lower_bound(stops.begin(), stops.end(), place);
    return next == stops.begin() ? stops.front() : *(next - 1);
}

// Puts the caret where it is told, and with Shift one end of the selection where the keys would move it.
static void PressArrow(const Program& program, const std::vector<int>& stops, Ends& ends, const std::string& keys) {
    const bool isRight = keys.ends_with("Right"), isByWord = keys.find("Ctrl") != keys.npos;
    const int last = stops.back();
    ends.caret = isByWord ? NextStop(stops, ends.caret, isRight) : std::clamp(ends.caret + (isRight ? 1 : -1), 0, last);
    if (keys.find("Shift") == keys.npos) ends.anchor = ends.caret;
    Press(program, keys);
    ExpectSelected(program, ends, keys);
}

// Letter by letter, which it was before, this takes minutes.
TEST(LongLine, IsWalkedWordByWord) {
    static constexpr int kLength = 60000, kWord = kPlace + 1, kBehind = kWord + 7;
    const std::string line = LongLineWithWord();
    const std::vector<int> stops{0, kWord, kBehind, kLength};
    Program program = ProgramInEditor(line);
    const HWND edit = NoteEditOf(program);
    Ends ends;
    const auto press = [&](const std::vector<std::string>& all) {
        for (const std::string& keys : all) {
            PressArrow(program, stops, ends, keys);
            if (testing::Test::HasFatalFailure()) return;
        }
    };
    press({"Ctrl+Right", "Ctrl+Right", "Ctrl+Right", "Ctrl+Right", "Ctrl+Left", "Ctrl+Left", "Ctrl+Left", "Ctrl+Left"});
    press({"Ctrl+Shift+Right", "Ctrl+Shift+Right", "Ctrl+Shift+Right", "Shift+Left", "Ctrl+Shift+Left",
           "Ctrl+Shift+Left", "Ctrl+Shift+Left", "Ctrl+Shift+Right"});
    SelectRich(program, edit, {30000, 30000});
    ends = {30000, 30000};
    press({"Ctrl+Shift+Left", "Shift+Right", "Ctrl+Shift+Right", "Ctrl+Shift+Left", "Shift+Right", "Shift+Right",
           "Ctrl+Shift+Left", "Ctrl+Shift+Right", "Ctrl+Shift+Right", "Ctrl+Shift+Right", "Ctrl+Shift+Left"});
    Type(program, "x");
    EXPECT_TRUE(TextInEditor(program) == std::string(line).replace(30000, kBehind - 30000, "x"));
}

TEST(LongLine, HasItsSelectionMovedByWords) {
    std::mt19937 random(11);
    std::string line;
    std::vector<int> stops{0};
    for (int word = 0; word < 25; ++word) {
        line += std::string(1 + random() % 400, static_cast<char>('a' + word)) + (word % 5 == 0 ? "   " : " ");
        stops.push_back(static_cast<int>(line.size()));
    }
    Program program = ProgramInEditor(line);
    Ends ends;
    for (int press = 0; press < 40 && !HasFatalFailure(); ++press) {
        const std::string shift = random() % 3 == 0 ? "" : "Shift+", control = random() % 5 == 0 ? "" : "Ctrl+";
        const bool isRight = random() % 100 < (press < 20 ? 60 : 40);
        PressArrow(program, stops, ends, shift + control + (isRight ? "Right" : "Left"));
    }
}

// The keys that go by rows and pages, and those that delete.
TEST(LongLine, AnswersEachKey) {
    const std::string line = LongLine(60000);
    Program program = ProgramInEditor(line);
    for (const char* keys :
         {"Ctrl+End", "PgUp", "PgDn", "Up", "Ctrl+Up", "Ctrl+Down", "Shift+PgUp", "Ctrl+PgUp", "Ctrl+PgDn", "Home",
          "End", "Ctrl+Home", "PgDn", "Down", "Ctrl+Shift+End", "Ctrl+Shift+Home"})
        Press(program, keys);
    EXPECT_TRUE(TextInEditor(program) == line);
    SelectRich(program, NoteEditOf(program), {kPlace, kPlace});
    for (const char* keys : {"Ctrl+Delete", "Ctrl+Back", "Delete", "Back"}) Press(program, keys);
    EXPECT_EQ(TextInEditor(program).size(), line.size() - 4);
    Press(program, "Ctrl+Home");
    DoubleClick(program, NoteEditOf(program), PointOfCharacter(program, NoteEditOf(program), 20));
    Press(program, "Ctrl+s");
    EXPECT_EQ(StoredEdit(program), line.substr(0, kPlace - 2) + line.substr(kPlace + 2));
}

// ---- Tabs and empty lines -------------------------------------------------------------------------------------------

TEST(LongNote, IsClosedAtOnce) {
    for (const std::string& note : {Tabs(), EmptyLines()}) {
        Program program = ProgramInEditor(note);
        Command(program, IDM_DARK_ON);
        const RECT place = RectOnScreen(NoteEditOf(program));
        const std::uint32_t paper = ColorAt(PictureOfWindow(NoteEditOf(program)), 500, 100);
        ClickEditorButton(program, IDC_NOTE_CANCEL);
        EXPECT_FALSE(IsShown(NoteEditorOf(program)));
        OpenNoteEditor(program);
        EXPECT_EQ(FocusOf(program), NoteEditOf(program));
        const RECT again = RectOnScreen(NoteEditOf(program));
        EXPECT_TRUE(EqualRect(&again, &place));
        EXPECT_EQ(ColorAt(PictureOfWindow(NoteEditOf(program)), 500, 100), paper);
        EXPECT_TRUE(IsGreyed(program, IDM_UNDO));
        Type(program, "x");
        EXPECT_TRUE(TextInEditor(program) == "x" + note);
        Press(program, "Ctrl+z");
        EXPECT_TRUE(TextInEditor(program) == note);
        Type(program, "y");
        Press(program, "Ctrl+s");
        EXPECT_FALSE(IsShown(NoteEditorOf(program)));
        EXPECT_TRUE(StoredEdit(program) == "y" + note);
        EXPECT_TRUE(TextOf(NoteViewOf(program)) == "y" + note);
        Command(program, IDM_NEXT_NOTE);
        OpenNoteEditor(program);
        EXPECT_EQ(TextInEditor(program), "Of another verse.");
        for (const char* keys : {"Ctrl+Tab", "Ctrl+Shift+Tab"}) Press(program, keys);
        EXPECT_EQ(FocusOf(program), NoteEditOf(program));
        Press(program, "Esc");
        EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    }
}
