#include "notes/file_names.h"

#include <gtest/gtest.h>

#include "notes/note_set_changes.h"
#include "tests/support/fake_note_files.h"

TEST(FileNames, AreThoseOfFilesInOneFolder) {
    for (const char* name : {"a", "My Notes.nmd", ".nmd", "...nmd", " a.nmd", "M\xFCller \xB6.nmi", "console.nmd",
                             "com.nmd", "com0.nmd", "com10.nmd", "a+b [c] {d} (e) & 'f' #1, 100%~.nmd", "a.con"})
        EXPECT_TRUE(IsFileName(name)) << name;
    for (const char* name : {"",
                             ".",
                             "..",
                             "...",
                             "a.",
                             "a ",
                             "a. .",
                             "..\\a",
                             "../a",
                             "\\a",
                             "/a",
                             "a/b",
                             "a\\b",
                             "C:a",
                             "C:\\a",
                             "\\\\server\\a",
                             "\\\\?\\C:\\a",
                             "\\\\.\\pipe\\a",
                             "a:stream",
                             "a.nmd::$DATA",
                             "a*",
                             "a?",
                             "a\"",
                             "a<b",
                             "a>b",
                             "a|b",
                             "a\nb",
                             "\x01"})
        EXPECT_FALSE(IsFileName(name)) << name;
}

TEST(FileNames, AreNotThoseOfDevices) {
    for (const std::string device : {"con", "PRN", "Aux", "nUl", "COM1", "com9", "LPT1", "lpt9", "COM\xB9", "LPT\xB2",
                                     "com\xB3", "COM\xC2\xB9", "lpt\xC2\xB3"}) {
        for (const char* ending : {"", ".nmd", ".nmi", " .nmd", "  .old.nmd", ".", ". ", " "}) {
            EXPECT_TRUE(IsDeviceName(device + ending)) << device << ending;
            EXPECT_FALSE(IsFileName(device + ending)) << device << ending;
        }
        EXPECT_FALSE(IsSetName(device));
        EXPECT_TRUE(IsSetName("my " + device));
    }
}

TEST(FileNames, CanBeInTheFolderForBackupsOnly) {
    for (const char* path : {"a.nmd", "backup", "backup/a.nmd", "backup/.nmh", "Versewell.session", "backups"})
        EXPECT_TRUE(StaysInFolder(path)) << path;
    for (const char* path : {"", "backup/", "backup/..", "backup/../a.nmd", "backup/backup/a.nmd", "backup\\a.nmd",
                             "backup/con.nmd", "../a.nmd", "other/a.nmd", "/a.nmd", "C:a/a.nmd"})
        EXPECT_FALSE(StaysInFolder(path)) << path;
}

// A set's name becomes part of all these.
TEST(FileNames, OfASetAreThoseOfItsFiles) {
    for (const char* name : {"", "a", "..", "...", "a.", "a ", ".", " "}) {
        ASSERT_TRUE(IsSetName(name)) << name;
        for (const std::string ending :
             {kDataEnding, kIndexEnding, kTableEnding, ".nmd.temp", ".nmh", " 2024-12-31.nmd"})
            EXPECT_TRUE(StaysInFolder(name + ending) && StaysInFolder("backup/" + (name + ending))) << name << ending;
    }
    for (const char* name : {"..\\up", "../up", "C:\\a", "a:stream", "dir/a", "con", "nul.old", "com1 .a"})
        EXPECT_FALSE(IsSetName(name)) << name;
}
