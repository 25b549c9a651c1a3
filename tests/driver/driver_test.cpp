// Tests of the driver with a small program whose state is known (sample_program.cpp).

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"

using testing::ElementsAre;
using testing::HasSubstr;

static constexpr int kOpenDialog = 201;
static constexpr int kTick = 203;
static constexpr int kGreyed = 204;
static constexpr int kList = 21;
static constexpr int kCombo = 22;
static constexpr int kField = 31;

static StartOptions Sample() {
    StartOptions options;
    options.programFile = ProgramBesideThis("driver_sample.exe");
    options.frameClass = "DriverSample";
    return options;
}

TEST(Driver, RemovesTheFolderOfATest) {
    std::filesystem::path path;
    {
        const ScratchFolder folder = EmptyFolder();
        path = folder.path;
        std::filesystem::create_directories(path / "outer" / "inner");
        WriteFile(folder, "outer/inner/file.txt", "text");
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(Driver, StartsAndClosesAProgram) {
    Program program = StartProgram(EmptyFolder(), Sample());
    EXPECT_TRUE(IsRunning(program));
    EXPECT_EQ(TextOf(program.frame), "Driver sample");
    EXPECT_EQ(RectOnScreen(program.frame).left, 50);
    EXPECT_EQ(FocusOf(program), Child(program.frame, {IDC_NOTE_VIEW}));
    EXPECT_EQ(CloseProgram(program), 7);
}

TEST(Driver, ReadsMenus) {
    Program program = StartProgram(EmptyFolder(), Sample());
    EXPECT_THAT(MenuBar(program), ElementsAre("&Sample", "E&xit"));
    EXPECT_EQ(MenuText(program, kOpenDialog), "&Open...\tAlt+O");
    EXPECT_FALSE(IsGreyed(program, kOpenDialog));
    EXPECT_TRUE(IsGreyed(program, kGreyed));
    EXPECT_FALSE(IsTicked(program, kTick));
    Command(program, kTick);
    EXPECT_TRUE(IsTicked(program, kTick));
    EXPECT_EQ(MenuState(program, 999), 0xFFFFFFFF);
    const std::vector<MenuLine> lines = MenuLines(program, 0);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1].command, 0);
    EXPECT_EQ(lines[3].text, "&Tick");

    Press(program, "Alt+s");
    EXPECT_TRUE(IsInMenu(program));
    EXPECT_EQ(OpenMenuLines(program).size(), 4u);
    Press(program, "Esc");
    Press(program, "Esc");
    EXPECT_FALSE(IsInMenu(program));
}

TEST(Driver, ReadsControls) {
    Program program = StartProgram(EmptyFolder(), Sample());
    EXPECT_THAT(StatusEdges(program), ElementsAre(200, 400, -1));
    const HWND tabs = Child(program.frame, {IDC_LIST_TABS});
    EXPECT_THAT(TabLabels(program, tabs), ElementsAre("First tab", "Second tab"));
    EXPECT_EQ(SelectedTab(tabs), 0);
    ClickTab(program, tabs, 1);
    EXPECT_EQ(SelectedTab(tabs), 1);
    const HWND list = Child(program.frame, {kList});
    EXPECT_THAT(ListStrings(list),
                ElementsAre("Genesis", "Exodus", "\xB6 Leviticus", "Numbers", "Deuteronomy", "Joshua"));
    EXPECT_THAT(ComboStrings(Child(program.frame, {kCombo})), ElementsAre("grace", "the"));
    const ScrollState scroll = VerticalScroll(program, list);
    EXPECT_EQ(scroll.highest, 5);
    EXPECT_EQ(scroll.position, 0);
    EXPECT_GT(scroll.page, 1);
}

TEST(Driver, ReadsTheToolbar) {
    Program program = StartProgram(EmptyFolder(), Sample());
    const std::vector<ToolButton> buttons = ToolButtons(program);
    ASSERT_EQ(buttons.size(), 4u);
    EXPECT_EQ(buttons[1].command, 0);
    EXPECT_EQ(buttons[2].command, IDM_PASTE);
    EXPECT_EQ(buttons[2].image, 1);
    EXPECT_NE(ToolState(program, IDM_PASTE) & TBSTATE_INDETERMINATE, 0);
    EXPECT_EQ(ToolState(program, IDM_VIEW_LIST), TBSTATE_ENABLED | TBSTATE_CHECKED);
    EXPECT_EQ(ToolTip(program, IDM_COPY), "Copy it");
}

TEST(Driver, DrivesADialog) {
    Program program = StartProgram(EmptyFolder(), Sample());
    Press(program, "Alt+o");
    HWND dialog = WaitForDialog(program, "Sample Dialog");
    EXPECT_THAT(TabOrder(program, dialog), ElementsAre(kField, 32, IDOK, IDCANCEL));
    EXPECT_THAT(ButtonsOf(dialog), ElementsAre("OK", "Cancel"));
    Click(program, Child(dialog, {kField}));
    Type(program, "In the Beginning, 1:1 \xB6");
    EXPECT_EQ(TextOf(dialog, kField), "In the Beginning, 1:1 \xB6");
    EXPECT_FALSE(IsChecked(dialog, 32));
    Press(program, "Alt+w");
    EXPECT_TRUE(IsChecked(dialog, 32));
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "In the Beginning, 1:1 \xB6");

    Press(program, "Alt+o");
    dialog = WaitForDialog(program, "Sample Dialog");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 0), "cancelled");
}

TEST(Driver, ReadsAMessageBox) {
    Program program = StartProgram(EmptyFolder(), Sample());
    Command(program, kOpenDialog);
    WaitForDialog(program, "Sample Dialog");
    Type(program, "complain");
    Press(program, "Enter");
    const HWND box = WaitForDialog(program, "Complaint");
    EXPECT_EQ(MessageText(box), "First line.\nSecond \"line\".");
    EXPECT_EQ(IconOf(box), "stop");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK", "Cancel"));
}

TEST(Driver, WaitsForABusyProgram) {
    Program program = StartProgram(EmptyFolder(), Sample());
    Press(program, "F9");
    EXPECT_EQ(StatusPart(program, 0), "was busy");
}

TEST(Driver, UsesTheMouse) {
    Program program = StartProgram(EmptyFolder(), Sample());
    Click(program, program.frame, {500, 100});
    EXPECT_EQ(StatusPart(program, 1), "up 500,100");
    Click(program, program.frame, {500, 100});
    EXPECT_EQ(StatusPart(program, 1), "up 500,100");
    PointAt(program.frame, {501, 102});
    Click(program, program.frame, {501, 102}, MouseButton::Right);
    EXPECT_EQ(StatusPart(program, 1), "right 501,102");
    Drag(program, program.frame, {480, 90}, {540, 120});
    EXPECT_EQ(StatusPart(program, 1), "up 540,120");
    const HWND list = Child(program.frame, {kList});
    Wheel(program, list, -1);
    EXPECT_GT(VerticalScroll(program, list).position, 0);
    Wheel(program, list, 1);
    EXPECT_EQ(VerticalScroll(program, list).position, 0);
}

TEST(Driver, DistinguishesTwoClicksFromADoubleClick) {
    Program program = StartProgram(EmptyFolder(), Sample());
    const HWND note = Child(program.frame, {IDC_NOTE_VIEW});
    Type(program, "grace abounds");
    Click(program, note, {10, 8});
    Click(program, note, {10, 8});
    TextSelection selection = RichSelection(program, note);
    EXPECT_EQ(selection.start, selection.end);
    DoubleClick(program, note, {10, 8});
    selection = RichSelection(program, note);
    EXPECT_EQ(selection.start, 0);
    EXPECT_GE(selection.end, 5);
}

TEST(Driver, UsesRichEditAndClipboard) {
    Program program = StartProgram(EmptyFolder(), Sample());
    const HWND note = Child(program.frame, {IDC_NOTE_VIEW});
    Type(program, "one");
    Press(program, "Enter");
    Type(program, "two");
    EXPECT_EQ(TextOf(note), "one\r\ntwo");
    SelectRich(program, note, {5, 8});
    EXPECT_EQ(RichSelection(program, note).start, 5);
    Press(program, "Ctrl+c");
    EXPECT_EQ(ClipboardText(), "two");
    SetClipboardText("\xB6 three");
    Press(program, "Ctrl+v");
    EXPECT_EQ(TextOf(note), "one\r\n\xB6 three");
}

TEST(Driver, TakesAndComparesPictures) {
    Program program = StartProgram(EmptyFolder(), Sample());
    PlaceFrame(program, {100, 100, 700, 600});
    const Picture before = PictureOfWindow(program.frame);
    EXPECT_EQ(before.width, 600);
    EXPECT_EQ(before.height, 500);
    const HWND note = Child(program.frame, {IDC_NOTE_VIEW});
    RECT place = RectOnScreen(note);
    OffsetRect(&place, -100, -100);
    InflateRect(&place, -4, -4);
    EXPECT_LE(CountColors(before, place), 2);
    Type(program, "grace");
    const Picture after = PictureOfWindow(program.frame);
    EXPECT_GT(CountColors(after, place), 1);
    EXPECT_LT(CountPixels(after, place, 0xFFFFFF), CountPixels(before, place, 0xFFFFFF));
    const RECT changed = DifferingArea(before, after);
    EXPECT_GE(changed.top, place.top - 4);
    EXPECT_LE(changed.bottom, place.bottom + 4);
    EXPECT_TRUE(IsRectEmpty([&] {
        static RECT same;
        same = DifferingArea(after, after);
        return &same;
    }()));
}

TEST(Driver, SetsTheProgramsDate) {
    StartOptions options = Sample();
    options.date = "2024-02-29 08:00:00";
    Program program = StartProgram(EmptyFolder(), options);
    EXPECT_EQ(StatusPart(program, 2), "2024-02-29");
}

TEST(Driver, FailureListsTheOpenWindows) {
    Program program = StartProgram(EmptyFolder(), Sample());
    Command(program, kOpenDialog);
    WaitForDialog(program, "Sample Dialog");
    try {
        WaitUntil(
            program, "nothing", [] { return false; }, std::chrono::milliseconds(50));
        FAIL() << "did not fail while waiting for something that never happens";
    } catch (const std::exception& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("waited in vain for nothing"));
        EXPECT_THAT(failure.what(), HasSubstr("#32770 \"Sample Dialog\""));
    }
}

TEST(Driver, ReadsAndWritesFilesAndSettings) {
    std::filesystem::path path;
    {
        const ScratchFolder folder = EmptyFolder();
        path = folder.path;
        WriteFile(folder, "a.nmi", std::string("\0\r\n", 3));
        WriteSetting(folder, "MISC", "ReadVerse", "100");
        EXPECT_EQ(ReadFile(folder, "a.nmi"), std::string("\0\r\n", 3));
        EXPECT_EQ(Setting(folder, "MISC", "ReadVerse"), "100");
        EXPECT_EQ(Setting(folder, "MISC", "Note"), "(none)");
        EXPECT_THAT(FilesIn(folder), ElementsAre("Versewell.INI", "a.nmi"));
        EXPECT_FALSE(HasFile(folder, "b.nmi"));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}
