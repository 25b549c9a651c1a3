// Note sets: which sets the program finds at the start, how it repairs them, and what the note view shows.

#include <algorithm>
#include <map>

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/note_set_files.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;

static HWND NoteTabs(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS});
}

static HWND NoteView(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW});
}

static std::string NoteShown(const Program& program) {
    Settle(program);
    return TextOf(NoteView(program));
}

static void Answer(HWND box) {
    PostMessageA(box, WM_COMMAND, IDOK, 0);
}

// A folder whose settings open the note of `verse` in set number `set`.
static ScratchFolder FolderAtNote(int verse, int set = 0) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(verse));
    WriteSetting(folder, "MISC", "Note", std::to_string(set));
    return folder;
}

// ---- Finding sets ---------------------------------------------------------------------------------------------------

TEST(NoteSets, AreCountedIfTheCodePageLacksTheirLetters) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* name : {"Mine", "moved"}) WriteNoteSet(folder, name, {{0, "text"}});
    const std::filesystem::path path = folder.path;
    for (const wchar_t* ending : {L".nmi", L".nmd"}) {
        std::filesystem::rename(path / (std::wstring(L"moved") + ending),
                                path / (std::wstring(L"\u039B\u03CC\u03B3\u03BF\u03C2") + ending));
        std::filesystem::copy(path / (std::wstring(L"Mine") + ending),
                              path / (std::wstring(L"\xD83D\xDE00 \u00E9") + ending));
    }
    Program program = StartProgram(folder);
    EXPECT_EQ(StatusPart(program, 0),
              "2 sets not shown: their names have letters that this system's code page lacks. Rename the files.");
    EXPECT_EQ(NoteSetNames(program), std::vector<std::string>{"Mine"});
}

TEST(NoteSets, AreLimitedTo31) {
    const ScratchFolder folder = FolderWithScripture();
    for (int set = 0; set < 40; ++set)
        WriteNoteSet(folder, "Set " + std::to_string(set), {{0, "in " + std::to_string(set)}});
    Program program = StartProgram(folder);
    const std::vector<std::string> names = NoteSetNames(program);
    ASSERT_EQ(names.size(), 31u);
    const std::string told = StatusPart(program, 0);
    EXPECT_THAT(told, StartsWith("9 sets not shown: Set "));
    EXPECT_THAT(told, testing::EndsWith(". There can be 31 sets."));
    for (int set = 0; set < 40; ++set) {
        const std::string name = "Set " + std::to_string(set);
        const bool isTold = told.find(' ' + name + ',') != told.npos || told.find(' ' + name + '.') != told.npos;
        EXPECT_NE(isTold, std::ranges::find(names, name) != names.end()) << name;
    }
    ClickTab(program, NoteTabs(program), 30);
    EXPECT_EQ("Set" + NoteShown(program).substr(2), names[30]);
    Command(program, IDM_NEXT_NOTE_SET);
    EXPECT_EQ(SelectedTab(NoteTabs(program)), 0);
    SavePicture(PictureOfWindow(program.frame), "note-sets-31");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_FALSE(HasFile(folder, "My Notes.nmi"));
}

TEST(NoteSets, NamesEndAtTheLastDot) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "a.b", {{0, "dotted"}});
    WriteNoteSet(folder, "", {{0, "nameless"}});
    WriteNoteSet(folder, "M\xFCller \xB6", {{0, "beyond ASCII"}});
    WriteFile(folder, "no set.txt", "text");
    Program program = StartProgram(folder);
    const std::vector<std::string> names = NoteSetNames(program);
    EXPECT_THAT(names, UnorderedElementsAre("a.b", "", "M\xFCller \xB6"));
    for (int set = 0; set < 3; ++set) {
        ClickTab(program, NoteTabs(program), set);
        const std::string& name = names[static_cast<std::size_t>(set)];
        EXPECT_EQ(NoteShown(program), name.empty() ? "nameless" : name == "a.b" ? "dotted" : "beyond ASCII");
    }
}

TEST(NoteSets, IgnoreFoldersWithTheirExtension) {
    const ScratchFolder folder = FolderWithScripture();
    std::filesystem::create_directory(folder.path / "Folder.nmi");
    Program program = StartProgram(folder);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
}

// Existing notes must not be overwritten even if their index is missing.
TEST(NoteSets, AreNotCreatedOverExistingNotes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "My Notes.nmd", "mine");
    Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box), "Error creating note files");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    SavePicture(PictureOfWindow(box), "error-creating-note-files");
    Answer(box);
    WaitForFrame(program);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("My Notes"));
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(ReadFile(folder, "My Notes.nmd"), "mine");
    EXPECT_TRUE(HasFile(folder, "Versewell.INI"));
}

// ---- Which note is shown --------------------------------------------------------------------------------------------

TEST(Note, IsShownAtTheStart) {
    static const struct {
        int verse;
        const char* note;  // null: not stored
        const char* shown;
        const char* part;
    } kRows[] = {
        {0, "first", "first", "Genesis 1:1"},
        {0, nullptr, "No note for Genesis 1:1.", "Genesis 1:1"},
        {26136, "two\r\nlines", "two\r\nlines", "John 3:16"},
        {14236, nullptr, "No note for Psalms 23:1.", "Psalms 23:1"},
        {kLastVerse, "to the end", "to the end", "Revelation 22:21"},
        {kLastVerse, nullptr, "No note for Revelation 22:21.", "Revelation 22:21"},
        {5, "{\\rtf1 plain}", "{\\rtf1 plain}", "Genesis 1:6"},  // must not be read as rich text
        {6, "\xB6 \xE9", "\xB6 \xE9", "Genesis 1:7"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.shown);
        const ScratchFolder folder = FolderAtNote(row.verse);
        WriteNoteSet(folder, "Mine",
                     row.note ? std::map<int, std::string>{{row.verse, row.note}} : std::map<int, std::string>{});
        Program program = StartProgram(folder);
        EXPECT_EQ(NoteShown(program), row.shown);
        EXPECT_EQ(StatusPart(program, 2), row.part);
        const TextSelection selection = RichSelection(program, NoteView(program));
        EXPECT_EQ(selection.start, 0);
        EXPECT_EQ(selection.end, 0);
    }
}

static std::string Lines(std::size_t size) {
    std::string lines;
    while (lines.size() < size) lines += "a line of a long note\r\n";
    return lines;
}

// The index has no offset after the last note, so it ends with the file, truncated to the 64 KB of the buffer.
TEST(Note, OfTheLastVerseIsReadToTheEndOfTheFile) {
    const std::string lines = Lines(70000);
    static const struct {
        std::string note;
        std::size_t shown;
    } kRows[] = {{lines.substr(0, 50000), 50000}, {lines, 65535}};
    for (const auto& row : kRows) {
        const ScratchFolder folder = FolderAtNote(kLastVerse);
        WriteNoteSet(folder, "Mine", {{kLastVerse, row.note}});
        Program program = StartProgram(folder);
        EXPECT_EQ(NoteShown(program), row.note.substr(0, row.shown));
    }
}

TEST(Note, SettingsOutOfRangeSelectTheFirst) {
    static constexpr struct {
        int verse, set;
        int shownVerse, shownSet;
    } kRows[] = {{40000, 0, 0, 0}, {31102, 1, 0, 1}, {kLastVerse, 1, kLastVerse, 1},
                 {7, 5, 7, 0},     {7, 2, 7, 0},     {-3, -1, 0, 0}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.verse << " of set " << row.set);
        const ScratchFolder folder = FolderAtNote(row.verse, row.set);
        for (const char* name : {"A", "B"}) WriteNoteSet(folder, name, {{row.shownVerse, std::string("in ") + name}});
        Program program = StartProgram(folder);
        EXPECT_EQ(SelectedTab(NoteTabs(program)), row.shownSet);
        EXPECT_EQ(NoteShown(program), "in " + NoteSetNames(program)[static_cast<std::size_t>(row.shownSet)]);
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(Setting(folder, "MISC", "NoteVerse"), std::to_string(row.shownVerse));
        EXPECT_EQ(Setting(folder, "MISC", "Note"), std::to_string(row.shownSet));
    }
}

TEST(Note, ChangesWithTheTab) {
    const ScratchFolder folder = FolderAtNote(26136);
    for (const char* name : {"A", "B", "C"}) WriteNoteSet(folder, name, {{26136, std::string("in ") + name}});
    Program program = StartProgram(folder);
    const HWND tabs = NoteTabs(program);
    const std::vector<std::string> names = NoteSetNames(program);
    for (const int set : {2, 0, 1}) {
        ClickTab(program, tabs, set);
        EXPECT_EQ(NoteShown(program), "in " + names[static_cast<std::size_t>(set)]);
        EXPECT_EQ(StatusPart(program, 2), "John 3:16");
    }
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "MISC", "Note"), "1");
}

TEST(Note, ChangesWithTheNoteSetKeys) {
    static constexpr struct {
        const char* keys;
        int selected;
    } kRows[] = {{"Alt+Right", 1}, {"Alt+Right", 2}, {"Alt+Right", 0}, {"Alt+Left", 2}, {"Alt+Left", 1}};
    const ScratchFolder folder = FolderWithScripture();
    for (const char* name : {"A", "B", "C"}) WriteNoteSet(folder, name, {{0, std::string("in ") + name}});
    Program program = StartProgram(folder);
    const std::vector<std::string> names = NoteSetNames(program);
    for (const auto& row : kRows) {
        Press(program, row.keys);
        EXPECT_EQ(SelectedTab(NoteTabs(program)), row.selected);
        EXPECT_EQ(NoteShown(program), "in " + names[static_cast<std::size_t>(row.selected)]);
    }
}

TEST(Note, NextAndPreviousWrapAround) {
    static constexpr struct {
        const char* keys;
        const char* part;
    } kRows[] = {{"Alt+Down", "Genesis 1:11"},
                 {"Alt+Down", "Revelation 22:21"},
                 {"Alt+Down", "Genesis 1:11"},
                 {"Alt+Up", "Revelation 22:21"},
                 {"Alt+Up", "Genesis 1:11"}};
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{10, "tenth"}, {kLastVerse, "last"}});
    Program program = StartProgram(folder);
    for (const auto& row : kRows) {
        Press(program, row.keys);
        EXPECT_EQ(StatusPart(program, 2), row.part) << row.keys;
    }
}

TEST(Note, NextMovesOneVerseWhenThereIsNoOther) {
    const ScratchFolder folder = FolderAtNote(10);
    WriteNoteSet(folder, "Mine", {{10, "the only one"}});
    Program program = StartProgram(folder);
    Press(program, "Alt+Down");
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:12");
    EXPECT_EQ(NoteShown(program), "No note for Genesis 1:12.");
}

// Labels mark the verses that have a note in the current set, so another set must repaint the passage.
TEST(Note, IsMarkedInThePassageForTheCurrentSet) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "A", {{0, "noted"}});
    WriteNoteSet(folder, "B");
    Program program = StartProgram(folder);
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    const Picture first = PictureOfWindow(passage);
    ClickTab(program, NoteTabs(program), 1);
    const Picture second = PictureOfWindow(passage);
    const RECT changed = DifferingArea(first, second);
    EXPECT_FALSE(IsRectEmpty(&changed));
    ClickTab(program, NoteTabs(program), 0);
    const RECT same = DifferingArea(first, PictureOfWindow(passage));
    EXPECT_TRUE(IsRectEmpty(&same));
}

// ---- Missing and damaged files --------------------------------------------------------------------------------------

TEST(Note, ReadErrorIsReportedAndChangesNothing) {
    const ScratchFolder folder = FolderAtNote(3);
    WriteNoteSet(folder, "Mine", {{3, "third"}, {10, "tenth"}});
    Program program = StartProgram(folder);
    ASSERT_EQ(NoteShown(program), "third");
    std::filesystem::rename(folder.path / "Mine.nmd", folder.path / "away.nmd");
    for (const char* keys : {"Alt+Down", "F10"}) {
        Press(program, keys);
        const HWND box = WaitForDialog(program, "Error");
        EXPECT_EQ(MessageText(box), "Error reading note file");
        EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
        SavePicture(PictureOfWindow(program.frame), "error-reading-note");
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_EQ(NoteShown(program), "third");
        EXPECT_EQ(StatusPart(program, 2), "Genesis 1:4");
    }
    std::filesystem::rename(folder.path / "away.nmd", folder.path / "Mine.nmd");
    Press(program, "Alt+Down");
    EXPECT_EQ(NoteShown(program), "tenth");
}

TEST(Note, ReadErrorAtTheStartDoesNotStopTheProgram) {
    const ScratchFolder folder = FolderAtNote(3);
    WriteNoteSet(folder, "Mine");
    std::filesystem::remove(folder.path / "Mine.nmd");
    Program program = LaunchProgram(folder);
    Answer(WaitForDialog(program, "Error"));
    WaitForFrame(program);
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, 2), "");
    EXPECT_EQ(NoteShown(program), "");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "MISC", "NoteVerse"), "3");
}

// States left by an interrupted save: one message box reports all repairs, and no note is lost.
TEST(DamagedNotes, AreRepairedAtTheStart) {
    const ScratchFolder folder = FolderAtNote(kLastVerse);
    const std::map<int, std::string> notes = {{0, "first"}, {10, "tenth"}, {kLastVerse, "last"}};
    for (const char* name : {"Stale", "Lost", "Renamed", "Whole"}) WriteNoteSet(folder, name, notes);
    const std::string index = ReadFile(folder, "Whole.nmi");
    const std::string data = ReadFile(folder, "Whole.nmd");
    WriteFile(folder, "Stale.nmi", index.substr(0, 70000) + std::string(54408, '\0'));
    std::filesystem::remove(folder.path / "Lost.nmi");
    std::filesystem::rename(folder.path / "Renamed.nmd", folder.path / "Renamed.nmd.temp");
    Program program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    const std::string text = MessageText(box);
    EXPECT_THAT(text, HasSubstr("The data file of the note set \"Renamed\" was missing."));
    EXPECT_THAT(text, HasSubstr("The index file of the note set \"Lost\" was missing."));
    EXPECT_THAT(text, HasSubstr("The index file of the note set \"Stale\" did not match its notes."));
    EXPECT_THAT(text, Not(HasSubstr("Whole")));
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    SavePicture(PictureOfWindow(box), "mended-note-sets");
    Answer(box);
    WaitForFrame(program);
    EXPECT_THAT(NoteSetNames(program), UnorderedElementsAre("Stale", "Lost", "Renamed", "Whole"));
    for (int set = 0; set < 4; ++set) {
        ClickTab(program, NoteTabs(program), set);
        EXPECT_EQ(NoteShown(program), "last");
    }
    EXPECT_EQ(CloseProgram(program), 0);
    for (const std::string name : {"Stale", "Lost", "Renamed", "Whole"}) {
        EXPECT_TRUE(ReadFile(folder, name + ".nmi") == index) << name;
        EXPECT_TRUE(ReadFile(folder, name + ".nmd") == data) << name;
    }
    Program again = StartProgram(folder);
    EXPECT_EQ(CloseProgram(again), 0);
}

// The first note becomes two; the end of the file is as the index says.
static void SplitFirstNote(const ScratchFolder& folder, const std::string& name) {
    std::string data = ReadFile(folder, name + ".nmd");
    data[1] = '\0';
    WriteFile(folder, name + ".nmd", data);
}

// Two notes change places with each other's lengths, so that only the offset between them is another one.
static void ShiftSecondNote(const ScratchFolder& folder, const std::string& name) {
    std::string index = ReadFile(folder, name + ".nmi");
    ++index[4];
    WriteFile(folder, name + ".nmi", index);
}

// What is not seen at the end of a data file is found when the program has nothing else to do.
TEST(DamagedNotes, InsideOtherSetsAreToldOnceTheFrameIsShown) {
    const ScratchFolder folder = FolderAtNote(0);
    WriteNoteSet(folder, "First", {{0, "first note"}});
    WriteSetting(folder, "MISC", "Note", "0");
    Program program = StartProgram(folder);
    EXPECT_EQ(NoteShown(program), "first note");
    EXPECT_EQ(CloseProgram(program), 0);
    WriteNoteSet(folder, "Split", {{0, "first note"}, {kLastVerse, "last"}});
    SplitFirstNote(folder, "Split");
    WriteFile(folder, "Versewell.more.ini", "[NOTES]\r\nCurrentSet=First\r\n");
    const std::string data = ReadFile(folder, "Split.nmd"), index = ReadFile(folder, "Split.nmi");
    program = LaunchProgram(folder);
    const HWND box = WaitForDialog(program, "Note Sets");
    WaitForFrame(program);
    EXPECT_EQ(MessageText(box),
              "The data file \"Split.nmd\" is damaged: it should hold 31102 notes, but it has 31103. It "
              "is left as it is, so that you can rescue what it holds: the set can be read, but no "
              "note can be saved in it.");
    EXPECT_EQ(IconOf(box), "exclamation");
    EXPECT_TRUE(IsShown(program.frame));
    SavePicture(PictureOfWindow(program.frame), "damage-told-after-the-start");
    Answer(box);
    WaitForNoDialog(program);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_TRUE(ReadFile(folder, "Split.nmd") == data && ReadFile(folder, "Split.nmi") == index);
}

TEST(DamagedNotes, InsideTheCurrentSetAreToldBeforeItsNoteIsShown) {
    for (const bool isLarge : {false, true}) {
        SCOPED_TRACE(isLarge);
        const ScratchFolder folder = FolderAtNote(1);
        std::map<int, std::string> notes = {{0, "one"}, {1, "second note"}};
        for (int verse = 100; isLarge && verse < 3100; ++verse) notes[verse] = std::string(1000, 'n');
        WriteNoteSet(folder, "Mine", notes);
        const std::string index = ReadFile(folder, "Mine.nmi");
        ShiftSecondNote(folder, "Mine");
        Program program = LaunchProgram(folder);
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_EQ(MessageText(box),
                  "The index file of the note set \"Mine\" did not match its notes. It has been made "
                  "again from the notes, which are all there.");
        EXPECT_EQ(IconOf(box), "information");
        if (isLarge) {
            WaitForFrame(program);
            EXPECT_EQ(TextOf(NoteView(program)), "");
        }
        Answer(box);
        WaitForFrame(program);
        EXPECT_EQ(NoteShown(program), "second note");
        EXPECT_EQ(StatusPart(program, 2), "Genesis 1:2");
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_TRUE(ReadFile(folder, "Mine.nmi") == index);
    }
}

TEST(DamagedNotes, NeverCrashTheProgram) {
    std::string falling(kVerseCount * 4, '\0');
    for (std::size_t at = 0; at < falling.size(); ++at) falling[at] = static_cast<char>(0xFF - at / 4 % 256);
    static const struct {
        const char* why;
        std::string index;
        std::string data;
    } kRows[] = {
        {"nothing at all", "", ""},
        {"three bytes", "abc", "text"},
        {"a short index", IndexBytes({0, 4}), std::string("abc\0def", 7)},
        {"offsets beyond the data", std::string(kVerseCount * 4, '\xFF'), "text"},
        {"falling offsets", falling, std::string(1000, 'x')},
        {"a long index", std::string(300000, '\0'), "text"},
        {"no NUL anywhere", IndexBytes({0, 100000}), Lines(200000)},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        const ScratchFolder folder = FolderWithScripture();
        WriteFile(folder, "Odd.nmi", row.index);
        WriteFile(folder, "Odd.nmd", row.data);
        WriteFile(folder, "Odd.dti", std::string(1001, '\xFF'));
        WriteFile(folder, "Versewell.INI", "[MISC\r\nNote=9\r\n=\r\n[MISC]\r\nNoteVerse=99999999999\r\n");
        Program program = LaunchProgram(folder);
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_THAT(MessageText(box), StartsWith("The data file \"Odd.nmd\" is damaged"));
        Answer(box);
        WaitForFrame(program);
        EXPECT_THAT(NoteSetNames(program), ElementsAre("Odd"));
        for (const int command :
             {IDM_THIS_MORNING, IDM_THIS_EVENING, IDM_NEXT_NOTE, IDM_PREVIOUS_NOTE, IDM_PREVIOUS_NOTE,
              IDM_GOTO_BOOK + 66, IDM_NOTE_FOR_PASSAGE, IDM_VERSE_FOR_NOTE, IDM_NEXT_NOTE_SET})
            Command(program, command);
        EXPECT_EQ(StatusPart(program, 2), "Revelation 1:1");
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(ReadFile(folder, "Odd.nmi"), row.index);
        EXPECT_EQ(ReadFile(folder, "Odd.nmd"), row.data);
    }
}
