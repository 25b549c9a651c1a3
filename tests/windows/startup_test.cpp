// Starting and closing the program: failing starts, the splash screen, the frame's first state, working folders.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/odd_folders.h"

using testing::ElementsAre;

// ---- Starts that fail -----------------------------------------------------------------------------------------------

static const char kOtherSettings[] = "[MISC]\r\nReadVerse=100\r\n[MINE]\r\nKey=kept\r\n";

static const char kFailureText[] =
    "Initialization of Versewell97 incomplete.\n\nOne of the following errors occurred:\n"
    "1. You are out of drive space. This is the most likely error. You need to free up some space on your hard drive.\n"
    "2. A required file is missing from your Versewell97 folder. You need to reinstall Versewell97.\n"
    "3. \"RICHED32.DLL\" is missing from your \\WINDOWS\\SYSTEM folder. You need to reinstall Windows or obtain this "
    "file.";

static void Answer(HWND box, int button) {
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

// Expects a single message box with a fixed text and no other window, then an exit that leaves the settings unchanged.
static void ExpectFailure(const ScratchFolder& folder) {
    WriteFile(folder, "Versewell.INI", kOtherSettings);
    const Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Initialization failure");
    EXPECT_EQ(MessageText(box), kFailureText);
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
    EXPECT_THAT(TopLevelWindows(program), ElementsAre(box));
    Answer(box, IDOK);
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(ReadFile(folder, "Versewell.INI"), kOtherSettings);
}

namespace {

struct FailedLoad : testing::TestWithParam<const char*> {};

}  // namespace

TEST_P(FailedLoad, IsReportedAndKeepsTheSettings) {
    const ScratchFolder folder = FolderWithScripture();
    std::filesystem::remove(folder.path / GetParam());
    ExpectFailure(folder);
}

INSTANTIATE_TEST_SUITE_P(Missing, FailedLoad,
                         testing::Values("_avwrds.dat", "_avwptr.dat", "_avvidx.dat", "_avtext.dat"),
                         [](const auto& row) { return std::string(row.param).substr(1, 6); });

// An empty file cannot be mapped.
TEST(FailedStart, ReportsAnEmptyFile) {
    for (const char* name : {"_avwrds.dat", "_avtext.dat"}) {
        SCOPED_TRACE(name);
        const ScratchFolder folder = FolderWithScripture();
        WriteFile(folder, name, "");
        ExpectFailure(folder);
    }
}

namespace {

// Hides a library from the program with a DLL override in Wine's registry.
struct WithoutLibrary {
    explicit WithoutLibrary(const char* library) {
        const std::string program = std::filesystem::path(Surroundings().program).filename().string();
        key = "Software\\Wine\\AppDefaults\\" + program;
        RegSetKeyValueA(HKEY_CURRENT_USER, (key + "\\DllOverrides").c_str(), library, REG_SZ, "", 1);
    }
    ~WithoutLibrary() { RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str()); }
    std::string key;
};

}  // namespace

TEST(FailedStart, ReportsAMissingRichEditLibrary) {
    const WithoutLibrary without("riched32");
    ExpectFailure(FolderWithScripture());
}

// A task manager closes all windows of a program, also one that is just asking something.
TEST(StartThatIsClosed, EndsOnceItIsComplete) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "mine"}});
    WriteFile(folder, "Mine.nmd", "");
    Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    const auto closeFrame = [](HWND window, LPARAM) -> BOOL {
        if (ClassOf(window) == "Versewell97") PostMessageA(window, WM_CLOSE, 0, 0);
        return TRUE;
    };
    EnumThreadWindows(GetWindowThreadProcessId(box, nullptr), closeFrame, 0);  // it is not shown yet
    PostMessageA(box, WM_CLOSE, 0, 0);
    WaitUntil(program, "the end", [&] {
        for (const HWND window : TopLevelWindows(program))
            if (TextOf(window) == "Initialization failure") Fail(&program, "the start has failed");
        return !IsRunning(program);
    });
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(ReadFile(folder, "Mine.nmd"), "");
}

// Waits for the frame or a message; the splash screen may come before either.
static HWND FrameOrFailure(const Program& program) {
    HWND shown = nullptr;
    WaitUntil(program, "the frame or a message", [&] {
        for (const HWND window : TopLevelWindows(program))
            if (ClassOf(window) == "Versewell97" || TextOf(window) == "Initialization failure") shown = window;
        return shown != nullptr || !IsRunning(program);
    });
    if (shown == nullptr) Fail(&program, "the program ended by itself");
    return shown;
}

// With a truncated scripture file the program must either report that it cannot start, or start and not crash.
TEST(DamagedScripture, NeverCrashesTheProgram) {
    for (const char* name : {"_avwrds.dat", "_avwptr.dat", "_avwidx.dat", "_avvidx.dat", "_avtext.dat"}) {
        for (const std::uintmax_t size : {std::uintmax_t{1}, std::uintmax_t{10}, std::uintmax_t{20000}}) {
            SCOPED_TRACE(std::string(name) + " cut to " + std::to_string(size));
            const ScratchFolder folder = FolderWithScripture();
            std::filesystem::resize_file(folder.path / name, size);
            Program program = LaunchProgram(folder);
            if (const HWND box = FrameOrFailure(program); TextOf(box) == "Initialization failure") {
                Answer(box, IDOK);
                EXPECT_EQ(WaitForExit(program), 0);
                continue;
            }
            WaitForFrame(program);
            for (const int command : {IDM_GOTO_BOOK + 66, IDM_PARAGRAPH_FORMAT, IDM_ITALIC_BRACKETS, IDM_NEXT_CHAPTER})
                Command(program, command);
            EXPECT_EQ(CloseProgram(program), 0);
        }
    }
}

// ---- The half-started program ---------------------------------------------------------------------------------------
//
// Deliberate: if _avwidx.dat is missing, the start stops silently. The frame and the note tabs exist, but the settings
// and the text are not loaded.

static ScratchFolder FolderWithoutVerseLists() {
    const ScratchFolder folder = FolderWithScripture();
    std::filesystem::remove(folder.path / "_avwidx.dat");
    WriteFile(folder, "Versewell.INI", kOtherSettings);
    return folder;
}

static void CloseDialogs(const Program& program) {
    while (HasDialog(program)) Press(program, "Esc");
}

TEST(HalfStarted, DoesNotReadOrWriteSettings) {
    const ScratchFolder folder = FolderWithoutVerseLists();
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(TabLabels(program, Child(program.frame, {IDC_NOTE_TABS})), ElementsAre("My Notes"));
    for (int part = 0; part < 4; ++part) EXPECT_EQ(StatusPart(program, part), "") << part;
    EXPECT_FALSE(IsGreyed(program, IDM_CONTEXT));
    EXPECT_EQ(MenuBar(program).size(), 10u);
    SavePicture(PictureOfWindow(program.frame), "half-started");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(ReadFile(folder, "Versewell.INI"), kOtherSettings);
}

TEST(HalfStarted, SurvivesEveryCommand) {
    Program program = StartProgram(FolderWithoutVerseLists());
    for (int command = 101; command <= 192; ++command) {
        if (command == IDM_EXIT) continue;
        SCOPED_TRACE(command);
        Command(program, command);
        CloseDialogs(program);
        ASSERT_TRUE(IsRunning(program));
    }
    for (const int command : {1001, 1066, 2000, 33101}) Command(program, command);
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(HalfStarted, SurvivesSearchesAndReferences) {
    Program program = StartProgram(FolderWithoutVerseLists());
    for (const char* keys : {"Alt+w", "Alt+p", "Alt+l", "Alt+g"}) {
        SCOPED_TRACE(keys);
        Press(program, keys);
        Type(program, "the lord");
        Press(program, "Enter");
        CloseDialogs(program);
        ASSERT_TRUE(IsRunning(program));
    }
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(HalfStarted, SurvivesMouseKeysAndResizing) {
    Program program = StartProgram(FolderWithoutVerseLists());
    const HWND list = Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    for (const HWND pane : {list, passage, Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW})}) {
        Click(program, pane);
        Drag(program, pane, {20, 10}, {60, 40});
        Wheel(program, pane, -2);
        for (const char* keys : {"Up", "Down", "PgUp", "PgDn", "Home", "End", "Enter", "Delete", "Ctrl+c"})
            Press(program, keys);
        CloseDialogs(program);
        ASSERT_TRUE(IsRunning(program));
    }
    PlaceFrame(program, {20, 20, 500, 400});
    RedrawWindow(program.frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    EXPECT_EQ(CloseProgram(program), 0);
}

// ---- Splash ---------------------------------------------------------------------------------------------------------

// Starts with a file that causes a message box, which stops the start while the splash screen is shown.
static Program StopAtNoteFiles(const ScratchFolder& folder) {
    WriteFile(folder, "My Notes.nmd", "mine");
    return LaunchProgram(folder);
}

static HWND SplashOf(const Program& program) {
    for (const HWND window : TopLevelWindows(program))
        if (GetDlgItem(window, IDC_SPLASH_LINE) != nullptr) return window;
    Fail(&program, "there is no splash");
}

TEST(Splash, IsCentredWhileTheProgramStarts) {
    Program program = StopAtNoteFiles(FolderWithScripture());
    const HWND box = WaitForDialog(program, "Error");
    const HWND splash = SplashOf(program);
    EXPECT_EQ(TextOf(splash, IDC_SPLASH_LINE), "");
    EXPECT_EQ(TextOf(splash), "");
    EXPECT_NE(GetWindowLongA(splash, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(GetWindowLongA(splash, GWL_STYLE) & (WS_POPUP | WS_CHILD | WS_SYSMENU | WS_THICKFRAME),
              static_cast<LONG>(WS_POPUP));
    const RECT place = RectOnScreen(splash);
    RECT screen{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_NEAR(place.left + place.right, screen.left + screen.right, 2);
    EXPECT_NEAR(place.top + place.bottom, screen.top + screen.bottom, 2);
    for (const HWND window : TopLevelWindows(program)) EXPECT_NE(ClassOf(window), "Versewell97");
    SavePicture(PictureOfScreen(screen), "splash");
    Answer(box, IDOK);
    WaitForFrame(program);
    WaitForNoDialog(program);
}

// The splash screen is topmost; a message box behind it could not be answered.
static void ExpectInFrontOfTheSplash(Program program) {
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_THAT(TopLevelWindows(program), ElementsAre(box, SplashOf(program)));  // in Z order, front first
    EXPECT_NE(GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    Answer(box, IDOK);
    WaitForFrame(program);
}

TEST(Splash, DoesNotHideMessages) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    std::filesystem::remove(folder.path / "Mine.nmd");
    ExpectInFrontOfTheSplash(LaunchProgram(folder));
    ExpectInFrontOfTheSplash(StopAtNoteFiles(FolderWithScripture()));
}

// ---- The frame as it opens ------------------------------------------------------------------------------------------

namespace {

struct OpeningState {
    const char* name;
    const char* maxed;
    int showState;
    bool isMaximized;
    bool isMinimized;
};

struct FrameOpening : testing::TestWithParam<OpeningState> {};

}  // namespace

TEST_P(FrameOpening, FollowsTheSettingsThenTheCommandLine) {
    const ScratchFolder folder = FolderWithScripture();
    if (*GetParam().maxed != '\0') WriteSetting(folder, "MISC", "Maxed", GetParam().maxed);
    StartOptions options;
    options.showState = GetParam().showState;
    Program program = StartProgram(folder, options);
    EXPECT_EQ(IsZoomed(program.frame) != FALSE, GetParam().isMaximized);
    EXPECT_EQ(IsIconic(program.frame) != FALSE, GetParam().isMinimized);
    EXPECT_EQ(CloseProgram(program), 0);
}

INSTANTIATE_TEST_SUITE_P(Start, FrameOpening,
                         testing::Values(OpeningState{"Plain", "", SW_SHOWNORMAL, false, false},
                                         OpeningState{"NotMaxed", "0", SW_SHOWNORMAL, false, false},
                                         OpeningState{"Maxed", "1", SW_SHOWNORMAL, true, false},
                                         OpeningState{"MaxedAnyNumber", "-7", SW_SHOWNORMAL, true, false},
                                         OpeningState{"MaxedThoughMinimized", "2", SW_SHOWMINIMIZED, true, false},
                                         OpeningState{"MaximizedByCommandLine", "0", SW_SHOWMAXIMIZED, true, false},
                                         OpeningState{"MinimizedByCommandLine", "", SW_SHOWMINIMIZED, false, true}),
                         [](const auto& row) { return std::string(row.param.name); });

static void Order(const Program& program, WPARAM order) {
    PostMessageA(program.frame, WM_SYSCOMMAND, order, 0);
    Settle(program);
}

// Deliberate: the setting stores the flags of the window placement, not the show state. A minimized frame keeps in mind
// whether it was maximized.
TEST(Closing, SavesTheRestoredPlaceAndWhetherItWasMaximized) {
    static constexpr RECT kPlace{60, 50, 760, 550};
    static const std::vector<std::pair<std::vector<WPARAM>, int>> kRows = {
        {{}, 0},
        {{SC_MAXIMIZE}, WPF_RESTORETOMAXIMIZED},
        {{SC_MINIMIZE}, 0},
        {{SC_MAXIMIZE, SC_MINIMIZE}, WPF_RESTORETOMAXIMIZED},
        {{SC_MAXIMIZE, SC_RESTORE}, 0},
        {{SC_MAXIMIZE, SC_MINIMIZE, SC_RESTORE}, WPF_RESTORETOMAXIMIZED},
        {{SC_MAXIMIZE, SC_MINIMIZE, SC_RESTORE, SC_RESTORE}, 0},
    };
    for (const auto& [orders, flags] : kRows) {
        SCOPED_TRACE(testing::PrintToString(orders));
        const ScratchFolder folder = FolderWithScripture();
        Program program = StartProgram(folder);
        PlaceFrame(program, kPlace);
        for (const WPARAM order : orders) Order(program, order);
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(Setting(folder, "MISC", "Maxed"), std::to_string(flags));
        EXPECT_EQ(Setting(folder, "MISC", "XPos"), "60");
        EXPECT_EQ(Setting(folder, "MISC", "YPos"), "50");
        EXPECT_EQ(Setting(folder, "MISC", "Width"), "700");
        EXPECT_EQ(Setting(folder, "MISC", "Height"), "500");
        Program next = StartProgram(folder);
        EXPECT_EQ(IsZoomed(next.frame) != FALSE, flags != 0);
        if (IsZoomed(next.frame)) Order(next, SC_RESTORE);
        const RECT place = RectOnScreen(next.frame);
        EXPECT_TRUE(EqualRect(&place, &kPlace)) << "as it was before";
        EXPECT_EQ(CloseProgram(next), 0);
    }
}

TEST(Closing, WorksByMenuKeyAndSystemCommand) {
    const auto byCommand = [](const Program& program) { PostMessageA(program.frame, WM_COMMAND, IDM_EXIT, 0); };
    const auto byKey = [](const Program& program) { Press(program, "Alt+F4"); };
    const auto bySystem = [](const Program& program) { PostMessageA(program.frame, WM_SYSCOMMAND, SC_CLOSE, 0); };
    for (const std::function<void(const Program&)>& close :
         {std::function<void(const Program&)>(byCommand), std::function<void(const Program&)>(byKey),
          std::function<void(const Program&)>(bySystem)}) {
        const ScratchFolder folder = FolderWithScripture();
        const Program program = StartProgram(folder);
        close(program);
        EXPECT_EQ(WaitForExit(program), 0);
        EXPECT_EQ(Setting(folder, "MISC", "ReadVerse"), "0");
    }
}

// The start shows the last note even if notes are bound, because the Passage has not moved yet.
TEST(Start, RestoresThePassageAndTheNote) {
    for (const char* bound : {"0", "1"}) {
        const ScratchFolder folder = FolderWithScripture();
        WriteSetting(folder, "MISC", "ReadVerse", "100");
        WriteSetting(folder, "MISC", "NoteVerse", "200");
        WriteSetting(folder, "MISC", "BindNotes", bound);
        Program program = StartProgram(folder);
        EXPECT_EQ(StatusPart(program, 3), "Genesis 4:21");
        EXPECT_EQ(StatusPart(program, 2), "Genesis 8:17");
        EXPECT_EQ(IsTicked(program, IDM_BIND_NOTES), *bound == '1');
    }
}

TEST(Start, GreysCommandsThatNeedAListOrASelection) {
    const Program program = StartProgram(FolderWithScripture());
    for (const int command : {IDM_PRINT_VERSE_LIST, IDM_CUT, IDM_COPY, IDM_PASTE, IDM_COPY_VERSE_LIST,
                              IDM_COPY_REFERENCES, IDM_SAVE_VERSE_LIST, IDM_PREVIOUS_CHAPTER, IDM_NEXT_CHAPTER,
                              IDM_PREVIOUS_BOOK, IDM_NEXT_BOOK, IDM_CONTEXT, IDM_NOTE_FOR_LIST})
        EXPECT_TRUE(IsGreyed(program, command)) << command;
    for (const int command : {IDM_WORD_SEARCH, IDM_PHRASE_SEARCH, IDM_WORD_LIST_SEARCH, IDM_SET_RANGE, IDM_GOTO_VERSE,
                              IDM_NOTE_FOR_PASSAGE, IDM_VERSE_FOR_NOTE, IDM_ABOUT, IDM_EXIT})
        EXPECT_FALSE(IsGreyed(program, command)) << command;
}

TEST(Start, TicksTheOptionsThatAreOn) {
    for (const int italics : {0, 1, 2}) {
        const ScratchFolder folder = FolderWithScripture();
        WriteSetting(folder, "OPTIONS", "Italics", std::to_string(italics));
        WriteSetting(folder, "OPTIONS", "Paragraph Format", italics == 1 ? "200" : "0");
        WriteSetting(folder, "MISC", "BindNotes", italics == 2 ? "0" : "1");
        const Program program = StartProgram(folder);
        for (const int mode : {0, 1, 2}) EXPECT_EQ(IsTicked(program, IDM_ITALIC_TEXT + mode), mode == italics) << mode;
        EXPECT_EQ(IsTicked(program, IDM_PARAGRAPH_FORMAT), italics == 1);
        EXPECT_EQ(IsTicked(program, IDM_BIND_NOTES), italics != 2);
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_TOOLBAR));
    }
}

TEST(Start, ShowsTheDevotionalMenuOnlyWithADevotionalSet) {
    static const struct {
        std::string table;
        bool isThere;
    } kRows[] = {{"none.dti", false}, {"Day by Day.dti", true}};
    for (const auto& row : kRows) {
        const ScratchFolder folder = FolderWithScripture();
        WriteNoteSet(folder, "Day by Day");
        WriteFile(folder, row.table, std::string(2976, '\0'));
        Program program = StartProgram(folder);
        const std::vector<std::string> bar = MenuBar(program);
        ASSERT_EQ(bar.size(), row.isThere ? 10u : 9u);
        EXPECT_EQ(bar[6], row.isThere ? "&Devotional" : "&Options");
        EXPECT_EQ(bar.back(), "&Help");
        EXPECT_EQ(CloseProgram(program), 0);
    }
}

// A table that is too long must not overflow its buffer.
TEST(Start, HandlesDevotionalTablesOfAnySize) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{100000}}) {
        const ScratchFolder folder = FolderWithScripture();
        WriteNoteSet(folder, "Day by Day", {{0, "first"}});
        WriteFile(folder, "Day by Day.dti", std::string(size, '\xFF'));
        Program program = StartProgram(folder);
        EXPECT_EQ(MenuBar(program).size(), 10u);
        EXPECT_EQ(TextOf(Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW})), "first");
        EXPECT_EQ(CloseProgram(program), 0);
    }
}

// ---- Folders --------------------------------------------------------------------------------------------------------

TEST(WorkingFolder, IsTheProgramsFolderWhenTheCurrentOneHasNoFilesOfIts) {
    const ScratchFolder home = FolderWithScripture();
    CopyProgramTo(home);
    const ScratchFolder elsewhere = EmptyFolder();
    WriteFile(elsewhere, "letter.txt", "text");
    Program program = StartProgram(elsewhere, ProgramIn(home));
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(FilesIn(elsewhere), ElementsAre("letter.txt"));
    for (const char* file : {"Versewell.INI", "Versewell.more.ini", "My Notes.nmi", "My Notes.nmd"})
        EXPECT_TRUE(HasFile(home, file)) << file;
    EXPECT_EQ(FilesIn(home).size(), 10u);
}

TEST(WorkingFolder, IsTheCurrentFolderIfItHasNoteSets) {
    const ScratchFolder home = FolderWithScripture();
    CopyProgramTo(home);
    const ScratchFolder notes = EmptyFolder();
    WriteNoteSet(notes, "Mine", {{0, "in the beginning"}});
    Program program = StartProgram(notes, ProgramIn(home));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(FilesIn(notes), ElementsAre("Mine.nmd", "Mine.nmi", "Versewell.INI", "Versewell.more.ini"));
    EXPECT_FALSE(HasFile(home, "Versewell.INI"));
}

TEST(WorkingFolder, IsTheCurrentFolderIfItHasScripture) {
    const ScratchFolder home = FolderWithScripture();
    CopyProgramTo(home);
    const ScratchFolder current = FolderWithScripture();
    Program program = StartProgram(current, ProgramIn(home));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_TRUE(HasFile(current, "Versewell.INI"));
    EXPECT_TRUE(HasFile(current, "My Notes.nmi"));
    EXPECT_EQ(FilesIn(home).size(), 6u);
}
