// Versewell.INI: the settings that the program reads at the start and writes on exit.

#include <algorithm>
#include <filesystem>
#include <sstream>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/picture.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

struct StoredSetting {
    const char* section;
    const char* key;
    std::string value;
};

}  // namespace

// All non-empty lines without their CR; a line that lacks it is returned as "<line> has no CR".
static std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::istringstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        else
            line += " has no CR";
        if (!line.empty()) lines.push_back(line);
    }
    return lines;
}

// In the order in which the program writes them. The frame's place, which the system chooses, follows them.
static std::vector<StoredSetting> DefaultSettings() {
    std::vector<StoredSetting> rows = {{"SEARCH", "BooleanType", "0"}, {"SEARCH", "CaseSensitive", "0"},
                                       {"SEARCH", "SubString", "0"},   {"SEARCH", "Proximity", "0"},
                                       {"SEARCH", "StartVerse", "0"},  {"SEARCH", "EndVerse", "31101"}};
    for (const char* key :
         {"PreviousSearch0", "PreviousSearch1", "PreviousSearch2", "PreviousSearch3", "PreviousSearch4",
          "PreviousSearch5", "PreviousSearch6", "PreviousSearch7", "PreviousSearch8", "PreviousSearch9"})
        rows.push_back({"SEARCH", key, ""});
    const std::vector<StoredSetting> behind = {
        {"FORMAT", "FirstVerseStyle", "0"},
        {"FORMAT", "SubsequentVerseStyle", "1"},
        {"FORMAT", "Location", "0"},
        {"FORMAT", "LineBreaks", "1"},
        {"FORMAT", "ParagraphMarks", "1"},
        {"FORMAT", "Brackets", "0"},
        {"VIEW", "VerseListWindow", "1"},
        {"VIEW", "ReadWindow", "1"},
        {"VIEW", "NotesWindow", "1"},
        {"VIEW", "ToolBar", "1"},
        {"BOOKMARKS", "1", "0"},
        {"BOOKMARKS", "2", "0"},
        {"BOOKMARKS", "3", "0"},
        {"BOOKMARKS", "4", "0"},
        {"BOOKMARKS", "5", "0"},
        {"BOOKMARKS", "6", "0"},
        {"BOOKMARKS", "7", "0"},
        {"BOOKMARKS", "8", "0"},
        {"BOOKMARKS", "9", "0"},
        {"BOOKMARKS", "10", "0"},
        {"OPTIONS", "Paragraph Format", "0"},
        {"OPTIONS", "Italics", "0"},
        {"OPTIONS", "KeyHighlightColor", std::to_string(GetSysColor(COLOR_HIGHLIGHT))},
        {"OPTIONS", "ReadWindowFontHeight", "16"},
        {"OPTIONS", "ReadWindowFontWeight", "400"},
        {"OPTIONS", "ReadWindowFontName", "Times New Roman"},
        {"OPTIONS", "VerseListFontHeight", "16"},
        {"OPTIONS", "VerseListFontWeight", "400"},
        {"OPTIONS", "VerseListFontName", "Times New Roman"},
        {"OPTIONS", "NoteFontHeight", "12"},
        {"OPTIONS", "NoteFontWeight", "400"},
        {"OPTIONS", "NoteFontName", "Courier New"},
        {"MISC", "ReadVerse", "0"},
        {"MISC", "Note", "0"},
        {"MISC", "NoteVerse", "0"},
        {"MISC", "BindNotes", "1"},
    };
    rows.insert(rows.end(), behind.begin(), behind.end());
    return rows;
}

static std::vector<StoredSetting> PlaceSettings(const RECT& place) {
    return {{"MISC", "XPos", std::to_string(place.left)},
            {"MISC", "YPos", std::to_string(place.top)},
            {"MISC", "Width", std::to_string(place.right - place.left)},
            {"MISC", "Height", std::to_string(place.bottom - place.top)},
            {"MISC", "Maxed", "0"}};
}

static std::vector<std::string> FileLines(const std::vector<StoredSetting>& settings) {
    std::vector<std::string> lines;
    std::string section;
    for (const StoredSetting& row : settings) {
        if (row.section != section) lines.push_back("[" + (section = row.section) + "]");
        lines.push_back(std::string(row.key) + "=" + row.value);
    }
    return lines;
}

static void Store(const ScratchFolder& folder, const std::vector<StoredSetting>& settings) {
    for (const StoredSetting& row : settings) WriteSetting(folder, row.section, row.key, row.value);
}

static void ExpectStored(const ScratchFolder& folder, const std::vector<StoredSetting>& settings) {
    for (const StoredSetting& row : settings)
        EXPECT_EQ(Setting(folder, row.section, row.key), row.value) << row.section << " " << row.key;
}

static void StartAndClose(const ScratchFolder& folder) {
    Program program = StartProgram(folder);
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(SettingsFile, HasTheDefaultsAfterAFirstRun) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    std::vector<StoredSetting> expected = DefaultSettings();
    for (const StoredSetting& row : PlaceSettings(RectOnScreen(program.frame))) expected.push_back(row);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(LinesOf(ReadFile(folder, "Versewell.INI")), ElementsAreArray(FileLines(expected)));
}

TEST(SettingsFile, IsUnchangedByARunThatChangesNothing) {
    const ScratchFolder folder = FolderWithScripture();
    StartAndClose(folder);
    const std::string first = ReadFile(folder, "Versewell.INI");
    StartAndClose(folder);
    EXPECT_EQ(ReadFile(folder, "Versewell.INI"), first);
}

// Each key has a different value, so that mixed-up keys are detected.
TEST(SettingsFile, RoundTripsEverySetting) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "A");
    WriteNoteSet(folder, "B");
    std::vector<StoredSetting> settings = DefaultSettings();
    int number = 1;
    for (StoredSetting& row : settings) row.value = std::to_string(number++);
    for (const StoredSetting& row : PlaceSettings({33, 44, 733, 644})) settings.push_back(row);
    for (StoredSetting& row : settings) {
        const std::string key = row.key;
        if (key == "Note") row.value = "1";
        if (key == "EndVerse") row.value = "777";
        if (key.ends_with("FontWeight")) row.value = "700";
        if (key.ends_with("FontName")) row.value = "Arial";
    }
    Store(folder, settings);
    Program program = StartProgram(folder);
    const RECT place = RectOnScreen(program.frame);
    EXPECT_EQ(place.left, 33);
    EXPECT_EQ(place.bottom, 644);
    EXPECT_EQ(StatusPart(program, 4), "Ge 1:6 - Ge 28:4");
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(LinesOf(ReadFile(folder, "Versewell.INI")), ElementsAreArray(FileLines(settings)));
}

TEST(SettingsFile, KeepsUnknownKeysAndSections) {
    const ScratchFolder folder = FolderWithScripture();
    Store(folder, {{"MISC", "Sound", "loud"}, {"OTHER", "Key", "value"}});
    StartAndClose(folder);
    ExpectStored(folder, {{"MISC", "Sound", "loud"}, {"OTHER", "Key", "value"}, {"MISC", "ReadVerse", "0"}});
}

TEST(SettingsFile, IsReadOnlyAtTheStartAndWrittenOnlyOnExit) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    Command(program, IDM_PARAGRAPH_FORMAT);
    Command(program, IDM_GOTO_BOOK + 40);
    EXPECT_FALSE(HasFile(folder, "Versewell.INI"));
    WriteSetting(folder, "MISC", "ReadVerse", "5");
    Command(program, IDM_ITALIC_NORMAL);
    EXPECT_EQ(StatusPart(program, 3), "Matthew 1:1");
    EXPECT_EQ(CloseProgram(program), 0);
    ExpectStored(folder,
                 {{"MISC", "ReadVerse", "23145"}, {"OPTIONS", "Paragraph Format", "1"}, {"OPTIONS", "Italics", "2"}});
}

TEST(SettingsFile, NormalizesUnusualValues) {
    static const struct {
        StoredSetting stored;
        const char* written;
    } kRows[] = {
        // 8-bit values are written as signed numbers.
        {{"FORMAT", "FirstVerseStyle", "200"}, "-56"},
        {{"FORMAT", "SubsequentVerseStyle", "128"}, "-128"},
        {{"FORMAT", "Location", "127"}, "127"},
        {{"OPTIONS", "Paragraph Format", "200"}, "-56"},
        {{"OPTIONS", "Italics", "255"}, "-1"},
        // Font heights lose their sign; colours are unsigned.
        {{"OPTIONS", "ReadWindowFontHeight", "-20"}, "20"},
        {{"OPTIONS", "VerseListFontHeight", "20"}, "20"},
        {{"OPTIONS", "NoteFontHeight", "-9"}, "9"},
        {{"OPTIONS", "KeyHighlightColor", "4294967295"}, "4294967295"},
        {{"OPTIONS", "NoteFontName", "A name of thirty-one characters and more"}, "A name of thirty-one characters"},
        // Verses and sets out of range.
        {{"MISC", "ReadVerse", "31102"}, "0"},
        {{"MISC", "NoteVerse", "40000"}, "0"},
        {{"MISC", "Note", "5"}, "0"},
        {{"BOOKMARKS", "10", "31102"}, "0"},
        {{"BOOKMARKS", "1", "31101"}, "31101"},
        // Not used by any search, but kept.
        {{"SEARCH", "Proximity", "12"}, "12"},
        // The profile functions remove blanks around an entry and one pair of quotes when they read it.
        {{"SEARCH", "PreviousSearch0", "faith hope charity"}, "faith hope charity"},
        {{"SEARCH", "PreviousSearch1", " "}, ""},
        {{"SEARCH", "PreviousSearch2", "'quoted'"}, "quoted"},
    };
    const ScratchFolder folder = FolderWithScripture();
    for (const auto& row : kRows) Store(folder, {row.stored});
    Store(folder,
          {{"SEARCH", "PreviousSearch8", std::string(199, 'a')}, {"SEARCH", "PreviousSearch9", std::string(200, 'b')}});
    Program program = StartProgram(folder);
    EXPECT_TRUE(IsTicked(program, IDM_PARAGRAPH_FORMAT));
    EXPECT_EQ(CloseProgram(program), 0);
    for (const auto& row : kRows) ExpectStored(folder, {{row.stored.section, row.stored.key, row.written}});
    ExpectStored(folder, {{"SEARCH", "PreviousSearch8", std::string(199, 'a')},
                          {"SEARCH", "PreviousSearch9", std::string(199, 'b')}});
}

// Values as people write them. Whatever they mean to the system's procedures, they mean to the program.
TEST(SettingsFile, IsReadAsTheSystemReadsIt) {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "Versewell.INI",
              "; by hand\r\n[bookmarks]\r\n 1 = 0x10\r\n2=\"12\"\r\n3= 13 \r\n4=+14\r\n5=15 verses\r\n6=0016\r\n"
              "7\r\n8==\r\n;9=19\r\n10=20\r\n10=21\r\n[SEARCH]\r\nPREVIOUSSEARCH0='a\r\nPreviousSearch1=\"b\"c\"\r\n"
              "PreviousSearch2=d=e ;f\r\nPreviousSearch3=\tg\t\r\n[BOOKMARKS]\r\n9=22\r\n1=23\r\n");
    std::vector<StoredSetting> expected;
    const std::string path = (folder.path / "Versewell.INI").string();
    static const char* const kBookmarks[] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
    for (const char* key : kBookmarks)
        expected.push_back(
            {"BOOKMARKS", key, std::to_string(GetPrivateProfileIntA("BOOKMARKS", key, 0, path.c_str()))});
    for (const char* key : {"PreviousSearch0", "PreviousSearch1", "PreviousSearch2", "PreviousSearch3"})
        expected.push_back({"SEARCH", key, Setting(folder, "SEARCH", key)});
    EXPECT_EQ(expected[1].value, "12");
    EXPECT_EQ(expected[9].value, "20");
    StartAndClose(folder);
    for (const StoredSetting& each : expected) {
        const std::string once = Setting(folder, each.section, each.key);
        EXPECT_EQ(once, each.value) << each.key;
    }
}

namespace {

struct OddSettings {
    const char* name;
    const char* number;
    const char* range;
};

struct OddNumbers : testing::TestWithParam<OddSettings> {};

}  // namespace

// The program must be able to read, search and exit with any numbers in the file.
TEST_P(OddNumbers, NeverCrashTheProgram) {
    const ScratchFolder folder = FolderWithScripture();
    for (StoredSetting row : DefaultSettings()) {
        const std::string key = row.key;
        if (key.ends_with("FontName") || key.starts_with("PreviousSearch")) continue;
        row.value = GetParam().number;
        Store(folder, {row});
    }
    Store(folder, {{"VIEW", "VerseListWindow", "1"}, {"VIEW", "ReadWindow", "1"}, {"VIEW", "NotesWindow", "1"}});
    Program program = StartProgram(folder);
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    EXPECT_EQ(StatusPart(program, 2), "Genesis 1:1");
    EXPECT_EQ(StatusPart(program, 4), GetParam().range);
    Click(program, passage);
    for (const char* keys : {"PgDn", "Down", "PgUp", "End", "Ctrl+Home"}) Press(program, keys);
    Press(program, "Alt+w");
    WaitForDialog(program, "Word Search");
    Type(program, "beginning");
    Press(program, "Enter");
    WaitForNoDialog(program);
    for (const int command : {IDM_ITALIC_BRACKETS, IDM_PARAGRAPH_FORMAT, IDM_NEXT_NOTE_SET, IDM_BIND_NOTES})
        Command(program, command);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "OPTIONS", "Italics"), "1");
}

INSTANTIATE_TEST_SUITE_P(SettingsFile, OddNumbers,
                         testing::Values(OddSettings{"MinusOne", "-1", "Ge 1:1 - Re 22:21"},
                                         OddSettings{"Least", "-2147483648", "Ge 1:1 - Re 22:21"},
                                         OddSettings{"Most", "2147483647", "Ge 1:1 - Re 22:21"},
                                         OddSettings{"Words", "many", "Ge 1:1 - Ge 1:1"},  // not a number: read as 0
                                         OddSettings{"JustBeyond", "31102", "Ge 1:1 - Re 22:21"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(SettingsFile, ItalicsModeMayBeOutOfRange) {
    for (const char* stored : {"3", "-1", "255"}) {
        const ScratchFolder folder = FolderWithScripture();
        WriteSetting(folder, "OPTIONS", "Italics", stored);
        const Program program = StartProgram(folder);
        int ticked = 0;
        for (const int mode : {0, 1, 2}) ticked += IsTicked(program, IDM_ITALIC_TEXT + mode);
        EXPECT_EQ(ticked, 1) << stored;
    }
}

// ---- What the settings do -------------------------------------------------------------------------------------------

static int VerseAfterOnePage(const char* storedHeight) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "ReadWindowFontHeight", storedHeight);
    Store(folder, {{"MISC", "ReadVerse", "14000"}, {"VIEW", "VerseListWindow", "0"}, {"VIEW", "NotesWindow", "0"}});
    Program program = StartProgram(folder);
    PlaceFrame(program, {20, 20, 1020, 720});
    Click(program, Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE}));
    Press(program, "PgDn");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(Setting(folder, "OPTIONS", "ReadWindowFontHeight"), "30");
    return std::stoi(Setting(folder, "MISC", "ReadVerse"));
}

// The sign is the opposite of LOGFONT's: a negative stored height is the cell height, a positive one the character
// height. It is always written back as positive.
TEST(FontHeight, IsTheLineHeightWhenStoredNegative) {
    EXPECT_GT(VerseAfterOnePage("-30"), VerseAfterOnePage("30"));
}

// A height of 0, or none, stands for the default size of the font.
TEST(FontHeight, MayBeZero) {
    for (const char* height : {"0", "abc"}) {
        const ScratchFolder folder = FolderWithScripture();
        for (const char* pane : {"ReadWindow", "VerseList", "Note"})
            WriteSetting(folder, "OPTIONS", std::string(pane) + "FontHeight", height);
        Program program = StartProgram(folder);
        for (const HWND pane : {PassageOf(program), NoteViewOf(program)}) {
            const Picture picture = PictureOfWindow(pane);
            EXPECT_GT(CountPixels(picture, {4, 4, picture.width - 20, picture.height - 4}, 0x000000), 50) << height;
        }
        SavePicture(PictureOfWindow(program.frame), "font-height-0");
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(Setting(folder, "OPTIONS", "ReadWindowFontHeight"), "0");
    }
}

TEST(SearchHistory, OmitsBlankEntries) {
    const ScratchFolder folder = FolderWithScripture();
    Store(folder, {{"SEARCH", "PreviousSearch0", "faith"},
                   {"SEARCH", "PreviousSearch1", " "},
                   {"SEARCH", "PreviousSearch2", ""},
                   {"SEARCH", "PreviousSearch4", "hope"}});
    Program program = StartProgram(folder);
    Press(program, "Alt+w");
    const HWND dialog = WaitForDialog(program, "Word Search");
    EXPECT_THAT(ComboStrings(Child(dialog, {IDC_SEARCH_TEXT})), ElementsAre("faith", "hope"));
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(CloseProgram(program), 0);
    ExpectStored(folder, {{"SEARCH", "PreviousSearch0", "faith"},
                          {"SEARCH", "PreviousSearch1", ""},
                          {"SEARCH", "PreviousSearch4", "hope"}});
}

// The profile functions remove a pair of quotes around a value when they read it.
TEST(SearchHistory, LosesSurroundingQuotesBetweenRuns) {
    const ScratchFolder folder = FolderWithScripture();
    {
        Program program = StartProgram(folder);
        Press(program, "Alt+w");
        WaitForDialog(program, "Word Search");
        Type(program, "\"unsearchable\"");
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_EQ(CloseProgram(program), 0);
    }
    EXPECT_NE(ReadFile(folder, "Versewell.INI").find("PreviousSearch0=\"unsearchable\"\r\n"), std::string::npos);
    Program program = StartProgram(folder);
    Press(program, "Alt+w");
    const HWND dialog = WaitForDialog(program, "Word Search");
    EXPECT_THAT(ComboStrings(Child(dialog, {IDC_SEARCH_TEXT})), ElementsAre("unsearchable"));
}

// ---- Versewell.more.ini: what older versions do not know ------------------------------------------------------------

static std::string NameInFront(const Program& program) {
    return NoteSetNames(program)[static_cast<std::size_t>(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})))];
}

static void BringToFront(const Program& program, const std::string& name) {
    const std::vector<std::string> names = NoteSetNames(program);
    const auto place = std::ranges::find(names, name) - names.begin();
    ClickTab(program, Child(program.frame, {IDC_NOTE_TABS}), static_cast<int>(place));
    EXPECT_EQ(NameInFront(program), name);
}

static std::string KeyColorOfSystem() {
    return "KeyColorFrom=\"system " + std::to_string(GetSysColor(COLOR_HIGHLIGHT)) + "\"";
}

TEST(MoreSettingsFile, NamesNoSetIfThereIsOnlyOne) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    StartAndClose(folder);
    EXPECT_THAT(LinesOf(ReadFile(folder, "Versewell.more.ini")), ElementsAre("[OPTIONS]", KeyColorOfSystem()));
}

// No name is stored for it, but the new set is newer than the settings.
TEST(MoreSettingsFile, IsNotNeededForASetThatWasTheOnlyOne) {
    const ScratchFolder folder = FolderWithScripture();
    StartAndClose(folder);
    WriteNoteSet(folder, "A new one");
    Program program = StartProgram(folder);
    EXPECT_EQ(NameInFront(program), "My Notes");
}

// Sets that come first in the folder change the number of the one that was in front.
TEST(MoreSettingsFile, KeepsTheSetInFrontWhenSetsAreAdded) {
    for (const std::string name : {"M", "N b", "O"}) {
        const ScratchFolder folder = FolderWithScripture();
        for (const char* set : {"M", "N b", "O"}) WriteNoteSet(folder, set, {{0, set}});
        {
            Program program = StartProgram(folder);
            BringToFront(program, name);
            EXPECT_EQ(CloseProgram(program), 0);
        }
        const std::string settings = ReadFile(folder, "Versewell.INI");
        for (const char* set : {"A", "B", "N", "Z"}) WriteNoteSet(folder, set);
        Program program = StartProgram(folder);
        EXPECT_EQ(NameInFront(program), name);
        EXPECT_EQ(TextOf(NoteViewOf(program)), name);
        EXPECT_EQ(ReadFile(folder, "Versewell.INI"), settings);
    }
}

TEST(MoreSettingsFile, IsNotUsedForASetThatIsGone) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* set : {"A", "B"}) WriteNoteSet(folder, set);
    WriteFile(folder, "Versewell.more.ini", "[NOTES]\r\nCurrentSet=\"Gone\"\r\n");
    WriteSetting(folder, "MISC", "Note", "1");
    Program program = StartProgram(folder);
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
}

TEST(MoreSettingsFile, LosesTheNameWhenOnlyOneSetIsLeft) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* set : {"A", "B"}) WriteNoteSet(folder, set);
    StartAndClose(folder);
    EXPECT_THAT(LinesOf(ReadFile(folder, "Versewell.more.ini")),
                ElementsAre("[NOTES]", "CurrentSet=\"A\"", "[OPTIONS]", KeyColorOfSystem()));
    for (const char* file : {"A.nmd", "A.nmi"}) std::filesystem::remove(folder.path / file);
    StartAndClose(folder);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), testing::Not(testing::HasSubstr("CurrentSet")));
}
