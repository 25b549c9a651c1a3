// Note commands outside the editor: next and previous notes and sets, binding, searching for the selected text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"

using testing::UnorderedElementsAre;

static std::string NoteVerse(const Program& program) {
    return StatusPart(program, 2);
}

static Program ProgramWithNotes(const std::map<int, std::string>& notes, int noteVerse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", notes);
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(noteVerse));
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    return StartProgram(folder);
}

TEST(NoteCommands, NextAndPreviousWrapAroundTheBible) {
    Program program = ProgramWithNotes({{0, "First."}, {500, "Middle."}, {31101, "Last."}}, 0);
    for (const char* text : {"Middle.", "Last.", "First.", "Middle."}) {
        Press(program, "Alt+Down");
        EXPECT_EQ(TextOf(NoteViewOf(program)), text);
    }
    EXPECT_EQ(NoteVerse(program), "Genesis 20:5");
    for (const char* text : {"First.", "Last.", "Middle."}) {
        Press(program, "Alt+Up");
        EXPECT_EQ(TextOf(NoteViewOf(program)), text);
    }
    EXPECT_EQ(Top(program), "Genesis 5:10") << "the Passage has moved";
}

TEST(NoteCommands, NextAndPreviousMoveOneVerseWithoutOtherNotes) {
    const struct {
        std::map<int, std::string> notes;
        int from;
        int command;
        const char* to;
    } kRows[] = {
        {{{100, "Alone."}}, 100, IDM_NEXT_NOTE, "Genesis 4:22"},
        {{{100, "Alone."}}, 100, IDM_PREVIOUS_NOTE, "Genesis 4:20"},
        {{}, 100, IDM_NEXT_NOTE, "Genesis 4:22"},
        {{{31101, "Alone."}}, 31101, IDM_NEXT_NOTE, "Genesis 1:1"},
        {{{0, "Alone."}}, 0, IDM_PREVIOUS_NOTE, "Revelation 22:21"},
        {{}, 0, IDM_PREVIOUS_NOTE, "Revelation 22:21"},
    };
    for (const auto& [notes, from, command, to] : kRows) {
        Program program = ProgramWithNotes(notes, from);
        Command(program, command);
        EXPECT_EQ(NoteVerse(program), to) << from;
        EXPECT_EQ(TextOf(NoteViewOf(program)), std::string("No note for ") + to + ".") << from;
    }
}

TEST(NoteCommands, ShowHiddenNotes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "NotesWindow", "0");
    Program program = StartProgram(folder);
    for (const int command : {IDM_PREVIOUS_NOTE, IDM_NEXT_NOTE, IDM_PREVIOUS_NOTE_SET, IDM_NEXT_NOTE_SET,
                              IDM_NOTE_FOR_PASSAGE, IDM_NOTE_FOR_LIST}) {
        ASSERT_FALSE(IsShown(NoteViewOf(program))) << command;
        Command(program, command);
        EXPECT_TRUE(IsShown(NoteViewOf(program))) << command;
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES)) << command;
        Command(program, IDM_VIEW_NOTES);
    }
}

TEST(NoteCommands, SwitchBetweenSetsAndRepaintTheMarks) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* name : {"A", "B", "C"}) WriteNoteSet(folder, name, {{115, std::string("Of ") + name}});
    WriteNoteSet(folder, "None");
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    WriteSetting(folder, "MISC", "NoteVerse", "115");
    Program program = StartProgram(folder);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    const std::vector<std::string> names = NoteSetNames(program);
    ASSERT_THAT(names, UnorderedElementsAre("A", "B", "C", "None"));

    const auto expectSet = [&](int set) {
        const std::string& name = names[static_cast<std::size_t>(set)];
        const bool hasNote = name != "None";
        EXPECT_EQ(SelectedTab(tabs), set);
        EXPECT_EQ(TextOf(NoteViewOf(program)), hasNote ? "Of " + name : "No note for Genesis 5:10.");
        EXPECT_EQ(WrongLines(PassageOf(program), {{{{Style::kBold, hasNote ? " *Ge 5:10 " : " Ge 5:10 "}}}}), "");
    };
    expectSet(0);
    for (const int set : {1, 2, 3, 0, 1}) {
        Press(program, "Alt+Right");
        expectSet(set);
    }
    for (const int set : {0, 3, 2, 1, 0}) {
        Press(program, "Alt+Left");
        expectSet(set);
    }
    ClickTab(program, tabs, 2);
    expectSet(2);
}

TEST(NoteCommands, GoBetweenPassageAndNote) {
    Program program = ProgramWithNotes({{115, "On the verse."}, {200, "Elsewhere."}}, 200);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Elsewhere.");
    Press(program, "F10");
    EXPECT_FALSE(IsInMenu(program));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "On the verse.");
    EXPECT_EQ(NoteVerse(program), "Genesis 5:10");
    Press(program, "Alt+Down");
    EXPECT_EQ(Top(program), "Genesis 5:10");
    Press(program, "F11");
    EXPECT_EQ(Top(program), NoteVerse(program));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Elsewhere.");
}

TEST(NoteCommands, BindingShowsThePassagesNoteImmediately) {
    Program program = ProgramWithNotes({{115, "On the verse."}, {200, "Elsewhere."}}, 200);
    EXPECT_TRUE(IsTicked(program, IDM_BIND_NOTES));
    Command(program, IDM_BIND_NOTES);
    EXPECT_FALSE(IsTicked(program, IDM_BIND_NOTES));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Elsewhere.") << "unbinding must not change the note";
    Command(program, IDM_VIEW_NOTES);
    Command(program, IDM_BIND_NOTES);
    EXPECT_TRUE(IsTicked(program, IDM_BIND_NOTES));
    EXPECT_TRUE(IsShown(NoteViewOf(program)));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "On the verse.");
    CloseProgram(program);
    EXPECT_EQ(Setting(program.folder, "MISC", "BindNotes"), "1");
}

// ---- The selection in the note --------------------------------------------------------------------------------------

static const std::string kThreeLines = "The first line.\r\nA second one.\r\nGrace and truth came.\r\n";

static Program ProgramWithSelection(const std::string& note, TextSelection selection) {
    Program program = ProgramWithNotes({{115, note}}, 115);
    Click(program, NoteViewOf(program));
    SelectRich(program, NoteViewOf(program), selection);
    return program;
}

static std::string SearchField(const Program& program, const char* title) {
    const HWND dialog = WaitForDialog(program, title);
    const std::string text = TextOf(dialog, IDC_SEARCH_TEXT);
    Press(program, "Esc");
    WaitForNoDialog(program);
    return text;
}

TEST(NoteSelection, IsUsedAsSearchText) {
    const int start = static_cast<int>(kThreeLines.find("Grace"));
    const std::string hundreds(450, 'a');
    const struct {
        const char* name;
        std::string note;
        TextSelection selection;
        std::string expected;
    } kRows[] = {
        {"third line", kThreeLines, {start, start + 15}, "Grace and truth"},
        {"first word", kThreeLines, {0, 3}, "The"},
        {"199 characters", hundreds, {0, 199}, std::string(199, 'a')},
        {"200 characters", hundreds, {0, 200}, std::string(199, 'a')},
        {"nothing", kThreeLines, {4, 4}, ""},
    };
    for (const auto& row : kRows) {
        Program program = ProgramWithSelection(row.note, row.selection);
        for (const auto& [command, title] :
             {std::pair{IDM_NOTE_WORD_SEARCH, "Word Search"}, {IDM_NOTE_PHRASE_SEARCH, "Phrase Search"}}) {
            PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
            EXPECT_EQ(SearchField(program, title), row.expected) << row.name << ", " << title;
        }
    }
}

TEST(NoteSelection, IsCopied) {
    const int start = static_cast<int>(kThreeLines.find("Grace"));
    Program program = ProgramWithSelection(kThreeLines, {start, start + 9});
    SetClipboardText("before");
    Press(program, "Ctrl+c");
    EXPECT_EQ(ClipboardText(), "Grace and");
    Command(program, IDM_PARAGRAPH_FORMAT);
    EXPECT_FALSE(IsGreyed(program, IDM_COPY)) << "the Passage's format must not affect a selection in the note";
    SelectRich(program, NoteViewOf(program), {start, start});
    EXPECT_TRUE(IsGreyed(program, IDM_COPY));
    SetClipboardText("before");
    Command(program, IDM_COPY);
    EXPECT_EQ(ClipboardText(), "before");
}

TEST(NoteSelection, CopyWithoutSelectionDoesNothing) {
    Program program = StartProgram(FolderWithScripture());
    SetClipboardText("before");
    Command(program, IDM_COPY);
    EXPECT_EQ(ClipboardText(), "before");
}

// Wine's own Ctrl+Right told a place that was not the caret's, and behind the last word it ended the program.
TEST(NoteSelection, GoesFromWordToWord) {
    Program program =
        ProgramWithNotes({{0, "one two\r\n\r\nlast word"}, {1, "alone"}, {2, std::string(65000, 'x')}}, 0);
    const HWND view = NoteViewOf(program);
    const auto caretAfter = [&](const char* key) {
        Press(program, key);
        const TextSelection selection = RichSelection(program, view);
        EXPECT_EQ(selection.start, selection.end);
        return selection.start;
    };
    Click(program, view, {1, 1});
    for (const int place : {4, 7, 9, 11, 16, 20, 20, 20}) EXPECT_EQ(caretAfter("Ctrl+Right"), place);
    for (const int place : {16, 11, 9, 7, 4, 0, 0}) EXPECT_EQ(caretAfter("Ctrl+Left"), place);
    PressInOneGo(program, {"Ctrl+Right", "Ctrl+Right", "Shift+Ctrl+Left"});
    EXPECT_EQ(RichSelection(program, view).start, 4);
    EXPECT_EQ(RichSelection(program, view).end, 7);
    Press(program, "Alt+Down");
    for (int times = 0; times < 3; ++times) EXPECT_EQ(caretAfter("Ctrl+Right"), 5);
    Press(program, "Alt+Down");
    for (const int place : {65000, 65000}) EXPECT_EQ(caretAfter("Ctrl+Right"), place);
}
