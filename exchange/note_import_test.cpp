#include "exchange/note_import.h"

#include <gmock/gmock.h>

#include "notes/joined_texts.h"
#include "notes/note_history.h"
#include "notes/note_places.h"
#include "notes/set_texts.h"
#include "tests/support/checked_sets.h"
#include "tests/support/exchange_samples.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/tries.h"

using testing::ElementsAre;
using testing::IsEmpty;

static const NoteTime kImportTime = {"2024-12-31", 1735603200};

using NoteTexts = std::map<int, std::string>;

static NoteTexts TextsIn(FakeNoteFiles& files) {
    std::vector<std::string> all;
    EXPECT_TRUE(ReadSetTexts(DeviceOver(files), "a.nmd", all));
    NoteTexts texts;
    for (std::size_t verse = 0; verse < all.size(); ++verse)
        if (!all[verse].empty()) texts[static_cast<int>(verse)] = all[verse];
    return texts;
}

// A set with a note for each kind of import: 0 is new, 1 changed, 2 in conflict, 3 older, 4 emptied and 5 not imported.
static FakeNoteFiles FilesBeforeImport() {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}, {2, "two"}, {3, "three"}, {4, "four"}, {5, "five"}});
    return files;
}

static const ExchangedNotes kImported = {"b",
                                         {{0, "new", {}},
                                          {1, "uno", DigestOf("one")},
                                          {2, "zwei", {}},
                                          {3, "drei", DigestOf("drei")},
                                          {4, "", DigestOf("four")}}};

static const NoteTexts kAfterImport = {
    {0, "new"}, {1, "uno"}, {2, JoinedTexts("two", "zwei")}, {3, "three"}, {5, "five"}};

static ImportPlan PlanIn(FakeNoteFiles& files, NoteSets& notes, const ExchangedNotes& imported = kImported) {
    OpenAndCheckSets(DeviceOver(files), notes);
    const auto plan = PlanImport(DeviceOver(files), notes.sets.at(0), imported);
    EXPECT_TRUE(plan);
    return plan ? *plan : ImportPlan();
}

static ImportResult ImportInto(FakeNoteFiles& files, const ExchangedNotes& imported = kImported) {
    NoteSets notes;
    const ImportPlan plan = PlanIn(files, notes, imported);
    return ImportNotes(DeviceOver(files), notes, plan, kImportTime);
}

TEST(NoteImport, DoesWhatThePlanSays) {
    FakeNoteFiles files = FilesBeforeImport();
    const auto before = files.contents["a.nmd"];
    NoteSets notes;
    const ImportPlan plan = PlanIn(files, notes);
    const ImportResult result = ImportNotes(DeviceOver(files), notes, plan, kImportTime);
    EXPECT_EQ(result.end, ImportEnd::kImported);
    EXPECT_EQ(result.written, 4);
    EXPECT_EQ(result.setAside, 0);
    EXPECT_EQ(TextsIn(files), kAfterImport);
    EXPECT_EQ(files.contents["a.nmi"], IndexBytes(notes.sets[0].offsets));
    EXPECT_EQ(files.contents["backup/a 2024-12-31.nmd"], before);
    EXPECT_EQ(notes.sets[0].dataStamp, DeviceOver(files).stamp(&files, "a.nmd"));
}

TEST(NoteImport, KeepsWhatItReplaces) {
    FakeNoteFiles files = FilesBeforeImport();
    ImportInto(files);
    std::vector<std::pair<int, std::string>> kept;
    for (const EarlierNote& note : AllEarlierNotes(DeviceOver(files), "a")) {
        EXPECT_EQ(note.reason, KeptReason::kImported);
        EXPECT_EQ(note.time, kImportTime.seconds);
        kept.emplace_back(note.verse, note.text);
    }
    EXPECT_THAT(kept, ElementsAre(std::pair(1, "one"), std::pair(2, "two"), std::pair(4, "four")));
}

TEST(NoteImport, DoneAgainHasNothingToDo) {
    FakeNoteFiles files = FilesBeforeImport();
    ImportInto(files);
    const auto after = files.contents;
    EXPECT_EQ(ImportInto(files).written, 0);
    EXPECT_EQ(files.contents, after);
}

TEST(NoteImport, FollowsTheChoices) {
    for (const ImportChoice choice : {ImportChoice::kKeep, ImportChoice::kTake, ImportChoice::kBoth}) {
        FakeNoteFiles files = FilesBeforeImport();
        NoteSets notes;
        ImportPlan plan = PlanIn(files, notes);
        for (const ImportKind kind :
             {ImportKind::kNew, ImportKind::kChanged, ImportKind::kConflict, ImportKind::kOlder})
            ChooseForAll(plan, kind, choice);
        EXPECT_EQ(ImportNotes(DeviceOver(files), notes, plan, kImportTime).end, ImportEnd::kImported);
        NoteTexts expected = {{1, "one"}, {2, "two"}, {3, "three"}, {4, "four"}, {5, "five"}};
        if (choice == ImportChoice::kTake) expected = {{0, "new"}, {1, "uno"}, {2, "zwei"}, {3, "drei"}, {5, "five"}};
        if (choice == ImportChoice::kBoth)
            expected = {{0, "new"},  {1, JoinedTexts("one", "uno")},    {2, JoinedTexts("two", "zwei")},
                        {4, "four"}, {3, JoinedTexts("three", "drei")}, {5, "five"}};
        EXPECT_EQ(TextsIn(files), expected);
    }
}

// Together they are too long, or one has a byte that is no letter and the other letters that the code page lacks.
TEST(NoteImport, SetsAsideWhatCannotBeJoined) {
    const std::string greek = "\xEF\xBB\xBF\xCE\xB1", half(40000, 'x');
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, half}, {2, "odd \x9D"}});
    const ExchangedNotes imported = {"", {{1, half + "y", {}}, {2, greek, {}}}};
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    NoteFiles device = DeviceOver(files);
    device.codePage = kOddPage;
    for (int time = 0; time < 2; ++time) {
        const auto plan = PlanImport(device, notes.sets[0], imported);
        ASSERT_TRUE(plan);
        const ImportResult result = ImportNotes(device, notes, *plan, kImportTime);
        EXPECT_EQ(result.end, ImportEnd::kImported);
        EXPECT_EQ(result.written, 0);
        EXPECT_EQ(result.setAside, time == 0 ? 2 : 0);  // then they are older ones
        EXPECT_EQ(TextsIn(files), (NoteTexts{{1, half}, {2, "odd \x9D"}}));
        EXPECT_THAT(AllEarlierNotes(device, "a"),
                    ElementsAre(EarlierNote{kImportTime.seconds, 1, KeptReason::kNotSaved, half + "y"},
                                EarlierNote{kImportTime.seconds, 2, KeptReason::kNotSaved, greek}));
    }
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST(NoteImport, LeavesASetThatHasChangedMeanwhile) {
    for (const char* name : {"a.nmd", "a.nmi"}) {
        FakeNoteFiles files = FilesBeforeImport();
        NoteSets notes;
        const ImportPlan plan = PlanIn(files, notes);
        ChangeFile(files, name, files.contents[name]);
        const auto before = files.contents;
        EXPECT_EQ(ImportNotes(DeviceOver(files), notes, plan, kImportTime).end, ImportEnd::kChangedOnDisk);
        EXPECT_EQ(files.contents, before);
    }
}

TEST(NoteImport, LeavesASetThatIsGone) {
    FakeNoteFiles files = FilesBeforeImport();
    NoteSets notes;
    ImportPlan plan = PlanIn(files, notes);
    plan.setName = "b";
    EXPECT_EQ(ImportNotes(DeviceOver(files), notes, plan, kImportTime).end, ImportEnd::kChangedOnDisk);
}

TEST(NoteImport, LeavesASetThatCanOnlyBeRead) {
    FakeNoteFiles files = FilesBeforeImport();
    NoteSets notes;
    const ImportPlan plan = PlanIn(files, notes);
    notes.sets[0].readOnly = true;
    const auto before = files.contents;
    EXPECT_EQ(ImportNotes(DeviceOver(files), notes, plan, kImportTime).end, ImportEnd::kReadOnly);
    EXPECT_EQ(files.contents, before);
}

// However much room there is, the set has its old or its new notes, and the result says which.
TEST(NoteImport, WritesAllOrNothingOnAFullDisk) {
    bool isDone = false;
    for (std::int64_t room = 0; !isDone; room += 997) {
        FakeNoteFiles files = FilesBeforeImport();
        const auto before = TextsIn(files);
        NoteSets notes;
        const ImportPlan plan = PlanIn(files, notes);
        files.room = room;
        const ImportResult result = ImportNotes(DeviceOver(files), notes, plan, kImportTime);
        isDone = result.end == ImportEnd::kImported;
        if (!isDone) {
            EXPECT_EQ(result.end, ImportEnd::kCannotWrite);
            EXPECT_EQ(result.written, 0);
        }
        EXPECT_EQ(TextsIn(files), isDone ? kAfterImport : before);
        std::string text;
        files.room = -1;
        SelectStoredNote(notes, 0, 5);
        EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, text));
        EXPECT_EQ(text, "five");
        ASSERT_LT(room, 1000000);
    }
}

// ---- Stops ----------------------------------------------------------------------------------------------------------

// Returns true when the import has finished.
static bool ImportUntilItStops(FakeNoteFiles& files, std::int64_t steps) {
    NoteSets notes;
    const ImportPlan plan = PlanIn(files, notes);
    files.steps = steps;
    bool hasEnded = true;
    try {
        EXPECT_EQ(ImportNotes(DeviceOver(files), notes, plan, kImportTime).end, ImportEnd::kImported);
    } catch (const ProgramStopped&) {
        hasEnded = false;
    }
    files.steps = -1;
    return hasEnded;
}

static void ExpectOldOrNew(FakeNoteFiles files, bool hasEnded) {
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    ASSERT_EQ(notes.sets.size(), 1u);
    EXPECT_FALSE(notes.sets[0].readOnly);
    const NoteTexts now = TextsIn(files);
    const NoteTexts old = {{1, "one"}, {2, "two"}, {3, "three"}, {4, "four"}, {5, "five"}};
    EXPECT_TRUE(now == kAfterImport || (now == old && !hasEnded));
    EXPECT_EQ(files.contents["a.nmi"], IndexBytes(notes.sets[0].offsets));
    if (now == old) return;
    for (const int verse : {1, 2, 4}) {
        const auto kept = EarlierNotesOf(DeviceOver(files), "a", verse);
        ASSERT_FALSE(kept.empty());
        EXPECT_EQ(kept[0].text, old.at(verse));
    }
}

TEST(StoppedImport, LeavesTheOldOrTheNewNotes) {
    bool hasEnded = false;
    std::int64_t step = 0;
    for (; !hasEnded; ++step) {
        FakeNoteFiles files = FilesBeforeImport();
        hasEnded = ImportUntilItStops(files, step);
        for (const PowerCut cut : PowerCutsAfter(step)) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles left = files;
            CutPower(left, cut);
            ExpectOldOrNew(std::move(left), hasEnded);
            if (HasFailure()) return;
        }
        ImportInto(files);  // once more
        ExpectOldOrNew(std::move(files), true);
        if (HasFailure()) return;
    }
    EXPECT_GT(step, 10);
}
