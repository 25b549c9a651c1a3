#include "notes/conflict_copies.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ConflictName, IsOfTheSet) {
    static const std::vector<std::string> kSets = {
        "My Notes", "My Notes-DESKTOP", "a", "a.b", "My Notes.sync-conflict-20240501-120000-ABCDEFG", "KJV"};
    static const struct {
        const char* name;
        std::optional<ConflictName> expected;
    } kRows[] = {
        {"My Notes.sync-conflict-20240501-120000-ABCDEFG", ConflictName{"My Notes", true}},
        {"My Notes.sync-conflict-20240501-120000", ConflictName{"My Notes", true}},
        {"my notes.sync-conflict-20240501-120000-ABCDEFG", ConflictName{"My Notes", true}},
        // a copy of a copy
        {"My Notes.sync-conflict-20240501-120000-ABCDEFG.sync-conflict-20240502-120000-GFEDCBA",
         ConflictName{"My Notes", true}},
        {"My Notes (Anna's conflicted copy 2024-05-01)", ConflictName{"My Notes", true}},
        {"My Notes (Anna's Conflicted Copy 2024-05-01 (1))", ConflictName{"My Notes", true}},
        {"My Notes (conflicted copy 2024-05-01 120000)", ConflictName{"My Notes", true}},
        {"My Notes_conflict-20240501-120000", ConflictName{"My Notes", true}},
        {"My Notes (SFConflict a@b.c 2024-05-01-12-00-00)", ConflictName{"My Notes", true}},
        {"My Notes-LAPTOP", ConflictName{"My Notes", false}},
        {"My Notes-PC-AB12CD", ConflictName{"My Notes", false}},
        {"My Notes-PC-2", ConflictName{"My Notes", false}},
        {"My Notes-DESKTOP", ConflictName{"My Notes", false}},
        {"My Notes-DESKTOP-2", ConflictName{"My Notes", false}},
        {"My Notes-DESKTOP-LAPTOP", ConflictName{"My Notes-DESKTOP", false}},  // the longest name
        {"My Notes (1)", ConflictName{"My Notes", false}},
        {"My Notes (12)", ConflictName{"My Notes", false}},
        {"a.b-PC", ConflictName{"a.b", false}},
        {"a.sync-conflict-20240501-120000-ABCDEFG", ConflictName{"a", true}},
        // names that a user gives
        {"My Notes", std::nullopt},
        {"My Notes 2", std::nullopt},
        {"My Notes-old", std::nullopt},
        {"My Notes-2024", std::nullopt},
        {"My Notes-", std::nullopt},
        {"My Notes--", std::nullopt},
        {"My Notes-LONGERTHANFIFTEEN", std::nullopt},
        {"My Notes ()", std::nullopt},
        {"My Notes (old)", std::nullopt},
        {"My Notes(1)", std::nullopt},
        {"My Notes (conflicted copy", std::nullopt},
        {"My Notes.sync", std::nullopt},
        {"Your Notes.sync-conflict-20240501-120000-ABCDEFG", std::nullopt},
        {".sync-conflict-20240501-120000-ABCDEFG", std::nullopt},
        {"My Notes.sync-conflict-20240501-120000-ABCDEFG merged", std::nullopt},
        {"My Notes.sync-conflict-20240501-120000-ABCDEFG merged 2", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& [name, expected] : kRows) EXPECT_EQ(ConflictNameOf(name, kSets), expected) << name;
}

// ---- Files ----------------------------------------------------------------------------------------------------------

static constexpr char kConflict[] = "a.sync-conflict-20240501-120000-ABCDEFG";

static std::vector<std::string> CopiesIn(FakeNoteFiles& files) {
    std::vector<std::string> names;
    for (const ConflictCopy& copy : FindConflictCopies(DeviceOver(files)))
        names.push_back(copy.name + (copy.of.isCertain ? " = " : " ~ ") + copy.of.set);
    return names;
}

TEST(ConflictCopies, AreTheDataFilesNamedAfterASet) {
    FakeNoteFiles files;
    for (const char* name : {"b", "a", "a-PC", "a (x's conflicted copy 2024-05-01)", "c (1)", "B.sync-conflict-1"})
        AddFakeSet(files, name, {});
    files.contents["a (1).nmi"] = {};
    files.contents["a_conflict-1.nmd.temp"] = {};
    EXPECT_THAT(CopiesIn(files),
                ElementsAre("B.sync-conflict-1 = b", "a (x's conflicted copy 2024-05-01) = a", "a-PC ~ a"));
    files.contents.erase("a.nmd");
    EXPECT_THAT(CopiesIn(files), ElementsAre("B.sync-conflict-1 = b"));
}

TEST(ConflictCopies, MayBeHalves) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    for (const char* name : {"a_conflict-1", "a-PC", "b"}) files.contents[std::string(name) + ".nmi"] = {};
    for (const char* name : {"a_conflict-2", "a-PC", "a", "b", "a_conflict-1 merged"})
        files.contents["backup/" + std::string(name) + ".nmh"] = {};
    EXPECT_THAT(LoneIndexesOf(DeviceOver(files), FindHalfCopies(DeviceOver(files)), "a"),
                ElementsAre("a-PC", "a_conflict-1"));
    EXPECT_THAT(HistoryCopiesOf(FindHalfCopies(DeviceOver(files)), "a"), ElementsAre("a_conflict-2"));
    AddFakeSet(files, "a-PC", {});
    EXPECT_THAT(LoneIndexesOf(DeviceOver(files), FindHalfCopies(DeviceOver(files)), "a"), ElementsAre("a_conflict-1"));
}

// ---- At the start ---------------------------------------------------------------------------------------------------

static std::vector<std::string> OpenedNames(FakeNoteFiles& files, std::string* report = nullptr) {
    NoteSets notes;
    const OpenedSets opened = OpenAndCheckSets(DeviceOver(files), notes);
    if (report) *report = opened.report;
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

TEST(ConflictCopies, AreSetsIfTheyHaveAnIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    AddFakeSet(files, kConflict, {});
    EXPECT_THAT(OpenedNames(files), ElementsAre("a", kConflict));
}

TEST(ConflictCopies, AreNoSetsWithoutAnIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    files.contents[std::string(kConflict) + ".nmd"] = FakeSetOf({{1, "one"}}).data;
    const auto before = files.contents;
    std::string report;
    EXPECT_THAT(OpenedNames(files, &report), ElementsAre("a"));
    EXPECT_EQ(report, "");
    EXPECT_EQ(files.contents, before);
}

TEST(ConflictCopies, AreNoSetsWithoutNotes) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    files.contents[std::string(kConflict) + ".nmi"] = FakeSetOf({{1, "one"}}).index;
    EXPECT_THAT(OpenedNames(files), ElementsAre("a"));
}

// What has only a likely name, or no set beside it, is a set as ever.
TEST(ConflictCopies, AreSetsIfTheirNameIsOnlyLikely) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    files.contents["a-PC.nmd"] = FakeSetOf({{1, "one"}}).data;
    files.contents["b_conflict-1.nmd"] = FakeSetOf({{1, "one"}}).data;
    EXPECT_THAT(OpenedNames(files), testing::UnorderedElementsAre("a", "a-PC", "b_conflict-1"));
    EXPECT_TRUE(files.contents.contains("a-PC.nmi"));
}
