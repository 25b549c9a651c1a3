// The Reference List's keys and menu, taking deletions back in both views, and clicks in the reading panes with Shift
// or twice.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/windows/menu_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/selection_steps.h"

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::StartsWith;

static constexpr int kSummary = 0;  // parts of the status bar
static constexpr int kEntry = 1;
static constexpr int kNote = 2;

static void ShowView(const Program& program, int tab) {
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), tab);
}

static std::vector<std::string> References(const Program& program) {
    return ListStrings(ReferenceListOf(program));
}

// Lists five verses and shows the Reference List.
static void FindFellowship(Program& program) {
    SetSearchRange(program, "Ac 1 - 2Co 13");
    SearchFor(program, {"fellowship"});
    ShowView(program, 1);
}

static void Mark(const Program& program, int line, bool marked = true) {
    SendMessageA(ReferenceListOf(program), LB_SETSEL, marked, line);
    Settle(program);
}

static std::vector<int> Marked(const Program& program) {
    std::vector<int> marked;
    const HWND list = ReferenceListOf(program);
    const auto count = static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0));
    for (int line = 0; line < count; ++line)
        if (SendMessageA(list, LB_GETSEL, static_cast<WPARAM>(line), 0) > 0) marked.push_back(line);
    return marked;
}

static int CaretLine(const Program& program) {
    return static_cast<int>(SendMessageA(ReferenceListOf(program), LB_GETCARETINDEX, 0, 0));
}

static std::vector<std::string> Without(std::vector<std::string> lines, const std::vector<int>& places) {
    for (auto place = places.rbegin(); place != places.rend(); ++place) lines.erase(lines.begin() + *place);
    return lines;
}

// The references of the Verse List, read from the text that F8 copies for it.
static std::string CopiedReferences(const Program& program) {
    SetClipboardText("nothing");
    Press(program, "F8");
    return ClipboardText();
}

// ---- Copying --------------------------------------------------------------------------------------------------------

TEST(ReferenceListCopy, TakesTheVersesOfTheMarkedLines) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    Press(program, "F7");
    const std::string all = ClipboardText();
    ShowView(program, 1);
    EXPECT_EQ(Copied(program), "(nothing)") << "no line is marked";
    EXPECT_FALSE(CanCopy(program));

    Press(program, "Home");
    EXPECT_TRUE(CanCopy(program));
    const std::string first = Copied(program);
    EXPECT_THAT(all, StartsWith(first));
    EXPECT_THAT(first, StartsWith(" Ro 3:25 "));
    Press(program, "Shift+End");
    EXPECT_EQ(Copied(program), all);
    Mark(program, 1, false);
    const std::string ends = Copied(program);
    EXPECT_LT(ends.size(), all.size());
    EXPECT_THAT(ends, testing::HasSubstr("1Jo 4:10 "));
    EXPECT_THAT(ends, testing::Not(testing::HasSubstr("1Jo 2:2 ")));
}

TEST(ReferenceListCopy, IsForTheFocusedListOnly) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    ShowView(program, 1);
    Press(program, "Home");
    EXPECT_TRUE(CanCopy(program));
    Press(program, "Alt+2");
    EXPECT_FALSE(CanCopy(program));
    EXPECT_EQ(Copied(program), "(nothing)");
    Press(program, "Alt+1");
    EXPECT_TRUE(CanCopy(program)) << "the mark is still there";
    Click(program, NoteViewOf(program));
    SelectRich(program, NoteViewOf(program), {0, 7});
    EXPECT_EQ(Copied(program), "No note");
    Press(program, "Alt+1");
    EXPECT_THAT(Copied(program), StartsWith(" Ro 3:25 "));
}

// ---- Deleting -------------------------------------------------------------------------------------------------------

TEST(ReferenceListDelete, TakesTheMarkedEntriesOutOfBothViews) {
    Program program = StartProgram(FolderWithScripture());
    FindFellowship(program);
    const std::vector<std::string> all = References(program);
    ASSERT_EQ(all.size(), 5u);
    Press(program, "Delete");
    EXPECT_EQ(References(program), all) << "no line is marked";

    for (const int line : {1, 2, 4}) Mark(program, line);
    Press(program, "Delete");
    const std::vector<std::string> left = Without(all, {1, 2, 4});
    EXPECT_EQ(References(program), left);
    EXPECT_EQ(CaretLine(program), 1);
    EXPECT_THAT(Marked(program), IsEmpty());
    EXPECT_FALSE(CanCopy(program));
    EXPECT_EQ(StatusPart(program, kSummary), "");
    EXPECT_EQ(StatusPart(program, kEntry), "");
    ShowView(program, 0);
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, static_cast<int>(left.size()) - 1);
    for (const std::string& reference : left) {
        EXPECT_EQ(StatusPart(program, kEntry), reference);
        Press(program, "Down");
    }

    ShowView(program, 1);
    Press(program, "Home");
    Press(program, "Shift+End");
    Press(program, "Delete");
    EXPECT_THAT(References(program), IsEmpty());
    EXPECT_TRUE(IsGreyed(program, IDM_COPY_VERSE_LIST));
    Press(program, "Delete");
    Press(program, "Ctrl+c");
    Press(program, "Shift+F10");
    EXPECT_FALSE(IsInMenu(program));
}

static std::string Line(const Program& program, int line) {
    wchar_t text[64] = L"";
    SendMessageW(ReferenceListOf(program), LB_GETTEXT, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(text));
    return {std::begin(text), std::find(std::begin(text), std::end(text), L'\0')};
}

static int Count(const Program& program) {
    return static_cast<int>(SendMessageA(ReferenceListOf(program), LB_GETCOUNT, 0, 0));
}

// Many lines are replaced together. Only some are read, because that takes long from another process.
TEST(ReferenceListDelete, TakesManyEntriesOutAndBringsThemBack) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"the"});
    const std::string summary = StatusPart(program, kSummary);
    ShowView(program, 1);
    ASSERT_EQ(Count(program), 24091);
    const std::vector<int> kSome = {0, 1, 7000, 23999, 24000, 24001, 24090};
    std::vector<std::string> before;
    for (const int line : kSome) before.push_back(Line(program, line));
    SendMessageA(ReferenceListOf(program), LB_SELITEMRANGE, TRUE, MAKELPARAM(1, 24000));
    Settle(program);
    Press(program, "Delete");
    ASSERT_EQ(Count(program), 91);
    EXPECT_THAT((std::vector{Line(program, 0), Line(program, 1), Line(program, 90)}),
                ElementsAre(before[0], before[5], before[6]));
    EXPECT_EQ(CaretLine(program), 1);
    EXPECT_EQ(StatusPart(program, kSummary), "");
    Press(program, "Ctrl+z");
    ASSERT_EQ(Count(program), 24091);
    std::vector<std::string> after;
    for (const int line : kSome) after.push_back(Line(program, line));
    EXPECT_EQ(after, before);
    EXPECT_EQ(StatusPart(program, kSummary), summary);
}

// ---- Taking deletions back ------------------------------------------------------------------------------------------

TEST(ListUndo, BringsBackWhatTheReferenceListDeleted) {
    Program program = StartProgram(FolderWithScripture());
    FindFellowship(program);
    const std::vector<std::string> all = References(program);
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO));
    Mark(program, 0);
    Mark(program, 3);
    Press(program, "Delete");
    EXPECT_FALSE(IsGreyed(program, IDM_UNDO));
    Mark(program, 2);
    Press(program, "Delete");
    EXPECT_EQ(References(program), Without(Without(all, {0, 3}), {2}));
    Press(program, "Ctrl+z");
    EXPECT_EQ(References(program), Without(all, {0, 3}));
    EXPECT_EQ(CaretLine(program), 2);
    Command(program, IDM_UNDO);
    EXPECT_EQ(References(program), all);
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO));
    Press(program, "Ctrl+z");
    EXPECT_EQ(References(program), all);
    const std::string copied = CopiedReferences(program);
    SearchFor(program, {"fellowship"});
    EXPECT_EQ(CopiedReferences(program), copied) << "the other view";
}

TEST(ListUndo, BringsBackWhatTheVerseListDeleted) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    const Picture before = PictureOfClient(VerseListOf(program));
    Press(program, "Delete");
    Press(program, "End");
    Press(program, "Delete");
    Press(program, "Delete");
    EXPECT_THAT(References(program), IsEmpty());
    EXPECT_TRUE(IsGreyed(program, IDM_CONTEXT));
    EXPECT_TRUE(IsGreyed(program, IDM_SAVE_VERSE_LIST));
    Press(program, "Ctrl+z");
    EXPECT_THAT(References(program), ElementsAre("1 John 2:2"));
    EXPECT_FALSE(IsGreyed(program, IDM_CONTEXT));
    EXPECT_FALSE(IsGreyed(program, IDM_SAVE_VERSE_LIST));
    EXPECT_EQ(StatusPart(program, kEntry), "1 John 2:2");
    Press(program, "Ctrl+z");
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 1);
    EXPECT_EQ(StatusPart(program, kSummary), "");
    Press(program, "Ctrl+z");
    EXPECT_THAT(References(program), ElementsAre("Romans 3:25", "1 John 2:2", "1 John 4:10"));
    EXPECT_EQ(StatusPart(program, kEntry), "Romans 3:25") << "the entry that is back is shown";
    EXPECT_EQ(StatusPart(program, kSummary), "3 verses, 3 occurrences");
    const RECT changed = DifferingArea(before, PictureOfClient(VerseListOf(program)));
    EXPECT_LE(changed.right, 3) << "more than the caret";
}

TEST(ListUndo, EndsWithTheNextSearch) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    Press(program, "Delete");
    SearchFor(program, {"unsearchable"});
    const std::vector<std::string> found = References(program);
    Press(program, "Ctrl+z");
    EXPECT_EQ(References(program), found);
    Press(program, "Delete");
    EXPECT_FALSE(IsGreyed(program, IDM_UNDO));
    Press(program, "Alt+2");
    EXPECT_TRUE(IsGreyed(program, IDM_UNDO)) << "the list has no focus";
    Press(program, "Ctrl+z");
    EXPECT_EQ(References(program), Without(found, {0}));
    SearchInVain(program, {"xyzzy"});
    Press(program, "Enter");
    Press(program, "Alt+1");
    Press(program, "Ctrl+z");
    EXPECT_THAT(References(program), IsEmpty());
}

// ---- Other keys and the menu ----------------------------------------------------------------------------------------

TEST(ReferenceListKeys, RightGoesToThePassage) {
    Program program = StartProgram(FolderWithScripture());
    FindFellowship(program);
    Press(program, "Home");
    Press(program, "Right");
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    Press(program, "Left");
    EXPECT_EQ(FocusOf(program), ReferenceListOf(program));
    EXPECT_EQ(CaretLine(program), 0);
    Press(program, "F3");
    Press(program, "Right");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(FocusOf(program), PassageOf(program));
}

static std::vector<std::string> ExpectedRows(const std::string& verse, const char* copy) {
    return {"162 Copy Selected Text\tCtrl+C" + std::string(copy),
            "131 Copy Verse List\tF7",
            "134 Save Verse List...",
            "186 Print Verse List...",
            "341 Copy Hits by Book\tShift+F7",
            "---",
            "108 Read Context of " + verse + "\tEnter",
            "---",
            "187 Delete " + verse + " From List\tDelete",
            "---",
            "175 Go to Note (" + verse + ")\tF10",
            "---",
            "105 Word Search with Selected Text... (greyed)",
            "106 Phrase Search with Selected Text... (greyed)",
            "177 Search Notes with Selected Text... (greyed)"};
}

TEST(ReferenceListMenu, IsTheVerseListsForTheCaretLine) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"propitiation"});
    ShowView(program, 1);
    for (const char* keys : {"Shift+F10", "Menu"}) {
        Press(program, keys);
        EXPECT_THAT(Described(OpenMenuLines(program)), ElementsAreArray(ExpectedRows("Ro 3:25", " (greyed)"))) << keys;
        LeaveMenu(program);
    }
    Press(program, "Down");
    Press(program, "Down");
    const int caret = CaretLine(program);
    ASSERT_GT(caret, 0);
    const std::string verse = caret == 1 ? "1Jo 2:2" : "1Jo 4:10";
    Press(program, "Alt+2");
    Click(program, ReferenceListOf(program), {60, 40}, MouseButton::Right);
    EXPECT_THAT(Described(OpenMenuLines(program)), ElementsAreArray(ExpectedRows(verse, "")));
    SavePicture(PictureOfWindow(program.frame), "reference-list-menu");
    EXPECT_EQ(FocusOf(program), ReferenceListOf(program));
    LeaveMenu(program);
}

// What a row says is what it does, whether the line is marked or not.
TEST(ReferenceListMenu, ActsOnTheCaretLine) {
    Program program = StartProgram(FolderWithScripture());
    FindFellowship(program);
    const std::vector<std::string> all = References(program);
    const auto choose = [&](const char* row) {
        Press(program, "Shift+F10");
        ChooseRow(program, row);
    };
    choose("Read Context");
    EXPECT_EQ(Top(program), all[0]);
    Press(program, "Home");
    Press(program, "Down");
    Press(program, "Down");
    choose("Read Context");
    EXPECT_EQ(Top(program), all[2]);
    choose("Go to Note");
    EXPECT_EQ(StatusPart(program, kNote), all[2]);
    SetClipboardText("nothing");
    choose("Copy Selected Text");
    EXPECT_NE(ClipboardText(), "nothing");
    Mark(program, 2, false);
    Mark(program, 4);
    SendMessageA(ReferenceListOf(program), LB_SETCARETINDEX, 2, 0);
    choose("Delete");
    EXPECT_EQ(References(program), Without(all, {2})) << "only the line that the row names";
    Press(program, "Ctrl+z");
    EXPECT_EQ(References(program), all);
}
