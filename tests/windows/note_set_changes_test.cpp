// Creating, renaming and deleting note sets: dialogs, questions, tabs and files.

#include <algorithm>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Without the file that programs lock.
static std::vector<std::string> NamesInBackup(const ScratchFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path / "backup"))
        names.push_back(entry.path().filename().string());
    std::erase(names, "lock");
    return names;
}

static HWND TabsOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS});
}

static std::vector<std::string> SetsOf(const Program& program) {
    return TabLabels(program, TabsOf(program));
}

static std::string NoteOf(const Program& program) {
    Settle(program);
    return TextOf(NoteViewOf(program));
}

// Sets whose only note names the set. It is for Genesis 1:2, so that no tab has a mark at the start in Genesis 1:1.
static ScratchFolder FolderWithSets(const std::vector<std::string>& names) {
    const ScratchFolder folder = FolderWithScripture();
    for (const std::string& name : names) WriteNoteSet(folder, name, {{1, "in " + name}});
    WriteSetting(folder, "MISC", "NoteVerse", "1");
    return folder;
}

// Makes the set `name` the current one.
static void GoToSet(const Program& program, const std::string& name) {
    const std::vector<std::string> sets = SetsOf(program);
    const auto place = std::ranges::find(sets, name);
    if (place == sets.end()) Fail(&program, "no tab of the set " + name);
    ClickTab(program, TabsOf(program), static_cast<int>(place - sets.begin()));
}

static void TypeName(const Program& program, int command, const char* title, std::string_view name) {
    Command(program, command);
    WaitForDialog(program, title);
    Type(program, name);
    Press(program, "Enter");
}

static void Create(const Program& program, std::string_view name) {
    TypeName(program, IDM_CREATE_NOTE_SET, "Create New Note Set", name);
}

static void Rename(const Program& program, const std::string& from, std::string_view to) {
    TypeName(program, IDM_RENAME_NOTE_SET, ("Change name of note set " + from).c_str(), to);
}

// Returns the text of the message box with this title and closes it with the key.
static std::string Answered(const Program& program, const char* title, const char* key = "Enter") {
    const HWND box = WaitForDialog(program, title);
    const std::string text = MessageText(box);
    Press(program, key);
    WaitForNoDialog(program);
    return text;
}

// Opens a file exclusively, as another program might.
static UniqueHandle Hold(const ScratchFolder& folder, const std::string& name) {
    return UniqueHandle(CreateFileA((folder.path / name).string().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
}

static bool HasSet(const ScratchFolder& folder, const std::string& name) {
    return HasFile(folder, name + ".nmi") && HasFile(folder, name + ".nmd");
}

// ---- Dialogs --------------------------------------------------------------------------------------------------------

TEST(NoteSetDialogs, AskForANameAndFocusTheNoteWhenCancelled) {
    Program program = StartProgram(FolderWithSets({"a.b c"}));
    const struct {
        int command;
        const char* title;
        const char* text;
    } kRows[] = {{IDM_CREATE_NOTE_SET, "Create New Note Set", ""},
                 {IDM_RENAME_NOTE_SET, "Change name of note set a.b c", "a.b c"}};
    for (const auto& [command, title, text] : kRows) {
        SCOPED_TRACE(title);
        Command(program, IDM_VIEW_NOTES);  // hides the notes; even a cancelled dialog shows them again
        Command(program, command);
        const HWND dialog = WaitForDialog(program, title);
        EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), text);
        EXPECT_EQ(TabOrder(program, dialog), (std::vector<int>{IDC_SET_NAME, IDOK, IDCANCEL, IDC_HELP_BUTTON}));
        EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IDOK);
        SavePicture(PictureOfWindow(dialog), command == IDM_CREATE_NOTE_SET ? "note-set-create" : "note-set-rename");
        SetDlgItemTextA(dialog, IDC_SET_NAME, std::string(99, 'a').c_str());
        Press(program, "Alt+n");
        Press(program, "End");
        Type(program, "b");
        EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), std::string(99, 'a'));
        EXPECT_EQ(StatusPart(program, 0), "The name of a note set has at most 99 letters");
        Press(program, "Esc");
        WaitForNoDialog(program);
        EXPECT_EQ(StatusPart(program, 0), "");
        EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES));
        EXPECT_EQ(FocusOf(program), NoteViewOf(program));
        EXPECT_THAT(SetsOf(program), ElementsAre("a.b c"));
    }
}

// ---- Create ---------------------------------------------------------------------------------------------------------

TEST(NoteSetCreation, AddsAnEmptySetAndKeepsTheCurrentOne) {
    const ScratchFolder folder = FolderWithSets({"Mine"});
    WriteNoteSet(folder, "model");
    const std::string emptyIndex = ReadFile(folder, "model.nmi");
    const std::string emptyData = ReadFile(folder, "model.nmd");
    for (const char* ending : {".nmi", ".nmd"}) std::filesystem::remove(folder.path / (std::string("model") + ending));
    std::vector<std::string> expected{"Mine"};
    {
        Program program = StartProgram(folder);
        for (const char* name : {"a.b", "two words", "", "."}) {
            Create(program, name);
            WaitForNoDialog(program);
            expected.emplace_back(name);
            EXPECT_EQ(SetsOf(program), expected);
            EXPECT_EQ(SelectedTab(TabsOf(program)), 0);
            EXPECT_EQ(NoteOf(program), "in Mine");
            EXPECT_EQ(FocusOf(program), NoteViewOf(program));
            EXPECT_EQ(ReadFile(folder, std::string(name) + ".nmi"), emptyIndex);
            EXPECT_EQ(ReadFile(folder, std::string(name) + ".nmd"), emptyData);
        }
        SavePicture(PictureOfWindow(program.frame), "note-sets-created");
        GoToSet(program, "two words");
        EXPECT_EQ(NoteOf(program), "No note for Genesis 1:2.");
    }
    Program again = StartProgram(folder);
    EXPECT_THAT(SetsOf(again), testing::UnorderedElementsAreArray(expected));
}

TEST(NoteSetCreation, ReportsWhyItFailed) {
    const ScratchFolder folder = FolderWithSets({"Mine"});
    const std::string data = ReadFile(folder, "Mine.nmd");
    std::vector<std::string> files = FilesIn(folder);
    files.push_back("backup");  // in which the folder is locked
    Program program = StartProgram(folder);
    Create(program, "Mine");
    EXPECT_EQ(Answered(program, "Error"), "Error creating note files");
    EXPECT_EQ(StatusPart(program, 0), "\"Mine\" is already the name of a note set");
    for (const char* name : {"a/b", "what?", "con", " "}) {
        Create(program, name);
        EXPECT_THAT(Answered(program, "Error"), testing::StartsWith("Error creating note files\n\n")) << name;
    }
    EXPECT_EQ(StatusPart(program, 0), "");
    EXPECT_THAT(SetsOf(program), ElementsAre("Mine"));
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    EXPECT_EQ(FilesIn(folder), files);
    EXPECT_EQ(ReadFile(folder, "Mine.nmd"), data);
}

static constexpr char kOtherLetters[] =
    "The name has letters that this system's code page lacks. Choose a name without them.";

static void TypeOtherName(const Program& program, int command, const std::string& title) {
    Command(program, command);
    WaitForDialog(program, title.c_str());
    TypeWide(program, L"\u03A6\u03B1\u03C3\u03B1");
    Press(program, "Enter");
}

// The system has similar Latin letters for these.
TEST(NoteSetCreation, RefusesLettersOfOtherCodePages) {
    const ScratchFolder folder = FolderWithSets({"Mine"});
    const std::vector<std::string> files = FilesIn(folder);
    Program program = StartProgram(folder);
    TypeOtherName(program, IDM_CREATE_NOTE_SET, "Create New Note Set");
    EXPECT_EQ(Answered(program, "Error"), std::string("Error creating note files\n\n") + kOtherLetters);
    TypeOtherName(program, IDM_RENAME_NOTE_SET, "Change name of note set Mine");
    EXPECT_EQ(Answered(program, "Error"), std::string("Rename failed. ") + kOtherLetters);
    EXPECT_THAT(SetsOf(program), ElementsAre("Mine"));
    EXPECT_EQ(FilesIn(folder), files);
}

TEST(NoteSetCreation, IsLimitedTo31Sets) {
    std::vector<std::string> names;
    for (int set = 1; set <= 30; ++set) names.push_back("s" + std::to_string(set));
    const ScratchFolder folder = FolderWithSets(names);
    Program program = StartProgram(folder);
    Create(program, "s31");
    WaitForNoDialog(program);
    EXPECT_EQ(SetsOf(program).size(), 31u);
    Create(program, "s32");
    EXPECT_THAT(Answered(program, "Error"), HasSubstr("31 note sets"));
    EXPECT_EQ(SetsOf(program).size(), 31u);
    EXPECT_FALSE(HasFile(folder, "s32.nmd"));
}

// ---- Rename ---------------------------------------------------------------------------------------------------------

TEST(NoteSetRenaming, RenamesAllFilesOfTheSet) {
    const ScratchFolder folder = FolderWithSets({"a", "b.old", "c"});
    WriteFile(folder, "b.old.dti", std::string(2976, '\0'));
    const std::string index = ReadFile(folder, "b.old.nmi");
    const std::string data = ReadFile(folder, "b.old.nmd");
    Program program = StartProgram(folder);
    GoToSet(program, "b.old");
    const int tab = SelectedTab(TabsOf(program));
    std::string before = "b.old";
    for (const char* name : {"", "b.old", "b.new"}) {
        Command(program, IDM_RENAME_NOTE_SET);
        WaitForDialog(program, "Change name of note set " + before);
        Press(program, "Delete");  // the old name was selected
        Type(program, name);
        Press(program, "Enter");
        WaitForNoDialog(program);
        before = name;
        EXPECT_EQ(SetsOf(program)[static_cast<std::size_t>(tab)], name);
        EXPECT_EQ(SelectedTab(TabsOf(program)), tab);
        EXPECT_EQ(NoteOf(program), "in b.old");
        EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    }
    EXPECT_THAT(FilesIn(folder), testing::IsSupersetOf({"b.new.dti", "b.new.nmd", "b.new.nmi"}));
    EXPECT_THAT(FilesIn(folder), Not(Contains(testing::StartsWith("b.old"))));
    EXPECT_EQ(ReadFile(folder, "b.new.nmi"), index);
    EXPECT_EQ(ReadFile(folder, "b.new.nmd"), data);
    Press(program, "Alt+Right");
    Press(program, "Alt+Left");
    EXPECT_EQ(NoteOf(program), "in b.old") << "read from the renamed file";
}

TEST(NoteSetRenaming, ReportsFailure) {
    const ScratchFolder folder = FolderWithSets({"a", "b"});
    std::vector<std::string> files = FilesIn(folder);
    files.push_back("backup");  // in which the folder is locked
    Program program = StartProgram(folder);
    GoToSet(program, "a");
    static constexpr char kFailed[] = "Rename failed. Make sure the note set files are not in use by another program.";
    Rename(program, "a", "b");  // the name is in use
    EXPECT_EQ(Answered(program, "Error"), kFailed);
    EXPECT_EQ(StatusPart(program, 0), "\"b\" is already the name of a note set");
    {
        const UniqueHandle held = Hold(folder, "a.nmd");
        Rename(program, "a", "c");
        EXPECT_EQ(Answered(program, "Error"), kFailed);
    }
    Rename(program, "a", "c|d");
    EXPECT_THAT(Answered(program, "Error"), testing::StartsWith("Rename failed. The name of a note set cannot"));
    EXPECT_THAT(SetsOf(program), testing::UnorderedElementsAre("a", "b"));
    EXPECT_EQ(FilesIn(folder), files);

    // Half done: the data file has the new name but the index cannot be renamed, so the set can no longer be used.
    const UniqueHandle held = Hold(folder, "a.nmi");
    Rename(program, "a", "c");
    EXPECT_EQ(Answered(program, "Error"), kFailed);
    EXPECT_TRUE(HasFile(folder, "a.nmi"));
    EXPECT_TRUE(HasFile(folder, "c.nmd"));
    EXPECT_FALSE(HasFile(folder, "a.nmd"));
    EXPECT_THAT(SetsOf(program), testing::UnorderedElementsAre("a", "b"));
    EXPECT_EQ(CloseProgram(program), 0);
}

// ---- Delete ---------------------------------------------------------------------------------------------------------

TEST(NoteSetDeletion, AsksFirstAndThenShowsTheFirstSet) {
    const ScratchFolder folder = FolderWithSets({"a", "b.c", "d"});
    Program program = StartProgram(folder);
    const auto isThere = [&](const char* name) { return HasSet(folder, name); };
    GoToSet(program, "b.c");
    std::vector<std::string> sets = SetsOf(program);

    Command(program, IDM_DELETE_NOTE_SET);
    const HWND question = WaitForDialog(program, "Delete Note Set");
    EXPECT_EQ(MessageText(question), "Are you SURE you want to delete the note set b.c?");
    EXPECT_THAT(ButtonsOf(question), ElementsAre("&Yes", "&No"));
    SavePicture(PictureOfWindow(question), "note-set-delete");
    Press(program, "n");
    WaitForNoDialog(program);
    EXPECT_EQ(SetsOf(program), sets);
    EXPECT_TRUE(isThere("b.c"));

    Command(program, IDM_DELETE_NOTE_SET);
    Answered(program, "Delete Note Set", "y");
    std::erase(sets, "b.c");
    EXPECT_EQ(SetsOf(program), sets);
    EXPECT_EQ(SelectedTab(TabsOf(program)), 0);
    EXPECT_EQ(NoteOf(program), "in " + sets[0]);
    EXPECT_FALSE(HasFile(folder, "b.c.nmi"));
    EXPECT_FALSE(HasFile(folder, "b.c.nmd"));
    EXPECT_THAT(NamesInBackup(folder),
                testing::UnorderedElementsAre(testing::MatchesRegex("b\\.c ....-..-.. ......\\.nmd"),
                                              testing::MatchesRegex("b\\.c ....-..-.. ......\\.nmi"), "b.c.nmh"));
    EXPECT_THAT(KeptNotes(folder, "b.c"), ElementsAre(KeptNote{1, 5, "in b.c"}));  // deleted

    ClickTab(program, TabsOf(program), 1);
    {
        const UniqueHandle held = Hold(folder, sets[1] + ".nmi");
        Command(program, IDM_DELETE_NOTE_SET);
        WaitForDialog(program, "Delete Note Set");
        Press(program, "y");
        EXPECT_EQ(Answered(program, "Error"),
                  "Delete failed. Make sure the note files are not in use by any other programs.");
        EXPECT_EQ(SetsOf(program), sets);
        EXPECT_EQ(SelectedTab(TabsOf(program)), 1);
        EXPECT_EQ(NoteOf(program), "in " + sets[1]);
        EXPECT_TRUE(HasFile(folder, sets[1] + ".nmd"));
    }
    Command(program, IDM_DELETE_NOTE_SET);
    Answered(program, "Delete Note Set", "y");
    EXPECT_THAT(SetsOf(program), ElementsAre(sets[0]));

    Command(program, IDM_DELETE_NOTE_SET);
    EXPECT_EQ(Answered(program, "Delete Note Set"),
              "You only have one note set remaining. You must have at least one note set in Versewell. Create a new "
              "note set before deleting this set.");
    EXPECT_TRUE(isThere(sets[0].c_str()));
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "MISC", "Note"), "0");
}

// Adds a table of readings in which every reading is Exodus 1:1.
static void MakeDevotional(const ScratchFolder& folder, const std::string& name) {
    WriteFile(folder, name + ".dti", IndexBytes(std::vector<unsigned>(12 * 31 * 2, 1533)));
}

TEST(NoteSetDeletion, KeepsTheDevotionalSetWhenAnotherIsDeleted) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Other");
    WriteNoteSet(folder, "Readings", {{1533, "The reading."}});
    MakeDevotional(folder, "Readings");
    WriteNoteSet(folder, "Third");
    Program program = StartProgram(folder);
    for (const char* name : {"Other", "Third"}) {
        GoToSet(program, name);
        Command(program, IDM_DELETE_NOTE_SET);
        Answered(program, "Delete Note Set", "y");
    }
    EXPECT_THAT(MenuBar(program), Contains("&Devotional"));
    Command(program, IDM_THIS_MORNING);
    EXPECT_EQ(NoteOf(program), "The reading.");
    EXPECT_EQ(SelectedTab(TabsOf(program)), 0);
}

TEST(NoteSetDeletion, OfTheDevotionalSetRemovesItsMenu) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "mine"}});
    WriteNoteSet(folder, "Readings");
    MakeDevotional(folder, "Readings");
    Program program = StartProgram(folder);
    const std::vector<std::string> bar = MenuBar(program);
    ASSERT_THAT(bar, Contains("&Devotional"));
    GoToSet(program, "Readings");
    Command(program, IDM_DELETE_NOTE_SET);
    EXPECT_EQ(Answered(program, "Delete Note Set", "y"),
              "Are you SURE you want to delete the note set Readings? Deleting this set will remove the Devotional "
              "function!");
    EXPECT_THAT(MenuBar(program), ElementsAre("&File", "&Edit", "&Search", "&Read", "&Notes", "&Bookmarks", "&Options",
                                              "&View", "&Help"));
    EXPECT_FALSE(HasFile(folder, "Readings.dti"));
    EXPECT_FALSE(HasFile(folder, "Readings.nmd"));
    SavePicture(PictureOfWindow(program.frame), "devotional-deleted");
    Command(program, IDM_THIS_EVENING);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(NoteOf(program), "mine");
    EXPECT_EQ(CloseProgram(program), 0);
}
