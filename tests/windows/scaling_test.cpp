// The program on screens with other scalings than 100 percent: started there, or brought there while it runs.
//
// Wine has one scaling for all screens and never sends WM_DPICHANGED, so the tests send it. What the system itself
// scales on Windows, such as menus and scroll bars, then stays as it was.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"

static constexpr RECT kPlace{0, 0, 1200, 900};

static std::vector<int> Scalings() {
    if (IsLongRun()) return {120, 144, 168, 192, 240, 288};
    return {144, 288};
}

// What the system sends when the frame comes to a screen with `dpi`.
static void BringToScreen(const Program& program, int dpi, RECT place) {
    AskAbout(program, program.frame, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), place);
    Settle(program);
}

static HWND Passage(const Program& program) {
    return Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
}

static Program StartWithSearch() {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    PlaceFrame(program, kPlace);
    ReleaseMouse(program);
    return program;
}

// ---- A frame that comes to another screen ---------------------------------------------------------------------------

namespace {

// Of one window: its height if that follows from the scaling, and what is drawn in it.
struct LookOfPart {
    const char* name;
    int height;
    Picture picture;
    int mostDifference = 0;  // of the height
};

}  // namespace

static Picture UpperLeft(HWND window, int left, int width, int height) {
    const RECT whole = RectOnScreen(window);
    return PictureOfScreen({whole.left + left, whole.top, std::min<LONG>(whole.right, whole.left + left + width),
                            std::min<LONG>(whole.bottom, whole.top + height)});
}

static int HeightOf(HWND window) {
    const RECT place = RectOnScreen(window);
    return static_cast<int>(place.bottom - place.top);
}

static int CaretHeight(const Program& program) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(program.threadId, &info);
    return static_cast<int>(info.rcCaret.bottom - info.rcCaret.top);
}

static int HeightOfReference(const Program& program) {
    const HWND list = Child(program.frame, {IDC_LIST_TABS, IDC_REFERENCE_LIST});
    return static_cast<int>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
}

// The Passage has the focus, so that the caret blinks nowhere else than at its left edge.
static std::vector<LookOfPart> LookOf(const Program& program, int dpi) {
    const auto scaled = [dpi](int pixels) { return MulDiv(pixels, dpi, 96); };
    const HWND toolbar = Child(program.frame, {IDC_TOOLBAR}), statusBar = Child(program.frame, {IDC_STATUS_BAR});
    const HWND list = Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
    const HWND note = Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES});
    Click(program, Passage(program), {scaled(60), scaled(60)});
    ReleaseMouse(program);
    std::vector<LookOfPart> look;
    look.push_back({"toolbar", HeightOf(toolbar), UpperLeft(toolbar, 0, 1000, 200)});
    // Wine makes it at least as high as the buttons of captions, which are those of the system's scaling.
    look.push_back({"status bar", HeightOf(statusBar), {}, scaled(2)});
    for (const int tabs : {IDC_LIST_TABS, IDC_PASSAGE_TABS, IDC_NOTE_TABS})
        look.push_back({"tabs", 0, UpperLeft(Child(program.frame, {tabs}), 0, scaled(150), scaled(25))});
    look.push_back({"Passage", CaretHeight(program), UpperLeft(Passage(program), scaled(5), scaled(70), scaled(18))});
    look.push_back({"Verse List", 0, UpperLeft(list, 0, scaled(100), scaled(20))});
    look.push_back({"note", 0, UpperLeft(note, 0, scaled(150), scaled(25))});
    look.push_back({"Reference List", HeightOfReference(program), {}});
    OpenNoteEditor(program);
    const HWND editor = Child(program.frame, {IDC_NOTE_EDITOR});
    const HWND button = Child(editor, {IDC_NOTE_SAVE});
    look.push_back({"editor", HeightOf(button), UpperLeft(editor, 0, scaled(180), scaled(21))});
    Press(program, "Esc");
    return look;
}

static void ExpectEqualLooks(const std::vector<LookOfPart>& looks, const std::vector<LookOfPart>& others) {
    ASSERT_EQ(looks.size(), others.size());
    for (std::size_t part = 0; part < looks.size(); ++part) {
        SCOPED_TRACE(looks[part].name);
        EXPECT_NEAR(looks[part].height, others[part].height, looks[part].mostDifference);
        const RECT differing = DifferingArea(looks[part].picture, others[part].picture);
        EXPECT_TRUE(IsRectEmpty(&differing))
            << differing.left << "," << differing.top << " - " << differing.right << "," << differing.bottom;
        if (IsRectEmpty(&differing)) continue;
        SavePicture(looks[part].picture, std::string("scaling-one-") + looks[part].name);
        SavePicture(others[part].picture, std::string("scaling-other-") + looks[part].name);
    }
}

static std::vector<LookOfPart> LookOfStartAt(int dpi) {
    const SystemScaling scaling(dpi);
    const Program program = StartWithSearch();
    SavePicture(PictureOfWindow(program.frame), "scaling-started-" + std::to_string(dpi));
    return LookOf(program, dpi);
}

TEST(Scaling, OfAnotherScreenLooksLikeAStartThere) {
    const Program program = StartWithSearch();
    const std::vector<LookOfPart> before = LookOf(program, 96);
    for (const int dpi : Scalings()) {
        SCOPED_TRACE(dpi);
        BringToScreen(program, dpi, kPlace);
        SavePicture(PictureOfWindow(program.frame), "scaling-brought-" + std::to_string(dpi));
        ExpectEqualLooks(LookOf(program, dpi), LookOfStartAt(dpi));
    }
    BringToScreen(program, 96, kPlace);
    ExpectEqualLooks(LookOf(program, 96), before);
}

static std::string PlaceText(const RECT& place) {
    return std::to_string(place.left) + "," + std::to_string(place.top) + " - " + std::to_string(place.right) + "," +
           std::to_string(place.bottom);
}

TEST(Scaling, OfAnotherScreenTakesThePlaceThatTheSystemGives) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {50, 40, 650, 490});
    BringToScreen(program, 144, {100, 60, 1000, 735});
    EXPECT_EQ(PlaceText(RectOnScreen(program.frame)), "100,60 - 1000,735");
    const RECT notes = RectIn(Child(program.frame, {IDC_NOTE_TABS}), program.frame);
    const RECT client = ClientRectOf(program.frame);
    EXPECT_EQ(notes.right, client.right);
    EXPECT_EQ(notes.bottom, client.bottom - HeightOf(Child(program.frame, {IDC_STATUS_BAR})));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(program.folder, "MISC", "XPos"), "100");
    EXPECT_EQ(Setting(program.folder, "MISC", "YPos"), "60");
    EXPECT_EQ(Setting(program.folder, "MISC", "Width"), "900");
    EXPECT_EQ(Setting(program.folder, "MISC", "Height"), "675");
    EXPECT_EQ(Setting(program.folder, "OPTIONS", "ReadWindowFontHeight"), "16");
}

TEST(Scaling, OfAnotherScreenKeepsWhatIsShownAndTyped) {
    Program program = StartWithSearch();
    GoTo(program, "John 3:16");
    OpenNoteEditor(program);
    Type(program, "typed");
    const auto place = RichSelection(program, NoteEditOf(program));
    const HWND focus = FocusOf(program);
    const std::vector<std::string> parts{StatusPart(program, 0), StatusPart(program, 1), StatusPart(program, 3)};
    for (const int dpi : {192, 96}) {
        BringToScreen(program, dpi, kPlace);
        EXPECT_EQ(TextOf(NoteEditOf(program)), "typed");
        EXPECT_EQ(RichSelection(program, NoteEditOf(program)).start, place.start);
        EXPECT_EQ(FocusOf(program), focus);
        EXPECT_EQ(std::vector<std::string>({StatusPart(program, 0), StatusPart(program, 1), StatusPart(program, 3)}),
                  parts);
    }
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "") << "what was typed can still be undone";
}

// A minimized frame has no room to lay anything out in.
TEST(Scaling, OfAnotherScreenIsTakenWhileMinimized) {
    const Program program = StartWithSearch();
    ShowWindow(program.frame, SW_MINIMIZE);
    Settle(program);
    BringToScreen(program, 144, RectOnScreen(program.frame));
    ShowWindow(program.frame, SW_RESTORE);
    Settle(program);
    ReleaseMouse(program);
    PlaceFrame(program, kPlace);
    ExpectEqualLooks(LookOf(program, 144), LookOfStartAt(144));
}

static LONG WidthOfTab(const Program& program) {
    RECT tab{};
    AskAbout(program, Child(program.frame, {IDC_PASSAGE_TABS}), TCM_GETITEMRECT, 0, tab);
    return tab.right - tab.left;
}

TEST(Scaling, GrowsTheRoomAroundTheTextsOfTabs) {
    const Program program = StartWithSearch();
    const LONG width = WidthOfTab(program);
    BringToScreen(program, 288, kPlace);
    EXPECT_NEAR(static_cast<double>(WidthOfTab(program)), 3.0 * static_cast<double>(width), 20);
}
