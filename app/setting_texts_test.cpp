#include "app/setting_texts.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/fake_profile.h"

TEST(SettingTexts, AreThoseOfTheSettingsFileInItsOrder) {
    Settings settings;
    settings.bookmarks.verses[4] = 31101;
    settings.searchHistory[2] = " \"only begotten\" ";
    const FramePlacement placement{-5, 6, 700, 800, 2};
    SettingTexts texts;
    SaveSettings(ProfileOver(texts), settings, &placement);
    FakeProfile file;
    SaveSettings(DeviceOver(file), settings, &placement);
    ASSERT_EQ(texts.size(), file.writes.size());
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(texts[i].section + '/' + texts[i].key + '=' + texts[i].text, file.writes[i]);
}

TEST(SettingTexts, AreReadAsTheyWereWritten) {
    Settings settings;
    settings.ReadVerse = 26136;
    settings.searchHistory = {" \"only begotten\" ", " in the beginning "};
    settings.reading.KeyHighlightColor = 0xFFEEDDCC;
    settings.fonts.passage = {-20, 700, "Arial"};
    const FramePlacement placement{-5, 6, 700, 800, 2};
    SettingTexts texts;
    SaveSettings(ProfileOver(texts), settings, &placement);
    const Settings read = LoadSettings(ProfileOver(texts), 0);
    EXPECT_EQ(read.ReadVerse, 26136);
    EXPECT_EQ(read.searchHistory[0], "only begotten");
    EXPECT_EQ(read.searchHistory[1], "in the beginning");
    EXPECT_EQ(read.reading.KeyHighlightColor, 0xFFEEDDCC);
    EXPECT_EQ(read.fonts.passage.height, 20);
    EXPECT_EQ(read.fonts.passage.name, "Arial");
    EXPECT_EQ(LoadPlacement(ProfileOver(texts)).XPos, -5);
    EXPECT_EQ(LoadPlacement(ProfileOver(texts)).Maxed, 2);
}

TEST(SettingTexts, HoldThoseOfTheSecondFile) {
    SettingTexts texts;
    SaveMoreSettings(ProfileOver(texts), {" Mine "});
    EXPECT_EQ(LoadMoreSettings(ProfileOver(texts)).CurrentSet, " Mine ");
    SaveMoreSettings(ProfileOver(texts), {});
    EXPECT_EQ(texts, SettingTexts{});
}

TEST(SettingTexts, GiveTheDefaultWhereOneIsMissing) {
    SettingTexts none;
    const Settings read = LoadSettings(ProfileOver(none), 0x123456);
    EXPECT_EQ(read.searchHistory[0], "");
    EXPECT_EQ(read.BindNotes, 1);
    EXPECT_EQ(read.reading.KeyHighlightColor, 0x123456u);
    EXPECT_EQ(read.fonts.passage.name, "Times New Roman");
    EXPECT_EQ(LoadPlacement(ProfileOver(none)).Width, kUseDefault);
}

TEST(SettingTexts, HaveNumbersAsTheSystemReadsThem) {
    static constexpr struct {
        const char* text;
        int number;
    } kRows[] = {
        {"12", 12}, {"-12", -12},       {"", 7},      {"-", 0},  {"x", 0},
        {"3 4", 3}, {"4294967295", -1}, {"0012", 12}, {"+3", 0}, {"-2147483648", std::numeric_limits<int>::min()}};
    for (const auto& [text, number] : kRows) {
        SettingTexts texts = {{"A", "b", text}};
        const ProfileFile profile = ProfileOver(texts);
        EXPECT_EQ(profile.readInteger(profile.device, "A", "b", 7), number) << text;
    }
}

TEST(SettingTexts, AreFoundBySectionAndKeyAndReplaced) {
    SettingTexts texts;
    const ProfileFile profile = ProfileOver(texts);
    profile.writeText(profile.device, "A", "x", "1");
    profile.writeText(profile.device, "B", "x", "2");
    profile.writeText(profile.device, "A", "y", "3");
    profile.writeText(profile.device, "A", "x", "4");
    const SettingTexts expected = {{"A", "x", "4"}, {"B", "x", "2"}, {"A", "y", "3"}};
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(profile.readText(profile.device, "B", "x", "none", 9), "2");
    EXPECT_EQ(profile.readText(profile.device, "B", "y", " none ", 9), "none");
    EXPECT_EQ(profile.readText(profile.device, "B", "y", "none", 2), "no");
    profile.removeKey(profile.device, "A", "x");
    const SettingTexts left = {{"B", "x", "2"}, {"A", "y", "3"}};
    EXPECT_EQ(texts, left);
}
