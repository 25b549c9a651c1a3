#include "exchange/import_plan.h"

#include <gmock/gmock.h>

#include "notes/joined_texts.h"
#include "notes/note_history.h"
#include "tests/support/checked_sets.h"
#include "tests/support/exchange_samples.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr ImportChoice kTake = ImportChoice::kTake, kBoth = ImportChoice::kBoth, kKeep = ImportChoice::kKeep;

// The set "a" with these notes.
static FakeNoteFiles FilesWith(const std::map<int, std::string>& texts) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", texts);
    return files;
}

static ImportPlan PlanOf(FakeNoteFiles& files, std::vector<ExchangedNote> imported) {
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    const auto plan = PlanImport(DeviceOver(files), notes.sets.at(0), {"", std::move(imported)});
    EXPECT_TRUE(plan);
    return plan ? *plan : ImportPlan();
}

// The plan for one verse with the note `mine` and what is imported; `exported` is what the file tells of it.
static std::vector<PlannedNote> PlanFor(const std::string& mine, const std::string& imported,
                                        const std::optional<std::string>& exported) {
    FakeNoteFiles files = FilesWith({{7, mine}});
    ExchangedNote note{7, imported, {}};
    if (exported) note.digest = DigestOf(*exported);
    return PlanOf(files, {note}).notes;
}

TEST(ImportPlan, HasNewNotes) {
    for (const auto& exported : {std::optional<std::string>(), std::optional<std::string>("text")})
        EXPECT_THAT(PlanFor("", "text", exported), ElementsAre(PlannedNote{7, ImportKind::kNew, "", "text", kTake}));
}

TEST(ImportPlan, PassesNotesThatAreTheSame) {
    EXPECT_THAT(PlanFor("text", "text", std::nullopt), IsEmpty());
    EXPECT_THAT(PlanFor("text", "text", "other"), IsEmpty());
    EXPECT_THAT(PlanFor("", "", "gone"), IsEmpty());
    EXPECT_THAT(PlanFor(JoinedTexts("text", "other"), "other", std::nullopt), IsEmpty());
    FakeNoteFiles files = FilesWith({{1, "one"}, {2, "two"}, {3, "three"}});
    EXPECT_EQ(PlanOf(files, {{1, "one", {}}, {2, "two", {}}, {4, "", 1}}).sameNotes, 2);
}

// The letters count, and not how they are stored.
TEST(ImportPlan, PassesNotesWithTheSameLetters) {
    EXPECT_THAT(PlanFor("\xEF\xBB\xBF"
                        "caf\xC3\xA9",
                        "caf\xE9", std::nullopt),
                IsEmpty());
}

TEST(ImportPlan, TakesWhatWasChangedInTheFile) {
    EXPECT_THAT(PlanFor("text", "better text", "text"),
                ElementsAre(PlannedNote{7, ImportKind::kChanged, "text", "better text", kTake}));
    EXPECT_THAT(PlanFor("text", "", "text"), ElementsAre(PlannedNote{7, ImportKind::kChanged, "text", "", kTake}));
}

TEST(ImportPlan, KeepsBothWhereBothWereChanged) {
    EXPECT_THAT(PlanFor("mine", "other", "text"),
                ElementsAre(PlannedNote{7, ImportKind::kConflict, "mine", "other", kBoth}));
    EXPECT_THAT(PlanFor("mine", "other", std::nullopt),
                ElementsAre(PlannedNote{7, ImportKind::kConflict, "mine", "other", kBoth}));
    EXPECT_THAT(PlanFor("mine", "", "text"), ElementsAre(PlannedNote{7, ImportKind::kConflict, "mine", "", kBoth}));
}

TEST(ImportPlan, KeepsTheSetsNoteIfOnlyThatWasChanged) {
    EXPECT_THAT(PlanFor("mine", "text", "text"),
                ElementsAre(PlannedNote{7, ImportKind::kOlder, "mine", "text", kKeep}));
}

TEST(ImportPlan, KnowsEarlierNotes) {
    FakeNoteFiles files = FilesWith({{7, "now"}, {8, "now"}});
    KeepEarlierNotes(DeviceOver(files), "a", std::vector<EarlierNote>{{1, 7, KeptReason::kReplaced, "then"}});
    const ImportPlan plan = PlanOf(files, {{7, "then", {}}, {8, "then", {}}});
    ASSERT_EQ(plan.notes.size(), 2u);
    EXPECT_EQ(plan.notes[0].kind, ImportKind::kOlder);
    EXPECT_EQ(plan.notes[1].kind, ImportKind::kConflict);  // of another verse
}

// Also kept among the earlier notes, but never in the set: what a stopped import leaves, for example.
TEST(ImportPlan, TakesDraftsForNew) {
    FakeNoteFiles files = FilesWith({});
    KeepEarlierNotes(DeviceOver(files), "a", std::vector<EarlierNote>{{1, 7, KeptReason::kLeftOver, "draft"}});
    EXPECT_THAT(PlanOf(files, {{7, "draft", {}}}).notes,
                ElementsAre(PlannedNote{7, ImportKind::kNew, "", "draft", kTake}));
}

TEST(ImportPlan, LeavesNotesEmptyThatWereEmptiedSince) {
    FakeNoteFiles files = FilesWith({{1, "one"}});
    KeepEarlierNotes(DeviceOver(files), "a", std::vector<EarlierNote>{{1, 7, KeptReason::kReplaced, "then"}});
    EXPECT_THAT(PlanOf(files, {{7, "then", DigestOf("then")}, {8, "then", DigestOf("then")}}).notes,
                ElementsAre(PlannedNote{7, ImportKind::kOlder, "", "then", kKeep},
                            PlannedNote{8, ImportKind::kNew, "", "then", kTake}));
}

TEST(ImportPlan, WritesNothingAndLeavesOtherNotes) {
    FakeNoteFiles files = FilesWith({{1, "one"}, {2, "two"}});
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    const auto before = files.contents;
    ExchangedNotes imported{"b", {{2, "zwei", {}}}};
    imported.unplaced.push_back({3, "Ro 99:1", "There is no such verse.", "text"});
    const auto plan = PlanImport(DeviceOver(files), notes.sets.at(0), imported);
    ASSERT_TRUE(plan);
    EXPECT_EQ(files.contents, before);
    EXPECT_EQ(plan->setName, "a");
    EXPECT_EQ(plan->notes.size(), 1u);
    EXPECT_EQ(plan->unplaced.size(), 1u);
}

TEST(ImportPlan, NeedsAWholeSet) {
    FakeNoteFiles files = FilesWith({{1, "one"}});
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    notes.sets.at(0).readOnly = true;
    EXPECT_FALSE(PlanImport(DeviceOver(files), notes.sets.at(0), {}));
    notes.sets.at(0).readOnly = false;
    EXPECT_TRUE(PlanImport(DeviceOver(files), notes.sets.at(0), {}));
    files.unreadable.insert("a.nmd");
    EXPECT_FALSE(PlanImport(DeviceOver(files), notes.sets.at(0), {}));
}

TEST(ImportPlan, CountsItsNotes) {
    FakeNoteFiles files = FilesWith({{1, "one"}, {2, "two"}, {3, "three"}});
    ImportPlan plan =
        PlanOf(files, {{0, "new", {}}, {1, "uno", DigestOf("one")}, {2, "zwei", {}}, {3, "drei", DigestOf("drei")}});
    for (const ImportKind kind : {ImportKind::kNew, ImportKind::kChanged, ImportKind::kConflict, ImportKind::kOlder})
        EXPECT_EQ(CountOf(plan, kind), 1);
    EXPECT_EQ(ChangesOf(plan), 3);
    ChooseForAll(plan, ImportKind::kConflict, kKeep);
    EXPECT_EQ(ChangesOf(plan), 2);
    EXPECT_EQ(plan.notes[2].choice, kKeep);
    EXPECT_EQ(plan.notes[1].choice, kTake);
}
