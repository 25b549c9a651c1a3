#include "data/file_writer.h"

#include <gmock/gmock.h>

#include "data/scratch_folder.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(ScratchFolder, WriteDataFilesCreatesFolderAndFiles) {
    const fs::path inner = folder / "new" / "data";
    EXPECT_EQ(WriteDataFiles(inner, {{"b", std::string("2\0\r\n", 4)}, {"a", ""}}), "");
    EXPECT_THAT(NamesIn(inner), ElementsAre("a", "b"));
    EXPECT_EQ(ReadBytes(inner / "a"), "");
    EXPECT_EQ(ReadBytes(inner / "b"), std::string("2\0\r\n", 4));
}

TEST_F(ScratchFolder, WriteDataFilesReplacesFiles) {
    WriteBytes(folder / "a", "a longer text of before");
    WriteBytes(folder / "other", "kept");
    EXPECT_EQ(WriteDataFiles(folder, {{"a", "new"}, {"b", "newer"}}), "");
    EXPECT_THAT(NamesIn(folder), ElementsAre("a", "b", "other"));
    EXPECT_EQ(ReadBytes(folder / "a"), "new");
    EXPECT_EQ(ReadBytes(folder / "other"), "kept");
}

TEST_F(ScratchFolder, WriteDataFilesChangesNothingWhenANameIsTaken) {
    WriteBytes(folder / "a", "before");
    fs::create_directories(folder / "b" / "inner");
    EXPECT_EQ(WriteDataFiles(folder, {{"a", "new"}, {"b", "new"}}), (folder / "b").string() + " is in the way");
    EXPECT_EQ(ReadBytes(folder / "a"), "before");
    EXPECT_THAT(NamesIn(folder), ElementsAre("a", "b"));
}

// The second name is too long for the file system, so its temporary file cannot be created after the first one was.
TEST_F(ScratchFolder, WriteDataFilesChangesNothingWhenWritingFails) {
    WriteBytes(folder / "a", "before");
    const std::string tooLong(250, 'b');
    EXPECT_EQ(WriteDataFiles(folder, {{"a", "new"}, {tooLong, "new"}}), "cannot write " + (folder / tooLong).string());
    EXPECT_EQ(ReadBytes(folder / "a"), "before");
    EXPECT_THAT(NamesIn(folder), ElementsAre("a"));
}

TEST_F(ScratchFolder, WriteDataFilesReportsAFolderThatCannotBeCreated) {
    WriteBytes(folder / "file", "before");
    EXPECT_THAT(WriteDataFiles(folder / "file" / "data", {{"a", "new"}}), StartsWith("cannot make the folder "));
    EXPECT_THAT(WriteDataFiles(folder / "file", {{"a", "new"}}), Not(IsEmpty()));
    EXPECT_EQ(ReadBytes(folder / "file"), "before");
}

TEST_F(ScratchFolder, WriteNewFilesCreatesFiles) {
    EXPECT_EQ(WriteNewFiles(folder / "inner", {{"a", "one"}, {"b", "two"}}), "");
    EXPECT_THAT(NamesIn(folder / "inner"), ElementsAre("a", "b"));
    EXPECT_EQ(ReadBytes(folder / "inner" / "b"), "two");
}

TEST_F(ScratchFolder, WriteNewFilesNeverReplacesAFile) {
    for (const char* there : {"a", "b", "c"}) {
        WriteBytes(folder / there, "before");
        EXPECT_THAT(WriteNewFiles(folder, {{"a", "new"}, {"b", "new"}, {"c", "new"}}),
                    EndsWith(std::string(there) + " exists already and is left as it is"));
        EXPECT_THAT(NamesIn(folder), ElementsAre(there));
        EXPECT_EQ(ReadBytes(folder / there), "before");
        fs::remove(folder / there);
    }
    fs::create_symlink("nowhere", folder / "b");
    EXPECT_THAT(WriteNewFiles(folder, {{"a", "new"}, {"b", "new"}}), EndsWith("is left as it is"));
    EXPECT_THAT(NamesIn(folder), ElementsAre("b"));
}

// Two files with the same name: the name is free during the check, but taken when the second file is put in place.
TEST_F(ScratchFolder, WriteNewFilesRemovesAnIncompleteSet) {
    EXPECT_THAT(WriteNewFiles(folder, {{"a", "new"}, {"b", "new"}, {"b", "newer"}}), StartsWith("cannot create "));
    EXPECT_THAT(NamesIn(folder), IsEmpty());
}
