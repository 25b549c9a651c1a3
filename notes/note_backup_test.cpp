#include "notes/note_backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

static bool Remember(void* device, SaveNotice notice, const std::string&) {
    static_cast<std::vector<SaveNotice>*>(device)->push_back(notice);
    return true;
}

// Returns what was told.
static std::vector<SaveNotice> SaveOn(FakeNoteFiles& files, NoteSets& notes, const std::string& day,
                                      const std::string& text) {
    NoteEdit edit{text};
    std::vector<SaveNotice> told;
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, edit.openedOn));
    EXPECT_EQ(SaveNote(DeviceOver(files), {&told, Remember}, notes, edit, {day, 1735603200}), NoteSaveResult::kSaved);
    EXPECT_EQ(files.openFiles, 0);
    return told;
}

static NoteSets SetsOf(FakeNoteFiles& files) {
    NoteSets notes;
    EXPECT_TRUE(FindNoteSets(DeviceOver(files), notes));
    return notes;
}

// Without earlier notes.
static std::vector<std::string> Backups(const FakeNoteFiles& files) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files.contents)
        if (name.starts_with("backup/") && !name.ends_with(".nmh")) names.push_back(name.substr(7));
    return names;
}

static bool HoldsSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes) {
    const FakeSet set = FakeSetOf(notes);
    return files.contents[name + ".nmd"] == set.data && files.contents[name + ".nmi"] == set.index;
}

TEST(Backup, IsMadeBeforeTheFirstSaveOfADay) {
    for (const bool knowsLinks : {true, false}) {
        FakeNoteFiles files;
        files.knowsLinks = knowsLinks;
        AddFakeSet(files, "My Notes", {{0, "old"}, {9, "nine"}});
        NoteSets notes = SetsOf(files);
        SaveOn(files, notes, "2024-12-30", "first");
        SaveOn(files, notes, "2024-12-30", "second");
        EXPECT_THAT(Backups(files), ElementsAre("My Notes 2024-12-30.nmd", "My Notes 2024-12-30.nmi"));
        EXPECT_TRUE(HoldsSet(files, "backup/My Notes 2024-12-30", {{0, "old"}, {9, "nine"}}));
        SaveOn(files, notes, "2025-01-02", "third");
        EXPECT_TRUE(HoldsSet(files, "backup/My Notes 2024-12-30", {{0, "old"}, {9, "nine"}}));
        EXPECT_TRUE(HoldsSet(files, "backup/My Notes 2025-01-02", {{0, "second"}, {9, "nine"}}));
        EXPECT_TRUE(HoldsSet(files, "My Notes", {{0, "third"}, {9, "nine"}}));
        EXPECT_EQ(Backups(files).size(), 4u);
    }
}

TEST(Backup, IsKeptForTheLastTenDaysWithChanges) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    for (const char* other : {"a 2024-01-01 2024-01-01", "b 2024-01-01", "a 2024-1-1", "a copy", "ab 2024-01-01",
                              "a 2024-01-0x", "a 2024-01-0 ", "a 2024/01/01", "b 2025-03-01"})
        files.contents[std::string("backup/") + other + ".nmd"] = {0};
    const std::vector<std::string> others = Backups(files);
    NoteSets notes = SetsOf(files);
    std::vector<std::string> expected;
    for (int day = 10; day < 26; day += 1 + day % 2) {
        const std::string date = "2024-12-" + std::to_string(day);
        SaveOn(files, notes, date, date);
        expected.push_back("a " + date + ".nmd");
        expected.push_back("a " + date + ".nmi");
    }
    for (const char* day : {"2024-12-31", "2025-01-01", "2025-02-01"}) {
        SaveOn(files, notes, day, day);
        expected.push_back(std::string("a ") + day + ".nmd");
        expected.push_back(std::string("a ") + day + ".nmi");
    }
    expected.erase(expected.begin(), expected.end() - 20);
    expected.insert(expected.end(), others.begin(), others.end());
    EXPECT_THAT(Backups(files), testing::UnorderedElementsAreArray(expected));
}

TEST(Backup, CopiedBackIsASeparateSet) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{3, "three"}});
    NoteSets notes = SetsOf(files);
    SaveOn(files, notes, "2024-12-31", "zero");
    for (const char* ending : {".nmd", ".nmi"})
        files.contents[std::string("a 2024-12-31") + ending] =
            files.contents[std::string("backup/a 2024-12-31") + ending];
    EXPECT_EQ(OpenAndCheckSets(DeviceOver(files), notes).report, "");
    ASSERT_EQ(notes.sets.size(), 2u);
    EXPECT_EQ(NoteSetName(notes.sets[1]), "a 2024-12-31");
}

// If a backup cannot be made, the save continues without it, and no incomplete backup is left.
TEST(Backup, FailureDoesNotPreventASave) {
    static const struct {
        const char* why;
        std::set<std::string> uncreatable;
        std::set<std::string> unreadable;
        std::int64_t room;
    } kRows[] = {
        {"no folder", {"backup"}, {}, -1},
        {"no file in it", {"backup/a 2024-12-31.nmd.temp", "backup/a 2024-12-31.nmi.temp"}, {}, -1},
        {"no room for the index", {}, {}, 31102 + 3 + 124407},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        FakeNoteFiles files;
        files.knowsLinks = false;
        AddFakeSet(files, "a", {});
        NoteSets notes = SetsOf(files);
        files.uncreatable = row.uncreatable;
        files.unreadable = row.unreadable;
        files.room = row.room;
        EXPECT_THAT(SaveOn(files, notes, "2024-12-31", "new"), ElementsAre(SaveNotice::kNoBackup));
        EXPECT_THAT(Backups(files), IsEmpty());
        EXPECT_TRUE(files.contents["a.nmd"] == FakeSetOf({{0, "new"}}).data);
    }
}

// Its index may not have been copied because the disk was full.
TEST(Backup, IsNoneWithoutItsIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{3, "three"}});
    NoteSets notes = SetsOf(files);
    files.uncreatable = {"backup/a 2024-12-31.nmi.temp"};
    SaveOn(files, notes, "2024-12-31", "new");
    EXPECT_THAT(Backups(files), IsEmpty());
    files.uncreatable = {};
    EXPECT_THAT(SaveOn(files, notes, "2024-12-31", "newer"), IsEmpty());
    EXPECT_TRUE(HoldsSet(files, "backup/a 2024-12-31", {{0, "new"}, {3, "three"}}));
}

TEST(Backup, OfAnOlderProgramGetsItsIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{3, "three"}});
    files.contents["backup/a 2024-12-31.nmd"] = FakeSetOf({{9, "of the morning"}}).data;
    NoteSets notes = SetsOf(files);
    SaveOn(files, notes, "2024-12-31", "new");
    EXPECT_TRUE(HoldsSet(files, "backup/a 2024-12-31", {{9, "of the morning"}}));
}

// ---- With a time, and lists -----------------------------------------------------------------------------------------

static NoteTime At(const std::string& day, int secondOfDay) {
    return {day, 1735603200, secondOfDay};
}

TEST(BackupWithTime, IsKeptBesideThatOfTheDay) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{3, "three"}});
    NoteSets notes = SetsOf(files);
    SaveOn(files, notes, "2024-12-31", "new");
    const NoteTime last = At("2024-12-31", 86398);
    EXPECT_EQ(KeepBackupWithTime(DeviceOver(files), notes.sets[0], last), (SetBackup{"a", "2024-12-31", "235958"}));
    EXPECT_EQ(KeepBackupWithTime(DeviceOver(files), notes.sets[0], last), (SetBackup{"a", "2024-12-31", "235959"}));
    EXPECT_EQ(KeepBackupWithTime(DeviceOver(files), notes.sets[0], last), std::nullopt);
    EXPECT_TRUE(HoldsSet(files, "backup/a 2024-12-31", {{3, "three"}}));
    EXPECT_TRUE(HoldsSet(files, "backup/a 2024-12-31 235958", {{0, "new"}, {3, "three"}}));
    EXPECT_EQ(Backups(files).size(), 6u);
}

TEST(BackupWithTime, IsKeptTenTimes) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    NoteSets notes = SetsOf(files);
    for (int second = 0; second < 12; ++second) {
        EXPECT_TRUE(KeepBackupWithTime(DeviceOver(files), notes.sets[0], At("2024-12-31", second)));
        SaveOn(files, notes, "2025-01-" + std::to_string(10 + second), "new");
    }
    const std::vector<SetBackup> backups = BackupsOf(DeviceOver(files), "a");
    EXPECT_EQ(backups.size(), 20u);
    EXPECT_EQ(backups.front(), (SetBackup{"a", "2025-01-21", ""}));
    EXPECT_EQ(backups[10], (SetBackup{"a", "2024-12-31", "000011"}));
    EXPECT_EQ(backups.back(), (SetBackup{"a", "2024-12-31", "000002"}));
}

TEST(AllBackups, KnowsThemByTheirNames) {
    FakeNoteFiles files;
    for (const char* name : {"b 2024-12-31", "a 2024-12-31", "a 2025-01-01", "a 2024-12-31 000001",
                             "a 2024-12-31 000000", "a 2024-12-31 2025-01-02", "a 123456 2025-01-02", "a 123456",
                             " 2024-12-31", "2024-12-31", "a 2024-12-31 00000x", "a2024-12-31", "a 2024-12-31  000000"})
        files.contents[std::string("backup/") + name + ".nmd"] = {};
    files.contents["backup/a 2024-12-29.nmi"] = {};
    files.contents["backup/a.nmh"] = {};
    EXPECT_THAT(AllBackups(DeviceOver(files)),
                ElementsAre(SetBackup{"", "2024-12-31", ""}, SetBackup{"a", "2025-01-01", ""},
                            SetBackup{"a", "2024-12-31", "000001"}, SetBackup{"a", "2024-12-31", "000000"},
                            SetBackup{"a", "2024-12-31", ""}, SetBackup{"a 123456", "2025-01-02", ""},
                            SetBackup{"a 2024-12-31", "2025-01-02", ""}, SetBackup{"b", "2024-12-31", ""}));
    EXPECT_THAT(BackupsOf(DeviceOver(files), "B"), ElementsAre(SetBackup{"b", "2024-12-31", ""}));
    for (const SetBackup& backup : AllBackups(DeviceOver(files)))
        EXPECT_TRUE(files.contents.contains(BackupName(backup) + ".nmd"));
}

TEST(OpenBackup, ReadsTheNotesInPlace) {
    FakeNoteFiles files;
    files.contents["backup/a 2024-12-31.nmd"] = FakeSetOf({{0, "zero"}, {3, "three"}}).data;
    NoteSets notes;
    notes.sets.push_back(OpenBackup(DeviceOver(files), {"a", "2024-12-31", ""}).value());
    EXPECT_TRUE(notes.sets[0].readOnly);
    std::string text;
    notes.currentVerse = 3;
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, text));
    EXPECT_EQ(text, "three");
    files.contents["backup/a 2024-12-31.nmd"].pop_back();
    EXPECT_EQ(OpenBackup(DeviceOver(files), {"a", "2024-12-31", ""}), std::nullopt);
    EXPECT_EQ(OpenBackup(DeviceOver(files), {"b", "2024-12-31", ""}), std::nullopt);
}

TEST(MoveBackups, LosesNone) {
    FakeNoteFiles files;
    const auto add = [&](const std::string& name) {
        for (const char* ending : {".nmd", ".nmi"})
            files.contents["backup/" + name + ending].assign(name.begin(), name.end());
    };
    for (const char* name : {"a 2024-12-30", "a 2024-12-31", "a 2024-12-31 101010", "b 2024-12-31",
                             "b 2024-12-31 101010", "b 2024-12-31 000000", "a b 2024-12-31"})
        add(name);
    MoveBackups(DeviceOver(files), "a", "b");
    EXPECT_THAT(AllBackups(DeviceOver(files)),
                ElementsAre(SetBackup{"a b", "2024-12-31", ""}, SetBackup{"b", "2024-12-31", "101010"},
                            SetBackup{"b", "2024-12-31", "000002"}, SetBackup{"b", "2024-12-31", "000001"},
                            SetBackup{"b", "2024-12-31", "000000"}, SetBackup{"b", "2024-12-31", ""},
                            SetBackup{"b", "2024-12-30", ""}));
    const std::string moved = "a 2024-12-31";
    for (const char* ending : {".nmd", ".nmi"})
        EXPECT_EQ(files.contents[std::string("backup/b 2024-12-31 000002") + ending],
                  std::vector<unsigned char>(moved.begin(), moved.end()));
    MoveBackups(DeviceOver(files), "b", "B");
    EXPECT_EQ(files.contents.size(), 14u);
}

TEST(Backup, IsNotMadeForAFailedSave) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    NoteSets notes = SetsOf(files);
    files.room = 5;
    NoteEdit edit{"new"};
    std::vector<SaveNotice> told;
    EXPECT_EQ(SaveNote(DeviceOver(files), {&told, Remember}, notes, edit, {"2024-12-31", 1735603200}),
              NoteSaveResult::kFailed);
    EXPECT_THAT(Backups(files), IsEmpty());
}
