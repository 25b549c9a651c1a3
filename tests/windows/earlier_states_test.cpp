// Earlier States: the list of dated copies, what differs in them, and bringing back a note or a set.

#include <windows.h>

#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

static constexpr char kStatesTitle[] = "Earlier States of Note Sets";
static const std::map<int, std::string> kThen = {{0, "first"}, {7, "seven then"}, {40, "gone since"}};
static const std::map<int, std::string> kToday = {{0, "first"}, {7, "seven now"}, {31101, "the last"}};

static void WriteCopy(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes) {
    WriteNoteSet(folder, "copied", notes);
    std::filesystem::create_directory(folder.path / "backup");
    for (const char* ending : {".nmd", ".nmi"})
        std::filesystem::rename(folder.path / (std::string("copied") + ending),
                                folder.path / ("backup/" + name + ending));
}

static ScratchFolder FolderWithCopies() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kToday);
    WriteNoteSet(folder, "Other", {{3, "three"}});
    WriteCopy(folder, "Mine 2024-03-04", kThen);
    WriteCopy(folder, "Mine 2024-03-05", kToday);
    WriteCopy(folder, "Gone 2024-03-06", {{5, "five"}});
    return folder;
}

static std::string Day(WORD day) {
    SYSTEMTIME time{};
    time.wYear = 2024, time.wMonth = 3, time.wDay = day;
    char text[80] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    return text;
}

static HWND OpenStates(const Program& program) {
    Command(program, IDM_EARLIER_STATES);
    return WaitForDialog(program, kStatesTitle);
}

static std::vector<std::string> LinesOf(HWND dialog, int list) {
    return ListStrings(Child(dialog, {list}));
}

// Chooses a state of the list by the beginning of its line.
static void Choose(const Program& program, HWND dialog, int list, const std::string& begin) {
    const auto lines = LinesOf(dialog, list);
    const auto found = std::ranges::find_if(lines, [&](const std::string& line) { return line.starts_with(begin); });
    if (found == lines.end()) Fail(&program, "no line " + begin);
    SetFocus(dialog);
    Press(program, list == IDC_STATES ? "Alt+e" : "Alt+n");
    Press(program, "Home");
    for (auto line = lines.begin(); line != found; ++line) Press(program, "Down");
}

static bool IsSet(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "set", notes);
    return ReadFile(folder, name + ".nmd") == ReadFile(expected, "set.nmd") &&
           ReadFile(folder, name + ".nmi") == ReadFile(expected, "set.nmi");
}

// Restores the chosen state as `name`, or under its own name if that is empty, and answers the question if one comes.
static void RestoreSet(const Program& program, HWND dialog, const std::string& name) {
    if (!name.empty()) {
        Press(program, "Alt+a");
        Type(program, name);
    }
    Press(program, "Alt+s");
    if (name.empty() && HasDialog(program)) {
        WaitUntil(program, "an answer", [&] { return !IsWindow(dialog) || ActiveWindowOf(program) != dialog; });
    }
}

TEST(EarlierStates, ListsTheCopiesAndWhatDiffers) {
    Program program = StartProgram(FolderWithCopies());
    const HWND dialog = OpenStates(program);
    EXPECT_THAT(LinesOf(dialog, IDC_STATES),
                ElementsAre(Day(6) + "\tGone\tthe set does not exist now", Day(5) + "\tMine\tas today",
                            Day(4) + "\tMine\t3 notes differ from today"));
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_STATES, LB_GETCURSEL, 0, 0), 1);  // the latest of the current set
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_STATES}));
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));
    EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), "Mine");
    Press(program, "Down");
    EXPECT_THAT(LinesOf(dialog, IDC_STATE_VERSES),
                ElementsAre("Genesis 1:8\tseven then\tseven now", "Genesis 2:10\tgone since\t(empty)",
                            "Revelation 22:21\t(empty)\tthe last"));
    EXPECT_EQ(TextOf(dialog, IDC_STATE_TEXT), "seven nowthen");
    EXPECT_EQ(TabOrder(program, dialog), (std::vector<int>{IDC_STATES, IDC_STATE_VERSES, IDC_STATE_TEXT, IDC_SET_NAME,
                                                           IDC_RESTORE_SET, IDOK, IDCANCEL, IDC_HELP_BUTTON}));
    EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IDOK);
    SavePicture(PictureOfWindow(dialog), "earlier-states");
    Choose(program, dialog, IDC_STATE_VERSES, "Genesis 2:10");
    EXPECT_EQ(TextOf(dialog, IDC_STATE_TEXT), "gone since");
    Choose(program, dialog, IDC_STATES, Day(6));
    EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), "Gone");
    EXPECT_EQ(TextOf(dialog, IDC_STATE_TEXT), "five");
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));  // there is no set for the note
    EXPECT_TRUE(IsWindowEnabled(Child(dialog, {IDC_RESTORE_SET})));
    CloseWithEsc(program);
}

TEST(EarlierStates, SaysWhenThereAreNone) {
    Program program = StartProgram(FolderWithScripture());
    const HWND dialog = OpenStates(program);
    EXPECT_THAT(TextOf(dialog, IDC_STATE_TEXT), StartsWith("There are no earlier states."));
    for (const int button : {IDOK, IDC_RESTORE_SET}) EXPECT_FALSE(IsWindowEnabled(Child(dialog, {button})));
    SavePicture(PictureOfWindow(dialog), "earlier-states-none");
    CloseWithEsc(program);
}

TEST(EarlierStates, BringsANoteBackThroughTheEditor) {
    Program program = StartProgram(FolderWithCopies());
    const ScratchFolder& folder = program.folder;
    const HWND dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, Day(4));
    Choose(program, dialog, IDC_STATE_VERSES, "Genesis 2:10");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "gone since");
    EXPECT_TRUE(IsSet(folder, "Mine", kToday));
    ClickEditorButton(program, IDC_NOTE_SAVE);
    std::map<int, std::string> both = kToday;
    both[40] = "gone since";
    EXPECT_TRUE(IsSet(folder, "Mine", both));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "gone since");
}

TEST(EarlierStates, ReplaceTheSetAfterAQuestion) {
    Program program = StartProgram(FolderWithCopies());
    const ScratchFolder& folder = program.folder;
    for (const char* answer : {"n", "y"}) {
        const HWND dialog = OpenStates(program);
        Choose(program, dialog, IDC_STATES, Day(4));
        RestoreSet(program, dialog, "");
        const HWND box = WaitForDialog(program, "Restore Set");
        EXPECT_EQ(MessageText(box), "Are you SURE you want to replace all notes of the note set \"Mine\" by those of " +
                                        Day(4) + "? What is in it now is first copied into the folder \"backup\".");
        Press(program, answer);
        if (*answer == 'n') {
            WaitUntil(program, "the dialog", [&] { return ActiveWindowOf(program) == dialog; });
            EXPECT_TRUE(IsSet(folder, "Mine", kToday));
            CloseWithEsc(program);
        }
    }
    WaitForNoDialog(program);
    EXPECT_TRUE(IsSet(folder, "Mine", kThen));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "Other"));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "first");
    const HWND dialog = OpenStates(program);  // the copy of what was there is the latest state
    EXPECT_THAT(LinesOf(dialog, IDC_STATES)[0], HasSubstr("\tMine\t3 notes differ from today"));
    Choose(program, dialog, IDC_STATES, LinesOf(dialog, IDC_STATES)[0]);
    RestoreSet(program, dialog, "");
    WaitForDialog(program, "Restore Set");
    Press(program, "y");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsSet(folder, "Mine", kToday));
}

TEST(EarlierStates, BringADeletedSetBackWithItsNotes) {
    Program program = StartProgram(FolderWithCopies());
    const ScratchFolder& folder = program.folder;
    HWND dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, Day(6));
    RestoreSet(program, dialog, "");
    WaitForNoDialog(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "Other", "Gone"));
    EXPECT_TRUE(IsSet(folder, "Gone", {{5, "five"}}));
    dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, Day(4));
    RestoreSet(program, dialog, "Mine in March");
    WaitForNoDialog(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "Other", "Gone", "Mine in March"));
    EXPECT_TRUE(IsSet(folder, "Mine in March", kThen));
    EXPECT_TRUE(IsSet(folder, "Mine", kToday));
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), 3);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "first");
    EXPECT_EQ(CloseProgram(program), 0);
    program = StartProgram(folder);  // without a report of repairs
    EXPECT_THAT(NoteSetNames(program), Contains("Mine in March"));
}

static void DeleteSet(const Program& program, int tab) {
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), tab);
    Command(program, IDM_DELETE_NOTE_SET);
    WaitForDialog(program, "Delete Note Set");
    Press(program, "y");
    WaitForNoDialog(program);
}

TEST(EarlierStates, BringADeletedSetOfReadingsBackWithItsMenu) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "mine"}});
    WriteNoteSet(folder, "Readings", {{1533, "The reading."}});
    const std::string table = IndexBytes(std::vector<unsigned>(12 * 31 * 2, 1533));  // always Exodus 1:1
    WriteFile(folder, "Readings.dti", table);
    Program program = StartProgram(folder);
    const std::vector<std::string> bar = MenuBar(program);
    DeleteSet(program, 1);
    ASSERT_THAT(MenuBar(program), Not(Contains("&Devotional")));
    const HWND dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, LinesOf(dialog, IDC_STATES).at(0));
    RestoreSet(program, dialog, "Readings");
    WaitForNoDialog(program);
    EXPECT_EQ(MenuBar(program), bar);
    EXPECT_TRUE(IsSet(folder, "Readings", {{1533, "The reading."}}));
    EXPECT_EQ(ReadFile(folder, "Readings.dti"), table);
    Command(program, IDM_THIS_MORNING);
    Settle(program);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "The reading.");
    DeleteSet(program, 1);
    EXPECT_THAT(MenuBar(program), Not(Contains("&Devotional")));
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(EarlierStates, StayOpenWhenASetCannotBeRestored) {
    Program program = StartProgram(FolderWithCopies());
    const HWND dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, Day(4));
    RestoreSet(program, dialog, "other");
    ExpectComplaint(
        program, "Error",
        "There already is another note set \"Other\". Choose a new name, or the set's own. Nothing has been "
        "changed.");
    EXPECT_TRUE(IsWindow(dialog));
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_SET_NAME}));
    SetDlgItemTextW(dialog, IDC_SET_NAME, L"\u03A6\u03B1\u03C3\u03B1");
    Press(program, "Alt+s");
    ExpectComplaint(program, "Error",
                    "The name has letters that this system's code page lacks. Choose a name without them.");
    EXPECT_TRUE(IsWindow(dialog));
    CloseWithEsc(program);
}

// ---- A damaged set at the start -------------------------------------------------------------------------------------

static ScratchFolder FolderWithDamagedSet() {
    const ScratchFolder folder = FolderWithCopies();
    WriteFile(folder, "Mine.nmd", ReadFile(folder, "Mine.nmd").substr(0, 5000));
    return folder;
}

static const char kOffer[] = "\n\nDo you want to look at the earlier states of the note set \"Mine\" now?";

TEST(EarlierStates, AreOfferedForADamagedSetAtTheStart) {
    const ScratchFolder folder = FolderWithDamagedSet();
    WriteFile(folder, "backup/Mine 2024-03-05.nmd", "not whole");
    WriteSetting(folder, "MISC", "Note", "1");  // another set is the current one
    Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    EXPECT_THAT(MessageText(box), StartsWith("The data file \"Mine.nmd\" is damaged"));
    EXPECT_TRUE(MessageText(box).ends_with(kOffer));
    EXPECT_THAT(ButtonsOf(box), ElementsAre("&Yes", "&No"));
    PostMessageA(box, WM_COMMAND, IDYES, 0);
    const HWND dialog = WaitForDialog(program, kStatesTitle);
    WaitForFrame(program);
    EXPECT_THAT(LinesOf(dialog, IDC_STATES), Contains(Day(5) + "\tMine\tthis copy is damaged"));
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_STATES, LB_GETCURSEL, 0, 0), 2);  // the latest whole one
    EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), "Mine");
    RestoreSet(program, dialog, "");
    WaitForDialog(program, "Restore Set");
    Press(program, "y");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsSet(folder, "Mine", kThen));
    EXPECT_EQ(CloseProgram(program), 0);
    program = StartProgram(folder);  // without a message
    EXPECT_FALSE(HasDialog(program));
}

TEST(EarlierStates, AreNotShownAtTheStartWithoutAYes) {
    const ScratchFolder folder = FolderWithDamagedSet();
    Program program = LaunchProgram(folder);
    PostMessageA(WaitForDialog(program, "Note Sets"), WM_COMMAND, IDNO, 0);
    WaitForFrame(program);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(CloseProgram(program), 0);
    std::filesystem::remove_all(folder.path / "backup");
    program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    EXPECT_THAT(MessageText(box), Not(HasSubstr("earlier states")));
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    EXPECT_FALSE(HasDialog(program));
}

// ---- Killed while restoring -----------------------------------------------------------------------------------------

// Kills the program at file operation number `operation` after the answer Yes. False when there are fewer operations.
static bool KillWhileRestoring(const Program& program, unsigned operation) {
    const HWND dialog = OpenStates(program);
    Choose(program, dialog, IDC_STATES, Day(4));
    RestoreSet(program, dialog, "");
    const HWND box = WaitForDialog(program, "Restore Set");
    EndAtFileOperation(program, operation);
    PostMessageA(box, WM_COMMAND, IDYES, 0);
    WaitUntil(program, "the end of it", [&] { return !IsRunning(program) || !IsWindow(dialog); });
    if (IsRunning(program)) return false;
    EXPECT_EQ(WaitForExit(program), 9);
    return true;
}

// Starts on the files that were left; a repair of the index, or a whole temporary file, may be reported.
static Program StartAgain(const ScratchFolder& folder) {
    Program program = LaunchProgram(folder);
    WaitUntil(program, "the start", [&] {
        const auto windows = TopLevelWindows(program);
        return std::ranges::any_of(windows, [](HWND window) {
            return TextOf(window) == "Note Sets" || (ClassOf(window) == "Versewell97" && IsWindowVisible(window));
        });
    });
    if (HasDialog(program)) {
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_THAT(MessageText(box), AnyOf(HasSubstr("It has been made again from the notes, which are all there."),
                                            HasSubstr("They are now among the earlier notes")));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    WaitForFrame(program);
    return program;
}

TEST(EarlierStates, LeaveTheOldOrTheNewSetWhenKilledAtAnyFileOperation) {
    const int step = static_cast<int>(StepOfFileOperations());
    const ScratchFolder folder = FolderWithScripture();
    int old = 0, replaced = 0;
    bool isKilled = true;
    Program program;
    for (unsigned operation = 1; isKilled && !testing::Test::HasFailure(); operation += StepOfFileOperations()) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        std::filesystem::remove_all(folder.path / "backup");
        WriteCopy(folder, "Mine 2024-03-04", kThen);
        if (program.frame == nullptr) {
            WriteNoteSet(folder, "Mine", kToday);
            program = StartProgram(folder);
        }
        isKilled = KillWhileRestoring(program, operation);
        program = {};
        program = StartAgain(folder);
        const bool isOld = IsSet(folder, "Mine", kToday);
        EXPECT_TRUE(isOld ? isKilled : IsSet(folder, "Mine", kThen));
        ++(isOld ? old : replaced);
        if (!isOld) {
            const HWND dialog = OpenStates(program);
            EXPECT_THAT(LinesOf(dialog, IDC_STATES), Contains(HasSubstr("3 notes differ from today")));
            program = {};
        }
    }
    EXPECT_GE(old * step, 10);
    EXPECT_GE(replaced * step, 3);
}
