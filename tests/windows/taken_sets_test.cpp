// Taking over the notes of another copy, and the note sets that come with the program.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/session_steps.h"
#include "tests/windows/taking_steps.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

static constexpr char kReadings[] = "Morning and Evening";

// As the archive has them: in a folder beside the program.
static void AddReadings(const ScratchFolder& home) {
    fs::create_directory(home.path / kReadings);
    for (const char* ending : {".nmi", ".nmd", ".dti"}) {
        const std::string name = kReadings + std::string(ending);
        fs::copy_file(fs::path(Surroundings().data) / name, home.path / kReadings / name);
    }
}

namespace {

// A copy as the installer lays it out, which has never been started.
struct InstalledCopy {
    ScratchFolder home = FolderWithScripture();
    ScratchFolder data = EmptyFolder();
    ScratchFolder notes{data.path / "Versewell", nullptr};
    WithApplicationData applicationData{data.path};

    InstalledCopy() {
        CopyProgramTo(home);
        AddReadings(home);
        WriteFile(home, "installed.txt", "");
    }
    Program Launch(const std::string& arguments = "") const {
        StartOptions options = ProgramIn(home);
        options.arguments = arguments;
        return LaunchProgram(home, options);
    }
    Program Start() const { return StartProgram(home, ProgramIn(home)); }
};

}  // namespace

// Two sets with their backups, one with a note of Genesis 3:2, and settings that show it.
static ScratchFolder FolderOfOlderCopy() {
    ScratchFolder folder = FolderToEdit("of the older copy");
    WriteNoteSet(folder, "Sermons", {{0, "a sermon"}});
    fs::create_directory(folder.path / "backup");
    for (const char* name : {"backup/Sermons.nmh", "backup/Mine 2024-12-31.nmi", "backup/Mine 2024-12-31.nmd"})
        WriteFile(folder, name, "kept");
    return folder;
}

TEST(FirstStartOfAnInstalledCopy, HasTheReadingsAndAnEmptySetInFront) {
    const InstalledCopy copy;
    Program program = copy.Launch();
    EXPECT_THAT(AnswerQuestion(program, IDNO), AllOf(HasSubstr(copy.notes.path.string()), HasSubstr("which has none")));
    WaitForFrame(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre(kReadings, "My Notes"));
    EXPECT_THAT(MenuBar(program), Contains("&Devotional"));
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:1.");
    Command(program, IDM_DEVOTIONAL + 5946);
    EXPECT_THAT(TextOf(NoteViewOf(program)), testing::StartsWith("January 1, Morning"));
    EXPECT_EQ(CloseProgram(program), 0);

    Program again = copy.Start();  // without a question
    EXPECT_THAT(NoteSetNames(again), ElementsAre(kReadings, "My Notes"));
    EXPECT_THAT(MenuBar(again), Contains("&Devotional"));
}

TEST(FirstStartOfAnInstalledCopy, TakesOverNotesAndSettings) {
    const ScratchFolder older = FolderOfOlderCopy();
    const std::vector<std::string> files = FilesIn(older);
    const InstalledCopy copy;
    {
        Program program = copy.Launch();
        AnswerQuestion(program, IDYES);
        ChooseFolder(program, older);
        EXPECT_THAT(AnswerQuestion(program, IDOK),
                    AllOf(HasSubstr(older.path.string()), HasSubstr("\n    Mine\n    Sermons\n")));
        WaitForFrame(program);
        EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", kReadings, "Sermons"));
        EXPECT_EQ(StatusPart(program, 3), "Genesis 3:2");
        EXPECT_EQ(TextOf(NoteViewOf(program)), "of the older copy");
        EXPECT_THAT(MenuBar(program), Contains("&Devotional"));
        EXPECT_EQ(CloseProgram(program), 0);
    }
    EXPECT_EQ(FilesIn(older), files);
    EXPECT_EQ(ReadFile(copy.notes, "backup/Sermons.nmh"), "kept");
    EXPECT_EQ(ReadFile(copy.notes, "backup/Mine 2024-12-31.nmd"), "kept");
    EXPECT_FALSE(HasFile(copy.notes, "_avtext.dat"));
    EXPECT_THAT(FilesIn(copy.notes), Not(Contains(HasSubstr("Versewell.taken"))));
    Program again = copy.Start();
    EXPECT_EQ(TextOf(NoteViewOf(again)), "of the older copy");
}

TEST(FirstStartOfAnInstalledCopy, AsksAgainForAFolderWithNotes) {
    const ScratchFolder older = FolderOfOlderCopy(), empty = EmptyFolder();
    const InstalledCopy copy;
    Program program = copy.Launch();
    AnswerQuestion(program, IDYES);
    ChooseFolder(program, empty);
    EXPECT_THAT(AnswerQuestion(program, IDRETRY), HasSubstr("There are no note sets in this folder."));
    ChooseFolder(program, ScratchFolder{empty.path / "typed wrong", nullptr});
    EXPECT_THAT(AnswerQuestion(program, IDRETRY), HasSubstr("This folder does not exist."));
    WriteNoteSet(older, std::string(200, 'w'));
    ChooseFolder(program, older);
    const RECT place = RectOnScreen(WaitForDialog(program, kTakeOver));
    EXPECT_LT(place.right - place.left, 800) << "also with a long name";
    AnswerQuestion(program, IDCANCEL);
    WaitForFrame(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre(kReadings, "My Notes"));
}

static void WaitForForeground(const Program& program, HWND window) {
    WaitUntil(program, "its window to be in front", [&] { return GetForegroundWindow() == window; });
}

// There is no window of the program yet that could be brought to the front.
TEST(FirstStartOfAnInstalledCopy, IsBroughtToTheFrontByASecondStart) {
    const InstalledCopy copy;
    Program first = copy.Launch();
    const HWND question = WaitForDialog(first, kTakeOver);
    Program elsewhere = StartProgram(FolderWithScripture());
    WaitForForeground(elsewhere, elsewhere.frame);
    EXPECT_EQ(WaitForExit(copy.Launch()), 0);
    WaitForForeground(first, question);
    {
        Program second = copy.Launch("John 3:16");
        const HWND box = WaitForDialog(second, "Error");
        EXPECT_THAT(MessageText(box), AllOf(HasSubstr("the verse is not shown"), Not(HasSubstr("another user"))));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
        EXPECT_EQ(WaitForExit(second), 0);
    }
    AnswerQuestion(first, IDYES);
    const HWND chooser = WaitForDialog(first, kFolderDialog);
    SetForegroundWindow(elsewhere.frame);
    WaitForForeground(elsewhere, elsewhere.frame);
    EXPECT_EQ(WaitForExit(copy.Launch()), 0);
    WaitForForeground(first, chooser);
    PostMessageA(chooser, WM_COMMAND, IDCANCEL, 0);
    WaitForFrame(first);
    EXPECT_EQ(WaitForExit(copy.Launch()), 0);
    WaitForForeground(first, first.frame);
}

// An archive that was unpacked.
TEST(FirstStartOfAPortableCopy, HasTheReadingsAndAsksNothing) {
    const ScratchFolder home = FolderWithScripture();
    CopyProgramTo(home);
    AddReadings(home);
    Program program = StartProgram(home, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(NoteSetNames(program), ElementsAre(kReadings, "My Notes"));
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
    EXPECT_THAT(MenuBar(program), Contains("&Devotional"));
}

// A newer archive that was unpacked over a copy with notes.
TEST(UpdateOfAPortableCopy, LeavesTheNotesAsTheyAre) {
    const ScratchFolder home = FolderWithScripture();
    CopyProgramTo(home);
    AddReadings(home);
    WriteNoteSet(home, "Mine", {{0, "kept"}});
    const std::vector<std::string> files = FilesIn(home);
    Program program = StartProgram(home, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    EXPECT_THAT(MenuBar(program), Not(Contains("&Devotional")));
    EXPECT_EQ(FilesIn(home), files);
}

TEST(TakeOverNotes, AddsTheSetsThatAreNotThereYet) {
    const ScratchFolder older = FolderOfOlderCopy(), folder = FolderToEdit("mine");
    fs::copy_file(fs::path(Surroundings().data) / "Morning and Evening.dti", older.path / "Sermons.dti");
    Program program = StartProgram(folder);
    EXPECT_THAT(MenuBar(program), Not(Contains("&Devotional")));
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDOK),
                AllOf(HasSubstr("taken over:\n    Sermons\n"), HasSubstr("of these names already:\n    Mine\n")));
    WaitUntil(program, "the sets", [&] { return StatusPart(program, 0) == "1 note set taken over"; });
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "Sermons"));
    EXPECT_THAT(MenuBar(program), Contains("&Devotional"));
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 0);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "mine");
    EXPECT_EQ(StoredEdit(program), "mine");
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), 1);
    Command(program, IDM_GOTO_BOOK + 1);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "a sermon");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(ReadFile(folder, "Mine.nmd"), HasSubstr("mine"));
}

// Who did not take over notes at the first start has an empty set "My Notes", and the older copy has one with notes.
TEST(TakeOverNotes, ReplacesTheEmptyFirstSet) {
    const ScratchFolder older = EmptyFolder(), folder = FolderWithScripture();
    WriteNoteSet(older, "My Notes", {{0, "of years"}});
    Program program = StartProgram(folder);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "No note for Genesis 1:1.");
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDOK), HasSubstr("The empty set \"My Notes\" that is here is replaced."));
    WaitUntil(program, "the set", [&] { return StatusPart(program, 0) == "1 note set taken over"; });
    EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
    EXPECT_EQ(TextOf(NoteViewOf(program)), "of years");
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDCANCEL), HasSubstr("of these names already:\n    My Notes\n"));
    EXPECT_EQ(CloseProgram(program), 0);
    Program again = StartProgram(folder);
    EXPECT_EQ(TextOf(NoteViewOf(again)), "of years");
}

// Such files come from other systems, which give them any names.
static void AddSetsWithoutNames(const ScratchFolder& folder) {
    RunOnHost(folder, "cp Sermons.nmd con.nmd && cp Sermons.nmd aux.x.nmd && cp Sermons.nmd con.nmdx");
    fs::copy_file(folder.path / "Sermons.nmd", folder.path / L"\u05D0.nmd");
}

TEST(TakeOverNotes, NamesTheSetsThatCannotBeNamedHere) {
    const ScratchFolder older = FolderOfOlderCopy(), folder = FolderToEdit("mine");
    AddSetsWithoutNames(older);
    Program program = StartProgram(folder);
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    const std::string question = AnswerQuestion(program, IDOK);
    for (const char* name : {"\n    con.nmd\n", "\n    aux.x.nmd\n", "\n    ?.nmd\n"})
        EXPECT_THAT(question, HasSubstr(name));
    EXPECT_THAT(question, Not(HasSubstr("nmdx")));
    WaitUntil(program, "the sets",
              [&] { return StatusPart(program, 0).starts_with("1 note set taken over. Left out"); });
    for (const char* name : {"con.nmd", "aux.x.nmd"}) EXPECT_THAT(StatusPart(program, 0), HasSubstr(name));
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine", "Sermons"));
    for (const char* name : {"Sermons.nmd", "Sermons.nmi"}) fs::remove(older.path / name);
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDCANCEL), AllOf(HasSubstr("con.nmd"), Not(HasSubstr("can be taken over"))));
}

// The start has told of the other one, and nothing about it has changed.
TEST(TakeOverNotes, TellsOnlyOfTakenSetsThatAreDamaged) {
    const ScratchFolder older = FolderOfOlderCopy(), folder = FolderToEdit("mine");
    WriteNoteSet(folder, "Bad here", {});
    WriteFile(folder, "Bad here.nmd", "damaged");
    WriteNoteSet(folder, "Bad inside", {{3, "three"}, {9, "nine"}});
    std::string inside = ReadFile(folder, "Bad inside.nmd");
    inside[inside.find('\0')] = 'x';
    WriteFile(folder, "Bad inside.nmd", inside);
    Program program = LaunchProgram(folder);
    PostMessageA(WaitForDialog(program, "Note Sets"), WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    WaitForDialog(program, "Note Sets");
    CloseWithEsc(program);
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    AnswerQuestion(program, IDOK);
    WaitUntil(program, "the set", [&] { return StatusPart(program, 0) == "1 note set taken over"; });
    for (int set = 0; set < 4; ++set) ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), set);
    EXPECT_FALSE(HasDialog(program));
    WriteFile(older, "Torn.nmd", "damaged");
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    AnswerQuestion(program, IDOK);
    const HWND box = WaitForDialog(program, "Note Sets");
    EXPECT_THAT(MessageText(box), AllOf(HasSubstr("\"Torn.nmd\" is damaged"), Not(HasSubstr("Bad"))));
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForNoDialog(program);
}

// ---- Notes that were being written ----------------------------------------------------------------------------------

// Answers the question about the note that was written in the other copy.
static void ContinueMine(const Program& program, int button) {
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_EQ(MessageText(box), kContinueMine);
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    WaitUntil(program, "the end of the question", [&] { return !IsWindow(box); });
}

TEST(NoteOfAnEndedCopy, IsOfferedAtTheFirstStart) {
    const ScratchFolder older = FolderOfKilledEdit();
    const std::string session = ReadFile(older, kSessionFileName);
    const InstalledCopy copy;
    Program program = copy.Launch();
    AnswerQuestion(program, IDYES);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDOK),
                AllOf(HasSubstr("That copy has not been closed."), HasSubstr("being written there is offered here")));
    WaitForFrame(program);
    ContinueMine(program, IDYES);
    WaitUntil(program, "the note", [&] { return TextInEditor(program) == "Mine. The first."; });
    EXPECT_EQ(ReadFile(older, kSessionFileName), session) << "its own folder has it, too";
}

// One that is refused is kept among the earlier notes.
TEST(NoteOfAnEndedCopy, IsOfferedWhenNotesAreTakenOver) {
    const ScratchFolder older = FolderOfKilledEdit(), folder = FolderWithScripture();
    WriteNoteSet(folder, "Other");
    Program program = StartProgram(folder);
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    AnswerQuestion(program, IDOK);
    ContinueMine(program, IDNO);
    WaitForNoDialog(program);
    EXPECT_EQ(KeptNotes(folder, "Mine").at(0).text, "Mine. The first.");
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
}

// It is still being written; and when that copy has gone, it is offered in its folder as ever.
TEST(NoteOfARunningCopy, StaysThere) {
    const ScratchFolder older = FolderWithScripture(), folder = FolderWithScripture();
    WriteNoteSet(older, "Mine", {{0, "The first."}});
    WriteNoteSet(folder, "Other");
    const Program other = StartProgram(older);
    OpenNoteEditor(other);
    Type(other, "Mine. ");
    WaitForSession(other, "Mine. The first.");
    Program program = StartProgram(folder);
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    EXPECT_THAT(AnswerQuestion(program, IDOK),
                AllOf(HasSubstr("That copy is running. Close it first"), Not(HasSubstr("offered"))));
    WaitUntil(program, "the set", [&] { return StatusPart(program, 0) == "1 note set taken over"; });
    EXPECT_FALSE(HasDialog(program));
    Kill(other);
    const Program again = StartAfterKill(older, "y");
    EXPECT_EQ(TextInEditor(again), "Mine. The first.");
}

TEST(TakeOverNotes, WaitsForTheEndOfAnEdit) {
    const Program program = ProgramInEditor("being edited");
    EXPECT_TRUE(IsGreyed(program, IDM_TAKE_OVER_SETS));
}
