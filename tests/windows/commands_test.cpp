// Commands: their state at the start, their keys, and the dialogs they open.

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;

// Commands that are enabled before anything has been searched, read or selected.
static constexpr int kEnabledAtStart[] = {
    IDM_ABOUT,           IDM_EXIT,
    IDM_HELP_TOPICS,     IDM_HELP_RANGE,
    IDM_HELP_PREFACE,    IDM_WORD_SEARCH,
    IDM_PHRASE_SEARCH,   IDM_WORD_LIST_SEARCH,
    IDM_NEAR_SEARCH,     IDM_SET_RANGE,
    IDM_GOTO_VERSE,      IDM_PARAGRAPH_FORMAT,
    IDM_ITALIC_TEXT,     IDM_ITALIC_BRACKETS,
    IDM_ITALIC_NORMAL,   IDM_LIST_FONT,
    IDM_PASSAGE_FONT,    IDM_NOTES_FONT,
    IDM_ZOOM_IN,         IDM_ZOOM_OUT,
    IDM_HIGHLIGHT_COLOR, IDM_COPY_VERSE,
    IDM_COPY_RANGE,      IDM_FORMAT,
    IDM_SAVE_RANGE,      IDM_PAGE_SETUP,
    IDM_PRINT_RANGE,     IDM_VIEW_LIST,
    IDM_VIEW_PASSAGE,    IDM_VIEW_NOTES,
    IDM_VIEW_TOOLBAR,    IDM_PREVIOUS_NOTE,
    IDM_NEXT_NOTE,       IDM_PREVIOUS_NOTE_SET,
    IDM_NEXT_NOTE_SET,   IDM_NOTE_FOR_PASSAGE,
    IDM_GOTO_NOTE,       IDM_EDIT_NOTE,
    IDM_VERSE_FOR_NOTE,  IDM_BIND_NOTES,
    IDM_SEARCH_NOTES,    IDM_CREATE_NOTE_SET,
    IDM_DELETE_NOTE_SET, IDM_RENAME_NOTE_SET,
    IDM_EARLIER_NOTES,   IDM_EARLIER_STATES,
    IDM_LIST_NOTES,      IDM_NOTES_ABOUT,
    IDM_VIEW_HITS,       IDM_EXPORT_NOTES,
    IDM_IMPORT_NOTES,
};

// Commands that need search results, a selection or the focus.
static constexpr int kGreyedAtStart[] = {
    IDM_CONTEXT,       IDM_NOTE_FOR_LIST,   IDM_COPY_VERSE_LIST,  IDM_COPY_REFERENCES,
    IDM_COPY_HITS,     IDM_SAVE_VERSE_LIST, IDM_PRINT_VERSE_LIST, IDM_COPY,
    IDM_CUT,           IDM_PASTE,           IDM_PREVIOUS_CHAPTER, IDM_NEXT_CHAPTER,
    IDM_PREVIOUS_BOOK, IDM_NEXT_BOOK,
};

TEST(Commands, AreEnabledOrGreyedCorrectlyAtTheStart) {
    Program program = StartProgram(FolderWithScripture());
    for (const int command : kEnabledAtStart) EXPECT_FALSE(IsGreyed(program, command)) << command;
    for (const int command : kGreyedAtStart) EXPECT_TRUE(IsGreyed(program, command)) << command;
    for (int number = 0; number < 10; ++number) {
        EXPECT_FALSE(IsGreyed(program, IDM_GOTO_BOOKMARK + number)) << number;
        EXPECT_FALSE(IsGreyed(program, IDM_SET_BOOKMARK + number)) << number;
    }
    for (int book = 1; book <= 66; ++book) EXPECT_FALSE(IsGreyed(program, IDM_GOTO_BOOK + book)) << book;
}

namespace {

struct Ticks {
    const char* section;
    const char* key;
    std::vector<std::pair<const char*, std::vector<int>>> ticked;  // a value, and which of `commands` it ticks
    std::vector<int> commands;
};

}  // namespace

TEST(Commands, AreTickedAccordingToTheSettings) {
    const Ticks kRows[] = {
        {"OPTIONS", "Paragraph Format", {{"1", {IDM_PARAGRAPH_FORMAT}}, {"0", {}}}, {IDM_PARAGRAPH_FORMAT}},
        {"OPTIONS",
         "Italics",
         {{"0", {IDM_ITALIC_TEXT}}, {"1", {IDM_ITALIC_BRACKETS}}, {"2", {IDM_ITALIC_NORMAL}}},
         {IDM_ITALIC_TEXT, IDM_ITALIC_BRACKETS, IDM_ITALIC_NORMAL}},
        {"MISC", "BindNotes", {{"1", {IDM_BIND_NOTES}}, {"0", {}}}, {IDM_BIND_NOTES}},
        {"VIEW", "VerseListWindow", {{"1", {IDM_VIEW_LIST}}, {"0", {}}}, {IDM_VIEW_LIST}},
        {"VIEW", "ReadWindow", {{"1", {IDM_VIEW_PASSAGE}}, {"0", {}}}, {IDM_VIEW_PASSAGE}},
        {"VIEW", "NotesWindow", {{"1", {IDM_VIEW_NOTES}}, {"0", {}}}, {IDM_VIEW_NOTES}},
        {"VIEW", "ToolBar", {{"1", {IDM_VIEW_TOOLBAR}}, {"0", {}}}, {IDM_VIEW_TOOLBAR}},
    };
    for (std::size_t value = 0; value < 3; ++value) {  // each start tests one value of every setting
        const ScratchFolder folder = FolderWithScripture();
        for (const Ticks& row : kRows)
            WriteSetting(folder, row.section, row.key, row.ticked[value % row.ticked.size()].first);
        Program program = StartProgram(folder);
        for (const Ticks& row : kRows) {
            const auto& [setting, expected] = row.ticked[value % row.ticked.size()];
            std::vector<int> ticked;
            for (const int command : row.commands)
                if (IsTicked(program, command)) ticked.push_back(command);
            EXPECT_EQ(ticked, expected) << row.key << "=" << setting;
        }
    }
}

static void ExpectButtonsLikeTheMenu(const Program& program, const char* when) {
    for (const ToolButton& button : ToolButtons(program)) {
        if (button.command == 0) continue;
        const bool greyed = (button.state & TBSTATE_INDETERMINATE) != 0;
        const bool pressed = (button.state & TBSTATE_CHECKED) != 0;
        EXPECT_EQ(greyed, IsGreyed(program, button.command)) << when << ": button " << button.command;
        EXPECT_EQ(pressed, IsTicked(program, button.command)) << when << ": button " << button.command;
        EXPECT_NE(button.state & TBSTATE_ENABLED, 0) << when << ": button " << button.command;
    }
}

TEST(Commands, HaveTheSameStateInMenuAndToolbar) {
    Program program = StartProgram(FolderWithScripture());
    ExpectButtonsLikeTheMenu(program, "at the start");
    Command(program, IDM_VIEW_LIST);
    Command(program, IDM_VIEW_NOTES);
    ExpectButtonsLikeTheMenu(program, "with panes hidden");
    Command(program, IDM_VIEW_NOTES);
    Click(program, NoteViewOf(program));
    SelectRich(program, NoteViewOf(program), {0, 4});
    ExpectButtonsLikeTheMenu(program, "with a selection");
    Command(program, IDM_FOCUS_PASSAGE);
    ExpectButtonsLikeTheMenu(program, "in the Passage");
}

namespace {

struct Opening {
    int command;
    const char* keys;  // "" for none
    const char* title;
};

void PrintTo(const Opening& opening, std::ostream* out) {
    *out << opening.title;
}

struct DialogCommand : testing::TestWithParam<Opening> {};

}  // namespace

TEST_P(DialogCommand, OpensItsDialogAndEscClosesIt) {
    const auto& [command, keys, title] = GetParam();
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_FOCUS_PASSAGE);
    Command(program, command);
    const HWND dialog = WaitForDialog(program, title);
    EXPECT_EQ(ActiveWindowOf(program), dialog);
    EXPECT_FALSE(IsWindowEnabled(program.frame));
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsWindowEnabled(program.frame));
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    if (*keys == '\0') return;
    Press(program, keys);
    WaitForDialog(program, title);
    EXPECT_FALSE(IsInMenu(program));
    Press(program, "Esc");
    WaitForNoDialog(program);
}

INSTANTIATE_TEST_SUITE_P(
    Commands, DialogCommand,
    testing::Values(Opening{IDM_ABOUT, "", "About Versewell97"}, Opening{IDM_WORD_SEARCH, "Alt+w", "Word Search"},
                    Opening{IDM_PHRASE_SEARCH, "Alt+p", "Phrase Search"},
                    Opening{IDM_WORD_LIST_SEARCH, "Alt+l", "Word Search"},
                    Opening{IDM_NEAR_SEARCH, "Alt+a", "Words Near Each Other"},
                    Opening{IDM_LIST_NOTES, "Ctrl+l", "List Notes"}, Opening{IDM_SET_RANGE, "", "Set Search Range"},
                    Opening{IDM_GOTO_VERSE, "Alt+g", "Go To Verse"},

                    Opening{IDM_PASSAGE_FONT, "", "Font"}, Opening{IDM_HIGHLIGHT_COLOR, "", "Color"}),
    [](const auto& row) { return "Of" + std::to_string(row.param.command); });

TEST(Commands, ExitClosesTheProgramAndSavesSettings) {
    Program program = StartProgram(FolderWithScripture());
    PostMessageA(program.frame, WM_COMMAND, IDM_EXIT, 0);
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_TRUE(HasFile(program.folder, "Versewell.INI"));
}

// The menus "&Notes" and "&Edit" have the same letters as the commands Alt+N and Alt+E: the command must run, and the
// menu must not open even while the command is greyed.
TEST(Commands, KeysOfCommandsTakePrecedenceOverMenuLetters) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_FOCUS_PASSAGE);
    for (const char* keys : {"Alt+n", "Alt+e", "Alt+t"}) {
        Press(program, keys);
        EXPECT_FALSE(IsInMenu(program)) << keys;
        Press(program, "Esc");  // a dialog, or the note editor
        Command(program, IDM_FOCUS_PASSAGE);
        Press(program, "Down");
        Press(program, "Up");
        EXPECT_EQ(Top(program), "Genesis 1:1") << keys << ": the next keys were swallowed";
    }
    Press(program, "Alt+r");
    EXPECT_TRUE(IsInMenu(program));
    Press(program, "Esc");
    Press(program, "Esc");
}

TEST(Commands, KeysShowAndHidePanes) {
    Program program = StartProgram(FolderWithScripture());
    const struct {
        const char* key;
        int command;
        HWND pane;
    } kPanes[] = {{"F2", IDM_VIEW_LIST, VerseListOf(program)},
                  {"F3", IDM_VIEW_PASSAGE, PassageOf(program)},
                  {"F4", IDM_VIEW_NOTES, NoteViewOf(program)}};
    for (const bool shown : {false, true}) {
        for (const auto& [key, command, pane] : kPanes) {
            Press(program, key);
            EXPECT_EQ(IsShown(pane), shown) << key;
            EXPECT_EQ(IsTicked(program, command), shown) << key;
        }
    }
}

TEST(Commands, FocusKeysShowAHiddenPane) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "VerseListWindow", "0");
    WriteSetting(folder, "VIEW", "ReadWindow", "0");
    Program program = StartProgram(folder);
    Press(program, "Alt+1");
    EXPECT_TRUE(IsShown(VerseListOf(program)));
    EXPECT_EQ(FocusOf(program), VerseListOf(program));
    Press(program, "Alt+2");
    EXPECT_TRUE(IsShown(PassageOf(program)));
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    const HWND tabs = Child(program.frame, {IDC_LIST_TABS});
    ClickTab(program, tabs, 1);
    Press(program, "Alt+1");
    EXPECT_EQ(FocusOf(program), Child(tabs, {IDC_REFERENCE_LIST}));
}

TEST(Commands, UnknownIdsAreIgnored) {
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "Ge 5:10");
    const Picture before = PictureOfWindow(program.frame);
    for (const int command : {1,
                              100,
                              104,
                              107,
                              115,
                              124,
                              136,
                              168,
                              187,
                              193,
                              210,
                              901,
                              902,
                              999,
                              IDM_GOTO_BOOK,
                              IDM_GOTO_BOOK + 67,
                              1999,
                              IDM_DEVOTIONAL,
                              IDM_DEVOTIONAL + 31101,
                              IDM_DEVOTIONAL + 31102,
                              0xFFFF}) {
        Command(program, command);
        ASSERT_TRUE(IsRunning(program)) << command;
        EXPECT_FALSE(HasDialog(program)) << command;
    }
    EXPECT_EQ(Top(program), "Genesis 5:10");
    const RECT changed = DifferingArea(before, PictureOfWindow(program.frame));
    EXPECT_LE(changed.right - changed.left, 3) << "more than a blinking caret has changed";
}
