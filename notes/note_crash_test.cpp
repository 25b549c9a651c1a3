// Wherever a save is stopped, all notes must be there after the next start: the edited note in its old or new version,
// all others unchanged. Its other version must be among the earlier notes if it was on the disk. Wherever the deletion
// of a set or a change of its name is stopped, its notes must be in the set or in its copy, and its earlier notes must
// be under one of its names.

#include <gtest/gtest.h>

#include <algorithm>

#include "notes/note_backup.h"
#include "notes/note_history.h"
#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/note_set_changes.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/tries.h"

struct Edit {
    int verse;
    std::string before, after;
};

// A note for each verse except every seventh.
static std::map<int, std::string> NotesWith(int verse, const std::string& text) {
    std::map<int, std::string> notes;
    for (int other = 0; other < 31102; ++other)
        if (other % 7 != 0) notes[other] = "n" + std::to_string(other);
    notes[verse] = text;
    return notes;
}

struct SetBefore {
    FakeNoteFiles files;
    FakeSet old, edited;
};

static SetBefore SetForEdit(const Edit& edit) {
    SetBefore set;
    set.old = FakeSetOf(NotesWith(edit.verse, edit.before));
    set.edited = FakeSetOf(NotesWith(edit.verse, edit.after));
    set.files.contents = {{"a.nmd", set.old.data}, {"a.nmi", set.old.index}};
    return set;
}

// Returns true when the save has finished.
static bool SaveUntilItStops(FakeNoteFiles& files, const Edit& edit, std::int64_t steps) {
    NoteSets notes;
    FindNoteSets(DeviceOver(files), notes);
    SelectStoredNote(notes, 0, edit.verse);
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};
    files.steps = steps;
    bool ended = true;
    NoteEdit typed{edit.after, edit.before};
    try {
        EXPECT_EQ(SaveNote(DeviceOver(files), voice, notes, typed, {"2024-12-31", 1735603200}), NoteSaveResult::kSaved);
    } catch (const ProgramStopped&) {
        ended = false;
    }
    files.steps = -1;
    return ended;
}

static void ExpectOtherVersion(FakeNoteFiles& files, const Edit& edit, bool isOld, bool hadWholeTemp) {
    bool hasBefore = edit.before.empty(), hasAfter = edit.after.empty();
    for (const EarlierNote& note : AllEarlierNotes(DeviceOver(files), "a")) {
        EXPECT_EQ(note.verse, edit.verse);
        EXPECT_TRUE(note.text == edit.before || note.reason == KeptReason::kLeftOver);
        hasBefore |= note.text == edit.before && note.reason == KeptReason::kReplaced;
        hasAfter |= note.text == edit.after && note.reason == KeptReason::kLeftOver;
    }
    EXPECT_TRUE(isOld || hasBefore);
    EXPECT_TRUE(!hadWholeTemp || hasAfter);
}

static void ExpectAllNotes(FakeNoteFiles files, const Edit& edit, const SetBefore& before, bool isSaved) {
    NoteSets notes;
    const bool hadWholeTemp = files.contents.contains("a.nmd") && files.contents.contains("a.nmd.temp") &&
                              files.contents["a.nmd.temp"] == before.edited.data;
    OpenAndCheckSets(DeviceOver(files), notes);
    ASSERT_EQ(notes.sets.size(), 1u);
    EXPECT_FALSE(notes.sets[0].readOnly);
    ExpectOtherVersion(files, edit, files.contents["a.nmd"] == before.old.data, hadWholeTemp);
    const bool isOld = files.contents["a.nmd"] == before.old.data;
    const FakeSet& now = isOld && !isSaved ? before.old : before.edited;
    EXPECT_TRUE(files.contents["a.nmd"] == now.data);
    EXPECT_TRUE(files.contents["a.nmi"] == now.index);
    EXPECT_TRUE(IndexBytes(notes.sets[0].offsets) == now.index);
    EXPECT_EQ(OpenAndCheckSets(DeviceOver(files), notes).report, "");
    const auto backup = files.contents.find("backup/a 2024-12-31.nmd");
    EXPECT_TRUE(backup == files.contents.end() || backup->second == before.old.data);
}

// Stops a save at each of its steps in turn; returns the number of steps.
static int StopAtEachStep(const Edit& edit, const SetBefore& before) {
    bool ended = false;
    std::int64_t step = 0;
    for (; !ended; ++step) {
        FakeNoteFiles files = before.files;
        ended = SaveUntilItStops(files, edit, step);
        for (const PowerCut cut : PowerCutsAfter(step)) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles left = files;
            CutPower(left, cut);
            ExpectAllNotes(std::move(left), edit, before, ended);
            if (testing::Test::HasFailure()) return 0;
        }
    }
    return static_cast<int>(step - 1);
}

TEST(StoppedSave, KeepsAllNotes) {
    const std::string page(3000, 'p');
    int stops = 0, tried = 0;
    for (const int verse : {0, 15001, 31101}) {
        const Edit kEdits[] = {{verse, "four", "characters"}, {verse, "characters", "four"},
                               {verse, "gone", ""},           {verse, "", "new"},
                               {verse, "same", "emas"},       {verse, "short", page}};
        for (const Edit& edit : kEdits) {
            if (tried++ % Tried(1, 5) != 0) continue;
            SCOPED_TRACE(testing::Message() << verse << ": " << edit.before << " to " << edit.after.size());
            stops += StopAtEachStep(edit, SetForEdit(edit));
        }
    }
    EXPECT_GE(stops, Tried(200, 50));
}

TEST(StoppedSave, KeepsAllNotesWhenTheBackupIsCopied) {
    const Edit edit = {15001, "four", "characters"};
    SetBefore before = SetForEdit(edit);
    before.files.knowsLinks = false;
    EXPECT_GE(StopAtEachStep(edit, before), 40);
}

// A failed save has left a temporary file, and a later save is stopped.
TEST(StoppedSave, KeepsAllNotesDespiteAnOldTemporaryFile) {
    const Edit edit = {15001, "four", "characters"};
    SetBefore before = SetForEdit(edit);
    before.files.contents["a.nmd.temp"] = FakeSetOf(NotesWith(15001, "an older text")).data;
    EXPECT_GE(StopAtEachStep(edit, before), 20);
}

TEST(StoppedRecovery, IsCompletedByTheNextStart) {
    const Edit edit = {15001, "four", "characters"};
    const SetBefore before = SetForEdit(edit);
    int stops = 0;
    for (std::int64_t step = 0; step < 200; ++step) {
        FakeNoteFiles stopped = before.files;
        const bool ended = SaveUntilItStops(stopped, edit, step);
        for (std::int64_t recovered = 0; recovered < 20; ++recovered, ++stops) {
            if ((step + recovered) % Tried(1, 8) != 0) continue;
            SCOPED_TRACE(testing::Message() << "step " << step << ", of the recovery " << recovered);
            FakeNoteFiles files = stopped;
            files.steps = recovered;
            try {
                NoteSets notes;
                OpenAndCheckSets(DeviceOver(files), notes);
            } catch (const ProgramStopped&) {
                CutPower(files, PowerCut::kLosesAll);
            }
            files.steps = -1;
            ExpectAllNotes(std::move(files), edit, before, ended);
            if (HasFailure()) return;
        }
        if (ended) break;
    }
    EXPECT_GE(stops, 200);
}

// ---- Deleted and renamed sets ---------------------------------------------------------------------------------------

static const std::map<int, std::string> kSmall = {{0, "zero"}, {15000, "middle"}, {31101, "end"}};
static const EarlierNote kEarlier = {1735600000, 5, KeptReason::kReplaced, "earlier"};

static FakeNoteFiles TwoSets() {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kSmall);
    AddFakeSet(files, "b", {});
    KeepEarlierNotes(DeviceOver(files), "a", {&kEarlier, 1});
    NoteSets notes;
    FindNoteSets(DeviceOver(files), notes);
    KeepBackup(DeviceOver(files), notes.sets[0], "2024-12-30");
    return files;
}

// Stops `change` of the set "a" at each of its steps in turn, and calls `expect` with what each power cut leaves, after
// the next start. Returns the number of steps.
template <typename Change, typename Expectation>
static int StopEverywhere(const FakeNoteFiles& before, Change change, Expectation expect) {
    bool ended = false;
    int step = 0;
    for (; !ended && !testing::Test::HasFailure(); ++step) {
        FakeNoteFiles stopped = before;
        NoteSets notes;
        FindNoteSets(DeviceOver(stopped), notes);
        stopped.steps = step;
        try {
            change(DeviceOver(stopped), notes);
            ended = true;
        } catch (const ProgramStopped&) {
        }
        stopped.steps = -1;
        for (const PowerCut cut : PowerCutsAfter(step)) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles files = stopped;
            CutPower(files, cut);
            NoteSets next;
            OpenAndCheckSets(DeviceOver(files), next);
            expect(files, ended);
        }
    }
    return step - 1;
}

static bool HasWholeSet(FakeNoteFiles& files, const std::string& name) {
    const FakeSet set = FakeSetOf(kSmall);
    return files.contents.contains(name + ".nmd") && files.contents[name + ".nmd"] == set.data &&
           files.contents[name + ".nmi"] == set.index;
}

TEST(StoppedDeletion, LeavesTheSetOrItsCopy) {
    for (const bool knowsLinks : {true, false}) {
        FakeNoteFiles before = TwoSets();
        before.knowsLinks = knowsLinks;
        const auto change = [](const NoteFiles& files, NoteSets& notes) {
            EXPECT_TRUE(DeleteNoteSet(files, notes, {"2024-12-31", 1735603200, 1}));
        };
        const int stops = StopEverywhere(before, change, [](FakeNoteFiles& files, bool ended) {
            const bool hasCopy = HasWholeSet(files, "backup/a 2024-12-31 000001");
            EXPECT_TRUE(ended ? hasCopy : hasCopy || HasWholeSet(files, "a"));
            EXPECT_TRUE(!files.contents.contains("a.nmd") || HasWholeSet(files, "a"));
            std::vector<EarlierNote> kept = AllEarlierNotes(DeviceOver(files), "a");
            ASSERT_FALSE(kept.empty());
            EXPECT_EQ(kept[0], kEarlier);
            EXPECT_TRUE(files.contents.contains("a.nmd") || kept.size() == 1 + kSmall.size());
        });
        EXPECT_GE(stops, 15);
    }
}

// The history of a deleted set of the new name is not lost either.
TEST(StoppedRename, LeavesEarlierNotesAndBackupsUnderOneOfTheNames) {
    for (const bool hasTarget : {false, true}) {
        FakeNoteFiles before = TwoSets();
        const EarlierNote deleted = {1735500000, 7, KeptReason::kDeleted, "of another set"};
        if (hasTarget) KeepEarlierNotes(DeviceOver(before), "c", {&deleted, 1});
        const auto change = [](const NoteFiles& files, NoteSets& notes) {
            EXPECT_EQ(RenameNoteSet(files, notes, "c"), "");
        };
        const int stops = StopEverywhere(before, change, [&](FakeNoteFiles& files, bool ended) {
            EXPECT_TRUE(HasWholeSet(files, "c") || (!ended && HasWholeSet(files, "a")));
            std::vector<EarlierNote> kept = AllEarlierNotes(DeviceOver(files), "c");
            if (!ended) std::ranges::copy(AllEarlierNotes(DeviceOver(files), "a"), std::back_inserter(kept));
            EXPECT_GT(std::ranges::count(kept, kEarlier), 0);
            EXPECT_EQ(std::ranges::count(kept, deleted) > 0, hasTarget);
            const bool isMoved = HasWholeSet(files, "backup/c 2024-12-30");
            const std::vector<SetBackup> backups = AllBackups(DeviceOver(files));
            ASSERT_EQ(backups.size(), 1u);
            EXPECT_TRUE(OpenBackup(DeviceOver(files), backups[0]));
            EXPECT_TRUE(isMoved || !ended);
        });
        EXPECT_GE(stops, 5);
    }
}
