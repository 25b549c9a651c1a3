#include "app/settings.h"

#include <gtest/gtest.h>

#include "tests/support/fake_profile.h"

static constexpr std::uint32_t kSystemHighlight = 0x800000;

static Settings Loaded(FakeProfile& profile) {
    return LoadSettings(DeviceOver(profile), kSystemHighlight);
}

static void Save(FakeProfile& profile, const Settings& settings, const FramePlacement* placement) {
    profile.writes.clear();
    SaveSettings(DeviceOver(profile), settings, placement);
}

static const std::vector<std::string> kWrittenByDefault = {
    "SEARCH/BooleanType=0",
    "SEARCH/CaseSensitive=0",
    "SEARCH/SubString=0",
    "SEARCH/Proximity=0",
    "SEARCH/StartVerse=0",
    "SEARCH/EndVerse=31101",
    "SEARCH/PreviousSearch0=",
    "SEARCH/PreviousSearch1=",
    "SEARCH/PreviousSearch2=",
    "SEARCH/PreviousSearch3=",
    "SEARCH/PreviousSearch4=",
    "SEARCH/PreviousSearch5=",
    "SEARCH/PreviousSearch6=",
    "SEARCH/PreviousSearch7=",
    "SEARCH/PreviousSearch8=",
    "SEARCH/PreviousSearch9=",
    "FORMAT/FirstVerseStyle=0",
    "FORMAT/SubsequentVerseStyle=1",
    "FORMAT/Location=0",
    "FORMAT/LineBreaks=1",
    "FORMAT/ParagraphMarks=1",
    "FORMAT/Brackets=0",
    "VIEW/VerseListWindow=1",
    "VIEW/ReadWindow=1",
    "VIEW/NotesWindow=1",
    "VIEW/ToolBar=1",
    "BOOKMARKS/1=0",
    "BOOKMARKS/2=0",
    "BOOKMARKS/3=0",
    "BOOKMARKS/4=0",
    "BOOKMARKS/5=0",
    "BOOKMARKS/6=0",
    "BOOKMARKS/7=0",
    "BOOKMARKS/8=0",
    "BOOKMARKS/9=0",
    "BOOKMARKS/10=0",
    "OPTIONS/Paragraph Format=0",
    "OPTIONS/Italics=0",
    "OPTIONS/KeyHighlightColor=8388608",
    "OPTIONS/ReadWindowFontHeight=16",
    "OPTIONS/ReadWindowFontWeight=400",
    "OPTIONS/ReadWindowFontName=Times New Roman",
    "OPTIONS/VerseListFontHeight=16",
    "OPTIONS/VerseListFontWeight=400",
    "OPTIONS/VerseListFontName=Times New Roman",
    "OPTIONS/NoteFontHeight=12",
    "OPTIONS/NoteFontWeight=400",
    "OPTIONS/NoteFontName=Courier New",
    "MISC/ReadVerse=0",
    "MISC/Note=0",
    "MISC/NoteVerse=0",
    "MISC/BindNotes=1",
};

TEST(Settings, HaveDefaultsWithoutAFile) {
    FakeProfile profile;
    Settings settings = Loaded(profile);
    Save(profile, settings, nullptr);
    EXPECT_EQ(profile.writes, kWrittenByDefault);
}

// Only the system's highlight colour is not known before.
TEST(Settings, HaveDefaultsBeforeTheyAreLoaded) {
    FakeProfile profile;
    Settings settings;
    settings.reading.KeyHighlightColor = kSystemHighlight;
    Save(profile, settings, nullptr);
    EXPECT_EQ(profile.writes, kWrittenByDefault);
}

TEST(Settings, AreWrittenInOrderWithThePlacementLast) {
    FakeProfile profile;
    Settings settings = Loaded(profile);
    const FramePlacement placement{-8, 30, 1000, 700, 2};
    Save(profile, settings, &placement);
    std::vector<std::string> expected = kWrittenByDefault;
    for (const char* line : {"MISC/XPos=-8", "MISC/YPos=30", "MISC/Width=1000", "MISC/Height=700", "MISC/Maxed=2"})
        expected.push_back(line);
    EXPECT_EQ(profile.writes, expected);
}

TEST(Settings, AreReadSectionBySection) {
    FakeProfile profile;
    Loaded(profile);
    std::vector<std::string> sections;
    for (const std::string& path : profile.reads) {
        const std::string section = path.substr(0, path.find('/'));
        if (sections.empty() || sections.back() != section) sections.push_back(section);
    }
    EXPECT_EQ(sections, (std::vector<std::string>{"MISC", "SEARCH", "FORMAT", "VIEW", "BOOKMARKS", "OPTIONS"}));
    EXPECT_EQ((std::vector<std::string>{profile.reads.begin(), profile.reads.begin() + 4}),
              (std::vector<std::string>{"MISC/ReadVerse", "MISC/Note", "MISC/NoteVerse", "MISC/BindNotes"}));
    EXPECT_EQ(profile.reads.size(), kWrittenByDefault.size());
}

TEST(Settings, PlacementIsReadSeparately) {
    FakeProfile profile;
    const FramePlacement missing = LoadPlacement(DeviceOver(profile));
    for (const int value : {missing.XPos, missing.YPos, missing.Width, missing.Height})
        EXPECT_EQ(value, -2147483647 - 1);
    EXPECT_EQ(missing.Maxed, 0);
    EXPECT_EQ(profile.reads.size(), 5u);

    profile.values = {{"MISC/XPos", "-20"}, {"MISC/YPos", "7"}, {"MISC/Width", "300"}, {"MISC/Maxed", "3"}};
    const FramePlacement stored = LoadPlacement(DeviceOver(profile));
    EXPECT_EQ(stored.XPos, -20);
    EXPECT_EQ(stored.YPos, 7);
    EXPECT_EQ(stored.Width, 300);
    EXPECT_EQ(stored.Height, kUseDefault);
    EXPECT_EQ(stored.Maxed, 3);
}

// Each key has a different value, so that a key connected to the wrong field is detected.
TEST(Settings, RoundTripEverySetting) {
    FakeProfile profile;
    int number = 1;
    for (const std::string& line : kWrittenByDefault) {
        const std::string path = line.substr(0, line.find('='));
        profile.values[path] = std::to_string(number++);
    }
    profile.values["MISC/Note"] = "1";
    profile.values["SEARCH/EndVerse"] = "777";
    const std::map<std::string, std::string> before = profile.values;
    Settings settings = Loaded(profile);
    Save(profile, settings, nullptr);
    EXPECT_EQ(profile.values, before);
    EXPECT_EQ(settings.searchRange.EndVerse, 777);
    EXPECT_EQ(settings.searchHistory[9], "16");
    EXPECT_EQ(settings.bookmarks.verses[0], 27);
    EXPECT_EQ(settings.bookmarks.verses[9], 36);
    EXPECT_EQ(settings.reading.ParagraphFormat, 37);
    EXPECT_EQ(settings.fonts.verseList.weight, 44);
    EXPECT_EQ(settings.fonts.notes.name, "48");
    EXPECT_EQ(settings.ReadVerse, 49);
    EXPECT_EQ(settings.Note, 1);
    EXPECT_EQ(settings.NoteVerse, 51);
}

TEST(Settings, AreNormalizedWhenLoadedAndSaved) {
    static const struct {
        const char* path;
        std::string stored;
        std::string written;
    } kRows[] = {
        // 8-bit values are written as signed numbers.
        {"FORMAT/FirstVerseStyle", "200", "-56"},
        {"FORMAT/FirstVerseStyle", "-56", "-56"},
        {"FORMAT/SubsequentVerseStyle", "127", "127"},
        {"FORMAT/SubsequentVerseStyle", "128", "-128"},
        {"FORMAT/Location", "257", "1"},
        {"OPTIONS/Paragraph Format", "256", "0"},
        {"OPTIONS/Italics", "255", "-1"},
        {"OPTIONS/Italics", "7", "7"},
        // Flags are not changed.
        {"FORMAT/LineBreaks", "-300", "-300"},
        {"VIEW/ToolBar", "2147483647", "2147483647"},
        {"SEARCH/BooleanType", "99", "99"},
        {"SEARCH/BooleanType", "-1", "-1"},
        {"SEARCH/Proximity", "12", "12"},  // not used by any search
        {"MISC/BindNotes", "0", "0"},
        {"MISC/BindNotes", "yes", "0"},
        {"MISC/BindNotes", "  5 panes", "5"},
        // Verses and sets out of range.
        {"MISC/ReadVerse", "31101", "31101"},
        {"MISC/ReadVerse", "31102", "0"},
        {"MISC/ReadVerse", "-1", "0"},
        {"MISC/ReadVerse", "-2147483648", "0"},
        {"MISC/NoteVerse", "31101", "31101"},
        {"MISC/Note", "1", "1"},
        {"MISC/Note", "-1", "-1"},  // whoever knows the sets brings it into range
        {"MISC/NoteVerse", "40000", "40000"},
        {"BOOKMARKS/10", "31101", "31101"},
        {"BOOKMARKS/10", "31102", "0"},
        {"BOOKMARKS/1", "-1", "0"},
        // Fonts.
        {"OPTIONS/NoteFontHeight", "20", "20"},
        {"OPTIONS/NoteFontHeight", "-20", "20"},
        {"OPTIONS/ReadWindowFontHeight", "0", "0"},
        {"OPTIONS/ReadWindowFontHeight", "2147483647", "2147483647"},
        {"OPTIONS/VerseListFontHeight", "-2147483648", "2147483648"},
        {"OPTIONS/VerseListFontName", "A name of thirty-one characters and more", "A name of thirty-one characters"},
        {"OPTIONS/ReadWindowFontName", "", ""},
        // Colours are unsigned.
        {"OPTIONS/KeyHighlightColor", "4294967295", "4294967295"},
        {"OPTIONS/KeyHighlightColor", "2147483648", "2147483648"},
        {"OPTIONS/KeyHighlightColor", "255", "255"},
        {"OPTIONS/KeyHighlightColor", "99999999999999999999999", "4294967295"},
        {"OPTIONS/KeyHighlightColor", "red", "0"},
        // The search history.
        {"SEARCH/PreviousSearch3", "faith hope charity", "faith hope charity"},
        {"SEARCH/PreviousSearch3", "\"in the beginning\"", "in the beginning"},
        {"SEARCH/PreviousSearch3", "  blanks  ", "blanks"},
        {"SEARCH/PreviousSearch9", std::string(199, 'a'), std::string(199, 'a')},
        {"SEARCH/PreviousSearch9", std::string(200, 'a'), std::string(199, 'a')},
        {"SEARCH/PreviousSearch0", " ", ""},
    };
    for (const auto& row : kRows) {
        FakeProfile profile;
        profile.values[row.path] = row.stored;
        Settings settings = Loaded(profile);
        Save(profile, settings, nullptr);
        EXPECT_EQ(profile.values[row.path], row.written) << row.path << ' ' << row.stored;
    }
}

TEST(Settings, KeepANegativeFontHeightInMemory) {
    FakeProfile profile;
    profile.values["OPTIONS/ReadWindowFontHeight"] = "-20";
    EXPECT_EQ(Loaded(profile).fonts.passage.height, -20);
}

TEST(Settings, InvalidSearchRangeBecomesTheWholeBible) {
    static constexpr struct {
        const char* start;
        const char* end;
        int StartVerse, EndVerse;
    } kRows[] = {
        {"5", "10", 5, 10},     {"10", "10", 10, 10},         {"31101", "31101", 31101, 31101},
        {"10", "5", 0, 31101},  {"-1", "10", 0, 31101},       {"5", "31102", 0, 31101},
        {"-5", "-1", 0, 31101}, {"40000", "50000", 0, 31101}, {"-2147483648", "2147483647", 0, 31101},
    };
    for (const auto& row : kRows) {
        FakeProfile profile;
        profile.values = {{"SEARCH/StartVerse", row.start}, {"SEARCH/EndVerse", row.end}};
        const Settings settings = Loaded(profile);
        EXPECT_EQ(settings.searchRange.StartVerse, row.StartVerse) << row.start << ' ' << row.end;
        EXPECT_EQ(settings.searchRange.EndVerse, row.EndVerse) << row.start << ' ' << row.end;
    }
}

// ---- The second file ------------------------------------------------------------------------------------------------

static std::vector<std::string> SavedMore(FakeProfile& profile, const std::string& set) {
    profile.writes.clear();
    SaveMoreSettings(DeviceOver(profile), {set});
    return profile.writes;
}

TEST(MoreSettings, AreNotWrittenByDefault) {
    FakeProfile profile;
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).CurrentSet, "");
    EXPECT_EQ(SavedMore(profile, ""), std::vector<std::string>{});
    EXPECT_TRUE(profile.values.empty());
}

TEST(MoreSettings, AreReadAsWritten) {
    for (const std::string name : {"Mine", "a.b", " blanks ", "'quotes'", "\xC4\xD6\xDC", "a=b;c"}) {
        FakeProfile profile;
        EXPECT_EQ(SavedMore(profile, name), std::vector<std::string>{"NOTES/CurrentSet=\"" + name + "\""});
        EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).CurrentSet, name);
    }
}

TEST(MoreSettings, AreWrittenOnlyWhenTheyChange) {
    FakeProfile profile;
    SavedMore(profile, "Mine");
    EXPECT_EQ(SavedMore(profile, "Mine"), std::vector<std::string>{});
    EXPECT_EQ(SavedMore(profile, "Other"), std::vector<std::string>{"NOTES/CurrentSet=\"Other\""});
    EXPECT_EQ(SavedMore(profile, ""), std::vector<std::string>{"NOTES/CurrentSet"});
    EXPECT_TRUE(profile.values.empty());
    EXPECT_EQ(SavedMore(profile, ""), std::vector<std::string>{});
}

TEST(MoreSettings, HaveTheNamesOfOwnSets) {
    FakeProfile profile;
    SaveMoreSettings(DeviceOver(profile), {"Mine", "Mine-HOST/Mine (1)/"});
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).OwnSets, "Mine-HOST/Mine (1)/");
    SaveMoreSettings(DeviceOver(profile), {"Mine"});
    EXPECT_FALSE(profile.values.contains("NOTES/OwnSets"));
}

TEST(MoreSettings, HaveWhatWasChosenForAnExport) {
    FakeProfile profile;
    SaveMoreSettings(DeviceOver(profile), {.CurrentSet = "", .exportChoices = {3, 1}});
    EXPECT_EQ(profile.writes, (std::vector<std::string>{"NOTES/ExportFormat=3", "NOTES/ExportVerses=1"}));
    const ExportChoices read = LoadMoreSettings(DeviceOver(profile)).exportChoices;
    EXPECT_EQ(read.Format, 3);
    EXPECT_EQ(read.VerseTexts, 1);
}

TEST(MoreSettings, HaveTheDistanceOfNearWords) {
    FakeProfile profile;
    SaveMoreSettings(DeviceOver(profile), {.CurrentSet = "", .nearOptions = {kNearInVerses, 3, 1}});
    EXPECT_EQ(profile.writes,
              (std::vector<std::string>{"SEARCH/NearUnit=2", "SEARCH/NearDistance=3", "SEARCH/NearInOrder=1"}));
    const NearOptions read = LoadMoreSettings(DeviceOver(profile)).nearOptions;
    EXPECT_EQ(read.Unit, kNearInVerses);
    EXPECT_EQ(read.Distance, 3);
    EXPECT_EQ(read.InOrder, 1);
    SaveMoreSettings(DeviceOver(profile), {});
    EXPECT_TRUE(profile.values.empty());
}

TEST(MoreSettings, HaveWhichNotesAreListed) {
    FakeProfile profile;
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).listNotes.AllSets, 1);
    SaveMoreSettings(DeviceOver(profile), {.CurrentSet = "", .listNotes = {1, 0, 1}});
    EXPECT_EQ(profile.writes,
              (std::vector<std::string>{"NOTES/ListSubString=1", "NOTES/ListAllSets=0", "NOTES/ListInRange=1"}));
    const ListNotesOptions read = LoadMoreSettings(DeviceOver(profile)).listNotes;
    EXPECT_EQ(read.SubString, 1);
    EXPECT_EQ(read.AllSets, 0);
    EXPECT_EQ(read.InRange, 1);
    SaveMoreSettings(DeviceOver(profile), {});
    EXPECT_TRUE(profile.values.empty());
}

TEST(MoreSettings, HaveTheChoiceOfColors) {
    FakeProfile profile;
    SaveMoreSettings(DeviceOver(profile), {.CurrentSet = "", .KeyColorFrom = "system 255", .DarkPanes = 2});
    EXPECT_EQ(profile.writes, (std::vector<std::string>{"OPTIONS/KeyColorFrom=\"system 255\"", "OPTIONS/DarkPanes=2"}));
    const MoreSettings read = LoadMoreSettings(DeviceOver(profile));
    EXPECT_EQ(read.KeyColorFrom, "system 255");
    EXPECT_EQ(read.DarkPanes, 2);
    SaveMoreSettings(DeviceOver(profile), {});
    EXPECT_TRUE(profile.values.empty());
}

TEST(MoreSettings, SayWhetherHitsAreShown) {
    FakeProfile profile;
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).HitsByBook, 0);
    SaveMoreSettings(DeviceOver(profile), {.CurrentSet = "", .HitsByBook = 1});
    EXPECT_EQ(profile.writes, std::vector<std::string>{"VIEW/HitsByBook=1"});
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).HitsByBook, 1);
    SaveMoreSettings(DeviceOver(profile), {});
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).HitsByBook, 0);
    EXPECT_TRUE(profile.values.empty());
}

TEST(MoreSettings, HaveTheSharesOfThePanes) {
    FakeProfile profile;
    MoreSettings settings;
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).shares, PaneShares{});
    settings.shares = {33'334, 55'000};
    SaveMoreSettings(DeviceOver(profile), settings);
    EXPECT_EQ(profile.writes, std::vector<std::string>{"VIEW/ListShare=33334"}) << "the other one is the usual one";
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).shares, settings.shares);
    settings.shares = {50'000, 7};
    SaveMoreSettings(DeviceOver(profile), settings);
    EXPECT_EQ(LoadMoreSettings(DeviceOver(profile)).shares, settings.shares);
    SaveMoreSettings(DeviceOver(profile), {});
    EXPECT_TRUE(profile.values.empty());
}
