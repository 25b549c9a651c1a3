#include "notes/read_only_files.h"

#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/whole_files.h"
#include "tests/support/fake_note_files.h"

using Bytes = std::vector<unsigned char>;

static ReadOnlyFiles ReadOnly(FakeNoteFiles& disk) {
    return {DeviceOver(disk)};
}

TEST(ReadOnlyFiles, ShowTheSetsThatAreThere) {
    FakeNoteFiles disk;
    AddFakeSet(disk, "Mine", {{5, "five"}});
    const auto before = disk.contents;
    ReadOnlyFiles readOnly = ReadOnly(disk);
    const NoteFiles files = DeviceOver(readOnly);
    NoteSets notes;
    EXPECT_TRUE(OpenNoteSets(files, notes).created);
    ASSERT_EQ(notes.sets.size(), 1u);
    notes.currentVerse = 5;
    std::string text;
    EXPECT_TRUE(ReadStoredNote(files, notes, text));
    EXPECT_EQ(text, "five");
    EXPECT_EQ(disk.contents, before);
    EXPECT_EQ(disk.openFiles, 0);
}

TEST(ReadOnlyFiles, CountSetsWhoseFilesHaveNoName) {
    FakeNoteFiles disk;
    disk.unnamed["*.nmd"] = 3;
    ReadOnlyFiles readOnly = ReadOnly(disk);
    NoteSets notes;
    OpenNoteSets(DeviceOver(readOnly), notes);
    EXPECT_EQ(notes.unnamedSets, 3u);
}

TEST(ReadOnlyFiles, KeepTheFirstSetInMemory) {
    FakeNoteFiles disk;
    ReadOnlyFiles readOnly = ReadOnly(disk);
    const NoteFiles files = DeviceOver(readOnly);
    NoteSets notes;
    const OpenedSets opened = OpenNoteSets(files, notes);
    EXPECT_TRUE(opened.created);
    EXPECT_EQ(opened.report, "");
    ASSERT_EQ(notes.sets.size(), 1u);
    EXPECT_EQ(NoteSetName(notes.sets[0]), "My Notes");
    EXPECT_FALSE(notes.sets[0].readOnly);
    for (const int verse : {0, 31101}) {
        notes.currentVerse = verse;
        std::string text = "old";
        EXPECT_TRUE(ReadStoredNote(files, notes, text));
        EXPECT_EQ(text, "");
        EXPECT_FALSE(NoteExists(files, notes, verse));
    }
    EXPECT_EQ(files.list(files.device, "*.nmi"), std::vector<std::string>{"My Notes.nmi"});
    EXPECT_TRUE(disk.contents.empty());
}

TEST(ReadOnlyFiles, ReadPartsOfWhatIsInMemory) {
    FakeNoteFiles disk;
    ReadOnlyFiles readOnly = ReadOnly(disk);
    const NoteFiles files = DeviceOver(readOnly);
    ASSERT_TRUE(files.create(files.device, "a", Bytes{1, 2, 3}));
    EXPECT_FALSE(files.create(files.device, "a", Bytes{4})) << "it exists";
    Bytes bytes;
    EXPECT_TRUE(files.read(files.device, "a", 1, 1, bytes));
    EXPECT_EQ(bytes, Bytes{2});
    EXPECT_TRUE(files.read(files.device, "a", 7, 5, bytes));
    EXPECT_EQ(bytes, Bytes{});
    EXPECT_EQ(files.size(files.device, "a"), 3u);
    const OwnedNoteFile file = OpenNoteFile(files, "a");
    Bytes room(5);
    ASSERT_TRUE(file);
    EXPECT_EQ(files.readAt(files.device, file.get(), 2, room), 1u);
    EXPECT_EQ(room[0], 3);
    EXPECT_FALSE(files.write(files.device, file.get(), Bytes{1}));
}

TEST(ReadOnlyFiles, NeverChangeAFile) {
    FakeNoteFiles disk;
    disk.contents["a"] = {1};
    ReadOnlyFiles readOnly = ReadOnly(disk);
    const NoteFiles files = DeviceOver(readOnly);
    EXPECT_FALSE(files.create(files.device, "a", Bytes{2}));
    EXPECT_FALSE(files.remove(files.device, "a"));
    EXPECT_FALSE(files.rename(files.device, "a", "b"));
    EXPECT_FALSE(files.replace(files.device, "a", "b"));
    EXPECT_FALSE(files.append(files.device, "a", Bytes{2}));
    EXPECT_FALSE(files.link(files.device, "a", "b"));
    EXPECT_FALSE(files.makeFolder(files.device, "backup"));
    EXPECT_FALSE(WriteWholeFile(files, "a", Bytes{2}));
    EXPECT_FALSE(OpenNoteFile(files, "b"));
    EXPECT_EQ(disk.contents, (std::map<std::string, Bytes>{{"a", {1}}}));
}

// A trial says what the same work would have said, and leaves the disk as it is.
TEST(ReadOnlyFiles, MendSetsOnTrial) {
    FakeNoteFiles disk, trialDisk;
    for (FakeNoteFiles* files : {&disk, &trialDisk}) {
        AddFakeSet(*files, "Without Index", {{5, "five"}});
        AddFakeSet(*files, "Without Data", {{5, "five"}});
        AddFakeSet(*files, "Stopped", {{5, "five"}});
        files->contents.erase("Without Index.nmi");
        files->listed.clear();
        files->contents["Without Data.nmd.temp"] = files->contents["Without Data.nmd"];
        files->contents.erase("Without Data.nmd");
        files->contents["Stopped.nmd.temp"] = FakeSetOf({{5, "five"}, {6, "six"}}).data;
    }
    ReadOnlyFiles trial = ReadOnly(trialDisk);
    trial.isTrial = true;
    const NoteFiles onTrial = DeviceOver(trial);
    const auto before = trialDisk.contents;
    NoteSets notes, triedNotes;
    const OpenedSets opened = OpenNoteSets(DeviceOver(disk), notes);
    EXPECT_NE(opened.report, "");
    EXPECT_EQ(OpenNoteSets(onTrial, triedNotes).report, opened.report);
    EXPECT_EQ(trialDisk.contents, before);
    for (const auto& [name, bytes] : disk.contents) {
        Bytes tried;
        EXPECT_TRUE(onTrial.read(onTrial.device, name, 0, bytes.size() + 1, tried)) << name;
        EXPECT_EQ(tried, bytes) << name;
    }
    EXPECT_EQ(onTrial.list(onTrial.device, "*.temp"), std::vector<std::string>{});
    EXPECT_EQ(OpenNoteSets(onTrial, triedNotes).report, "") << "what is mended stays so";
}

TEST(ReadOnlyFiles, ChangeFilesOnTrial) {
    FakeNoteFiles disk;
    disk.contents["a"] = {1};
    disk.contents["b"] = {2};
    ReadOnlyFiles trial = ReadOnly(disk);
    trial.isTrial = true;
    const NoteFiles files = DeviceOver(trial);
    Bytes bytes;
    EXPECT_FALSE(files.rename(files.device, "a", "b"));
    EXPECT_FALSE(files.rename(files.device, "none", "c"));
    EXPECT_TRUE(files.append(files.device, "a", Bytes{3}));
    EXPECT_TRUE(files.link(files.device, "a", "c"));
    EXPECT_FALSE(files.link(files.device, "a", "b"));
    EXPECT_TRUE(files.replace(files.device, "a", "b"));
    EXPECT_FALSE(files.stamp(files.device, "a").exists);
    EXPECT_FALSE(OpenNoteFile(files, "a"));
    EXPECT_FALSE(files.read(files.device, "a", 0, 9, bytes));
    EXPECT_FALSE(files.remove(files.device, "a"));
    for (const char* name : {"b", "c"}) {
        EXPECT_TRUE(files.read(files.device, name, 0, 9, bytes));
        EXPECT_EQ(bytes, (Bytes{1, 3})) << name;
    }
    EXPECT_TRUE(files.create(files.device, "a", Bytes{4}));
    EXPECT_EQ(files.size(files.device, "a"), 1u);
    EXPECT_EQ(disk.contents, (std::map<std::string, Bytes>{{"a", {1}}, {"b", {2}}}));
}
