// Typing in the note editor: places of the caret, and bytes that are no letters in the code page.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::HasSubstr;

// ---- Places of the caret --------------------------------------------------------------------------------------------

// The rich edit's own arrow keys go between the CR and the LF of a line end and behind the end of the text. What was
// typed there tore the line end, was lost, or ended the program.
TEST(NoteTyping, LeavesLineEndsWhole) {
    static constexpr char kNote[] = "note.\r\nThe end.";
    static const struct {
        std::string note;
        std::vector<std::string> keys;
        std::string expected;
    } kRows[] = {
        {"", {"a", "Right", "Enter"}, "a\r\n"},
        {"", {"Right", "Enter", "Right", "Right", "b"}, "\r\nb"},
        {kNote, {"End", "Right", "d"}, "note.\r\ndThe end."},
        {kNote, {"End", "Right", "Right", "d"}, "note.\r\nTdhe end."},
        {kNote, {"Down", "Left", "d"}, "note.d\r\nThe end."},
        {kNote, {"Ctrl+End", "Right", "d"}, "note.\r\nThe end.d"},
        {kNote, {"Ctrl+End", "Right", "Right", "Ctrl+v"}, "note.\r\nThe end.pasted"},
        {kNote, {"Ctrl+End", "Right", "Shift+Enter"}, "note.\r\nThe end.\r\n"},
        {kNote, {"Ctrl+End", "Right", "Enter"}, "note.\r\nThe end.\r\n"},
        {kNote, {"Ctrl+End", "Right", "Back"}, "note.\r\nThe end"},
        {kNote, {"Ctrl+End", "Left", "Ctrl+Right", "Ctrl+Right", "d"}, "note.\r\nThe end.d"},
        {"one two\r\n\r\nthree  four",
         {"Ctrl+Right", "a", "Ctrl+Right", "b", "Ctrl+Right", "c", "Ctrl+Right", "d", "Ctrl+Right", "e", "Ctrl+Right",
          "f", "Ctrl+Right", "g"},
         "one atwob\r\nc\r\ndthree  efourfg"},
        {kNote, {"End", "Shift+Right", "d"}, "note.dThe end."},
        {kNote, {"End", "Shift+Right", "Shift+Right", "d"}, "note.dhe end."},
        {kNote, {"Down", "Shift+Left", "d"}, "note.dThe end."},
        {kNote, {"Down", "Shift+Left", "Shift+Left", "d"}, "notedThe end."},
        {kNote, {"Down", "Right", "Shift+Left", "Shift+Left", "Shift+Right", "d"}, "note.\r\ndhe end."},
        {kNote, {"Ctrl+a", "Shift+Right", "Shift+Left", "d"}, "d."},
        {kNote, {"Ctrl+Home", "Shift+Ctrl+End", "Delete", "Right", "d"}, "d"},
        {kNote, {"End", "Right", "Left", "Enter", "x"}, "note.\r\nx\r\nThe end."},
    };
    SetClipboardText("pasted");
    for (const auto& [note, keys, expected] : kRows) {
        SCOPED_TRACE(testing::PrintToString(keys));
        Program program = ProgramInEditor(note);
        WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
        for (const std::string& key : keys) Press(program, key);
        EXPECT_EQ(TextInEditor(program), expected);
        Press(program, "Ctrl+s");
        WaitUntil(program, "the note to be saved", [&] { return !IsShown(NoteEditorOf(program)); });
        EXPECT_EQ(StoredEdit(program), expected);
    }
}

// Just behind the end of a line, the rich edit's own click set the caret to the start of the next line.
TEST(NoteTyping, GoesWhereTheCaretWasClicked) {
    static const std::string kNote = "one\r\n\r\ntwo";
    Program program = ProgramInEditor(kNote);
    for (const int place : {0, 1, 3, 5, 7, 8, 10}) {
        for (const int right : {0, 1, 2, 3}) {
            SCOPED_TRACE(std::to_string(place) + " + " + std::to_string(right));
            Press(program, "Ctrl+End");
            POINT point = PointOfCharacter(program, NoteEditOf(program), static_cast<std::size_t>(place));
            point.x += right - 1;
            Click(program, NoteEditOf(program), point);
            Type(program, "ab");
            std::string expected = kNote;
            EXPECT_EQ(TextInEditor(program), expected.insert(static_cast<std::size_t>(place), "ab"));
            PressInOneGo(program, {"Back", "Back"});
        }
    }
}

// Wine's rich edit sets the caret behind it.
TEST(NoteTyping, GoesBeforeABlankAtTheEndOfALine) {
    Program program = ProgramInEditor("a \r\n ");
    for (const int place : {1, 5}) {
        Press(program, "Ctrl+Home");
        Click(program, NoteEditOf(program),
              PointOfCharacter(program, NoteEditOf(program), static_cast<std::size_t>(place)));
        Type(program, "x");
    }
    EXPECT_EQ(TextInEditor(program), "ax \r\nx ");
}

// Just behind the end of a line, the rich edit selects the line's end as well.
TEST(NoteTyping, SelectsToTheEndOfTheLineUnderTheMouse) {
    static const std::string kNote = "one two\r\nthree";
    static constexpr int kEnd = 7;
    Program program = ProgramInEditor(kNote);
    const HWND edit = NoteEditOf(program);
    const auto expectTyped = [&](const char* expected, int right) {
        Type(program, "D");
        EXPECT_EQ(TextInEditor(program), expected) << right;
        Press(program, "Ctrl+a");
        Type(program, "one two");
        Press(program, "Enter");
        Type(program, "three");
    };
    const POINT start = PointOfCharacter(program, edit, 4);
    for (const int right : {0, 3, 5, 7, 9, 100}) {
        POINT end = PointOfCharacter(program, edit, kEnd);
        end.x += right;
        Drag(program, edit, start, end);
        expectTyped("one D\r\nthree", right);
    }
    const POINT second = PointOfCharacter(program, edit, 9);
    Drag(program, edit, second, start);  // upwards, from the start of a line
    expectTyped("one Dthree", 0);
    Drag(program, edit, start, second);
    expectTyped("one Dthree", 1);
}

// The box or the pane below takes the release of the button.
TEST(NoteTyping, GoesOnAfterADragThatDidNotEnd) {
    Program program = ProgramInEditor("one two");
    const HWND edit = NoteEditOf(program);
    Type(program, "x");
    const auto hold = [&] {
        HoldMouse(program, edit, PointOfCharacter(program, edit, 0));
        MoveMouse(program, edit, PointOfCharacter(program, edit, 4));
    };
    hold();
    Press(program, "Esc");
    WaitForDialog(program, "Versewell97");
    LetMouseGo(program);
    Press(program, "Alt+y");
    WaitForNoDialog(program);
    OpenNoteEditor(program);
    Type(program, "y");
    EXPECT_EQ(TextInEditor(program), "yxone two") << "after the question";
    hold();
    Press(program, "Ctrl+s");
    LetMouseGo(program);
    OpenNoteEditor(program);
    Type(program, "z");
    EXPECT_EQ(TextInEditor(program), "zyxone two") << "after it was saved";
}

TEST(NoteTyping, KeepsTheLineEndsOfAFile) {
    static const std::string kNotes[] = {"a lone LF\nis kept", "a lone CR\ris kept", "CR CR LF\r\r\nas well"};
    for (const std::string& note : kNotes) {
        Program program = ProgramInEditor(note);
        EXPECT_EQ(TextInEditor(program), note);
        Press(program, "Ctrl+End");
        Press(program, "d");
        Press(program, "Ctrl+s");
        EXPECT_EQ(StoredEdit(program), note + "d");
    }
}

// The control of Wine takes time for that, which grows with the square of the length, and without a width never ends.
TEST(NoteTyping, IsPossibleInOneLongParagraph) {
    std::string paragraph;
    while (paragraph.size() < 15000) paragraph += "long ";
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, paragraph}});
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)).size(), paragraph.size());
    Press(program, "Ctrl+End");
    Type(program, "end");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(TextOf(NoteViewOf(program)).size(), paragraph.size() + 3);
    Command(program, IDM_EARLIER_NOTES);
    const HWND dialog = WaitForDialog(program, "Earlier Notes for Genesis 1:1 in \"Mine\"");
    EXPECT_TRUE(TextOf(dialog, IDC_STATE_TEXT).starts_with("long "));
    Press(program, "Esc");
    WaitForNoDialog(program);
    Command(program, IDM_EARLIER_STATES);
    WaitForDialog(program, "Earlier States of Note Sets");
}

TEST(NoteTyping, EndsAtTheLongestNote) {
    static constexpr std::size_t kMost = 65533;
    std::string lines;
    while (lines.size() < 70000) lines += "a line of a long note\r\n";
    Program program = ProgramInEditor("");
    const std::string before = StatusPart(program, 0);
    SetClipboardText(lines);
    Press(program, "Ctrl+v");
    const std::size_t size = TextInEditor(program).size();
    EXPECT_GE(size, kMost - 1) << "a line end must not be split";
    EXPECT_LE(size, kMost);
    EXPECT_EQ(StatusPart(program, 0), "The note is full: text was left out");
    Type(program, "xyz");
    EXPECT_EQ(TextInEditor(program).size(), kMost);
    EXPECT_EQ(StatusPart(program, 0), "The note is full: text was left out") << "also when it is typed";
    Press(program, "Back");
    EXPECT_EQ(StatusPart(program, 0), before);
    Type(program, "x");
    EXPECT_EQ(StatusPart(program, 0), before);
    Type(program, "y");
    EXPECT_EQ(StatusPart(program, 0), "The note is full: text was left out");
    Press(program, "Ctrl+v");
    EXPECT_EQ(TextInEditor(program).size(), kMost);
}

// ---- Another code page ----------------------------------------------------------------------------------------------

static Program ProgramInJapan(const ScratchFolder& folder) {
    StartOptions options;
    options.locale = "ja_JP.UTF-8";  // code page 932
    return StartProgram(folder, options);
}

// In code page 932, E9 is the first half of a character of two bytes.
TEST(NotesOfOtherCodePages, AreOnlyRead) {
    const ScratchFolder folder = FolderToEdit("caf\xE9\r\nna\xEFve \xE9");
    const std::string before = ReadFile(folder, "Mine.nmd");
    Program program = ProgramInJapan(folder);
    Press(program, "Alt+e");
    const HWND box = WaitForDialog(program, "Note Editor");
    EXPECT_THAT(MessageText(box), HasSubstr("You can read and copy it, but not change it"));
    SavePicture(PictureOfWindow(box), "read-only-note");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    EXPECT_FALSE(IsWindowEnabled(Child(NoteEditorOf(program), {IDC_NOTE_SAVE})));
    SetClipboardText("pasted");
    const std::string shown = TextInEditor(program);
    for (const char* keys : {"x", "Enter", "Delete", "Ctrl+v", "Ctrl+Enter", "Ctrl+a", "Ctrl+x", "Ctrl+s"})
        Press(program, keys);
    EXPECT_EQ(TextInEditor(program), shown);
    Press(program, "Esc");
    EXPECT_FALSE(HasDialog(program)) << "there is nothing to save";
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_TRUE(ReadFile(folder, "Mine.nmd") == before);
}

TEST(NotesOfOtherCodePages, AreEditedIfTheyFit) {
    const ScratchFolder folder = FolderToEdit("plain \x82\xA0");  // a kana
    Program program = ProgramInJapan(folder);
    OpenNoteEditor(program);
    TypeWide(program, L"\u3042");  // the same kana
    Type(program, "x");
    Press(program, "Ctrl+End");
    Press(program, "Right");
    Press(program, "Enter");
    Press(program, "y");
    Press(program, "Ctrl+s");
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(StoredEdit(program), "\x82\xA0xplain \x82\xA0\r\ny");
}
