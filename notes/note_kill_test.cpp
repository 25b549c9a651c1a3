// Kills real processes while they save real files, to test with the state in which the system leaves the files.

#include <gtest/gtest.h>

#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/real_note_files.h"
#include "tests/support/tries.h"

struct KilledEdit {
    int verse;
    std::string before, after;
};

static ChildEnd SaveInChild(const std::string& folder, const KilledEdit& edit, std::int64_t steps) {
    return RunInChild([&] {
        RealNoteFiles files{folder};
        NoteSets notes;
        FindNoteSets(DeviceOver(files), notes);
        SelectStoredNote(notes, 0, edit.verse);
        files.steps = steps;
        const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};
        NoteEdit typed{edit.after, edit.before};
        return SaveNote(DeviceOver(files), voice, notes, typed, {"2024-12-31", 1735603200}) == NoteSaveResult::kSaved;
    });
}

static void ExpectAllNotesIn(const std::string& folder, const KilledEdit& edit, bool isSaved) {
    RealNoteFiles files{folder};
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    ASSERT_EQ(notes.sets.size(), 1u);
    const FakeSet edited = FakeSetOf({{3, "three"}, {edit.verse, edit.after}, {31000, "near the end"}});
    const FakeSet old = FakeSetOf({{3, "three"}, {edit.verse, edit.before}, {31000, "near the end"}});
    const std::vector<unsigned char> data = ReadWholeFile(folder + "a.nmd");
    const FakeSet& now = data == old.data && !isSaved ? old : edited;
    EXPECT_TRUE(data == now.data);
    EXPECT_TRUE(ReadWholeFile(folder + "a.nmi") == now.index);
    EXPECT_TRUE(IndexBytes(notes.sets[0].offsets) == now.index);
}

TEST(KilledProcess, KeepsAllNotes) {
    const std::string folder = MakeScratchFolder();
    ASSERT_NE(folder, "");
    int kills = 0;
    for (const KilledEdit& edit :
         {KilledEdit{0, "four", "characters"}, KilledEdit{15000, "characters", ""}, KilledEdit{31101, "", "new"}}) {
        const FakeSet old = FakeSetOf({{3, "three"}, {edit.verse, edit.before}, {31000, "near the end"}});
        ChildEnd end = ChildEnd::kKilled;
        for (std::int64_t step = 0; end == ChildEnd::kKilled; step += Tried(1, 3), ++kills) {
            SCOPED_TRACE(testing::Message() << "verse " << edit.verse << ", step " << step);
            RemoveScratchFolder(folder + "backup");
            WriteWholeFile(folder + "a.nmd", old.data);
            WriteWholeFile(folder + "a.nmi", old.index);
            end = SaveInChild(folder, edit, step);
            ASSERT_NE(end, ChildEnd::kFailed);
            ExpectAllNotesIn(folder, edit, end == ChildEnd::kDone);
            if (HasFailure()) break;
        }
    }
    EXPECT_GE(kills, Tried(60, 20));
    RemoveScratchFolder(folder);
}
