// Wherever a save is stopped, all notes must be there after the next start: the edited note in its old or new version,
// all others unchanged.

#include <gtest/gtest.h>

#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/fake_note_files.h"

static constexpr PowerCut kCuts[] = {PowerCut::kNone, PowerCut::kLosesAll, PowerCut::kLeavesZeros,
                                     PowerCut::kLeavesHalf};

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

static void ExpectAllNotes(FakeNoteFiles files, const SetBefore& before, bool isSaved) {
    NoteSets notes;
    OpenNoteSets(DeviceOver(files), notes);
    ASSERT_EQ(notes.sets.size(), 1u);
    EXPECT_FALSE(notes.sets[0].readOnly);
    const bool isOld = files.contents["a.nmd"] == before.old.data;
    const FakeSet& now = isOld && !isSaved ? before.old : before.edited;
    EXPECT_TRUE(files.contents["a.nmd"] == now.data);
    EXPECT_TRUE(files.contents["a.nmi"] == now.index);
    EXPECT_TRUE(IndexBytes(notes.sets[0].offsets) == now.index);
    EXPECT_EQ(OpenNoteSets(DeviceOver(files), notes).report, "");
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
        for (const PowerCut cut : kCuts) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles left = files;
            CutPower(left, cut);
            ExpectAllNotes(std::move(left), before, ended);
            if (testing::Test::HasFailure()) return 0;
        }
    }
    return static_cast<int>(step - 1);
}

TEST(StoppedSave, KeepsAllNotes) {
    const std::string page(3000, 'p');
    int stops = 0;
    for (const int verse : {0, 15001, 31101}) {
        const Edit kEdits[] = {{verse, "four", "characters"}, {verse, "characters", "four"},
                               {verse, "gone", ""},           {verse, "", "new"},
                               {verse, "same", "emas"},       {verse, "short", page}};
        for (const Edit& edit : kEdits) {
            SCOPED_TRACE(testing::Message() << verse << ": " << edit.before << " to " << edit.after.size());
            stops += StopAtEachStep(edit, SetForEdit(edit));
        }
    }
    EXPECT_GE(stops, 200);
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
        for (std::int64_t recovered = 0; recovered < 12; ++recovered, ++stops) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", of the recovery " << recovered);
            FakeNoteFiles files = stopped;
            files.steps = recovered;
            try {
                NoteSets notes;
                OpenNoteSets(DeviceOver(files), notes);
            } catch (const ProgramStopped&) {
                CutPower(files, PowerCut::kLosesAll);
            }
            files.steps = -1;
            ExpectAllNotes(std::move(files), before, ended);
            if (HasFailure()) return;
        }
        if (ended) break;
    }
    EXPECT_GE(stops, 200);
}
