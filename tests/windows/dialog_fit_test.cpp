// Every text of every dialog has room in its control, and every dialog on the screen, whatever the scaling.

#include <algorithm>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/helped_dialogs.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/system_scaling.h"
#include "tests/windows/test_printer.h"

namespace {

// At one scaling.
struct Fitting {
    const Program& program;
    int dpi;
};

}  // namespace

static int Scaled(const Fitting& fitting, int pixels) {
    return MulDiv(pixels, fitting.dpi, 96);
}

static SIZE SizeOf(const RECT& place) {
    return {place.right - place.left, place.bottom - place.top};
}

// What the control needs for its text at a width of `width`. Of its own it has at least what Windows draws: the border
// and the focus of a button, the box of a check box and the gap behind it, the ends of a group box.
static SIZE NeededBy(const Fitting& fitting, HWND control, const std::string& text, LONG width) {
    const std::string kind = ClassOf(control);
    const DWORD style = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
    const SIZE line = SizeOfText(fitting.program, control, text);
    if (kind == "Static") {
        const UINT format = (style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
        return SizeOfText(fitting.program, control, text, width, format);
    }
    if (kind == "Edit" || kind == "ComboBox") return {0, line.cy + 4};  // borders are not scaled
    switch (style & BS_TYPEMASK) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON: return {line.cx + Scaled(fitting, 8), line.cy + Scaled(fitting, 6)};
        case BS_GROUPBOX: return {line.cx + Scaled(fitting, 18), line.cy};
        default: return {line.cx + Scaled(fitting, 18), line.cy};
    }
}

static bool HasMeasuredText(HWND control) {
    const std::string kind = ClassOf(control);
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    if (kind == "Static") return (style & SS_TYPEMASK) != SS_ICON && (style & SS_TYPEMASK) != SS_BITMAP;
    return kind == "Button" || (kind == "Edit" && !(style & ES_MULTILINE)) || kind == "ComboBox";
}

// A field shows what the user chooses or types, so only its height is measured, with a letter that reaches up and down.
static void ExpectRoom(const Fitting& fitting, HWND control) {
    const bool isField = ClassOf(control) == "Edit" || ClassOf(control) == "ComboBox";
    const std::string text = isField ? "Ag" : TextOf(control);
    const SIZE size = SizeOf(RectOnScreen(control));
    const SIZE needed = NeededBy(fitting, control, text, size.cx);
    EXPECT_LE(needed.cx, size.cx) << ClassOf(control) << " \"" << text << "\"";
    EXPECT_LE(needed.cy, size.cy) << ClassOf(control) << " \"" << text << "\"";
}

static void ExpectFits(const Fitting& fitting, HWND dialog) {
    const RECT client = ClientRectOf(dialog);
    int measured = 0;
    for (const HWND control : ChildrenOf(dialog)) {
        const RECT place = RectIn(control, dialog);
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right && place.bottom <= client.bottom)
            << ClassOf(control) << " \"" << TextOf(control) << "\" leaves the dialog";
        if (!HasMeasuredText(control)) continue;
        ExpectRoom(fitting, control);
        ++measured;
    }
    EXPECT_TRUE(measured > 0 || ChildrenOf(dialog).size() == 1) << "only a bar may have no text";
}

// One that the program shows while it is busy.
static void ExpectFitsMeanwhile(const Fitting& fitting, const char* title, const std::string& picture) {
    SCOPED_TRACE(title + (" at " + std::to_string(fitting.dpi)) + " dpi");
    const std::vector<HWND> shown = TopLevelWindows(fitting.program);
    const auto found = std::ranges::find_if(shown, [&](HWND window) { return TextOf(window) == title; });
    ASSERT_NE(found, shown.end());
    ExpectFits(fitting, *found);
    const LONG room = SizeOf(ClientRectOf(*found)).cx;
    EXPECT_LT(SizeOfText(fitting.program, *found, title).cx + Scaled(fitting, 30), room) << "beside the close button";
    SavePicture(PictureOfWindow(*found), "fit-" + std::to_string(fitting.dpi) + "-" + picture);
}

static void ExpectOnScreen(HWND dialog) {
    const RECT place = RectOnScreen(dialog);
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
    EXPECT_LE(place.right, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
}

static void ExpectFits(const Fitting& fitting, int command, const std::string& title) {
    const std::string name = std::to_string(fitting.dpi) + "-" + std::to_string(command);
    SCOPED_TRACE(title + " at " + std::to_string(fitting.dpi) + " dpi");
    const Program& program = fitting.program;
    Command(program, command);
    const HWND dialog = WaitForDialog(program, title);
    ExpectFits(fitting, dialog);
    ExpectOnScreen(dialog);
    if (testing::Test::HasFailure()) SavePicture(PictureOfWindow(dialog), "fit-" + name);
    Press(program, "Esc");
    WaitForNoDialog(program);
}

struct DialogsFit : testing::TestWithParam<int> {};

TEST_P(DialogsFit, IntoTheirControls) {
    const SystemScaling scaling(GetParam());
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "My Notes", {{0, "A note."}});
    WriteNoteSet(folder, "Sermons");
    const Program program = StartProgram(folder);
    const Fitting fitting{program, GetParam()};
    ASSERT_EQ(SizeOf(ClientRectOf(Child(program.frame, {IDC_NOTE_EDITOR, IDC_NOTE_SAVE}))).cy, Scaled(fitting, 21))
        << "the program has the scaling";
    for (const HelpedDialog& row : HelpedDialogs()) ExpectFits(fitting, row.command, row.title);
    ExpectFits(fitting, IDM_ABOUT, "About Versewell97");
}

// "Searching..." is still there when the end of the search is told, with the bar at its end.
TEST_P(DialogsFit, WhileNotesAreSearched) {
    const SystemScaling scaling(GetParam());
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "My Notes", {{0, "A note."}});
    const Program program = StartProgram(folder);
    Command(program, IDM_SEARCH_NOTES);
    WaitForDialog(program, "Search Note Set My Notes");
    Type(program, "nowhere");
    Press(program, "Alt+n");
    WaitForDialog(program, "Search Notes");
    ExpectFitsMeanwhile({program, GetParam()}, "Searching...", "search");
    Press(program, "Enter");
    Press(program, "Esc");
    WaitForNoDialog(program);

    // The one with a button has not appeared, because the search ended at once.
    Command(program, IDM_LIST_NOTES);
    WaitForDialog(program, "List Notes");
    Type(program, "nowhere");
    Press(program, "Enter");
    WaitForDialog(program, "Search Results");
    ShowWindow(FindWindowA(nullptr, "Searching..."), SW_SHOWNA);
    ExpectFitsMeanwhile({program, GetParam()}, "Searching...", "list");
}

// It tells the number of a page; the text of the Bible has fewer than 2000.
TEST_P(DialogsFit, WhilePagesArePrinted) {
    const SystemScaling scaling(GetParam());
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPageCount(folder));
    const Program program = StartProgram(folder);
    const HWND dialog = BeginPrinting(program, "Ge - Re");
    WaitUntil(program, "the first page", [&] { return TextOf(dialog, IDC_PRINTED_PAGE).starts_with("Page "); });
    ExpectFitsMeanwhile({program, GetParam()}, "Printing...", "print");
    const HWND line = GetDlgItem(dialog, IDC_PRINTED_PAGE);
    EXPECT_LE(SizeOfText(program, line, "Page 2000").cx, SizeOf(RectOnScreen(line)).cx);
    Press(program, "Esc");
    WaitForNoDialog(program);
}

// ---- The splash -----------------------------------------------------------------------------------------------------

// The splash, of a start that a message box stops.
static HWND SplashOfStart(const Program& program) {
    WaitForDialog(program, "Error");
    for (const HWND window : TopLevelWindows(program))
        if (GetDlgItem(window, IDC_SPLASH_LINE) != nullptr) return window;
    Fail(&program, "there is no splash");
}

// Where the drawing has its golden frame, in pixels at 96 dpi, and what lies on both sides of the line.
static constexpr std::uint32_t kGold = 0xC9A84C, kGround = 0x1B2F52;
static constexpr int kPictureWidth = 420, kPictureHeight = 156, kFrameAt = 8;

// The line is as wide as the scaling says, and sharp: beside it is nothing but the ground. Only a pixel that the line
// covers in part, where the scaling has no whole pixels, may have a colour between. Returns the pixels of the line.
static int ExpectLine(const std::vector<std::uint32_t>& colors, int dpi) {
    int covered = 0;
    for (int at = 0; at < static_cast<int>(colors.size()); ++at) {
        const std::uint32_t color = colors[static_cast<std::size_t>(at)];
        const bool isBeside = (at + 1) * 96 <= kFrameAt * dpi || at * 96 >= (kFrameAt + 1) * dpi;
        const bool isIn = at * 96 >= kFrameAt * dpi && (at + 1) * 96 <= (kFrameAt + 1) * dpi;
        EXPECT_TRUE(!isBeside || color == kGround) << at;
        EXPECT_TRUE(!isIn || color == kGold) << at;
        covered += isIn;
    }
    return covered;
}

// From each of the four edges inwards.
static void ExpectFrame(const Picture& picture, int dpi) {
    const int depth = MulDiv(kFrameAt + 2, dpi, 96);
    std::vector<std::uint32_t> edges[4];
    for (int at = 0; at < depth; ++at) {
        edges[0].push_back(ColorAt(picture, at, picture.height / 2));
        edges[1].push_back(ColorAt(picture, picture.width - 1 - at, picture.height / 2));
        edges[2].push_back(ColorAt(picture, picture.width / 2, at));
        edges[3].push_back(ColorAt(picture, picture.width / 2, picture.height - 1 - at));
    }
    for (const auto& edge : edges) EXPECT_GE(ExpectLine(edge, dpi), 1);
}

TEST_P(DialogsFit, WhileTheProgramStarts) {
    const int dpi = GetParam();
    const SystemScaling scaling(dpi);
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "My Notes.nmd", "mine");
    Program program = LaunchProgram(folder);
    const HWND splash = SplashOfStart(program), box = WaitForDialog(program, "Error");
    ShowWindow(box, SW_HIDE);
    const RECT client = ClientRectOf(splash), line = RectIn(GetDlgItem(splash, IDC_SPLASH_LINE), splash);
    const RECT drawn = RectIn(GetWindow(splash, GW_CHILD), splash);
    EXPECT_EQ(SizeOf(drawn).cx, MulDiv(kPictureWidth, dpi, 96));
    EXPECT_EQ(SizeOf(drawn).cy, MulDiv(kPictureHeight, dpi, 96));
    EXPECT_EQ(drawn.left, 0);
    EXPECT_EQ(drawn.top, 0);
    EXPECT_EQ(drawn.right, client.right);
    EXPECT_GE(line.top, drawn.bottom);
    EXPECT_LT(line.bottom, client.bottom);
    EXPECT_GE(line.bottom - line.top, MulDiv(8, dpi, 72)) << "a font of 8 points";
    EXPECT_NEAR(line.left - drawn.left, drawn.right - line.right, 1);
    const Picture picture = PictureOfScreen(RectOnScreen(GetWindow(splash, GW_CHILD)));
    SavePicture(PictureOfWindow(splash), "fit-splash-" + std::to_string(dpi));
    ExpectFrame(picture, dpi);
    ShowWindow(box, SW_SHOWNA);
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
}

static std::vector<int> Scalings() {
    return IsLongRun() ? std::vector<int>{96, 120, 144, 192, 288} : std::vector<int>{96, 192, 288};
}

INSTANTIATE_TEST_SUITE_P(Scalings, DialogsFit, testing::ValuesIn(Scalings()),
                         [](const auto& row) { return std::to_string(row.param) + "Dpi"; });
