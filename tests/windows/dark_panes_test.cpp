// The command Dark Reading Panes.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_look.h"
#include "tests/windows/system_scaling.h"
#include "typeset/pane_colors.h"

static PaneColors DarkColors(const ColorWishes& wishes = {kDarkOn}) {
    return PaneColorsFor({GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_HIGHLIGHT)},
                         wishes);
}

static int CountOf(HWND window, COLORREF color) {
    return CountPixels(PictureOfClient(window), ClientRectOf(window), InPicture(color));
}

// What is wrong with a pane that should have dark paper, light text and nothing of the system's colours.
static std::string WrongInDarkPane(HWND pane) {
    const PaneColors dark = DarkColors();
    const RECT all = ClientRectOf(pane);
    if (CountOf(pane, dark.paper) < (all.right - all.left) * (all.bottom - all.top) / 2) return "paper is not dark";
    if (CountOf(pane, dark.text) < 50) return "text is not light";
    if (CountOf(pane, GetSysColor(COLOR_WINDOW)) > 0) return "the system's window colour is left";
    if (CountOf(pane, GetSysColor(COLOR_WINDOWTEXT)) > 0) return "text in the system's colour is left";
    return "";
}

static void ExpectAllDark(const Program& program) {
    for (const HWND pane : {VerseListOf(program), PassageOf(program), NoteViewOf(program)})
        EXPECT_EQ(WrongInDarkPane(pane), "") << ClassOf(pane);
    EXPECT_GT(CountOf(VerseListOf(program), DarkColors().keyWord), 20);
}

static void ExpectAllLight(const Program& program) {
    for (const HWND pane : {VerseListOf(program), PassageOf(program), NoteViewOf(program)}) {
        EXPECT_EQ(CountOf(pane, DarkColors().paper), 0) << ClassOf(pane);
        EXPECT_GT(CountOf(pane, GetSysColor(COLOR_WINDOWTEXT)), 50) << ClassOf(pane);
    }
}

static std::string Ticked(const Program& program) {
    std::string ticked;
    for (const int command : {IDM_DARK_OFF, IDM_DARK_ON, IDM_DARK_AS_SYSTEM})
        if (IsTicked(program, command)) ticked += MenuText(program, command);
    return ticked;
}

// The file without the searches, which grow with each run.
static std::string SettingsOf(const ScratchFolder& folder) {
    const std::string file = ReadFile(folder, "Versewell.INI");
    return file.substr(file.find("[FORMAT]"));
}

TEST(DarkPanes, AreShownAtOnceAndKept) {
    const ScratchFolder folder = FolderWithTwoLines();
    {
        Program program = StartWithList(folder);
        EXPECT_EQ(Ticked(program), "&Off");
        ExpectAllLight(program);
        EXPECT_EQ(CloseProgram(program), 0);
    }
    const std::string settings = SettingsOf(folder);
    {
        Program program = StartWithList(folder);
        EXPECT_EQ(DarkTitle(program), -1);
        Command(program, IDM_DARK_ON);
        EXPECT_EQ(Ticked(program), "O&n");
        EXPECT_EQ(DarkTitle(program), 1);
        ExpectAllDark(program);
        EXPECT_EQ(CloseProgram(program), 0);
    }
    EXPECT_EQ(SettingsOf(folder), settings);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), testing::HasSubstr("DarkPanes=1\r\n"));
    Program program = StartWithList(folder);
    EXPECT_EQ(Ticked(program), "O&n");
    ExpectAllDark(program);
    EXPECT_EQ(DarkTitle(program), -1);  // set before this asks
    Command(program, IDM_DARK_OFF);
    EXPECT_EQ(DarkTitle(program), 0);
    ExpectAllLight(program);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), testing::Not(testing::HasSubstr("DarkPanes")));
}

TEST(DarkPanes, StandAtTheEndOfTheirMenu) {
    Program program = StartProgram(FolderWithScripture());
    const std::vector<std::string> bar = MenuBar(program);
    const int place = static_cast<int>(std::ranges::find(bar, "&Options") - bar.begin());
    const std::vector<MenuLine> lines = MenuLines(program, place);
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[7].command, IDM_HIGHLIGHT_COLOR);
    EXPECT_EQ(lines[8].text, "&Dark Reading Panes");
    EXPECT_EQ(lines[8].command, -1);
}

TEST(DarkPanes, IncludeTheReferenceListAndTheEditor) {
    Program program = StartWithList(FolderWithTwoLines());
    Command(program, IDM_DARK_ON);
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    Click(program, PassageOf(program));  // without a marked line
    EXPECT_EQ(WrongInDarkPane(ReferenceListOf(program)), "");
    OpenNoteEditor(program);
    EXPECT_EQ(WrongInDarkPane(NoteEditOf(program)), "");
    Type(program, "typed ");
    EXPECT_EQ(WrongInDarkPane(NoteEditOf(program)), "");
    Press(program, "Ctrl+s");
    EXPECT_EQ(WrongInDarkPane(NoteViewOf(program)), "");
}

TEST(DarkPanes, StayDarkWithAnotherFontAndOnAnotherScreen) {
    const SystemScaling scaling(192);
    const ScratchFolder folder = FolderWithTwoLines();
    WriteFile(folder, "Versewell.more.ini", "[OPTIONS]\r\nDarkPanes=1\r\n");
    Program program = StartWithList(folder);
    ExpectAllDark(program);
    SavePicture(PictureOfWindow(program.frame), "dark-192");
    const int heightBefore = ChooseMessageFont(program, -30);
    ExpectAllDark(program);
    ChooseMessageFont(program, heightBefore);
    RECT place = RectOnScreen(program.frame);
    AskAbout(program, program.frame, WM_DPICHANGED, MAKEWPARAM(96, 96), place);
    Settle(program);
    ExpectAllDark(program);
}

TEST(DarkPanes, InvertASelection) {
    Program program = StartWithList(FolderWithTwoLines());
    Command(program, IDM_DARK_ON);
    const HWND passage = PassageOf(program);
    Click(program, passage);
    const int before = CountOf(passage, DarkColors().text);
    Drag(program, passage, {60, 25}, {60, 60});
    EXPECT_GT(CountOf(passage, DarkColors().text), before + 2000);
    EXPECT_EQ(CountOf(passage, GetSysColor(COLOR_WINDOW)), 0);
}

TEST(DarkPanes, KeepAChosenColorReadable) {
    const ScratchFolder folder = FolderWithTwoLines();
    static constexpr COLORREF kNavy = 0x500000;
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(kNavy));
    Program program = StartWithList(folder);
    EXPECT_GT(CountOf(VerseListOf(program), kNavy), 20);
    Command(program, IDM_DARK_ON);
    const PaneColors dark = DarkColors({kDarkOn, true, kNavy});
    EXPECT_GE(ContrastOf(dark.keyWord, dark.paper), kReadableContrast);
    EXPECT_GT(CountOf(VerseListOf(program), dark.keyWord), 20);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "OPTIONS", "KeyHighlightColor"), std::to_string(kNavy));
}

TEST(DarkPanes, FollowTheSystemIfWished) {
    Program program = StartWithList(FolderWithTwoLines());
    Command(program, IDM_DARK_AS_SYSTEM);
    EXPECT_EQ(Ticked(program), "&As the System");
    ExpectAllLight(program);
    {
        const PreferenceForApps dark(true);
        TellSettingChange(program, 0, "ImmersiveColorSet");
        ExpectAllDark(program);
    }
    const PreferenceForApps light(false);
    TellSettingChange(program, 0, "ImmersiveColorSet");
    ExpectAllLight(program);
}

TEST(DarkPanes, DoNotFollowTheSystemIfOff) {
    const PreferenceForApps dark(true);
    Program program = StartWithList(FolderWithTwoLines());
    TellSettingChange(program, 0, "ImmersiveColorSet");
    ExpectAllLight(program);
}

TEST(DarkPanes, GiveWayToHighContrast) {
    Program program = StartWithList(FolderWithTwoLines());
    EXPECT_EQ(DarkTitle(program), -1);
    Command(program, IDM_DARK_ON);
    SetHighContrast(program, true);
    ExpectAllLight(program);
    EXPECT_EQ(DarkTitle(program), 0);
    SetHighContrast(program, false);
    ExpectAllDark(program);
    EXPECT_EQ(DarkTitle(program), 1);
}

// ---- What is never dark ---------------------------------------------------------------------------------------------

TEST(DarkPanes, LeaveCopiesWithoutColors) {
    Program program = StartWithList(FolderWithTwoLines());
    Command(program, IDM_DARK_ON);
    SetClipboardText("before");
    Click(program, NoteViewOf(program), {20, 8});
    Press(program, "Ctrl+a");
    Press(program, "Ctrl+c");
    EXPECT_THAT(ClipboardText(), testing::StartsWith("A note of the beginning."));
    EXPECT_FALSE(IsClipboardFormatAvailable(RegisterClipboardFormatA("Rich Text Format")));
}

TEST(DarkPanes, LeaveWhatCanBeUndone) {
    Program program = ProgramInEditor("A note.");
    Type(program, "one ");
    Command(program, IDM_DARK_ON);
    Type(program, "two ");
    Command(program, IDM_DARK_OFF);
    EXPECT_EQ(TextInEditor(program), "one two A note.");
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextInEditor(program), "one A note.");
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextInEditor(program), "A note.");
    Press(program, "Ctrl+y");
    Press(program, "Ctrl+y");
    EXPECT_EQ(TextInEditor(program), "one two A note.");
}
