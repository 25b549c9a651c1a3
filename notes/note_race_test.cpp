// Saving a note while a program that keeps folders in step replaces the files of the set.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "notes/note_history.h"
#include "notes/note_saving.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using Notes = std::map<int, std::string>;

static constexpr int kVerse = 7;
static constexpr std::int64_t kNow = 1735603200;

namespace {

// A set "a" with a note in the editor, whose files another program replaces at a certain moment of a save.
struct Race {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
    NoteEdit edit;
    std::vector<SaveNotice> told;
};

// What the other program does when a file is removed or flushed. The devices of files have no room for it.
std::function<void(FakeNoteFiles&)> afterRemove, afterFlush;
NoteFiles plain;

struct Interference {
    ~Interference() { afterRemove = afterFlush = nullptr; }
};

}  // namespace

static bool RemoveInRace(void* device, const std::string& name) {
    const bool removed = plain.remove(device, name);
    if (afterRemove && name == "a.nmd") afterRemove(*static_cast<FakeNoteFiles*>(device));
    return removed;
}

static bool FlushInRace(void* device, void* file) {
    const bool flushed = plain.flush(device, file);
    if (afterFlush) afterFlush(*static_cast<FakeNoteFiles*>(device));
    return flushed;
}

static void Put(FakeNoteFiles& fakes, const Notes& notes) {
    const FakeSet set = FakeSetOf(notes);
    ChangeFile(fakes, "a.nmd", set.data);
    ChangeFile(fakes, "a.nmi", set.index);
}

static void OpenEditor(Race& race, const Notes& notes) {
    AddFakeSet(race.fakes, "a", notes);
    race.files = plain = DeviceOver(race.fakes);
    race.files.remove = RemoveInRace;
    race.files.flush = FlushInRace;
    EXPECT_TRUE(FindNoteSets(race.files, race.notes));
    SelectStoredNote(race.notes, 0, kVerse);
    EXPECT_TRUE(ReadStoredNote(race.files, race.notes, race.edit.openedOn));
}

static NoteSaveResult Save(Race& race, const std::string& text) {
    const auto tell = [](void* device, SaveNotice notice, const std::string&) {
        static_cast<Race*>(device)->told.push_back(notice);
        return true;
    };
    race.edit.text = text;
    return SaveNote(race.files, {&race, tell}, race.notes, race.edit, {"2024-12-31", kNow});
}

static void ExpectStored(const Race& race, const Notes& notes) {
    EXPECT_TRUE(race.fakes.contents.at("a.nmd") == FakeSetOf(notes).data);
    EXPECT_TRUE(race.fakes.contents.at("a.nmi") == FakeSetOf(notes).index);
    EXPECT_FALSE(race.fakes.contents.contains("a.nmd.temp"));
}

static std::vector<EarlierNote> LeftOver(const Race& race) {
    std::vector<EarlierNote> notes = AllEarlierNotes(race.files, "a");
    std::erase_if(notes, [](const EarlierNote& note) { return note.reason != KeptReason::kLeftOver; });
    return notes;
}

// The other program's file takes the place of the one that was just deleted. The notes of that one are only in the
// temporary file then, which the next save must not simply write over.
static void LoseTheOldFile(Race& race) {
    const Interference interference;
    afterRemove = [](FakeNoteFiles& fakes) { Put(fakes, {{9, "theirs"}}); };
    EXPECT_EQ(Save(race, "mine"), NoteSaveResult::kFailed);
    EXPECT_THAT(race.told, ElementsAre(SaveNotice::kCannotDelete));
    race.told.clear();
    EXPECT_TRUE(ReadStoredNote(race.files, race.notes, race.edit.openedOn));
}

TEST(RacedSave, KeepsTheNotesThatOnlyTheTemporaryFileHas) {
    Race race;
    OpenEditor(race, {{3, "three"}, {kVerse, "old"}});
    LoseTheOldFile(race);
    EXPECT_EQ(Save(race, "again"), NoteSaveResult::kSaved);
    EXPECT_THAT(race.told, IsEmpty());
    ExpectStored(race, {{kVerse, "again"}, {9, "theirs"}});
    EXPECT_THAT(LeftOver(race), UnorderedElementsAre(EarlierNote{kNow, 3, KeptReason::kLeftOver, "three"},
                                                     EarlierNote{kNow, kVerse, KeptReason::kLeftOver, "mine"}));
}

TEST(RacedSave, LeavesTheTemporaryFileIfItsNotesCannotBeKept) {
    Race race;
    OpenEditor(race, {{3, "three"}, {kVerse, "old"}});
    LoseTheOldFile(race);
    const std::vector<unsigned char> temp = race.fakes.contents.at("a.nmd.temp");
    race.fakes.uncreatable = {"backup", "backup/a.nmh", "backup/a.nmh.temp"};
    EXPECT_EQ(Save(race, "again"), NoteSaveResult::kFailed);
    EXPECT_THAT(race.told, ElementsAre(SaveNotice::kCannotWrite));
    EXPECT_TRUE(race.fakes.contents.at("a.nmd.temp") == temp);
    race.fakes.uncreatable.clear();
    EXPECT_EQ(Save(race, "again"), NoteSaveResult::kSaved);
    EXPECT_EQ(LeftOver(race).size(), 2u);
}

// Another file arrives while the temporary one is written.
TEST(RacedSave, GoesIntoTheFileThatHasArrivedMeanwhile) {
    const Interference interference;
    Race race;
    OpenEditor(race, {{3, "three"}, {kVerse, "old"}});
    afterFlush = [](FakeNoteFiles& fakes) {
        afterFlush = nullptr;
        Put(fakes, {{3, "three"}, {kVerse, "old"}, {9, "theirs"}});
    };
    EXPECT_EQ(Save(race, "mine"), NoteSaveResult::kSaved);
    EXPECT_THAT(race.told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectStored(race, {{3, "three"}, {kVerse, "mine"}, {9, "theirs"}});
    EXPECT_THAT(AllEarlierNotes(race.files, "a"), ElementsAre(EarlierNote{kNow, kVerse, KeptReason::kReplaced, "old"}));
}

TEST(RacedSave, ComesBackWithBothTextsIfTheNoteHasArrivedMeanwhile) {
    const Interference interference;
    Race race;
    OpenEditor(race, {{kVerse, "old"}});
    afterFlush = [](FakeNoteFiles& fakes) {
        afterFlush = nullptr;
        Put(fakes, {{kVerse, "theirs"}});
    };
    EXPECT_EQ(Save(race, "mine"), NoteSaveResult::kMerged);
    EXPECT_EQ(race.edit.openedOn, "theirs");
    ExpectStored(race, {{kVerse, "theirs"}});
}

TEST(RacedSave, StopsIfTheFileIsReplacedEachTime) {
    const Interference interference;
    Race race;
    OpenEditor(race, {{kVerse, "old"}});
    int times = 0;
    afterFlush = [&times](FakeNoteFiles& fakes) { Put(fakes, {{kVerse, "old"}, {9, std::to_string(++times)}}); };
    EXPECT_EQ(Save(race, "mine"), NoteSaveResult::kStopped);
    EXPECT_EQ(race.told.back(), SaveNotice::kNotWhole);
    ExpectStored(race, {{kVerse, "old"}, {9, std::to_string(times)}});
    EXPECT_EQ(race.fakes.openFiles, 0);
}

// As one who saves all the time would do.
TEST(RacedSave, AsksOnceWhetherToSaveIntoChangedFiles) {
    Race race;
    OpenEditor(race, {{kVerse, "old"}});
    Put(race.fakes, {{kVerse, "old"}, {9, "theirs"}});
    const auto tell = [](void* device, SaveNotice notice, const std::string&) {
        auto& told = *static_cast<Race*>(device);
        told.told.push_back(notice);
        Put(told.fakes, {{kVerse, "old"}, {9, "others"}});
        return true;
    };
    race.edit.text = "mine";
    EXPECT_EQ(SaveNote(race.files, {&race, tell}, race.notes, race.edit, {"2024-12-31", kNow}), NoteSaveResult::kSaved);
    EXPECT_THAT(race.told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectStored(race, {{kVerse, "mine"}, {9, "others"}});
}
