#include "output/own_files.h"

#include <gtest/gtest.h>

TEST(OwnFileName, IncludesAllFilesOfNoteSets) {
    for (const char* name : {"My Notes.nmd", "My Notes.nmi", "Day.dti", "My Notes.nmh", "My Notes.nmd.temp", ".nmd",
                             "a.b.nmi", "Versewell.session.temp"})
        EXPECT_TRUE(IsOwnFileName(name)) << name;
}

TEST(OwnFileName, IncludesSettingsSessionAndScripture) {
    for (const char* name : {"Versewell.INI", "Versewell.more.ini", "Versewell.session", "_avtext.dat", "_avwrds.dat"})
        EXPECT_TRUE(IsOwnFileName(name)) << name;
}

// These open the same files.
TEST(OwnFileName, DoesNotDependOnTheSpelling) {
    for (const char* name : {"MY NOTES.NMD", "my notes.Nmi", "x.nmd.", "x.nmd. . ", "x.nmd ", "x.nmd::$DATA",
                             "x.nmd:part", "VERSEWELL.ini", "versewell.SESSION...", "_AVTEXT.DAT"})
        EXPECT_TRUE(IsOwnFileName(name)) << name;
}

TEST(OwnFileName, LeavesAllOtherNamesToTheUser) {
    for (const char* name :
         {"", ".", "...", "Ge 1- 3", "notes.txt", "nmd", "x.nmd.txt", "x.nmdx", "x.nm", "temp", "Versewell.INI.txt",
          "My Versewell.INI", "Versewell.session2", "_avtext.txt", "avtext.dat", "_a.dat", "x_av.dat", "dat", ":x.nmd"})
        EXPECT_FALSE(IsOwnFileName(name)) << name;
}
