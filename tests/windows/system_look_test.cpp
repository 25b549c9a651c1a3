// How the program follows the system's colours, fonts and themes. For dark reading panes see dark_panes_test.cpp.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/system_look.h"
#include "typeset/pane_colors.h"

using enum Style;

// Colours that no other scheme has, so that each is found again.
static const ColorScheme kOddColors = {{COLOR_WINDOW, RGB(250, 240, 200)},      {COLOR_WINDOWTEXT, RGB(60, 0, 20)},
                                       {COLOR_HIGHLIGHT, RGB(0, 110, 70)},      {COLOR_BTNFACE, RGB(190, 205, 225)},
                                       {COLOR_HIGHLIGHTTEXT, RGB(255, 250, 1)}, {COLOR_BTNTEXT, RGB(3, 50, 90)}};

// ---- Colours --------------------------------------------------------------------------------------------------------

// Whether nearly all of a window has the colour of the system.
static std::string WrongBackground(HWND window, int element) {
    const Picture picture = PictureOfClient(window);
    const RECT all = ClientRectOf(window);
    const int count = CountPixels(picture, all, InPicture(GetSysColor(element))),
              pixels = picture.width * picture.height;
    return count > pixels / 2 ? ""
                              : ClassOf(window) + " has " + std::to_string(count) + " of " + std::to_string(pixels);
}

static int CountOf(HWND window, int element) {
    return CountPixels(PictureOfClient(window), ClientRectOf(window), InPicture(GetSysColor(element)));
}

static void ExpectColorsOfSystem(const Program& program) {
    const HWND list = VerseListOf(program), note = NoteViewOf(program);
    EXPECT_EQ(
        WrongLines(
            list,
            {{{{kBold, "*Ge 6:8 "}, {kRegular, "But Noah found "}, {kBold, "grace", GetSysColor(COLOR_HIGHLIGHT)}}}}),
        "");
    for (const HWND pane : {list, PassageOf(program), note}) EXPECT_EQ(WrongBackground(pane, COLOR_WINDOW), "");
    for (const HWND pane : {PassageOf(program), note}) EXPECT_GT(CountOf(pane, COLOR_WINDOWTEXT), 50) << ClassOf(pane);
    for (const int bar : {IDC_TOOLBAR, IDC_STATUS_BAR})
        EXPECT_EQ(WrongBackground(Child(program.frame, {bar}), COLOR_BTNFACE), "");
    EXPECT_GT(CountOf(Child(program.frame, {IDC_STATUS_BAR}), COLOR_BTNTEXT), 50);
}

static void ExpectColorsOfSystemInOtherViews(const Program& program) {
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    EXPECT_EQ(WrongBackground(ReferenceListOf(program), COLOR_WINDOW), "");
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 0);
    OpenNoteEditor(program);
    EXPECT_EQ(WrongBackground(NoteEditOf(program), COLOR_WINDOW), "");
    EXPECT_GT(CountOf(NoteEditOf(program), COLOR_WINDOWTEXT), 50);
    EXPECT_GT(CountOf(NoteEditorOf(program), COLOR_BTNFACE), 3000);
    EXPECT_GT(CountOf(NoteEditorOf(program), COLOR_BTNTEXT), 50);
    Press(program, "Esc");
}

TEST(SystemColorChange, ShowsEverywhereAtOnce) {
    const ScratchFolder folder = FolderWithTwoLines();
    WriteNoteSet(folder, "Mine", {{0, "A note of the beginning.\r\n"}, {145, "x"}});
    Program program = StartWithList(folder);
    ExpectColorsOfSystem(program);
    {
        const SystemColors odd(program, kOddColors);
        ExpectColorsOfSystem(program);
        ExpectColorsOfSystemInOtherViews(program);
        SavePicture(PictureOfWindow(program.frame), "colors-of-system");
    }
}

TEST(SystemColorChange, ReachesAnOpenDialog) {
    const ScratchFolder folder = FolderWithTwoLines();
    Program program = StartWithList(folder);
    Press(program, "Alt+w");
    const HWND dialog = WaitForDialog(program, "Word Search");
    const SystemColors odd(program, kOddColors);
    EXPECT_GT(CountOf(dialog, COLOR_BTNFACE), 5000);
    EXPECT_GT(CountOf(dialog, COLOR_BTNTEXT), 50);
    CloseWithEsc(program);
}

// ---- The colour of key words ----------------------------------------------------------------------------------------

static std::string WrongKeyWord(const Program& program, COLORREF color) {
    return WrongLines(VerseListOf(program),
                      {{{{kBold, "Ge 6:8 "}, {kRegular, "But Noah found "}, {kBold, "grace", color}}}});
}

static void ExpectKeyWordAfterStart(const ScratchFolder& folder, COLORREF color) {
    Program program = StartWithList(folder);
    EXPECT_EQ(WrongKeyWord(program, color), "");
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(KeyWordColor, ThatWasNeverChosenFollowsTheSystem) {
    const ScratchFolder folder = FolderWithScripture();
    const COLORREF before = GetSysColor(COLOR_HIGHLIGHT);
    ExpectKeyWordAfterStart(folder, before);
    const std::string settings = ReadFile(folder, "Versewell.INI");
    EXPECT_EQ(ReadFile(folder, "Versewell.more.ini"),
              "[OPTIONS]\r\nKeyColorFrom=\"system " + std::to_string(before) + "\"\r\n");
    {
        const SystemColors odd(kOddColors);
        ExpectKeyWordAfterStart(folder, GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_NE(before, GetSysColor(COLOR_HIGHLIGHT));
    }
    ExpectKeyWordAfterStart(folder, before);
    const auto withoutSearches = [](std::string text) { return text.erase(0, text.find("[FORMAT]")); };
    EXPECT_EQ(withoutSearches(ReadFile(folder, "Versewell.INI")), withoutSearches(settings));
}

TEST(KeyWordColor, ThatWasChosenStays) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(kRed));  // as by an older version
    ExpectKeyWordAfterStart(folder, kRed);
    const SystemColors odd(kOddColors);
    ExpectKeyWordAfterStart(folder, kRed);
    EXPECT_EQ(Setting(folder, "OPTIONS", "KeyHighlightColor"), std::to_string(kRed));
}

TEST(KeyWordColor, ThatIsTheSystemsStaysIfItWasChosen) {
    const ScratchFolder folder = FolderWithScripture();
    const COLORREF before = GetSysColor(COLOR_HIGHLIGHT);
    {
        Program program = StartWithList(folder);
        PostMessageA(program.frame, WM_COMMAND, IDM_HIGHLIGHT_COLOR, 0);
        PostMessageA(WaitForDialog(program, "Color"), WM_COMMAND, IDOK, 0);
        WaitForNoDialog(program);
        EXPECT_EQ(CloseProgram(program), 0);
    }
    const SystemColors odd(kOddColors);
    ExpectKeyWordAfterStart(folder, before);
}

// ---- High contrast --------------------------------------------------------------------------------------------------

// The key words have the text's colour in both pictures, so that only the lines under them differ.
TEST(HighContrast, UnderlinesKeyWordsAndMovesNothing) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(GetSysColor(COLOR_WINDOWTEXT)));
    Program program = StartWithList(folder);
    Click(program, PassageOf(program));  // the caret
    ReleaseMouse(program);
    const HWND list = VerseListOf(program);
    const Picture before = PictureOfClient(list);
    SetHighContrast(program, true);
    const Picture after = PictureOfClient(list);
    const int left = WidthOf({{kBold, "Ge 6:8 "}, {kRegular, "But Noah found "}}),
              right = left + WidthOf({{kBold, "grace"}});
    int underlined = 0;
    for (int y = 0; y < before.height; ++y) {
        for (int x = 0; x < before.width; ++x) {
            if (ColorAt(before, x, y) == ColorAt(after, x, y)) continue;
            ASSERT_EQ(ColorAt(after, x, y), InPicture(GetSysColor(COLOR_WINDOWTEXT))) << x << ',' << y;
            if (y >= LineHeightOf()) continue;
            ++underlined;
            EXPECT_GE(x, left - 2);
            EXPECT_LE(x, right);
        }
    }
    EXPECT_GT(underlined, (right - left) / 2);
    SetHighContrast(program, false);
    const RECT differing = DifferingArea(PictureOfClient(list), before);
    EXPECT_TRUE(IsRectEmpty(&differing));
}

TEST(HighContrast, HasKeyWordsInTheColorOfTextWhateverIsChosen) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(kRed));
    Program program = StartWithList(folder);
    const HWND list = VerseListOf(program);
    const auto countRed = [&] { return CountPixels(PictureOfClient(list), ClientRectOf(list), InPicture(kRed)); };
    EXPECT_GT(countRed(), 0);
    SetHighContrast(program, true);
    EXPECT_EQ(countRed(), 0);
    SetHighContrast(program, false);
    EXPECT_GT(countRed(), 0);
}

// A scheme of colours alone is no high contrast.
TEST(HighContrast, IsNotConcludedFromColors) {
    Program program = StartWithList(FolderWithScripture());
    const SystemColors black(program, kContrastBlack);
    EXPECT_EQ(WrongKeyWord(program, GetSysColor(COLOR_HIGHLIGHT)), "");
}

// ---- The toolbar ----------------------------------------------------------------------------------------------------

// Pixels of a button whose contrast with the button face is enough for what is no text (WCAG 2, 1.4.11).
static int CountClear(const Picture& picture, const RECT& place) {
    static constexpr double kContrast = 3;
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    int clear = 0;
    for (int y = place.top; y < place.bottom; ++y)
        for (int x = place.left; x < place.right; ++x)
            clear += ContrastOf(InPicture(ColorAt(picture, x, y)), face) >= kContrast;
    return clear;
}

static void ExpectReadableButtons(const Program& program, const std::string& name) {
    const HWND toolbar = Child(program.frame, {IDC_TOOLBAR});
    const Picture picture = PictureOfClient(toolbar);
    SavePicture(picture, name);
    for (const ToolButton& button : ToolButtons(program)) {
        if (button.command == 0 || (button.state & TBSTATE_INDETERMINATE) != 0) continue;
        RECT place = ToolRect(program, button.command);
        InflateRect(&place, -3, -3);  // without the edges of pressed buttons
        EXPECT_GE(CountClear(picture, place), 30) << button.command;
    }
}

TEST(HighContrast, HasAReadableToolbar) {
    Program program = StartWithList(FolderWithScripture());
    ExpectReadableButtons(program, "toolbar");
    for (const ColorScheme& scheme : {kContrastBlack, kContrastWhite}) {
        const SystemColors colors(program, scheme);
        EXPECT_EQ(WrongBackground(Child(program.frame, {IDC_TOOLBAR}), COLOR_BTNFACE), "");
        ExpectReadableButtons(program, GetSysColor(COLOR_WINDOW) == 0 ? "toolbar-black" : "toolbar-white");
    }
}

TEST(HighContrast, HasAReadableToolbarFromTheStart) {
    const SystemColors black(kContrastBlack);
    Program program = StartWithList(FolderWithScripture());
    ExpectReadableButtons(program, "toolbar-black-from-start");
}

// ---- Fonts ----------------------------------------------------------------------------------------------------------

TEST(SystemFontChange, ShowsInTabsListAndEditor) {
    Program program = StartWithList(FolderWithTwoLines());
    OpenNoteEditor(program);
    const std::vector<HWND> windows{Child(program.frame, {IDC_PASSAGE_TABS}), ReferenceListOf(program),
                                    Child(NoteEditorOf(program), {IDC_NOTE_SAVE})};
    const auto heights = [&] {
        std::vector<int> all;
        for (const HWND window : windows) all.push_back(static_cast<int>(SizeOfText(program, window, "Xg").cy));
        return all;
    };
    const std::vector<int> before = heights();
    const int heightBefore = ChooseMessageFont(program, -30);
    EXPECT_THAT(heights(), testing::Each(testing::Ge(30)));
    SavePicture(PictureOfWindow(program.frame), "other-message-font");
    ChooseMessageFont(program, heightBefore);
    EXPECT_EQ(heights(), before);
}
