#include "notes/set_checks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "notes/note_places.h"
#include "notes/note_saving.h"
#include "notes/note_set_changes.h"
#include "notes/note_source.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;

static const std::map<int, std::string> kNotes = {
    {0, "first"}, {5, "fifth\r\n#Ge 1:1"}, {15000, "middle"}, {31101, "end"}};

static FakeNoteFiles FilesWith(const std::vector<std::string>& names, const std::map<int, std::string>& notes) {
    FakeNoteFiles files;
    for (const std::string& name : names) AddFakeSet(files, name, notes);
    return files;
}

static NoteSets Started(FakeNoteFiles& files) {
    NoteSets notes;
    EXPECT_EQ(OpenNoteSets(DeviceOver(files), notes).report, "");
    files.log.clear();
    return notes;
}

static void CheckAll(FakeNoteFiles& files, NoteSets& notes) {
    for (SetCheck check; CheckNextPiece(DeviceOver(files), notes, check);) EXPECT_EQ(files.openFiles, 0);
}

// Two notes of the data file grow and shrink by the same amount, so its index fits its size and its end.
static void ShiftInside(FakeNoteFiles& files, const std::string& name) {
    std::map<int, std::string> shifted = kNotes;
    shifted[5] += "!!";
    shifted[15000] = "midd";
    files.contents[name + ".nmd"] = FakeSetOf(shifted).data;
}

// Its first note becomes two.
static void SplitFirstNote(FakeNoteFiles& files, const std::string& name) {
    files.contents[name + ".nmd"][1] = 0;
}

static const char kShiftedReport[] =
    "The index file of the note set \"b\" did not match its notes. It has been made again from the notes, which are "
    "all "
    "there.";

TEST(CheckNextPiece, IsLeftToDoByTheStart) {
    std::map<int, std::string> notes = kNotes;
    for (int verse = 0; verse < 2000; ++verse) notes[verse] = std::string(1000, 'n');
    FakeNoteFiles files = FilesWith({"a", "b"}, notes);
    NoteSets sets;
    OpenNoteSets(DeviceOver(files), sets);
    EXPECT_EQ(std::ranges::count(files.log, "read a.nmd"), 1) << "its end";
    EXPECT_EQ(std::ranges::count(files.log, "open a.nmd"), 0);
    for (const NoteSet& set : sets.sets) EXPECT_TRUE(set.isUnchecked);
    SelectSet(sets, 1);
    files.log.clear();
    CheckAll(files, sets);
    EXPECT_THAT(files.log, ElementsAre("read b.nmd", "read b.nmd", "read a.nmd", "read a.nmd")) << "a megabyte each";
    for (const NoteSet& set : sets.sets) EXPECT_FALSE(set.isUnchecked || set.isUntold || set.timesChanged > 0);
    EXPECT_EQ(RepairCheckedSets(DeviceOver(files), sets).report, "");
}

TEST(CheckNextPiece, FindsWhatIsNotAtTheEnd) {
    FakeNoteFiles files = FilesWith({"a", "b", "c"}, kNotes);
    ShiftInside(files, "b");
    SplitFirstNote(files, "c");
    NoteSets notes = Started(files);
    CheckAll(files, notes);
    const OpenedSets found = RepairCheckedSets(DeviceOver(files), notes);
    EXPECT_THAT(found.report,
                testing::StartsWith(std::string(kShiftedReport) + "\n\nThe data file \"c.nmd\" is damaged"));
    EXPECT_TRUE(found.hasDamaged);
    EXPECT_EQ(found.damagedSet, 2);
    EXPECT_TRUE(notes.sets[2].readOnly);
    EXPECT_TRUE(files.contents["b.nmi"] == IndexBytes(notes.sets[1].offsets));
    EXPECT_EQ(RepairCheckedSets(DeviceOver(files), notes).report, "") << "told once";
    NoteSets again;
    EXPECT_THAT(OpenAndCheckSets(DeviceOver(files), again).report, testing::StartsWith("The data file \"c.nmd\""))
        << "and at the next start";
}

TEST(UncheckedSet, IsCheckedBeforeItsNotesAreRead) {
    for (const int use : {0, 1, 2}) {
        FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
        ShiftInside(files, "b");
        NoteSets notes = Started(files);
        SelectStoredNote(notes, 1, 15000);
        std::string text;
        const NoteFiles device = DeviceOver(files);
        NoteReader reader{device, notes.sets[1]};
        const NoteSource source = SourceOf(reader);
        switch (use) {
            case 0: EXPECT_TRUE(ReadStoredNote(device, notes, text)); break;
            case 1: EXPECT_EQ(source.noteOf(source.device, 15000, text), NoteFound::kNote); break;
            case 2:
                EXPECT_EQ(NextNote(device, notes), 31101);
                EXPECT_TRUE(ReadStoredNote(device, notes, text));
                break;
        }
        EXPECT_EQ(text, "midd") << use;
        EXPECT_FALSE(notes.sets[1].isUnchecked);
        EXPECT_TRUE(notes.sets[0].isUnchecked);
        EXPECT_EQ(RepairCheckedSets(device, notes).report, kShiftedReport);
        EXPECT_TRUE(files.contents["b.nmi"] == IndexBytes(notes.sets[1].offsets));
    }
}

TEST(UncheckedSet, IsNeverSavedIfItIsDamaged) {
    for (const bool isRead : {false, true}) {
        FakeNoteFiles files = FilesWith({"a"}, kNotes);
        SplitFirstNote(files, "a");
        const auto before = files.contents;
        NoteSets notes = Started(files);
        SelectStoredNote(notes, 0, 7);
        std::string text;
        EXPECT_TRUE(!isRead || ReadStoredNote(DeviceOver(files), notes, text));
        NoteEdit edit{"new"};
        EXPECT_EQ(SaveNote(DeviceOver(files), {nullptr, [](void*, SaveNotice, const std::string&) { return true; }},
                           notes, edit, {"2024-12-31", 1735603200}),
                  NoteSaveResult::kStopped);
        EXPECT_TRUE(notes.sets[0].readOnly);
        std::erase_if(files.contents, [](const auto& file) { return file.first == "a.nmd.temp"; });
        EXPECT_TRUE(files.contents == before);
    }
}

TEST(UncheckedSet, IsSavedByTheOffsetsOfItsNotes) {
    FakeNoteFiles files = FilesWith({"b"}, kNotes);
    ShiftInside(files, "b");
    NoteSets notes = Started(files);
    SelectStoredNote(notes, 0, 15000);
    NoteEdit edit{"new", "midd"};
    EXPECT_EQ(SaveNote(DeviceOver(files), {nullptr, [](void*, SaveNotice, const std::string&) { return true; }}, notes,
                       edit, {"2024-12-31", 1735603200}),
              NoteSaveResult::kSaved);
    std::map<int, std::string> saved = kNotes;
    saved[5] += "!!";
    saved[15000] = "new";
    EXPECT_TRUE(files.contents["b.nmd"] == FakeSetOf(saved).data);
    EXPECT_TRUE(files.contents["b.nmi"] == FakeSetOf(saved).index);
    CheckAll(files, notes);
    EXPECT_EQ(RepairCheckedSets(DeviceOver(files), notes).report, "");
}

// As in a synchronized folder, where of the two files one may arrive long before the other.
TEST(UncheckedSet, ThatChangesAfterTheStartIsNotReported) {
    FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
    NoteSets notes = Started(files);
    std::map<int, std::string> shifted = kNotes;
    shifted[5] += "!!";
    ChangeFile(files, "b.nmd", FakeSetOf(shifted).data);
    CheckAll(files, notes);
    EXPECT_EQ(RepairCheckedSets(DeviceOver(files), notes).report, "");
    EXPECT_TRUE(IndexBytes(notes.sets[1].offsets) == FakeSetOf(shifted).index);
    EXPECT_TRUE(files.contents["b.nmi"] == FakeSetOf(kNotes).index) << "left to the next save";
}

TEST(UncheckedSet, IsLeftToItsFirstUseIfItCannotBeOpened) {
    FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
    SplitFirstNote(files, "b");
    NoteSets notes = Started(files);
    files.unreadable = {"b.nmd"};
    CheckAll(files, notes);
    EXPECT_EQ(RepairCheckedSets(DeviceOver(files), notes).report, "");
    std::string text;
    SelectStoredNote(notes, 1, 0);
    EXPECT_FALSE(ReadStoredNote(DeviceOver(files), notes, text));
    files.unreadable.clear();
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, text));
    EXPECT_TRUE(notes.sets[1].readOnly);
}

// Between two pieces of the check.
TEST(CheckNextPiece, GoesOnWhenSetsChangeMeanwhile) {
    std::map<int, std::string> large = kNotes;
    for (int verse = 100; verse < 3100; ++verse) large[verse] = std::string(1000, 'n');
    static constexpr void (*kChanges[])(FakeNoteFiles&, NoteSets&) = {
        [](FakeNoteFiles& files, NoteSets& notes) { RenameNoteSet(DeviceOver(files), notes, "z"); },
        [](FakeNoteFiles& files, NoteSets& notes) { DeleteNoteSet(DeviceOver(files), notes, {}); },
        [](FakeNoteFiles& files, NoteSets& notes) { CreateNoteSet(DeviceOver(files), notes, "new"); },
        [](FakeNoteFiles&, NoteSets& notes) { SelectSet(notes, 2); },
        [](FakeNoteFiles& files, NoteSets&) { files.contents.erase("a.nmd"); },
        [](FakeNoteFiles& files, NoteSets&) { ChangeFile(files, "a.nmd", FakeSetOf(kNotes).data); },
    };
    for (const auto& change : kChanges) {
        FakeNoteFiles files = FilesWith({"a", "b", "c"}, large);
        SplitFirstNote(files, "c");
        NoteSets notes = Started(files);
        SetCheck check;
        EXPECT_TRUE(CheckNextPiece(DeviceOver(files), notes, check));
        change(files, notes);
        while (CheckNextPiece(DeviceOver(files), notes, check)) continue;
        for (const NoteSet& set : notes.sets) EXPECT_FALSE(set.isUnchecked) << set.dataFileName;
        EXPECT_THAT(RepairCheckedSets(DeviceOver(files), notes).report,
                    testing::StartsWith("The data file \"c.nmd\" is damaged"));
    }
}

// ---- Data files that cannot be opened -------------------------------------------------------------------------------

// The line about data files, and behind it the report of repairs.
static std::string ToldByChecks(FakeNoteFiles& files, NoteSets& notes) {
    CheckAll(files, notes);
    const OpenedSets told = RepairCheckedSets(DeviceOver(files), notes);
    return told.unread + told.report;
}

TEST(MissingDataFile, IsToldWhenTheSetsAreChecked) {
    FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
    files.contents.erase("b.nmd");
    const auto before = files.contents;
    NoteSets notes = Started(files);
    CheckAll(files, notes);
    const OpenedSets told = RepairCheckedSets(DeviceOver(files), notes);
    EXPECT_EQ(told.unread, "b.nmd is missing.");
    EXPECT_EQ(told.report, "");
    EXPECT_EQ(ToldByChecks(files, notes), "") << "it is told once";
    EXPECT_TRUE(files.contents == before);
    ChangeFile(files, "b.nmd", FakeSetOf(kNotes).data);
    SelectSet(notes, 1);
    std::string text;
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, text));
    EXPECT_EQ(text, "first");
    EXPECT_FALSE(notes.sets[1].readOnly);
}

TEST(MissingDataFile, IsNotToldIfItHasArrived) {
    FakeNoteFiles files = FilesWith({"a"}, kNotes);
    files.contents.erase("a.nmd");
    NoteSets notes = Started(files);
    ChangeFile(files, "a.nmd", FakeSetOf(kNotes).data);
    EXPECT_EQ(ToldByChecks(files, notes), "");
}

TEST(MissingDataFile, IsToldIfItIsRemovedBeforeItsCheck) {
    FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
    NoteSets notes = Started(files);
    files.contents.erase("b.nmd");
    EXPECT_EQ(ToldByChecks(files, notes), "b.nmd is missing.");
}

TEST(MissingDataFile, IsToldInOneLineWithOthers) {
    FakeNoteFiles files = FilesWith({"a", "b", "c", "d"}, kNotes);
    for (const char* name : {"a.nmd", "b.nmd"}) files.contents.erase(name);
    files.unreadable = {"c.nmd"};
    NoteSets notes = Started(files);
    EXPECT_EQ(ToldByChecks(files, notes), "a.nmd, b.nmd are missing. c.nmd cannot be opened.");
}

TEST(UnreadableDataFile, IsToldIfItStillCannotBeOpened) {
    for (const bool isIndexWhole : {true, false}) {
        FakeNoteFiles files = FilesWith({"a", "b"}, kNotes);
        if (!isIndexWhole) files.contents["b.nmi"].clear();
        files.unreadable = {"b.nmd"};
        NoteSets notes = Started(files);
        EXPECT_EQ(ToldByChecks(files, notes), "b.nmd cannot be opened.");
        EXPECT_FALSE(notes.sets[1].readOnly);
        NoteSets later = Started(files);
        files.unreadable.clear();
        EXPECT_EQ(ToldByChecks(files, later) == "", isIndexWhole) << "a bad index is told";
    }
}

TEST(UnreadableDataFile, WithoutAnIndexIsASetAsSoonAsItCanBeOpened) {
    FakeNoteFiles files = FilesWith({"a"}, kNotes);
    const FakeSet set = FakeSetOf(kNotes);
    files.contents["b.nmd"] = set.data;
    files.unreadable = {"b.nmd"};
    for (const bool isOpenedMeanwhile : {false, true}) {
        const auto before = files.contents;
        NoteSets notes = Started(files);
        ASSERT_EQ(notes.sets.size(), 2u);
        if (isOpenedMeanwhile) files.unreadable.clear();
        EXPECT_EQ(ToldByChecks(files, notes),
                  isOpenedMeanwhile ? "The index file of the note set \"b\" was missing. It has been made "
                                      "again from the notes, which are all there."
                                    : "b.nmd cannot be opened.");
        EXPECT_EQ(files.contents == before, !isOpenedMeanwhile);
        std::string text;
        SelectStoredNote(notes, 1, 15000);
        EXPECT_EQ(ReadStoredNote(DeviceOver(files), notes, text), isOpenedMeanwhile);
        EXPECT_EQ(text, isOpenedMeanwhile ? "middle" : "");
    }
    EXPECT_TRUE(files.contents["b.nmi"] == set.index);
}

// A copy that a conflict has left is there to be merged, not to become a set.
TEST(UnreadableDataFile, OfAConflictIsNoSet) {
    FakeNoteFiles files = FilesWith({"a"}, kNotes);
    const std::string copy = "a.sync-conflict-20240501-120000-ABCDEFG.nmd";
    files.contents[copy] = FakeSetOf(kNotes).data;
    files.unreadable = {copy};
    NoteSets notes = Started(files);
    EXPECT_EQ(notes.sets.size(), 1u);
    EXPECT_EQ(ToldByChecks(files, notes), "");
}

TEST(UnwritableIndex, LeavesItsSetAmongTheSets) {
    FakeNoteFiles files = FilesWith({"a"}, kNotes);
    files.contents["b.nmd"] = FakeSetOf(kNotes).data;
    files.uncreatable = {"b.nmi"};  // as if a folder had its name
    NoteSets notes;
    EXPECT_EQ(OpenNoteSets(DeviceOver(files), notes).report,
              "The index file of the note set \"b\" was missing. It has been made again from the notes, which are all "
              "there. It could not be written to the disk: this will be tried at the next start.");
    ASSERT_EQ(notes.sets.size(), 2u);
    std::string text;
    SelectStoredNote(notes, 1, 15000);
    EXPECT_TRUE(ReadStoredNote(DeviceOver(files), notes, text));
    EXPECT_EQ(text, "middle");
}
