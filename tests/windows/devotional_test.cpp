// The daily readings and the proverb of the day.

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

static constexpr int kSlots = 12 * 31 * 2;

static int SlotOf(int month, int day, int reading) {
    return ((month - 1) * 31 + day - 1) * 2 + reading;
}

// Writes a set with a table of readings; entries missing from `table` are Genesis 1:1.
static void WriteDevotional(const ScratchFolder& folder, const std::string& name, const std::map<int, unsigned>& table,
                            const std::map<int, std::string>& notes) {
    std::vector<unsigned> verses(kSlots);
    for (const auto& [slot, verse] : table) verses[static_cast<std::size_t>(slot)] = verse;
    WriteNoteSet(folder, name, notes);
    WriteFile(folder, name + ".dti", IndexBytes(verses));
}

static Program StartAt(const ScratchFolder& folder, const char* date) {
    StartOptions options;
    options.date = date;
    return StartProgram(folder, options);
}

static std::string Note(const Program& program) {
    return TextOf(NoteViewOf(program));
}

static std::string NoteVerse(const Program& program) {
    return StatusPart(program, 2);
}

static HWND NoteTabsOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS});
}

static std::string ChosenSet(const Program& program) {
    return NoteSetNames(program)[static_cast<std::size_t>(SelectedTab(NoteTabsOf(program)))];
}

namespace {

struct DatedReading {
    const char* date;
    int month, day;
};

}  // namespace

TEST(Devotional, OpensTheReadingsOfTheLocalDate) {
    static constexpr DatedReading kDates[] = {
        {"2026-07-04 23:30:00", 7, 4},
        {"2024-02-29 08:00:00", 2, 29},
        {"2025-12-31 00:10:00", 12, 31},
    };
    for (const auto& [date, month, day] : kDates) {
        const ScratchFolder folder = FolderWithScripture();
        WriteNoteSet(folder, "Mine", {{500, "Mine, morning."}, {700, "Mine, evening."}});
        WriteDevotional(folder, "Readings", {{SlotOf(month, day, 0), 500}, {SlotOf(month, day, 1), 700}},
                        {{500, "Read in the morning."}, {700, "Read in the evening."}});
        const Program program = StartAt(folder, date);
        Command(program, IDM_THIS_MORNING);
        EXPECT_EQ(Top(program), "Genesis 20:5") << date;
        EXPECT_EQ(NoteVerse(program), "Genesis 20:5") << date;
        EXPECT_EQ(Note(program), "Read in the morning.") << date;
        EXPECT_EQ(ChosenSet(program), "Readings") << date;
        Command(program, IDM_THIS_EVENING);
        EXPECT_EQ(Note(program), "Read in the evening.") << date;
        EXPECT_EQ(NoteVerse(program), Top(program)) << date;
    }
}

TEST(Devotional, MenuItemsOpenTheirVerseRegardlessOfTheTable) {
    const ScratchFolder folder = FolderWithScripture();
    WriteDevotional(folder, "Readings", {}, {{3, "Of the light."}, {5946, "Old corn."}});
    WriteSetting(folder, "VIEW", "NotesWindow", "0");
    const Program program = StartProgram(folder);
    EXPECT_EQ(MenuText(program, IDM_DEVOTIONAL + 5946), "Morning");
    EXPECT_FALSE(IsGreyed(program, IDM_DEVOTIONAL + 5946));
    EXPECT_FALSE(IsGreyed(program, IDM_THIS_MORNING));
    for (const auto& [command, verse, note] :
         {std::tuple{7946, "Joshua 5:12", "Old corn."}, {2003, "Genesis 1:4", "Of the light."}}) {
        Command(program, command);
        EXPECT_EQ(Top(program), verse);
        EXPECT_EQ(Note(program), note);
    }
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES)) << "the notes were hidden";
    EXPECT_TRUE(IsShown(NoteViewOf(program)));
}

TEST(Devotional, OpensGenesisForAnEmptyEntry) {
    const ScratchFolder folder = FolderWithScripture();
    WriteDevotional(folder, "Readings", {}, {{0, "In the beginning."}});
    WriteSetting(folder, "MISC", "ReadVerse", "115");
    const Program program = StartProgram(folder);
    Command(program, IDM_THIS_EVENING);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    EXPECT_EQ(Note(program), "In the beginning.");
}

TEST(Devotional, HandlesShortTablesAndVersesOutOfRange) {
    for (const auto& [table, verse] :
         {std::pair{std::string(5, '\0'), "Genesis 1:1"}, std::pair{std::string(2976, '\xFF'), "Revelation 22:21"}}) {
        const ScratchFolder folder = FolderWithScripture();
        WriteNoteSet(folder, "Readings");
        WriteFile(folder, "Readings.dti", table);
        const Program program = StartProgram(folder);
        Command(program, IDM_THIS_MORNING);
        EXPECT_EQ(Top(program), verse);
        EXPECT_EQ(NoteVerse(program), verse);
    }
}

TEST(Devotional, MenuAndCommandsNeedADevotionalSet) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{3, "Mine."}});
    const Program program = StartAt(folder, "2026-05-31 12:00:00");
    EXPECT_EQ(MenuBar(program).size(), 9u);
    for (const int command : {IDM_THIS_MORNING, IDM_THIS_EVENING, IDM_DEVOTIONAL + 3, IDM_DEVOTIONAL + 31101}) {
        Command(program, command);
        EXPECT_EQ(Top(program), "Genesis 1:1") << command;
    }
    Command(program, IDM_TODAYS_PROVERB);
    EXPECT_EQ(Top(program), "Proverbs 31:1");
}

TEST(Devotional, WaitsForTheNoteEditor) {
    const ScratchFolder folder = FolderWithScripture();
    WriteDevotional(folder, "Readings", {}, {{5946, "Old corn."}});
    const Program program = StartProgram(folder);
    static constexpr int kReadings[] = {IDM_THIS_MORNING, IDM_THIS_EVENING, IDM_DEVOTIONAL + 5946};
    Command(program, IDM_GOTO_BOOK + 40);
    OpenNoteEditor(program);
    for (const int command : kReadings) {
        EXPECT_TRUE(IsGreyed(program, command)) << command;
        Command(program, command);
        EXPECT_EQ(Top(program), "Matthew 1:1") << command;
    }
    Press(program, "Esc");
    for (const int command : kReadings) EXPECT_FALSE(IsGreyed(program, command)) << command;
    Command(program, IDM_DEVOTIONAL + 5946);
    EXPECT_EQ(Top(program), "Joshua 5:12");
    EXPECT_EQ(Note(program), "Old corn.");
}

TEST(Devotional, IgnoresIdsBeyondTheLastVerse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteDevotional(folder, "Readings", {}, {});
    const Program program = StartProgram(folder);
    Command(program, IDM_DEVOTIONAL + 31102);
    Command(program, 0xFFFF);
    EXPECT_EQ(Top(program), "Genesis 1:1");
    Command(program, IDM_DEVOTIONAL + 31101);
    EXPECT_EQ(Top(program), "Revelation 22:21");
}

TEST(Devotional, TodaysProverbShowsAHiddenPassage) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "ReadWindow", "0");
    const Program program = StartAt(folder, "2026-11-09 12:00:00");
    EXPECT_FALSE(IsShown(PassageOf(program)));
    EXPECT_FALSE(IsGreyed(program, IDM_TODAYS_PROVERB));
    Command(program, IDM_TODAYS_PROVERB);
    EXPECT_TRUE(IsShown(PassageOf(program)));
    EXPECT_EQ(Top(program), "Proverbs 9:1");
    EXPECT_EQ(NoteVerse(program), "Proverbs 9:1") << "notes are bound";
}
