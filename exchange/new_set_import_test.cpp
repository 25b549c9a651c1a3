#include "exchange/new_set_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/set_texts.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;

static const NoteTime kNow = {"2024-12-31", 1735603200};

static const ExchangedNotes kRead = {
    .setName = "theirs",
    .notes = {{1, "one", {}}, {2, "", {}}, {3, "three", {}}, {4, "four", {}}},
    .unplaced = {{12, "Romans 8:99", "This verse does not exist.", "nowhere"}},
};

static NoteSets SetsIn(const NoteFiles& files) {
    NoteSets notes;
    EXPECT_TRUE(FindNoteSets(files, notes));
    return notes;
}

static std::vector<std::string> NamesOf(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

TEST(PlanForNewSet, HasEachNoteThatIsNotEmptyAsANewOne) {
    const ImportPlan plan = PlanForNewSet("new", kRead);
    EXPECT_EQ(plan.setName, "new");
    EXPECT_EQ(CountOf(plan, ImportKind::kNew), 3);
    EXPECT_EQ(ChangesOf(plan), 3);
    EXPECT_EQ(plan.sameNotes, 0);
    EXPECT_EQ(plan.notes.at(1), (PlannedNote{3, ImportKind::kNew, "", "three", ImportChoice::kTake}));
    EXPECT_EQ(plan.unplaced.size(), 1u);
}

TEST(ImportIntoNewSet, CreatesTheSetWithTheChosenNotes) {
    FakeNoteFiles fake;
    AddFakeSet(fake, "mine", {{1, "here"}});
    const NoteFiles files = DeviceOver(fake);
    NoteSets notes = SetsIn(files);
    ImportPlan plan = PlanForNewSet("new", kRead);
    plan.notes.at(1).choice = ImportChoice::kKeep;
    const NewSetImport done = ImportIntoNewSet(files, notes, plan, kNow);
    EXPECT_EQ(done.problem, "");
    EXPECT_EQ(done.result.end, ImportEnd::kImported);
    EXPECT_EQ(done.result.written, 2);
    EXPECT_THAT(NamesOf(notes), ElementsAre("mine", "new"));
    const FakeSet expected = FakeSetOf({{1, "one"}, {4, "four"}});
    EXPECT_EQ(fake.contents.at("new.nmd"), expected.data);
    EXPECT_EQ(fake.contents.at("new.nmi"), expected.index);
    EXPECT_EQ(fake.contents.at("mine.nmd"), FakeSetOf({{1, "here"}}).data);
}

TEST(ImportIntoNewSet, SaysWhyThereCanBeNoSuchSet) {
    FakeNoteFiles fake;
    AddFakeSet(fake, "mine", {{1, "here"}});
    const NoteFiles files = DeviceOver(fake);
    NoteSets notes = SetsIn(files);
    for (const char* name : {"mine", " ", "a/b"}) {
        EXPECT_NE(ImportIntoNewSet(files, notes, PlanForNewSet(name, kRead), kNow).problem, "") << name;
        EXPECT_THAT(NamesOf(notes), ElementsAre("mine"));
        EXPECT_EQ(fake.contents.at("mine.nmd"), FakeSetOf({{1, "here"}}).data);
    }
}

// With room for the empty set and more and more of what follows.
TEST(ImportIntoNewSet, LeavesNoHalfSetOnAFullDisk) {
    static constexpr std::int64_t kStep = 3000;
    int refused = 0;
    for (std::int64_t room = 0;; room += kStep) {
        SCOPED_TRACE(room);
        FakeNoteFiles fake;
        AddFakeSet(fake, "mine", {{1, "here"}});
        const NoteFiles files = DeviceOver(fake);
        NoteSets notes = SetsIn(files);
        fake.room = room;
        const NewSetImport done = ImportIntoNewSet(files, notes, PlanForNewSet("new", kRead), kNow);
        fake.room = -1;
        const bool isThere = done.problem.empty() && done.result.end == ImportEnd::kImported;
        std::vector<std::string> texts;
        EXPECT_EQ(ReadSetTexts(files, "new.nmd", texts), isThere);
        EXPECT_EQ(fake.contents.contains("new.nmi"), isThere);
        EXPECT_EQ(notes.sets.size(), isThere ? 2u : 1u);
        EXPECT_EQ(fake.openFiles, 0);
        if (isThere) break;
        ++refused;
        ASSERT_LT(room, 1000000);
    }
    EXPECT_GT(refused, 50);
}
