#include "notes/note_backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

static bool SayYes(void*, SaveNotice, const std::string&) {
    return true;
}

static void SaveOn(FakeNoteFiles& files, NoteSets& notes, const std::string& day, const std::string& text) {
    NoteEdit edit{text};
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, edit.openedOn));
    EXPECT_EQ(SaveNote(DeviceOver(files), {nullptr, SayYes}, notes, edit, {day, 1735603200}), NoteSaveResult::kSaved);
    EXPECT_EQ(files.openFiles, 0);
}

static NoteSets SetsOf(FakeNoteFiles& files) {
    NoteSets notes;
    EXPECT_TRUE(FindNoteSets(DeviceOver(files), notes));
    return notes;
}

static std::vector<std::string> Backups(const FakeNoteFiles& files) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files.contents)
        if (name.starts_with("backup/")) names.push_back(name.substr(7));
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
    EXPECT_EQ(OpenNoteSets(DeviceOver(files), notes).report, "");
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
        SaveOn(files, notes, "2024-12-31", "new");
        EXPECT_THAT(Backups(files), IsEmpty());
        EXPECT_TRUE(files.contents["a.nmd"] == FakeSetOf({{0, "new"}}).data);
    }
}

TEST(Backup, IsNotMadeForAFailedSave) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    NoteSets notes = SetsOf(files);
    files.room = 5;
    NoteEdit edit{"new"};
    EXPECT_EQ(SaveNote(DeviceOver(files), {nullptr, SayYes}, notes, edit, {"2024-12-31", 1735603200}),
              NoteSaveResult::kFailed);
    EXPECT_THAT(Backups(files), IsEmpty());
}
