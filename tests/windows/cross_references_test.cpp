// Cross-reference lines of a note: a double click lists their verses in the Verse List.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr int kSummary = 0;  // parts of the status bar
static constexpr int kEntry = 1;

static const std::string kNote =
    "A plain line\r\n"
    "# Ge 1:1; Ex 2:4, 6-8\r\n"
    "see # 1John 4:8; 5 and so on\r\n"
    "# nothing that is a reference\r\n"
    "# Ex 5";

static ScratchFolder FolderWithReferences() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{57, kNote}});  // Genesis 3:2
    WriteSetting(folder, "MISC", "NoteVerse", "57");
    WriteSetting(folder, "MISC", "ReadVerse", "57");
    return folder;
}

static std::vector<std::string> References(const Program& program) {
    return ListStrings(ReferenceListOf(program));
}

TEST(CrossReferenceLine, OpensAsAVerseList) {
    Program program = StartProgram(FolderWithReferences());
    DoubleClickNote(program, "Ge 1:1");
    EXPECT_THAT(References(program), ElementsAre("Ge 1:1", "Ex 2:4", "Ex 2:6", "Ex 2:7", "Ex 2:8"));
    EXPECT_EQ(StatusPart(program, kSummary), "x-refs for Genesis 3:2");
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 1:1");
    EXPECT_EQ(FocusOf(program), NoteViewOf(program)) << "the focus stays";
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 1:1 "}, {Style::kRegular, "\xB6 In the "}}}}), "");
    const ScrollState scroll = VerticalScroll(program, VerseListOf(program));
    EXPECT_EQ(scroll.lowest, 0);
    EXPECT_EQ(scroll.highest, 4);
    EXPECT_EQ(scroll.position, 0);
    SavePicture(PictureOfWindow(program.frame), "cross-references");

    DoubleClickNote(program, "4:8");  // after a word and a "#"
    EXPECT_THAT(References(program), ElementsAre("1Jo 4:8", "1Jo 4:5"));
    DoubleClickNote(program, "Ex 5");  // a number without a colon is a verse
    EXPECT_THAT(References(program), ElementsAre("Ex 3:5"));
    EXPECT_EQ(VerticalScroll(program, VerseListOf(program)).highest, 0);
}

TEST(CrossReferenceLine, EnablesTheListCommandsButNotSave) {
    Program program = StartProgram(FolderWithReferences());
    static constexpr int kEnabled[] = {IDM_CONTEXT, IDM_NOTE_FOR_LIST, IDM_COPY_VERSE_LIST, IDM_COPY_REFERENCES};
    for (const int command : kEnabled) ASSERT_TRUE(IsGreyed(program, command)) << command;
    DoubleClickNote(program, "Ge 1:1");
    for (const int command : kEnabled) EXPECT_FALSE(IsGreyed(program, command)) << command;
    EXPECT_TRUE(IsGreyed(program, IDM_SAVE_VERSE_LIST)) << "a list of references must not enable saving";
    EXPECT_EQ(ToolState(program, IDM_CONTEXT), TBSTATE_ENABLED);
    SearchFor(program, {"grace"});
    DoubleClickNote(program, "Ge 1:1");
    EXPECT_FALSE(IsGreyed(program, IDM_SAVE_VERSE_LIST)) << "nor disable it";
    Press(program, "F9");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
}

TEST(CrossReferenceLine, WithoutReferencesLeavesTheListUnchanged) {
    Program program = StartProgram(FolderWithReferences());
    for (const char* line : {"plain", "see", "nothing"}) {
        DoubleClickNote(program, line);
        EXPECT_THAT(References(program), IsEmpty()) << line;
        EXPECT_EQ(StatusPart(program, kSummary), "") << line;
        EXPECT_TRUE(IsGreyed(program, IDM_CONTEXT)) << line;
        EXPECT_FALSE(IsGreyed(program, IDM_COPY)) << "the word must still be selected: " << line;
    }
    SearchFor(program, {"grace"});
    DoubleClickNote(program, "plain");
    EXPECT_EQ(References(program).size(), 159u) << "the list stays";
    EXPECT_EQ(StatusPart(program, kSummary), "159 verses, 170 occurrences");
}

// The key words belong to an earlier search, which did not find these verses.
TEST(CrossReferenceLine, HighlightsNoKeyWords) {
    const ScratchFolder folder = FolderWithReferences();
    WriteSetting(folder, "OPTIONS", "KeyHighlightColor", std::to_string(RGB(255, 0, 0)));
    Program program = StartProgram(folder);
    SearchFor(program, {"the"});
    DoubleClickNote(program, "Ge 1:1");
    EXPECT_EQ(WrongLines(VerseListOf(program), {{{{Style::kBold, "Ge 1:1 "}, {Style::kRegular, "\xB6 In the "}}}}), "");
    SearchFor(program, {"grace"});
    EXPECT_EQ(References(program).front(), "Genesis 6:8") << "results of a search have full book names";
}

TEST(CrossReferenceLine, VersesCanBeReadInContextFromBothViews) {
    Program program = StartProgram(FolderWithReferences());
    DoubleClickNote(program, "4:8");
    Press(program, "Alt+1");
    Press(program, "Down");
    Press(program, "Enter");
    EXPECT_EQ(Top(program), "1 John 4:5");
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    Press(program, "Alt+1");
    Press(program, "Home");
    Press(program, "Enter");
    EXPECT_EQ(Top(program), "1 John 4:8") << "from a line with an abbreviated book name";
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 0);
    Press(program, "Alt+1");
    Press(program, "Delete");
    EXPECT_THAT(References(program), ElementsAre("1Jo 4:8"));
    EXPECT_EQ(StatusPart(program, kSummary), "");
}

TEST(CrossReferenceLine, ShowsAHiddenVerseList) {
    const ScratchFolder folder = FolderWithReferences();
    WriteSetting(folder, "VIEW", "VerseListWindow", "0");
    Program program = StartProgram(folder);
    DoubleClickNote(program, "Ge 1:1");
    EXPECT_TRUE(IsShown(VerseListOf(program)));
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_LIST));
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
}
