// `vw doctor` over note files in memory: what its golden file cannot bring about.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/text_folder.h"
#include "cli/vw.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/fake_surroundings.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace {

struct DoctorTest : testing::Test {
    FakeNoteFiles disk;
    NoteFiles files = DeviceOver(disk);
    FakeSurroundings fake;

    DoctorTest() {
        fake.noteFiles = &files;
        AddFakeSet(disk, "Mine", {{0, "one"}, {5, "two"}});
    }

    int Run() {
        fake.output.clear();
        fake.errors.clear();
        return RunVw({"doctor"}, SurroundingsOver(fake));
    }
};

}  // namespace

TEST_F(DoctorTest, ChangesNothing) {
    disk.contents["Mine.nmd.temp"] = FakeSetOf({{0, "another"}}).data;
    disk.contents.erase("Mine.nmi");
    const auto before = disk.contents;
    EXPECT_EQ(Run(), 1);
    EXPECT_EQ(disk.contents, before);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: A save of the note set \"Mine\" was not completed."));
    EXPECT_THAT(fake.output, HasSubstr("  This would be done by: vw notes verify --mend\n"));
    EXPECT_THAT(fake.output, Not(HasSubstr("It has no note of its own")));
}

// The lock is asked for only if its file is there, and given back.
TEST_F(DoctorTest, TellsOfTheLock) {
    EXPECT_EQ(Run(), 0) << fake.output;
    EXPECT_THAT(fake.output, HasSubstr("Lock: none\n"));
    EXPECT_THAT(disk.patience, ElementsAre());
    disk.contents[kLockFile] = {};
    EXPECT_EQ(Run(), 0) << fake.output;
    EXPECT_THAT(fake.output, HasSubstr("Lock: free\n"));
    EXPECT_THAT(disk.patience, ElementsAre(2000));
    EXPECT_EQ(disk.locks, 0);
    disk.locking = NoteLocking::kImpossible;
    EXPECT_EQ(Run(), 0) << fake.output;
    EXPECT_THAT(fake.output, HasSubstr("Lock: impossible\n"));
    disk.locking = NoteLocking::kBusy;
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(fake.output, HasSubstr("Lock: held\n"));
    EXPECT_THAT(fake.output, HasSubstr("Wrong: Another program has locked the note sets"));
}

TEST_F(DoctorTest, TellsOfFilesThatCannotBeRead) {
    disk.unreadable.insert("Mine.nmd");
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: Mine.nmd cannot be opened.\n"));
    EXPECT_THAT(fake.output, Not(HasSubstr("Note set Mine")));
    EXPECT_EQ(fake.errors, "vw: doctor: files or folders are missing, damaged or cannot be read\n");
    disk.unreadable.clear();
    fake.textFolders = {"/nowhere"};
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Text: none\n"));
    EXPECT_THAT(fake.output, HasSubstr("Note set Mine: 2 notes, 31108 bytes\n"));
}

// A set may have the name that such a program gives to a copy, so it is not wrong.
TEST_F(DoctorTest, IsNotSureOfLikelyCopies) {
    AddFakeSet(disk, "Mine (1)", {});
    EXPECT_EQ(Run(), 0) << fake.output;
    EXPECT_THAT(fake.output,
                HasSubstr("File Mine (1).nmd: 31102 bytes, perhaps a conflict copy of the set \"Mine\"\n"));
}

TEST_F(DoctorTest, TellsOfTemporaryFiles) {
    disk.contents["~save12-0.tmp"] = {'x'};
    disk.contents["other.tmp"] = {'x'};
    disk.contents["backup/Mine.nmh.temp"] = {'x'};
    disk.contents["Versewell.taken-001.temp"] = {'x'};
    EXPECT_EQ(Run(), 1);
    for (const char* name : {"~save12-0.tmp", "backup/Mine.nmh.temp", "Versewell.taken-001.temp"})
        EXPECT_THAT(fake.output, HasSubstr("Wrong: \"" + std::string(name) +
                                           "\" was left by a program that was stopped. It may be deleted.\n"));
    EXPECT_THAT(fake.output, Not(HasSubstr("other.tmp")));
    disk.contents["Versewell.taken"] = {'x'};
    EXPECT_EQ(Run(), 1);
    EXPECT_THAT(fake.output, Not(HasSubstr("Versewell.taken-001.temp")));
    EXPECT_THAT(fake.output, EndsWith("The next start of the window goes on with it.\n"));
}

TEST_F(DoctorTest, TellsOfFoldersThatCannotBeChangedOrRead) {
    fake.kinds[PathIn("/nowhere", "backup")] = FileKind::kFolder;
    fake.use = FolderUse::kRead;
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: No note can be saved: this user may not change the folder "));
    EXPECT_THAT(fake.output, HasSubstr("Wrong: Backups and earlier notes cannot be kept: this user may not change"));
    EXPECT_THAT(fake.output, HasSubstr("Note set Mine: 2 notes"));
    fake.use = FolderUse::kNothing;
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: The folder \"/nowhere\" cannot be read by this user.\n"));
    EXPECT_THAT(fake.output, Not(HasSubstr("Note set Mine")));
}

TEST_F(DoctorTest, TellsOfFoldersInThePlaceOfFiles) {
    fake.kinds[PathIn("/nowhere", "backup")] = FileKind::kFile;
    fake.kinds[PathIn("/nowhere", "backup/lock")] = fake.kinds[PathIn("/nowhere", "Versewell.INI")] = FileKind::kFolder;
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: \"backup\" is a file, so backups and earlier notes cannot be kept"));
    EXPECT_THAT(fake.output, HasSubstr("Wrong: \"backup/lock\" is a folder, but its place is that of a file.\n"));
    EXPECT_THAT(fake.output, HasSubstr("Wrong: \"Versewell.INI\" is a folder, but its place is that of a file.\n"));
}

TEST_F(DoctorTest, KnowsThatThereAreNoNotesYet) {
    fake.noteFiles = nullptr;
    EXPECT_EQ(Run(), 0) << fake.output;
    EXPECT_THAT(fake.output, HasSubstr("Notes and settings: /nowhere, not there\n"));
    fake.variables["VERSEWELL_FOLDER"] = "/nowhere";
    EXPECT_EQ(Run(), 3);
    EXPECT_THAT(fake.output, HasSubstr("Wrong: VERSEWELL_FOLDER: there is no folder /nowhere\n"));
}
