// Context menus of a selection: the verse that their rows name is the one that the commands take.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::IsSupersetOf;
using testing::StartsWith;

static constexpr int kWept = 26558;  // John 11:35, which fits on one line

static Program StartAtWept() {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(kWept));
    Program program = StartProgram(folder);
    Command(program, IDM_FOCUS_PASSAGE);
    return program;
}

static POINT InLine(int line) {
    const int height = LineHeightOf();
    return {100, line * height + height / 2};
}

// Opens a pane's menu with the mouse or a key.
static void OpenMenuBy(const Program& program, HWND pane, const std::string& how) {
    if (how == "mouse") return Click(program, pane, {90, 60}, MouseButton::Right);
    Press(program, how);
}

static constexpr const char* kWaysToOpen[] = {"mouse", "Shift+F10", "Menu"};

TEST(PassageMenu, NamesAndTakesTheFirstSelectedVerse) {
    const Program program = StartAtWept();
    const HWND pane = PassageOf(program);
    const std::pair<POINT, POINT> drags[] = {{InLine(1), InLine(0)}, {InLine(0), InLine(1)}};
    for (const auto& [from, to] : drags) {
        Drag(program, pane, from, to);
        for (const char* how : kWaysToOpen) {
            SCOPED_TRACE(how);
            OpenMenuBy(program, pane, how);
            EXPECT_THAT(
                Described(OpenMenuLines(program)),
                IsSupersetOf({"162 Copy Selected Text\tCtrl+C", "> Set a Bookmark to Joh 11:35",
                              "174 Go to Note for Joh 11:35\tF10", "105 Word Search with Selected Text...",
                              "106 Phrase Search with Selected Text...", "177 Search Notes with Selected Text..."}));
            ChooseRow(program, "Set a Bookmark", "Set 1");
            EXPECT_EQ(MenuText(program, IDM_GOTO_BOOKMARK), "John 11:35\tCtrl+1");
            Command(program, IDM_NEXT_NOTE);
            EXPECT_NE(StatusPart(program, 2), "John 11:35");
            OpenMenuBy(program, pane, how);
            ChooseRow(program, "Go to Note for Joh 11:35");
            EXPECT_EQ(StatusPart(program, 2), "John 11:35");
        }
    }
    Press(program, "Menu");
    KeepPictureOfMenu(program, "passage-menu-selection");
    LeaveMenu(program);
}

TEST(PassageMenu, ActsOnTheSelectedText) {
    const Program program = StartAtWept();
    const HWND pane = PassageOf(program);
    Drag(program, pane, InLine(1), InLine(0));
    Press(program, "Menu");
    SetClipboardText("before");
    ChooseRow(program, "Copy Selected Text");
    EXPECT_THAT(ClipboardText(), StartsWith("Jesus wept. \r\n 36 Then "));
    Press(program, "Menu");
    ChooseRow(program, "Word Search with Selected Text...");
    EXPECT_THAT(TextOf(WaitForDialog(program, "Word Search"), IDC_SEARCH_TEXT), StartsWith("Jesus wept   Then "));
}

TEST(PassageMenu, UsesTheTopVerseWhenTheSelectionIsNotFullyVisible) {
    const Program program = StartAtWept();
    const HWND pane = PassageOf(program);
    Drag(program, pane, InLine(0), InLine(1));
    Press(program, "Down");
    OpenMenuBy(program, pane, "mouse");
    EXPECT_THAT(Described(OpenMenuLines(program)),
                IsSupersetOf({"162 Copy Selected Text\tCtrl+C", "174 Go to Note for Joh 11:36\tF10"}));
    LeaveMenu(program);
}

// Each row names the entry where the drag began, and its command takes that entry.
TEST(VerseListMenu, NamesAndTakesTheEntryWhereTheSelectionBegan) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    const HWND pane = VerseListOf(program);
    for (const char* how : kWaysToOpen) {
        SCOPED_TRACE(how);
        Drag(program, pane, InLine(3), InLine(0));
        OpenMenuBy(program, pane, how);
        EXPECT_THAT(Described(OpenMenuLines(program)),
                    IsSupersetOf({"162 Copy Selected Text\tCtrl+C", "108 Read Context of Ge 19:19\tEnter",
                                  "187 Delete Ge 19:19 From List\tDelete", "175 Go to Note (Ge 19:19)\tF10",
                                  "105 Word Search with Selected Text...", "106 Phrase Search with Selected Text...",
                                  "177 Search Notes with Selected Text..."}));
        ChooseRow(program, "Read Context of Ge 19:19");
        EXPECT_EQ(Top(program), "Genesis 19:19");
        Command(program, IDM_NEXT_NOTE);
        EXPECT_EQ(StatusPart(program, 2), "Genesis 19:20");
        OpenMenuBy(program, pane, how);
        ChooseRow(program, "Go to Note (Ge 19:19)");
        EXPECT_EQ(StatusPart(program, 2), "Genesis 19:19");
    }
    Press(program, "F12");
    EXPECT_EQ(Top(program), "Genesis 6:8") << "the key still takes the first selected entry";
    Press(program, "Menu");
    ChooseRow(program, "Delete Ge 19:19 From List");
    EXPECT_EQ(ListStrings(ReferenceListOf(program))[1], "Genesis 32:5");
    Press(program, "Menu");
    EXPECT_THAT(Described(OpenMenuLines(program)),
                IsSupersetOf({"162 Copy Selected Text\tCtrl+C (greyed)", "187 Delete Ge 6:8 From List\tDelete"}));
    LeaveMenu(program);
}

TEST(VerseListMenu, ReadContextShowsAHiddenPassage) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"grace"});
    Command(program, IDM_VIEW_PASSAGE);
    Drag(program, VerseListOf(program), InLine(2), InLine(0));
    Press(program, "Shift+F10");
    ChooseRow(program, "Read Context of Ge 19:19");
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_PASSAGE));
    EXPECT_EQ(Top(program), "Genesis 19:19");
}
