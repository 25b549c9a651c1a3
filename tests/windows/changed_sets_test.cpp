// Note sets whose files are replaced while the program runs, as by a program that synchronizes folders.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::ElementsAre;
using testing::HasSubstr;

using Notes = std::map<int, std::string>;

static constexpr auto kBold = Style::kBold;
static constexpr auto kRegular = Style::kRegular;

// Each text of one state begins at another place than that of the other state.
static const Notes kHome = {{0, "Home, one."}, {5, "Home, six."}, {145, "Home, grace."}, {kLastVerse, "Home, last."}};
static const Notes kOffice = {{0, "Office, the first verse."},
                              {2, "Office, three."},
                              {5, "Office, six, longer than at home."},
                              {145, "Office: grace"},
                              {kLastVerse, "Office: end"}};

// Each file is written beside the old one and renamed over it.
static void Bring(const ScratchFolder& folder, const Notes& notes,
                  const std::vector<const char*>& endings = {".nmd", ".nmi"}) {
    const ScratchFolder elsewhere = EmptyFolder();
    WriteNoteSet(elsewhere, "Mine", notes);
    for (const std::string ending : endings) {
        WriteFile(folder, "~coming", ReadFile(elsewhere, "Mine" + ending));
        std::filesystem::rename(folder.path / "~coming", folder.path / ("Mine" + ending));
    }
}

static void ExpectFiles(const ScratchFolder& folder, const Notes& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "Mine", notes);
    for (const char* file : {"Mine.nmd", "Mine.nmi"})
        EXPECT_TRUE(ReadFile(folder, file) == ReadFile(expected, file)) << file;
}

static Program ProgramWith(const Notes& notes, int noteVerse = 5) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", notes);
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(noteVerse));
    return StartProgram(folder);
}

static std::string Shown(const Program& program) {
    Settle(program);
    return TextOf(NoteViewOf(program));
}

static void AnswerGotoNote(const Program& program, const char* verse) {
    Press(program, "Alt+n");
    WaitForDialog(program, "Go to Note for Verse");
    Type(program, verse);
    Press(program, "Enter");
    WaitForNoDialog(program);
}

static void SearchNotesFor(const Program& program, const char* text) {
    Press(program, "Alt+t");
    WaitForDialog(program, "Search Note Set Mine");
    Type(program, text);
    Press(program, "Enter");
    Settle(program);
}

TEST(ReplacedFiles, AreReadByEachCommand) {
    Program program = ProgramWith(kHome);
    const ScratchFolder& folder = program.folder;
    EXPECT_EQ(Shown(program), "Home, six.");
    Bring(folder, kOffice);
    Press(program, "Alt+Up");
    EXPECT_EQ(Shown(program), "Office, three.") << "there was none before";
    Bring(folder, kHome);
    Press(program, "Alt+Down");
    EXPECT_EQ(Shown(program), "Home, six.");
    Bring(folder, kOffice);
    Press(program, "F10");
    EXPECT_EQ(Shown(program), "Office, the first verse.");
    SearchFor(program, {"grace"});
    Bring(folder, kHome);
    Press(program, "F9");
    EXPECT_EQ(Shown(program), "Home, grace.");
    Bring(folder, kOffice);
    AnswerGotoNote(program, "Re 22:21");
    EXPECT_EQ(Shown(program), "Office: end");
    Bring(folder, kHome);
    SearchNotesFor(program, "six");
    EXPECT_EQ(Shown(program), "Home, six.");
    const TextSelection selection = RichSelection(program, NoteViewOf(program));
    EXPECT_EQ(selection.start, 6);
    EXPECT_EQ(selection.end, 9);
    Bring(folder, kOffice);
    Press(program, "Enter");  // once more, with the dialog open
    EXPECT_EQ(Shown(program), "Office, six, longer than at home.");
    Press(program, "Esc");
    WaitForNoDialog(program);
    Bring(folder, kHome);
    OpenNoteEditor(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Home, six.");
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    ExpectFiles(folder, kHome);
}

// Reading alone writes nothing; the notes are found with the index of another state, and without one.
TEST(ReplacedFiles, MayArriveOneByOne) {
    Program program = ProgramWith(kHome);
    Bring(program.folder, kOffice, {".nmd"});
    Press(program, "Alt+Up");
    EXPECT_EQ(Shown(program), "Office, three.");
    Bring(program.folder, kOffice, {".nmi"});
    Press(program, "Alt+Down");
    EXPECT_EQ(Shown(program), "Office, six, longer than at home.");
    Bring(program.folder, kHome, {".nmi"});
    Press(program, "Alt+Down");
    EXPECT_EQ(Shown(program), "Office: grace");
    std::filesystem::remove(program.folder.path / "Mine.nmi");
    Press(program, "Alt+Up");
    EXPECT_EQ(Shown(program), "Office, six, longer than at home.");
    EXPECT_FALSE(HasFile(program.folder, "Mine.nmi"));
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), 0);
    EXPECT_FALSE(HasDialog(program));
}

TEST(ReplacedFiles, MayBeMissingForAMoment) {
    Program program = ProgramWith(kHome);
    const auto data = program.folder.path / "Mine.nmd", away = program.folder.path / "~away";
    std::filesystem::rename(data, away);
    PostMessageA(program.frame, WM_COMMAND, IDM_NEXT_NOTE, 0);
    EXPECT_EQ(MessageText(WaitForDialog(program, "Error")), "Error reading note file");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(Shown(program), "Home, six.") << "the last state stays";
    std::filesystem::rename(away, data);
    Press(program, "Alt+Down");
    EXPECT_EQ(Shown(program), "Home, grace.");
}

// The user works elsewhere and comes back.
TEST(ReplacedFiles, AreShownWhenTheProgramIsActivated) {
    Program program = ProgramWith(kHome);
    Bring(program.folder, kOffice);
    Press(program, "Alt+g");
    WaitForDialog(program, "Go To Verse");
    EXPECT_EQ(Shown(program), "Home, six.");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(Shown(program), "Office, six, longer than at home.");
}

// ---- Stars and marks ------------------------------------------------------------------------------------------------

// With the first verses in the Passage, and a list that begins with Genesis 6:8.
static Program ProgramWithList(const Notes& notes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", notes);
    WriteNoteSet(folder, "Other");
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1240"}, {"Height", "700"}})
        WriteSetting(folder, "MISC", key, value);
    Program program = StartProgram(folder);
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), NoteSetNames(program)[0] == "Mine" ? 0 : 1);
    SearchFor(program, {"grace"});
    Command(program, IDM_FOCUS_PASSAGE);
    return program;
}

static std::string MineLabel(const Program& program) {
    for (const std::string& label : TabLabels(program, Child(program.frame, {IDC_NOTE_TABS})))
        if (label.ends_with("Mine")) return label;
    return "";
}

static void ExpectMarks(const Program& program, bool first, bool grace, const char* when) {
    Settle(program);
    EXPECT_EQ(
        WrongLines(PassageOf(program),
                   {{{{kBold, std::string(first ? " *" : " ") + "Ge 1:1 "}, {kRegular, "\xB6 In the beginning "}}}}),
        "")
        << when;
    EXPECT_EQ(WrongLines(VerseListOf(program),
                         {{{{kBold, std::string(grace ? "*" : "") + "Ge 6:8 "}, {kRegular, "But Noah found "}}}}),
              "")
        << when;
    EXPECT_EQ(MineLabel(program), std::string(grace ? "\xAB " : "") + (first ? "\xBB " : "") + "Mine") << when;
}

static void SaveNoteOf(const Program& program, const char* verse, const std::string& text) {
    AnswerGotoNote(program, verse);
    OpenNoteEditor(program);
    Press(program, "Ctrl+a");
    Press(program, "Delete");
    if (!text.empty()) Type(program, text);
    ClickEditorButton(program, IDC_NOTE_SAVE);
    Command(program, IDM_FOCUS_PASSAGE);
}

TEST(StarsAndMarks, ChangeAtOnceWhenANoteIsSavedOrEmptied) {
    Program program = ProgramWithList({});
    ExpectMarks(program, false, false, "at the start");
    SaveNoteOf(program, "Ge 1:1", "One.");
    ExpectMarks(program, true, false, "a new note");
    SaveNoteOf(program, "Ge 6:8", "Grace.");
    ExpectMarks(program, true, true, "a second one");
    SavePicture(PictureOfWindow(program.frame), "stars-at-once");
    SaveNoteOf(program, "Ge 1:1", "");
    ExpectMarks(program, false, true, "the first one emptied");
    SaveNoteOf(program, "Ge 6:8", "");
    ExpectMarks(program, false, false, "both emptied");
}

TEST(StarsAndMarks, ChangeWhenTheProgramIsActivated) {
    Program program = ProgramWithList({});
    Bring(program.folder, kHome);
    Press(program, "Alt+g");
    WaitForDialog(program, "Go To Verse");
    Press(program, "Esc");
    WaitForNoDialog(program);
    ExpectMarks(program, true, true, "activated");
}

TEST(StarsAndMarks, ChangeWhenAPaneScrolls) {
    Program program = ProgramWithList({});
    Command(program, IDM_BIND_NOTES);
    Bring(program.folder, kHome);
    ScrollPassage(program, SB_LINEDOWN);
    ScrollPassage(program, SB_LINEUP);
    ExpectMarks(program, true, true, "scrolled");
}

// ---- A note that is edited and was changed elsewhere ----------------------------------------------------------------

static std::string Both(const std::string& mine, const std::string& other) {
    return mine + "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n" + other;
}

TEST(NoteChangedElsewhere, ComesBackToTheEditorWithBothTexts) {
    Program program = ProgramWith(kHome);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    Bring(program.folder, kOffice);
    ClickEditorButton(program, IDC_NOTE_SAVE);
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_THAT(MessageText(box), HasSubstr("also changed elsewhere"));
    EXPECT_EQ(IconOf(box), "exclamation");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    SavePicture(PictureOfWindow(box), "note-changed-elsewhere");
    const std::string both = Both("Mine. Home, six.", kOffice.at(5));
    EXPECT_EQ(TextOf(NoteEditOf(program)), both) << "already while the box says so";
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(TextOf(NoteEditOf(program)), both);
    EXPECT_EQ(FocusOf(program), NoteEditOf(program));
    SavePicture(PictureOfWindow(program.frame), "note-with-both-texts");
    ExpectFiles(program.folder, kOffice);

    Press(program, "Esc");  // the text counts as changed
    EXPECT_THAT(MessageText(WaitForDialog(program, "Versewell97")), HasSubstr("Do you want to save the note"));
    Press(program, "Esc");
    WaitForNoDialog(program);

    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(Shown(program), both);
    Notes notes = kOffice;
    notes[5] = both;
    ExpectFiles(program.folder, notes);
}

// Closing the program asks whether to save; with Yes the program stays open, because there is something to decide.
TEST(NoteChangedElsewhere, KeepsTheProgramOpen) {
    Program program = ProgramWith(kHome);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    Bring(program.folder, kOffice);
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    WaitForDialog(program, "Versewell97");
    Press(program, "y");
    WaitForDialog(program, "Error");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsRunning(program));
    EXPECT_EQ(TextOf(NoteEditOf(program)), Both("Mine. Home, six.", kOffice.at(5)));
}

// Only other notes have changed: the question about the files, as ever.
TEST(NoteChangedElsewhere, IsNotReportedForOtherNotes) {
    Program program = ProgramWith(kHome);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    Notes notes = kHome;
    notes[0] = "Another first note, by another machine.";
    notes[3] = "Four.";
    Bring(program.folder, notes);
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_THAT(MessageText(WaitForDialog(program, "Error")), HasSubstr("are not as they were"));
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    notes[5] = "Mine. Home, six.";
    ExpectFiles(program.folder, notes);
    Press(program, "Alt+Up");
    EXPECT_EQ(Shown(program), "Four.");
}

TEST(NoteChangedElsewhere, IsShownAfterCancel) {
    Program program = ProgramWith(kHome);
    OpenNoteEditor(program);
    Type(program, "Mine. ");
    Bring(program.folder, kOffice);
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(Shown(program), kOffice.at(5)) << "as it is now in the file";
    ExpectFiles(program.folder, kOffice);
}
