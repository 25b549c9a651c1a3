#include "app/profile_text.h"

#include <gtest/gtest.h>

TEST(ProfileText, IsReadAsWindowsDoes) {
    ProfileText file{
        "; a comment\r\n[MISC]\r\nReadVerse=26136\r\n note = -3 \r\n[Search]\r\nPreviousSearch0=\" two words \"\r\n"
        "BooleanType=2 words\r\nEmpty=\r\n[MISC]\r\nNoteVerse=9"};
    const ProfileFile profile = DeviceOver(file);
    const auto number = [&](const char* section, const char* key) {
        return profile.readInteger(profile.device, section, key, 77);
    };
    EXPECT_EQ(number("MISC", "ReadVerse"), 26136);
    EXPECT_EQ(number("misc", "NOTE"), -3);
    EXPECT_EQ(number("MISC", "NoteVerse"), 77);  // the second section of a name is not read
    EXPECT_EQ(number("SEARCH", "BooleanType"), 2);
    EXPECT_EQ(number("SEARCH", "Empty"), 77);
    EXPECT_EQ(number("VIEW", "ReadVerse"), 77);
    const auto text = [&](const char* key, int limit) {
        return profile.readText(profile.device, "SEARCH", key, " none ", limit);
    };
    EXPECT_EQ(text("PreviousSearch0", 99), " two words ");
    EXPECT_EQ(text("PreviousSearch0", 4), " two");
    EXPECT_EQ(text("PreviousSearch1", 99), "none");
}

TEST(ProfileText, GivesTheSettings) {
    ProfileText file{"[MISC]\r\nReadVerse=26136\r\n[FORMAT]\r\nFirstVerseStyle=-1\r\n"};
    const Settings settings = LoadSettings(DeviceOver(file), 0);
    EXPECT_EQ(settings.ReadVerse, 26136);
    EXPECT_EQ(settings.format.FirstVerseStyle, -1);
    ProfileText none;
    EXPECT_EQ(LoadSettings(DeviceOver(none), 5).reading.KeyHighlightColor, 5u);
}

TEST(ProfileText, MayBeAnyBytes) {
    for (const char* bytes :
         {"", "[", "[]", "[MISC", "=", "[MISC]\n=\n", "[MISC]\nReadVerse", "\n\n", "[MISC]\nReadVerse=-"}) {
        ProfileText file{bytes};
        EXPECT_EQ(LoadSettings(DeviceOver(file), 0).ReadVerse, 0) << bytes;
    }
}
