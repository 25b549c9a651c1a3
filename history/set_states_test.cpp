#include "history/set_states.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_history.h"
#include "notes/note_recovery.h"
#include "notes/note_set_changes.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

static const NoteTime kNow = {"2024-12-31", 1735603200, 8 * 3600 + 5 * 60 + 9};
static const std::map<int, std::string> kThen = {{0, "first"}, {7, "seven then"}, {31101, "last"}};
static const std::map<int, std::string> kToday = {{0, "first"}, {7, "seven"}, {9, "new"}, {31101, "last, longer"}};

static void AddCopy(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes) {
    const FakeSet set = FakeSetOf(notes);
    files.contents["backup/" + name + ".nmd"] = set.data;
    files.contents["backup/" + name + ".nmi"] = set.index;
}

// The set "a" as it is today, "b", and a copy of "a".
static FakeNoteFiles FilesWithCopy() {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kToday);
    AddFakeSet(files, "b", {{3, "in b"}});
    AddCopy(files, "a 2024-12-30", kThen);
    return files;
}

static SetBackup TheState(FakeNoteFiles& files) {
    return SetStates(DeviceOver(files)).at(0);
}

static NoteSets Opened(FakeNoteFiles& files) {
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    return notes;
}

static std::vector<std::string> NamesOf(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

static std::string NameOf(const SetBackup& state) {
    return state.setName + "|" + state.day + "|" + state.clock + "|" + BackupName(state) + kDataEnding;
}

// ---- The list -------------------------------------------------------------------------------------------------------

TEST(SetStates, AreTheDatedCopiesLatestFirst) {
    FakeNoteFiles files;
    for (const char* name :
         {"a 2024-12-30", "a 2024-12-31", "b 2024-12-31", "a 2024-12-31 235959", "b 2024-12-31 000102",
          "a 2024-12-31 23595", "a 2024-12-31 2359590", "c 2024-12-01 2023-01-02", "a", "a 2024-12-3", "a2024-12-31",
          "a 2024-12-311", " 2024-11-01"})
        AddCopy(files, name, {});
    std::vector<std::string> names;
    for (const SetBackup& state : SetStates(DeviceOver(files))) names.push_back(NameOf(state));
    EXPECT_THAT(names, ElementsAre("a|2024-12-31|235959|backup/a 2024-12-31 235959.nmd",
                                   "b|2024-12-31|000102|backup/b 2024-12-31 000102.nmd",
                                   "a|2024-12-31||backup/a 2024-12-31.nmd", "b|2024-12-31||backup/b 2024-12-31.nmd",
                                   "a|2024-12-30||backup/a 2024-12-30.nmd", "|2024-11-01||backup/ 2024-11-01.nmd",
                                   "c 2024-12-01|2023-01-02||backup/c 2024-12-01 2023-01-02.nmd"));
}

TEST(SetStates, TellWhetherASetHasAWholeOne) {
    FakeNoteFiles files = FilesWithCopy();
    EXPECT_TRUE(HasWholeState(DeviceOver(files), "a"));
    EXPECT_FALSE(HasWholeState(DeviceOver(files), "b"));
    files.contents["backup/a 2024-12-30.nmd"].pop_back();
    EXPECT_FALSE(HasWholeState(DeviceOver(files), "a"));
    AddCopy(files, "a 2024-12-01", kThen);
    EXPECT_TRUE(HasWholeState(DeviceOver(files), "A"));
}

// ---- Notes in memory ------------------------------------------------------------------------------------------------

static NotesInMemory NotesOf(const std::map<int, std::string>& notes) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", notes);
    files.contents.erase("a.nmi");
    NotesInMemory read;
    EXPECT_TRUE(ReadNotesInMemory(DeviceOver(files), "a.nmd", read));
    return read;
}

TEST(NotesInMemory, AreReadWithoutAnIndex) {
    const NotesInMemory notes = NotesOf(kThen);
    EXPECT_TRUE(notes.isWhole);
    for (const int verse : {0, 7, 9, 31101}) {
        const auto found = kThen.find(verse);
        EXPECT_EQ(NoteIn(notes, verse), found == kThen.end() ? "" : found->second) << verse;
    }
    EXPECT_EQ(NoteIn(notes, 31102), "");
}

TEST(NotesInMemory, DifferWhereATextDiffers) {
    const NotesInMemory then = NotesOf(kThen);
    EXPECT_THAT(DifferingVerses(then, NotesOf(kToday)), ElementsAre(7, 9, 31101));
    EXPECT_THAT(DifferingVerses(NotesOf(kToday), then), ElementsAre(7, 9, 31101));
    EXPECT_THAT(DifferingVerses(then, NotesOf(kThen)), IsEmpty());
    EXPECT_THAT(DifferingVerses(then, NotesOf({})), ElementsAre(0, 7, 31101));
    EXPECT_THAT(DifferingVerses(then, NotesInMemory{}), ElementsAre(0, 7, 31101));
}

// Its NULs would give the notes behind the damage to other verses.
TEST(NotesInMemory, OfADamagedSetAreFoundByItsIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kThen);
    files.contents["a.nmd"][2] = 0;
    NoteSets notes = Opened(files);
    ASSERT_TRUE(notes.sets.at(0).readOnly);
    NotesInMemory read;
    EXPECT_TRUE(ReadNotesInMemory(DeviceOver(files), notes.sets[0], read));
    EXPECT_FALSE(read.isWhole);
    EXPECT_EQ(NoteIn(read, 0), "fi");
    EXPECT_EQ(NoteIn(read, 7), "seven then");
    read.offsets = {4, 2, 1000000};
    for (int verse = 0; verse < 4; ++verse) EXPECT_TRUE(verse == 1 || NoteIn(read, verse).empty()) << verse;
}

TEST(NotesInMemory, AreNotThereIfTheFileCannotBeRead) {
    FakeNoteFiles files = FilesWithCopy();
    files.unreadable = {"a.nmd"};
    NotesInMemory read;
    EXPECT_FALSE(ReadNotesInMemory(DeviceOver(files), "a.nmd", read));
    EXPECT_FALSE(ReadNotesInMemory(DeviceOver(files), "missing.nmd", read));
}

// ---- Restoring ------------------------------------------------------------------------------------------------------

static void ExpectSet(FakeNoteFiles& files, const NoteSet& set, const std::map<int, std::string>& notes) {
    const FakeSet expected = FakeSetOf(notes);
    EXPECT_TRUE(files.contents[set.dataFileName] == expected.data);
    EXPECT_TRUE(files.contents[IndexFileName(set)] == expected.index);
    EXPECT_TRUE(LittleEndianBytes(set.offsets) == expected.index);
    EXPECT_FALSE(set.readOnly);
    NoteSet stamped = set;
    StampFiles(DeviceOver(files), stamped);
    EXPECT_EQ(stamped.dataStamp, set.dataStamp);
    EXPECT_EQ(stamped.indexStamp, set.indexStamp);
}

TEST(RestoredState, ReplacesTheSetOfItsName) {
    FakeNoteFiles files = FilesWithCopy();
    NoteSets notes = Opened(files);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "A", kNow), "");  // as files ignore case
    EXPECT_THAT(NamesOf(notes), ElementsAre("a", "b"));
    ExpectSet(files, notes.sets[0], kThen);
    EXPECT_FALSE(files.contents.contains("a.nmd.temp"));
    EXPECT_TRUE(files.contents["backup/a 2024-12-31 080509.nmd"] == FakeSetOf(kToday).data);
    EXPECT_TRUE(files.contents["backup/a 2024-12-31 080509.nmi"] == FakeSetOf(kToday).index);
    const auto earlier = AllEarlierNotes(DeviceOver(files), "a");
    EXPECT_THAT(earlier, ElementsAre(EarlierNote{kNow.seconds, 7, KeptReason::kRestored, "seven"},
                                     EarlierNote{kNow.seconds, 9, KeptReason::kRestored, "new"},
                                     EarlierNote{kNow.seconds, 31101, KeptReason::kRestored, "last, longer"}));
    EXPECT_EQ(OpenAndCheckSets(DeviceOver(files), notes).report, "");
}

TEST(RestoredState, IsCopiedBesideTheOtherCopiesOfItsTime) {
    FakeNoteFiles files = FilesWithCopy();
    AddCopy(files, "a 2024-12-31 080509", {{5, "this morning"}});
    const auto morning = files.contents["backup/a 2024-12-31 080509.nmd"];
    NoteSets notes = Opened(files);
    const SetBackup state = SetStates(DeviceOver(files)).at(1);
    ASSERT_EQ(state.day, "2024-12-30");
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, state, "a", kNow), "");
    EXPECT_TRUE(files.contents["backup/a 2024-12-31 080509.nmd"] == morning);
    EXPECT_TRUE(files.contents["backup/a 2024-12-31 080510.nmd"] == FakeSetOf(kToday).data);
    const auto copies = SetStates(DeviceOver(files));
    EXPECT_EQ(copies.size(), 3u);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, copies.at(0), "a", kNow), "");  // and back again
    ExpectSet(files, notes.sets[0], kToday);
}

TEST(RestoredState, BringsADeletedSetBack) {
    FakeNoteFiles files = FilesWithCopy();
    NoteSets notes = Opened(files);
    ASSERT_TRUE(DeleteNoteSet(DeviceOver(files), notes, {"2024-12-31", 1735603200}));
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, SetStates(DeviceOver(files)).back(), "a", kNow), "");
    EXPECT_THAT(NamesOf(notes), ElementsAre("b", "a"));
    EXPECT_EQ(notes.currentSet, 0);
    ExpectSet(files, notes.sets[1], kThen);
}

// The state that the deletion of "Readings" keeps; on every day they are two verses of the same number.
static FakeNoteFiles FilesWithDeletedReadings() {
    FakeNoteFiles files = FilesWithCopy();
    AddFakeSet(files, "Readings", {{7, "seven"}});
    files.contents["Readings.dti"] = LittleEndianBytes(std::vector<std::uint32_t>(12 * 31 * 2, 7));
    NoteSets notes = Opened(files);
    SelectSet(notes, SetNamed(notes, "Readings"));
    EXPECT_EQ(notes.devotionalSet, notes.currentSet);
    EXPECT_TRUE(DeleteNoteSet(DeviceOver(files), notes, kNow));
    EXPECT_FALSE(files.contents.contains("Readings.dti"));
    return files;
}

TEST(RestoredState, BringsItsTableOfReadings) {
    FakeNoteFiles files = FilesWithDeletedReadings();
    NoteSets notes = Opened(files);
    ASSERT_EQ(notes.devotionalSet, kNoDevotionalSet);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "Readings", kNow), "");
    EXPECT_EQ(notes.devotionalSet, SetNamed(notes, "Readings"));
    EXPECT_EQ(notes.devotionalTable.back(), 7u);
    EXPECT_TRUE(files.contents["Readings.dti"] == files.contents["backup/Readings 2024-12-31 080509.dti"]);
}

TEST(RestoredState, LeavesTheReadingsToAnotherSet) {
    FakeNoteFiles files = FilesWithDeletedReadings();
    files.contents["b.dti"] = LittleEndianBytes(std::vector<std::uint32_t>(12 * 31 * 2, 3));
    NoteSets notes = Opened(files);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "Readings", kNow), "");
    EXPECT_EQ(notes.devotionalSet, SetNamed(notes, "b"));
    EXPECT_FALSE(files.contents.contains("Readings.dti"));
}

TEST(RestoredState, TellsIfOnlyItsTableOfReadingsIsMissing) {
    FakeNoteFiles files = FilesWithDeletedReadings();
    files.uncreatable = {"Readings.dti.temp"};
    NoteSets notes = Opened(files);
    EXPECT_THAT(RestoreSetState(DeviceOver(files), notes, TheState(files), "Readings", kNow),
                HasSubstr("The notes are restored, but the table of readings"));
    EXPECT_NE(SetNamed(notes, "Readings"), kNoSet);
    EXPECT_EQ(notes.devotionalSet, kNoDevotionalSet);
}

TEST(RestoredState, BecomesANewSetUnderAnotherName) {
    FakeNoteFiles files = FilesWithCopy();
    NoteSets notes = Opened(files);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "a as it was", kNow), "");
    EXPECT_THAT(NamesOf(notes), ElementsAre("a", "b", "a as it was"));
    ExpectSet(files, notes.sets[0], kToday);
    ExpectSet(files, notes.sets[2], kThen);
}

TEST(RestoredState, MakesADamagedSetWhole) {
    FakeNoteFiles files = FilesWithCopy();
    files.contents["a.nmd"].resize(100);
    const auto damaged = files.contents["a.nmd"];
    NoteSets notes = Opened(files);
    ASSERT_TRUE(notes.sets[0].readOnly);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "a", kNow), "");
    ExpectSet(files, notes.sets[0], kThen);
    EXPECT_TRUE(files.contents["backup/a 2024-12-31 080509.nmd"] == damaged);
}

// ---- What cannot be restored ----------------------------------------------------------------------------------------

static void ExpectRefused(FakeNoteFiles files, const std::string& name, const char* message) {
    const auto before = files.contents;
    NoteSets notes = Opened(files);
    const auto namesBefore = NamesOf(notes);
    const auto offsets = notes.sets[0].offsets;
    const SetBackup state = TheState(files);
    const auto unreadable = files.unreadable;
    EXPECT_THAT(RestoreSetState(DeviceOver(files), notes, state, name, kNow), HasSubstr(message));
    for (const char* file : {"a.nmd", "a.nmi", "b.nmd", "b.nmi"}) EXPECT_TRUE(files.contents[file] == before.at(file));
    EXPECT_EQ(NamesOf(notes), namesBefore);
    EXPECT_EQ(notes.sets[0].offsets, offsets);
    EXPECT_FALSE(files.contents.contains("new.nmd"));
}

TEST(RestoredState, TakesThePlaceOfAMissingDataFile) {
    FakeNoteFiles files = FilesWithCopy();
    files.contents.erase("a.nmd");
    NoteSets notes = Opened(files);
    EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, TheState(files), "a", kNow), "");
    EXPECT_TRUE(files.contents["a.nmd"] == FakeSetOf(kThen).data);
    EXPECT_TRUE(files.contents["a.nmi"] == FakeSetOf(kThen).index);
    EXPECT_FALSE(notes.sets[0].readOnly);
    EXPECT_EQ(SetStates(DeviceOver(files)).size(), 1u) << "there was nothing to copy";
}

TEST(RestoredState, RefusesNamesThatCannotBe) {
    ExpectRefused(FilesWithCopy(), "b", "There already is another note set \"b\".");
    ExpectRefused(FilesWithCopy(), "B", "There already is another note set \"b\".");
    ExpectRefused(FilesWithCopy(), "a?", "The name of a note set cannot have any of the characters");
    ExpectRefused(FilesWithCopy(), "con", "Windows keeps the name");
    FakeNoteFiles files = FilesWithCopy();
    files.contents["new.nmi"] = {};
    files.listed = {"a.nmi", "b.nmi"};
    files.unreadable = {"new.nmi"};  // the file of another set that cannot be opened
    ExpectRefused(files, "new", kCannotCreateNotes);
    files = FilesWithCopy();
    for (int i = 2; i < kNoteSetLimit; ++i) AddFakeSet(files, "z" + std::to_string(i), {});
    ExpectRefused(files, "new", "There are 31 note sets");
}

TEST(RestoredState, RefusesACopyThatIsNotWhole) {
    FakeNoteFiles files = FilesWithCopy();
    files.contents["backup/a 2024-12-30.nmd"].pop_back();
    ExpectRefused(files, "a", "\"backup/a 2024-12-30.nmd\" is damaged");
    files.unreadable = {"backup/a 2024-12-30.nmd"};
    ExpectRefused(files, "a", "\"backup/a 2024-12-30.nmd\" cannot be read");
}

TEST(RestoredState, RefusesToReplaceWhatCannotBeCopied) {
    FakeNoteFiles files = FilesWithCopy();
    files.knowsLinks = false;
    files.uncreatable = {"backup/a 2024-12-31 080509.nmd.temp"};
    ExpectRefused(files, "a", "could not be copied into the folder \"backup\"");
    files = FilesWithCopy();
    files.knowsLinks = false;
    files.room = static_cast<std::int64_t>(files.contents["a.nmi"].size() + 100);  // for the index, not for the notes
    ExpectRefused(files, "a", "could not be copied into the folder \"backup\"");
    EXPECT_FALSE(files.contents.contains("backup/a 2024-12-31 080509.nmd"));
    files = FilesWithCopy();
    files.uncreatable = {"backup/a 2024-12-31 080509.nmi.temp"};  // without its index a copy is none
    ExpectRefused(files, "a", "could not be copied into the folder \"backup\"");
}

TEST(RestoredState, LeavesASetThatCannotBeWritten) {
    FakeNoteFiles files = FilesWithCopy();
    files.uncreatable = {"a.nmd.temp", "new.nmd.temp"};
    ExpectRefused(files, "a", "could not be written");
    ExpectRefused(files, "new", kCannotCreateNotes);
}

// ---- Stopped at every step ------------------------------------------------------------------------------------------

static bool RestoreUntilItStops(FakeNoteFiles& files, const std::string& name, std::int64_t steps) {
    NoteSets notes = Opened(files);
    const SetBackup state = TheState(files);
    files.steps = steps;
    bool ended = true;
    try {
        EXPECT_EQ(RestoreSetState(DeviceOver(files), notes, state, name, kNow), "");
    } catch (const ProgramStopped&) {
        ended = false;
    }
    files.steps = -1;
    return ended;
}

static bool IsIn(const FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes) {
    const auto data = files.contents.find(name + ".nmd");
    return data != files.contents.end() && data->second == FakeSetOf(notes).data;
}

// Every set is whole, "b" and the copy are as they were, and what was in "a" is in it or in its copy.
static void ExpectNothingLost(FakeNoteFiles files, const std::string& name, bool ended) {
    NoteSets notes = Opened(files);
    for (const NoteSet& set : notes.sets) EXPECT_FALSE(set.readOnly) << NoteSetName(set);
    EXPECT_TRUE(IsIn(files, "b", {{3, "in b"}}));
    EXPECT_TRUE(IsIn(files, "backup/a 2024-12-30", kThen));
    EXPECT_TRUE(IsIn(files, "a", kToday) || (name == "a" && IsIn(files, "a", kThen)));
    EXPECT_TRUE(IsIn(files, "a", kToday) || IsIn(files, "backup/a 2024-12-31 080509", kToday));
    EXPECT_TRUE(!files.contents.contains(name + ".nmd") || IsIn(files, name, kToday) || IsIn(files, name, kThen));
    EXPECT_TRUE(!ended || IsIn(files, name, kThen));
    EXPECT_EQ(OpenAndCheckSets(DeviceOver(files), notes).report, "");
}

static void StopAtEachStep(const std::string& name, int leastSteps) {
    const FakeNoteFiles before = FilesWithCopy();
    bool ended = false;
    std::int64_t step = 0;
    for (; !ended && !testing::Test::HasFailure(); ++step) {
        FakeNoteFiles files = before;
        ended = RestoreUntilItStops(files, name, step);
        for (const PowerCut cut : PowerCutsAfter(step)) {
            SCOPED_TRACE(testing::Message() << name << ", step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles left = files;
            CutPower(left, cut);
            ExpectNothingLost(std::move(left), name, ended);
        }
    }
    EXPECT_GE(step, leastSteps);
}

TEST(StoppedRestoring, LeavesTheOldOrTheNewSet) {
    StopAtEachStep("a", 20);
    StopAtEachStep("new", 8);
}
