#include "cli/note_files_posix.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "notes/note_history.h"
#include "tests/support/real_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct PosixNoteFilesTest : testing::Test {
    PosixNoteFiles folder{MakeScratchFolder()};
    NoteFiles files = DeviceOver(folder);

    ~PosixNoteFilesTest() override { RemoveScratchFolder(folder.folder); }

    bool Create(const std::string& name) { return files.create(files.device, name, {}); }
    bool IsThere(const std::string& utf8) { return std::filesystem::exists(folder.folder + utf8); }
};

}  // namespace

TEST_F(PosixNoteFilesTest, NamesFilesOnTheDiskInUtf8) {
    EXPECT_TRUE(
        Create("Pr\xEA"
               "che \x96 \x80.nmd"));
    EXPECT_TRUE(IsThere("Prêche – €.nmd"));
    EXPECT_THAT(files.list(files.device, "*.nmd"), ElementsAre("Pr\xEA"
                                                               "che \x96 \x80.nmd"));
}

TEST_F(PosixNoteFilesTest, CountsFilesWhoseNamesTheCodePageLacks) {
    WriteWholeFile(folder.folder + "λόγος.nmd", {});
    WriteWholeFile(folder.folder + "\xFF.nmd", {});
    WriteWholeFile(folder.folder + "con.nmd", {});
    Create("a.nmd");
    EXPECT_THAT(files.list(files.device, "*.nmd"), ElementsAre("a.nmd"));
    EXPECT_EQ(files.countUnnamed(files.device, "*.nmd"), 2u);
}

TEST_F(PosixNoteFilesTest, TakesCapitalsAndSmallLettersForTheSame) {
    Create("My Notes.NMD");
    EXPECT_THAT(files.list(files.device, "*.nmd"), ElementsAre("My Notes.NMD"));
    EXPECT_TRUE(files.stamp(files.device, "my notes.nmd").exists);
    EXPECT_FALSE(Create("MY NOTES.nmd"));
    EXPECT_TRUE(files.remove(files.device, "my notes.nmd"));
    EXPECT_FALSE(IsThere("My Notes.NMD"));
}

TEST_F(PosixNoteFilesTest, DoesNotLeaveItsFolder) {
    EXPECT_FALSE(Create("../elsewhere.nmd"));
    EXPECT_FALSE(Create("/tmp/elsewhere.nmd"));
    EXPECT_FALSE(files.stamp(files.device, "../..").exists);
    EXPECT_FALSE(files.stamp(files.device, "..").exists);
}

TEST_F(PosixNoteFilesTest, RenamesOnlyToAFreeName) {
    Create("a.nmd");
    Create("b.nmd");
    EXPECT_FALSE(files.rename(files.device, "a.nmd", "b.nmd"));
    EXPECT_TRUE(files.rename(files.device, "a.nmd", "c.nmd"));
    EXPECT_FALSE(files.rename(files.device, "a.nmd", "d.nmd"));
    EXPECT_TRUE(files.replace(files.device, "c.nmd", "b.nmd"));
    EXPECT_THAT(files.list(files.device, "*.nmd"), ElementsAre("b.nmd"));
}

TEST_F(PosixNoteFilesTest, MakesFoldersAndHardLinks) {
    Create("a.nmd");
    EXPECT_TRUE(files.makeFolder(files.device, "backup"));
    EXPECT_TRUE(files.makeFolder(files.device, "backup"));
    EXPECT_FALSE(files.makeFolder(files.device, "a.nmd"));
    EXPECT_TRUE(files.link(files.device, "a.nmd", "backup/a.nmd"));
    EXPECT_FALSE(files.link(files.device, "a.nmd", "backup/a.nmd"));
    EXPECT_THAT(files.list(files.device, "backup/*.nmd"), ElementsAre("a.nmd"));
    EXPECT_EQ(std::filesystem::hard_link_count(folder.folder + "a.nmd"), 2u);
}

TEST_F(PosixNoteFilesTest, ReadsAndAppends) {
    const std::vector<unsigned char> bytes = {1, 2, 3};
    EXPECT_TRUE(files.append(files.device, "a", bytes));
    EXPECT_TRUE(files.append(files.device, "a", bytes));
    std::vector<unsigned char> read;
    EXPECT_TRUE(files.read(files.device, "a", 2, 3, read));
    EXPECT_THAT(read, ElementsAre(3, 1, 2));
    EXPECT_EQ(files.size(files.device, "a"), 6u);
    EXPECT_FALSE(files.read(files.device, "b", 0, 3, read));
    EXPECT_FALSE(files.stamp(files.device, "b").exists);
    EXPECT_THAT(files.list(files.device, "none/*.nmd"), IsEmpty());
}

// As a set is saved.
TEST_F(PosixNoteFilesTest, GiveATemporaryFileTheRightsOfTheFileItReplaces) {
    static constexpr auto kOnlyOfUser = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    Create("a.nmd");
    std::filesystem::permissions(folder.folder + "a.nmd", kOnlyOfUser);
    void* const temporary = files.createAnew(files.device, "a.nmd.temp");
    ASSERT_NE(temporary, nullptr);
    files.close(files.device, temporary);
    EXPECT_EQ(std::filesystem::status(folder.folder + "a.nmd.temp").permissions(), kOnlyOfUser);
}

TEST_F(PosixNoteFilesTest, KeepEarlierNotesDespiteAFolderOfTheirName) {
    std::filesystem::create_directories(folder.folder + "backup/a.nmh/inner");
    const EarlierNote note{1795435200, 7, KeptReason::kReplaced, "earlier"};
    EXPECT_TRUE(KeepEarlierNotes(files, "a", {&note, 1}));
    ASSERT_EQ(EarlierNotesOf(files, "a", 7).size(), 1u);
    EXPECT_EQ(EarlierNotesOf(files, "a", 7).front().text, "earlier");
    EXPECT_TRUE(IsThere("backup/a.nmh.damaged/inner"));
}
