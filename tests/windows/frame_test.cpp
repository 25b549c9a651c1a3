// The frame: its windows, tabs and sizes; the program's file.

#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;

static constexpr RECT kUsualPlace{20, 20, 1020, 720};

static HWND ListTabs(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS});
}

static HWND References(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS, IDC_REFERENCE_LIST});
}

// ---- Windows --------------------------------------------------------------------------------------------------------

namespace {

struct WindowRow {
    std::initializer_list<int> path;
    const char* className;
    LONG style;
    LONG without;
    bool hasEdge;
};

}  // namespace

TEST(FrameWindows, HaveTheExpectedClassAndStyle) {
    static const WindowRow kRows[] = {
        {{IDC_LIST_TABS}, "SysTabControl32", WS_VISIBLE | TCS_MULTILINE, 0, false},
        {{IDC_PASSAGE_TABS}, "SysTabControl32", WS_VISIBLE | TCS_MULTILINE, 0, false},
        {{IDC_NOTE_TABS}, "SysTabControl32", WS_VISIBLE | TCS_MULTILINE, 0, false},
        {{IDC_STATUS_BAR}, "msctls_statusbar32", WS_VISIBLE, SBARS_SIZEGRIP, false},
        {{IDC_TOOLBAR}, "ToolbarWindow32", WS_VISIBLE | TBSTYLE_TOOLTIPS, 0, false},
        {{IDC_LIST_TABS, IDC_VERSE_LIST}, "VERSELIST", WS_VISIBLE | WS_VSCROLL, WS_HSCROLL, true},
        {{IDC_LIST_TABS, IDC_REFERENCE_LIST},
         "ListBox",
         LBS_NOTIFY | LBS_MULTIPLESEL | LBS_EXTENDEDSEL,
         WS_VISIBLE | LBS_SORT,
         true},
        {{IDC_PASSAGE_TABS, IDC_PASSAGE}, "READWINDOW", WS_VISIBLE | WS_VSCROLL, WS_HSCROLL, true},
        {{IDC_NOTE_TABS, IDC_NOTES}, "NOTEWND", WS_VISIBLE, 0, false},
        {{IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW},
         "RICHEDIT",
         WS_VISIBLE | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
         WS_HSCROLL,
         true},
    };
    const Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(GetWindowLongA(program.frame, GWL_STYLE) & WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW);
    for (const WindowRow& row : kRows) {
        SCOPED_TRACE(row.className);
        const HWND window = Child(program.frame, row.path);
        const LONG style = GetWindowLongA(window, GWL_STYLE);
        EXPECT_STRCASEEQ(ClassOf(window).c_str(), row.className);
        EXPECT_EQ(style & row.style, row.style);
        EXPECT_EQ(style & row.without, 0);
        EXPECT_EQ((GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0, row.hasEdge);
    }
    EXPECT_NE(SendMessageA(Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW}), EM_GETEVENTMASK, 0, 0) &
                  ENM_SELCHANGE,
              0);
}

TEST(FrameWindows, IncludeTheHiddenNoteEditor) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND editor = ChildOfClass(program.frame, "NOTEEDIT", IDC_NOTE_EDITOR);
    EXPECT_FALSE(IsShown(editor));
    EXPECT_EQ(TextOf(editor, IDC_NOTE_SAVE), "Save");
    EXPECT_EQ(TextOf(editor, IDC_NOTE_CANCEL), "Cancel");
    EXPECT_EQ(TextOf(editor, IDC_NOTE_HELP), "Help");
    EXPECT_STRCASEEQ(ClassOf(Child(editor, {IDC_NOTE_EDIT})).c_str(), "RICHEDIT");
    EXPECT_NE(GetDlgItem(Child(program.frame, {IDC_PASSAGE_TABS}), IDC_PASSAGE), editor);
}

TEST(FrameWindows, AreOnlyTheBarsWhenAllPanesAreHidden) {
    const Program program = StartProgram(FolderWithScripture());
    for (const char* key : {"F2", "F3", "F4"}) Press(program, key);
    std::vector<int> shown;
    for (const HWND child : ChildrenOf(program.frame))
        if (IsShown(child)) shown.push_back(GetDlgCtrlID(child));
    EXPECT_THAT(shown, testing::UnorderedElementsAre(IDC_TOOLBAR, IDC_STATUS_BAR));
    EXPECT_EQ(FocusOf(program), program.frame);
}

// ---- Tabs -----------------------------------------------------------------------------------------------------------

TEST(ListViews, SwitchingKeepsTheList) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, kUsualPlace);
    SearchFor(program, {"unsearchable"});
    Press(program, "Down");
    Command(program, IDM_FOCUS_PASSAGE);  // takes the focus from the pane and with it the caret
    const HWND list = Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
    const Picture before = PictureOfWindow(list);
    EXPECT_EQ(StatusPart(program, 1), "Psalms 145:3");
    const std::string summary = StatusPart(program, 0);

    ClickTab(program, ListTabs(program), 1);
    EXPECT_TRUE(IsShown(References(program)));
    EXPECT_FALSE(IsShown(list));
    EXPECT_EQ(StatusPart(program, 1), "");
    EXPECT_EQ(StatusPart(program, 0), summary);
    EXPECT_THAT(ListStrings(References(program)),
                ElementsAre("Job 5:9", "Psalms 145:3", "Proverbs 25:3", "Romans 11:33", "Ephesians 3:8"));
    SavePicture(PictureOfWindow(program.frame), "reference-list-shown");
    Command(program, IDM_PARAGRAPH_FORMAT);  // repaints everything, but must not show the verse again
    EXPECT_EQ(StatusPart(program, 1), "");

    Command(program, IDM_PARAGRAPH_FORMAT);
    ClickTab(program, ListTabs(program), 0);
    Command(program, IDM_FOCUS_PASSAGE);
    EXPECT_EQ(StatusPart(program, 1), "Psalms 145:3");
    const RECT changed = DifferingArea(before, PictureOfWindow(list));
    EXPECT_TRUE(IsRectEmpty(&changed));
}

TEST(ListViews, AreBothFilledByASearchInEither) {
    Program program = StartProgram(FolderWithScripture());
    ClickTab(program, ListTabs(program), 1);
    SearchFor(program, {"unsearchable"});
    EXPECT_EQ(ListStrings(References(program)).size(), 5u);
    EXPECT_EQ(StatusPart(program, 1), "");
    EXPECT_EQ(FocusOf(program), References(program));
    ClickTab(program, ListTabs(program), 0);
    EXPECT_EQ(StatusPart(program, 1), "Job 5:9");
}

TEST(ListViews, HaveTheSamePlaceAfterResizing) {
    const Program program = StartProgram(FolderWithScripture());
    ClickTab(program, ListTabs(program), 1);
    PlaceFrame(program, {20, 20, 700, 500});
    const RECT references = RectOnScreen(References(program));
    ClickTab(program, ListTabs(program), 0);
    const RECT list = RectOnScreen(Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST}));
    EXPECT_EQ(list.left, references.left);
    EXPECT_EQ(list.top, references.top);
    EXPECT_EQ(list.right, references.right);
    EXPECT_LE(references.bottom, list.bottom);  // a list box shows whole lines only
}

static POINT LineOf(HWND listBox, int line) {
    const auto height = static_cast<LONG>(SendMessageA(listBox, LB_GETITEMHEIGHT, 0, 0));
    return {20, line * height + height / 2};
}

TEST(ReferenceList, DoubleClickShowsTheVerseInContext) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"unsearchable"});
    ClickTab(program, ListTabs(program), 1);
    DoubleClick(program, References(program), LineOf(References(program), 3));
    EXPECT_EQ(StatusPart(program, 3), "Romans 11:33");
    DoubleClick(program, References(program), LineOf(References(program), 1));
    EXPECT_EQ(StatusPart(program, 3), "Psalms 145:3");
}

TEST(ReferenceList, DoubleClickShowsAHiddenPassage) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"unsearchable"});
    Press(program, "F3");
    ClickTab(program, ListTabs(program), 1);
    DoubleClick(program, References(program), LineOf(References(program), 4));
    EXPECT_TRUE(IsShown(Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE})));
    EXPECT_EQ(StatusPart(program, 3), "Ephesians 3:8");
}

// The tab control must handle only the list's double click and drop all other commands.
TEST(ReferenceList, TabControlDoesNotForwardCommands) {
    const Program program = StartProgram(FolderWithScripture());
    for (const WPARAM command : {WPARAM{IDM_WORD_SEARCH}, WPARAM{IDM_VIEW_NOTES}, WPARAM{IDC_REFERENCE_LIST},
                                 WPARAM{MAKEWPARAM(IDC_REFERENCE_LIST, LBN_SELCHANGE)}})
        EXPECT_EQ(Ask(program, ListTabs(program), WM_COMMAND, command), 0);
    Settle(program);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_TRUE(IsShown(Child(program.frame, {IDC_NOTE_TABS})));
}

// ---- Sizes ----------------------------------------------------------------------------------------------------------

static RECT VisibleRect(const Program& program, int id) {
    return RectIn(Child(program.frame, {id}), program.frame);
}

static void ExpectApart(const RECT& one, const RECT& other) {
    RECT common{};
    EXPECT_FALSE(IntersectRect(&common, &one, &other))
        << common.left << "," << common.top << "," << common.right << "," << common.bottom;
}

TEST(Sizes, PanesNeverOverlap) {
    const Program program = StartProgram(FolderWithScripture());
    for (const SIZE size : {SIZE{1000, 700}, SIZE{601, 401}, SIZE{400, 301}, SIZE{301, 201}, SIZE{201, 161},
                            SIZE{150, 121}, SIZE{112, 90}, SIZE{60, 27}}) {
        SCOPED_TRACE(size.cx);
        PlaceFrame(program, {20, 20, 20 + size.cx, 20 + size.cy});
        if (size.cx == 201 || size.cx == 60)
            SavePicture(PictureOfWindow(program.frame), "smallest-" + std::to_string(size.cx));
        const RECT list = VisibleRect(program, IDC_LIST_TABS);
        const RECT passage = VisibleRect(program, IDC_PASSAGE_TABS);
        const RECT notes = VisibleRect(program, IDC_NOTE_TABS);
        ExpectApart(list, passage);
        ExpectApart(list, notes);
        ExpectApart(passage, notes);
        const RECT client = ClientRectOf(program.frame);
        EXPECT_LE(passage.right, client.right);
        for (const RECT& pane : {list, passage, notes}) {
            ExpectApart(pane, VisibleRect(program, IDC_TOOLBAR));
            EXPECT_GE(pane.right, pane.left);
            EXPECT_GE(pane.bottom, pane.top);
        }
    }
    PlaceFrame(program, kUsualPlace);
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
}

TEST(Sizes, AreRestoredAfterMinimizing) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    PlaceFrame(program, kUsualPlace);
    Command(program, IDM_GOTO_BOOK + 19);
    Click(program, Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE}));
    const auto places = [&] {
        std::vector<LONG> edges;
        for (const int id : {IDC_TOOLBAR, IDC_LIST_TABS, IDC_PASSAGE_TABS, IDC_NOTE_TABS, IDC_STATUS_BAR}) {
            const RECT rect = RectIn(Child(program.frame, {id}), program.frame);
            for (const LONG edge : {rect.left, rect.top, rect.right, rect.bottom}) edges.push_back(edge);
        }
        return edges;
    };
    const std::vector<LONG> before = places();
    for (const WPARAM order : {WPARAM{SC_MINIMIZE}, WPARAM{SC_RESTORE}, WPARAM{SC_MAXIMIZE}, WPARAM{SC_MINIMIZE},
                               WPARAM{SC_RESTORE}, WPARAM{SC_RESTORE}}) {
        PostMessageA(program.frame, WM_SYSCOMMAND, order, 0);
        Settle(program);
    }
    EXPECT_EQ(places(), before);
    EXPECT_EQ(StatusPart(program, 3), "Psalms 1:1");
    EXPECT_EQ(FocusOf(program), Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE}));
    PostMessageA(program.frame, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    Settle(program);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "MISC", "Width"), "1000");
    EXPECT_EQ(Setting(folder, "MISC", "ReadVerse"), "13940");
}

TEST(HiddenPane, PassesTheFocusToAVisiblePane) {
    const Program program = StartProgram(FolderWithScripture());
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    Click(program, passage);
    ASSERT_EQ(FocusOf(program), passage);
    Press(program, "F3");
    EXPECT_TRUE(IsShown(FocusOf(program)));
    EXPECT_NE(FocusOf(program), passage);
}

// ---- The program's own file -----------------------------------------------------------------------------------------

static std::string ResourceBytes(HMODULE program, LPCSTR name, LPCSTR type) {
    const HRSRC found = FindResourceA(program, name, type);
    if (found == nullptr) return "";
    return {static_cast<const char*>(LockResource(LoadResource(program, found))), SizeofResource(program, found)};
}

static std::string VersionText(const char* name) {
    const char* file = Surroundings().program.c_str();
    std::string block(GetFileVersionInfoSizeA(file, nullptr), '\0');
    GetFileVersionInfoA(file, 0, static_cast<DWORD>(block.size()), block.data());
    void* text = nullptr;
    UINT length = 0;
    const std::string path = std::string("\\StringFileInfo\\040904E4\\") + name;
    if (!VerQueryValueA(block.data(), path.c_str(), &text, &length)) return "";
    return static_cast<const char*>(text);
}

TEST(ProgramFile, ContainsVersionManifestIconAndPictures) {
    EXPECT_EQ(VersionText("ProductName"), "Versewell97");
    EXPECT_EQ(VersionText("ProductVersion"), VERSEWELL_VERSION);
    EXPECT_EQ(VersionText("FileVersion"), VERSEWELL_VERSION ".0");
    EXPECT_EQ(VersionText("CompanyName"), "Versewell");
    EXPECT_NE(VersionText("FileDescription"), "");
    const HMODULE program = LoadLibraryExA(Surroundings().program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(program, nullptr);
    const std::string manifest = ResourceBytes(program, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(24));
    EXPECT_NE(manifest.find("Microsoft.Windows.Common-Controls"), std::string::npos);
    EXPECT_NE(manifest.find("name=\"Versewell97\" version=\"" VERSEWELL_VERSION ".0\""), std::string::npos);
    EXPECT_NE(manifest.find("SMI/2005/WindowsSettings\">true</dpiAware>"), std::string::npos);
    EXPECT_NE(manifest.find("SMI/2016/WindowsSettings\">PerMonitorV2, system</dpiAwareness>"), std::string::npos);
    EXPECT_EQ(manifest.find("gdiScaling"), std::string::npos) << "the system would stretch what the program draws";
    EXPECT_NE(manifest.find("asInvoker"), std::string::npos);
    const std::string icons = ResourceBytes(program, "Big_Icon", MAKEINTRESOURCEA(14));
    EXPECT_GE(icons.size(), 6u + 2 * 14u);  // at least a small and a large icon
    static constexpr std::pair<int, int> kStrips[] = {
        {IDB_TOOLBAR, 16},    {IDB_TOOLBAR_20, 20}, {IDB_TOOLBAR_24, 24}, {IDB_TOOLBAR_28, 28},
        {IDB_TOOLBAR_32, 32}, {IDB_TOOLBAR_40, 40}, {IDB_TOOLBAR_48, 48},
    };
    for (const auto& [id, size] : kStrips) {
        const std::string strip = ResourceBytes(program, MAKEINTRESOURCEA(id), MAKEINTRESOURCEA(2));
        ASSERT_GT(strip.size(), sizeof(BITMAPINFOHEADER));
        const auto* header = reinterpret_cast<const BITMAPINFOHEADER*>(strip.data());
        EXPECT_EQ(header->biWidth, 24 * size);
        EXPECT_EQ(header->biHeight, size);
    }
    FreeLibrary(program);
}
