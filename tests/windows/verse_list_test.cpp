// The Verse List and the Reference List: keys, scrolling, deleting, reading in context, keeping both views in sync.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr int kSummary = 0;  // parts of the status bar
static constexpr int kEntry = 1;
static constexpr int kNote = 2;

static int Position(const Program& program) {
    return VerticalScroll(program, VerseListOf(program)).position;
}

static void ScrollList(const Program& program, UINT code, int thumb = 0) {
    PostMessageA(VerseListOf(program), WM_VSCROLL, MAKEWPARAM(code, thumb), 0);
    Settle(program);
}

static void ShowReferences(const Program& program) {
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
}

static void ShowVerses(const Program& program) {
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 0);
}

static std::vector<std::string> References(const Program& program) {
    return ListStrings(ReferenceListOf(program));
}

// ---- Scrolling ------------------------------------------------------------------------------------------------------

namespace {

struct KeyStep {
    const char* key;
    int position;
    const char* entry;  // status part 1
};

}  // namespace

TEST(VerseList, FollowsTheKeys) {
    static constexpr KeyStep kSteps[] = {
        {"Up", 0, "Genesis 6:8"},          {"Down", 1, "Genesis 19:19"},     {"Down", 2, "Genesis 32:5"},
        {"Up", 1, "Genesis 19:19"},        {"End", 158, "Revelation 22:21"}, {"Down", 158, "Revelation 22:21"},
        {"PgDn", 158, "Revelation 22:21"}, {"Up", 157, "Revelation 1:4"},    {"Home", 0, "Genesis 6:8"},
        {"PgUp", 0, "Genesis 6:8"},
    };
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const ScrollState scroll = VerticalScroll(program, VerseListOf(program));
    EXPECT_EQ(scroll.lowest, 0);
    EXPECT_EQ(scroll.highest, 158);
    for (const KeyStep& step : kSteps) {
        Press(program, step.key);
        EXPECT_EQ(Position(program), step.position) << step.key;
        EXPECT_EQ(StatusPart(program, kEntry), step.entry) << step.key;
    }
    EXPECT_EQ(StatusPart(program, kSummary), "159 verses, 170 occurrences");
}

// Proverbs fit on one line of a wide list, so the number of entries on a page is known.
TEST(VerseList, PageMovesByTheVisibleEntries) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "F3");
    PlaceFrame(program, {0, 0, 1280, 560});
    SetSearchRange(program, "Pr 10 - Pr 22");
    SearchFor(program, {"wise"});
    const int last = 36;
    const int height = static_cast<int>(ClientRectOf(VerseListOf(program)).bottom);
    const int page = (height + LineHeightOf() - 1) / LineHeightOf() - 1;  // from the top entry to the last visible one
    ASSERT_GT(page, 3);
    ASSERT_LT(page, 18);
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, last);

    const struct {
        const char* key;
        int position;
    } kSteps[] = {
        {"PgDn", page}, {"PgDn", 2 * page},    {"PgUp", page}, {"Down", page + 1}, {"PgUp", 1},    {"PgUp", 0},
        {"End", last},  {"PgUp", last - page}, {"PgDn", last}, {"Up", last - 1},   {"PgDn", last},
    };
    for (const auto& step : kSteps) {
        Press(program, step.key);
        EXPECT_EQ(Position(program), step.position) << step.key;
    }
}

// Even if entries take several lines, page up must move the old top entry to the bottom.
TEST(VerseList, PageDownUndoesPageUp) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    for (const int top : {40, 101, 158}) {
        ScrollList(program, SB_THUMBPOSITION, top);
        Press(program, "PgUp");
        const int before = Position(program);
        EXPECT_LT(before, top);
        Press(program, "PgDn");
        EXPECT_EQ(Position(program), top);
        ScrollList(program, SB_THUMBPOSITION, before - 1);  // one entry earlier, the old top is not visible
        Press(program, "PgDn");
        EXPECT_LT(Position(program), top);
    }
}

TEST(VerseList, FollowsItsScrollBar) {
    static constexpr struct {
        UINT code;
        int thumb;
        int position;
    } kSteps[] = {
        {SB_LINEDOWN, 0, 1},          {SB_LINEUP, 0, 0},     {SB_LINEUP, 0, 0},       {SB_THUMBTRACK, 100, 100},
        {SB_THUMBPOSITION, 158, 158}, {SB_LINEDOWN, 0, 158}, {SB_THUMBTRACK, 57, 57}, {SB_ENDSCROLL, 0, 57},
    };
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    for (const auto& step : kSteps) {
        ScrollList(program, step.code, step.thumb);
        EXPECT_EQ(Position(program), step.position) << step.code;
    }
    EXPECT_EQ(StatusPart(program, kEntry), References(program)[57]);
}

TEST(VerseList, WheelMovesByTheSystemsNumberOfLines) {
    int lines = 0;
    SystemParametersInfoA(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    ASSERT_GT(lines, 0);
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const HWND pane = VerseListOf(program);
    Wheel(program, pane, 1);
    EXPECT_EQ(Position(program), 0);
    Wheel(program, pane, -2);
    EXPECT_EQ(Position(program), 2 * lines);
    Wheel(program, pane, 1);
    EXPECT_EQ(Position(program), lines);
    Command(program, IDM_FOCUS_PASSAGE);
    Wheel(program, pane, -1);  // scrolls without the focus too
    EXPECT_EQ(Position(program), 2 * lines);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    Press(program, "Alt+1");
    Press(program, "End");
    Wheel(program, pane, -1);
    EXPECT_EQ(Position(program), 158);
}

TEST(VerseList, KeepsItsPositionWhenResized) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    ScrollList(program, SB_THUMBPOSITION, 57);
    const std::string entry = StatusPart(program, kEntry);
    for (const RECT& place : {RECT{0, 0, 600, 400}, RECT{0, 0, 1280, 1000}}) {
        PlaceFrame(program, place);
        EXPECT_EQ(Position(program), 57);
        EXPECT_EQ(StatusPart(program, kEntry), entry);
    }
}

// ---- Focus ----------------------------------------------------------------------------------------------------------

TEST(VerseList, FocusMovesByKeysAndClicks) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    Press(program, "Right");
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    Press(program, "Alt+1");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    Press(program, "Alt+2");
    Click(program, VerseListOf(program));  // only sets the focus
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    EXPECT_TRUE(IsGreyed(program, IDM_COPY));
    Press(program, "F2");
    Press(program, "Alt+1");  // shows the hidden list
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    ShowReferences(program);
    Press(program, "Alt+2");
    Press(program, "Alt+1");
    EXPECT_EQ(FocusOf(program), ReferenceListOf(program));
}

TEST(VerseList, HasACaretAsHighAsALine) {
    Program program = StartProgram(FolderWithScripture());
    const auto caret = [&program] {
        GUITHREADINFO state{};
        state.cbSize = sizeof state;
        GetGUIThreadInfo(program.threadId, &state);
        return state;
    };
    Press(program, "Alt+1");
    EXPECT_EQ(caret().hwndCaret, VerseListOf(program));
    EXPECT_EQ(caret().rcCaret.left, 0);
    EXPECT_EQ(caret().rcCaret.top, 0);
    EXPECT_EQ(caret().rcCaret.right, 3);
    EXPECT_EQ(caret().rcCaret.bottom, LineHeightOf());
    Press(program, "Alt+2");
    EXPECT_EQ(caret().hwndCaret, PassageOf(program));
}

// ---- Deleting -------------------------------------------------------------------------------------------------------

TEST(VerseListDelete, RemovesTheTopEntryFromBothViews) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    Press(program, "Down");
    Press(program, "Delete");
    EXPECT_THAT(References(program), ElementsAre("Romans 3:25", "1 John 4:10"));
    EXPECT_EQ(Position(program), 1);
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 1);
    EXPECT_EQ(StatusPart(program, kSummary), "");
    EXPECT_EQ(StatusPart(program, kEntry), "1 John 4:10");  // updated when the list is painted
    EXPECT_FALSE(IsGreyed(program, IDM_CONTEXT));
    EXPECT_TRUE(IsGreyed(program, IDM_COPY));

    Press(program, "Delete");  // of the last entry: the previous one becomes the top
    EXPECT_THAT(References(program), ElementsAre("Romans 3:25"));
    EXPECT_EQ(Position(program), 0);
    EXPECT_EQ(StatusPart(program, kEntry), "Romans 3:25");
}

TEST(VerseListDelete, OfTheLastEntryGreysTheListCommands) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_NE(ToolState(program, IDM_NOTE_FOR_LIST), TBSTATE_ENABLED | TBSTATE_INDETERMINATE);
    Press(program, "Delete");
    EXPECT_THAT(References(program), IsEmpty());
    EXPECT_EQ(StatusPart(program, kSummary), "");
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 0);
    for (const int command : {IDM_PRINT_VERSE_LIST, IDM_COPY_VERSE_LIST, IDM_COPY_REFERENCES, IDM_SAVE_VERSE_LIST,
                              IDM_NOTE_FOR_LIST, IDM_CONTEXT})
        EXPECT_TRUE(IsGreyed(program, command)) << command;
    for (const int command : {IDM_CONTEXT, IDM_COPY_VERSE_LIST, IDM_COPY_REFERENCES, IDM_NOTE_FOR_LIST})
        EXPECT_NE(ToolState(program, command) & TBSTATE_INDETERMINATE, 0) << command;
    Press(program, "Delete");
    EXPECT_TRUE(IsRunning(program));
    Press(program, "Alt+2");
    const HWND pane = VerseListOf(program);
    EXPECT_EQ(CountColors(PictureOfClient(pane), ClientRectOf(pane)), 1);
}

// Only the Verse List handles the command; the frame and the Reference List do not.
TEST(VerseListDelete, IsHandledByThePaneOnly) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    Command(program, IDM_DELETE_ENTRY);
    ShowReferences(program);
    Press(program, "Alt+1");
    Press(program, "Delete");
    EXPECT_EQ(References(program).size(), 3u);
    PostMessageA(VerseListOf(program), WM_COMMAND, IDM_DELETE_ENTRY, 0);
    Settle(program);
    EXPECT_THAT(References(program), ElementsAre("1 John 2:2", "1 John 4:10"));
    EXPECT_EQ(StatusPart(program, kEntry), "");  // not updated, because a hidden pane is not painted
}

// ---- Reading in context ---------------------------------------------------------------------------------------------

TEST(ReadContext, ShowsTheTopEntryInThePassage) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Press(program, "Enter");
    EXPECT_EQ(Top(program), "Genesis 6:8");
    EXPECT_EQ(StatusPart(program, kNote), "Genesis 6:8");  // notes are bound to the Passage
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    Press(program, "Down");
    Press(program, "F12");
    EXPECT_EQ(Top(program), "Genesis 19:19");
    Press(program, "End");
    Command(program, IDM_FOCUS_PASSAGE);
    Press(program, "F12");
    EXPECT_EQ(Top(program), "Revelation 22:21");
    Command(program, IDM_NOTE_FOR_LIST);
    EXPECT_EQ(StatusPart(program, kNote), "Revelation 22:21");
    PostMessageA(VerseListOf(program), WM_COMMAND, IDM_CONTEXT, 0);  // the pane forwards it to the frame
    Settle(program);
    EXPECT_EQ(Top(program), "Revelation 22:21");
    SavePicture(PictureOfWindow(program.frame), "read-context");
}

TEST(ReadContext, ShowsAHiddenPassage) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "F3");
    Command(program, IDM_CONTEXT);  // even in an empty list
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(Top(program), "Genesis 1:1");
    SearchFor(program, {"grace"});
    Press(program, "F3");
    Press(program, "F12");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(Top(program), "Genesis 6:8");
}

static POINT MiddleOfLine(const Program& program, int line) {
    const int height = static_cast<int>(SendMessageA(ReferenceListOf(program), LB_GETITEMHEIGHT, 0, 0));
    return {30, line * height + height / 2};
}

TEST(ReadContext, UsesTheChosenLineOfTheReferenceList) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    ShowReferences(program);
    const HWND list = ReferenceListOf(program);
    DoubleClick(program, list, MiddleOfLine(program, 1));
    EXPECT_EQ(Top(program), "1 John 2:2");
    Press(program, "Down");
    EXPECT_EQ(Top(program), "1 John 2:2");
    Press(program, "Enter");
    EXPECT_EQ(Top(program), "1 John 4:10");
    Click(program, list, MiddleOfLine(program, 0));
    Press(program, "F12");
    EXPECT_EQ(Top(program), "Romans 3:25");
    EXPECT_EQ(ToolTip(program, IDM_CONTEXT), "Read Context of Ro 3:25 (F12)");
    Press(program, "Shift+Down");  // with several lines selected, the last one reached is used
    Press(program, "F12");
    EXPECT_EQ(Top(program), "1 John 2:2");
    Press(program, "F9");
    EXPECT_EQ(StatusPart(program, kNote), "1 John 2:2");
    SavePicture(PictureOfWindow(program.frame), "reference-list-chosen");
}

TEST(ReadContext, UsesTheRightVerseAfterADeletion) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"fellowship"});
    Press(program, "Delete");
    Press(program, "Delete");
    ShowReferences(program);
    EXPECT_EQ(References(program).front(), "Acts 2:42");
    DoubleClick(program, ReferenceListOf(program), MiddleOfLine(program, 1));
    EXPECT_EQ(Top(program), References(program)[1]);
}

// ---- The two views --------------------------------------------------------------------------------------------------

TEST(ListViews, KeepTheirContentWhileTheOtherIsShown) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    ScrollList(program, SB_THUMBPOSITION, 57);
    const std::string entry = StatusPart(program, kEntry);
    const HWND pane = VerseListOf(program);
    Command(program, IDM_FOCUS_PASSAGE);
    const Picture before = PictureOfClient(pane);
    ShowReferences(program);
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_EQ(StatusPart(program, kSummary), "159 verses, 170 occurrences");
    EXPECT_EQ(References(program).size(), 159u);
    ShowVerses(program);
    Command(program, IDM_FOCUS_PASSAGE);
    EXPECT_EQ(StatusPart(program, kEntry), entry);
    EXPECT_EQ(Position(program), 57);
    const RECT changed = DifferingArea(before, PictureOfClient(pane));
    EXPECT_TRUE(IsRectEmpty(&changed));
}

TEST(ListViews, TabControlDoesNotForwardOtherCommands) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    const HWND tabs = Child(program.frame, {IDC_LIST_TABS});
    EXPECT_EQ(SendMessageA(tabs, WM_COMMAND, IDM_VIEW_LIST, 0), 0);
    Settle(program);
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(SendMessageA(tabs, WM_COMMAND, MAKEWPARAM(IDC_REFERENCE_LIST, LBN_DBLCLK), 0), 0);
    Settle(program);
    EXPECT_EQ(Top(program), "Romans 3:25");
}

// ---- The empty list -------------------------------------------------------------------------------------------------

TEST(EmptyList, IgnoresKeysAndCommands) {
    Program program = StartProgram(FolderWithScripture());
    Press(program, "Alt+1");
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    for (const char* key : {"End", "PgDn", "PgUp", "Home", "Down", "Up", "Enter", "Delete"}) Press(program, key);
    for (const UINT code : {SB_LINEDOWN, SB_PAGEDOWN, SB_PAGEUP, SB_THUMBTRACK}) ScrollList(program, code, 7);
    Wheel(program, VerseListOf(program), -1);
    for (const int command : {IDM_COPY_VERSE_LIST, IDM_COPY_REFERENCES, IDM_SAVE_VERSE_LIST, IDM_PRINT_VERSE_LIST,
                              IDM_CONTEXT, IDM_NOTE_FOR_LIST, IDM_DELETE_ENTRY, IDM_COPY})
        Command(program, command);
    for (const int command : {IDM_DELETE_ENTRY, IDM_CONTEXT, IDM_NOTE_FOR_LIST, IDM_COPY}) {
        PostMessageA(VerseListOf(program), WM_COMMAND, static_cast<WPARAM>(command), 0);
        Settle(program);
    }
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, kEntry), "");
    EXPECT_EQ(StatusPart(program, kNote), "Genesis 1:1");
    ShowReferences(program);
    Press(program, "Alt+1");
    for (const char* key : {"End", "Down", "Enter", "Delete", "F12", "F9"}) Press(program, key);
    DoubleClick(program, ReferenceListOf(program), {30, 30});
    EXPECT_EQ(Top(program), "Genesis 1:1");
    ShowVerses(program);

    SearchFor(program, {"grace"});
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 6:8");
    EXPECT_EQ(Position(program), 0);
    Press(program, "PgDn");
    EXPECT_GT(Position(program), 0);
}
