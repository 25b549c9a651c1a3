#include "history/set_merging.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "notes/conflict_copies.h"
#include "notes/joined_texts.h"
#include "notes/note_places.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/set_texts.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

static constexpr char kCopy[] = "a.sync-conflict-20240501-120000-ABCDEFG";
static const NoteTime kNow = {"2024-12-31", 1735603200};

using Texts = std::map<int, std::string>;

static Texts TextsOf(FakeNoteFiles& files, const std::string& name) {
    std::vector<std::string> all;
    EXPECT_TRUE(ReadSetTexts(DeviceOver(files), name + ".nmd", all)) << name;
    Texts texts;
    for (std::size_t verse = 0; verse < all.size(); ++verse)
        if (!all[verse].empty()) texts[static_cast<int>(verse)] = all[verse];
    return texts;
}

static std::vector<std::string> NamesOf(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

// The names of the files in a folder: "" or "backup/".
static std::vector<std::string> FilesIn(const FakeNoteFiles& files, const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files.contents)
        if (name.starts_with(folder) && name.find('/', folder.size()) == std::string::npos)
            names.push_back(name.substr(folder.size()));
    return names;
}

static std::vector<std::string> HistoryOf(FakeNoteFiles& files, const std::string& set, int verse) {
    std::vector<std::string> texts;
    for (const EarlierNote& note : EarlierNotesOf(DeviceOver(files), set, verse)) texts.push_back(note.text);
    return texts;
}

// A set and its copy of which both changed verse 2, the set 3 and the copy 4, as their histories tell.
static FakeNoteFiles FilesInConflict() {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}, {2, "two here"}, {3, "three here"}, {4, "four"}});
    AddFakeSet(files, kCopy, {{1, "one"}, {2, "two there"}, {3, "three"}, {4, "four there"}});
    const EarlierNote past = {10, 1, KeptReason::kReplaced, "uno"};
    const EarlierNote here[] = {past, {20, 2, KeptReason::kReplaced, "two"}, {21, 3, KeptReason::kReplaced, "three"}};
    const EarlierNote there[] = {past, {30, 2, KeptReason::kReplaced, "two"}, {31, 4, KeptReason::kReplaced, "four"}};
    KeepEarlierNotes(DeviceOver(files), "a", here);
    KeepEarlierNotes(DeviceOver(files), kCopy, there);
    return files;
}

static const Texts kMerged = {
    {1, "one"}, {2, JoinedTexts("two here", "two there")}, {3, "three here"}, {4, "four there"}};

static SetMergeEnd Merge(FakeNoteFiles& files, NoteSets& notes, const std::string& copy = kCopy,
                         const std::string& set = "a") {
    const std::optional<SetMerge> merge = PlanSetMerge(DeviceOver(files), copy, set);
    EXPECT_TRUE(merge);
    return MergeSets(DeviceOver(files), notes, *merge, kNow);
}

static NoteSets Opened(FakeNoteFiles& files) {
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    return notes;
}

// ---- The plan -------------------------------------------------------------------------------------------------------

TEST(SetMerge, IsPlannedWithoutWriting) {
    FakeNoteFiles files = FilesInConflict();
    const auto before = files.contents;
    const std::optional<SetMerge> merge = PlanSetMerge(DeviceOver(files), kCopy, "a");
    ASSERT_TRUE(merge);
    EXPECT_EQ(merge->equalNotes, 1);
    ASSERT_EQ(merge->notes.size(), 3u);
    EXPECT_EQ(merge->notes[0].kind, MergeKind::kBoth);
    EXPECT_EQ(merge->notes[1].kind, MergeKind::kStays);
    EXPECT_EQ(merge->notes[2].kind, MergeKind::kFromCopy);
    EXPECT_EQ(files.contents, before);
}

// The set "a", its copy and a backup, and what is not a backup of this set, or not whole.
static FakeNoteFiles FilesWithBackup() {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}, {2, "two here"}, {3, "three"}});
    AddFakeSet(files, kCopy, {{1, "one there"}, {2, "two"}});
    files.contents["backup/a 2024-05-01.nmd"] = FakeSetOf({{1, "one"}, {2, "two"}, {3, "three"}}).data;
    for (const char* name : {"b 2024-05-01", "a b 2024-05-01", "a 2024-05-01 merged", "a 2024-05-1x"})
        files.contents["backup/" + std::string(name) + ".nmd"] = FakeSetOf({{1, "one there"}, {2, "two here"}}).data;
    files.contents["backup/a 2024-05-02.nmd"] = std::vector<unsigned char>(100, 'x');
    return files;
}

static std::vector<MergeKind> KindsOf(FakeNoteFiles& files, const std::string& copy) {
    std::vector<MergeKind> kinds;
    const std::optional<SetMerge> merge = PlanSetMerge(DeviceOver(files), copy, "a");
    EXPECT_TRUE(merge);
    for (const MergedNote& note : merge->notes) kinds.push_back(note.kind);
    return kinds;
}

TEST(SetMerge, HeedsTheBackupsOfTheSet) {
    FakeNoteFiles files = FilesWithBackup();
    files.times["backup/a 2024-05-01.nmd"] = 10;
    files.times[kCopy + std::string(".nmd")] = 11;
    EXPECT_THAT(KindsOf(files, kCopy), ElementsAre(MergeKind::kFromCopy, MergeKind::kStays, MergeKind::kStays));
    files.times[kCopy + std::string(".nmd")] = 10;  // it may be from long before
    EXPECT_THAT(KindsOf(files, kCopy), ElementsAre(MergeKind::kBoth, MergeKind::kStays, MergeKind::kStays));
}

TEST(SetMerge, LeavesTheNotesThatAnotherSetDoesNotHave) {
    FakeNoteFiles files = FilesWithBackup();
    AddFakeSet(files, "other", {{1, "one there"}, {9, "nine"}});
    files.times["other.nmd"] = 11;
    EXPECT_THAT(KindsOf(files, "other"),
                ElementsAre(MergeKind::kBoth, MergeKind::kStays, MergeKind::kStays, MergeKind::kFromCopy));
}

TEST(SetMerge, NeedsTwoWholeDataFiles) {
    FakeNoteFiles files = FilesInConflict();
    EXPECT_FALSE(PlanSetMerge(DeviceOver(files), kCopy, "b"));
    EXPECT_FALSE(PlanSetMerge(DeviceOver(files), "b", "a"));
    files.contents["b.nmd"] = {'x', 0};
    EXPECT_FALSE(PlanSetMerge(DeviceOver(files), "b", "a"));
    EXPECT_FALSE(PlanSetMerge(DeviceOver(files), "a", "b"));
}

// ---- The merge ------------------------------------------------------------------------------------------------------

TEST(SetMerge, WritesTheSetAndMovesTheCopyAway) {
    FakeNoteFiles files = FilesInConflict();
    const std::vector<unsigned char> dataBefore = files.contents["a.nmd"];
    const std::vector<unsigned char> copyBefore = files.contents[std::string(kCopy) + ".nmd"];
    NoteSets notes = Opened(files);
    ASSERT_THAT(NamesOf(notes), ElementsAre("a", kCopy));
    SelectSet(notes, 1);
    EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    EXPECT_EQ(TextsOf(files, "a"), kMerged);
    EXPECT_EQ(files.contents["a.nmi"], FakeSetOf(kMerged).index);
    EXPECT_THAT(NamesOf(notes), ElementsAre("a"));
    EXPECT_EQ(notes.currentSet, 0);
    EXPECT_EQ(IndexBytes(notes.sets[0].offsets), files.contents["a.nmi"]);
    EXPECT_THAT(FilesIn(files, ""), UnorderedElementsAre("a.nmd", "a.nmi"));
    const std::string moved = kCopy + std::string(" merged");
    EXPECT_THAT(FilesIn(files, "backup/"), UnorderedElementsAre("a 2024-12-31.nmd", "a 2024-12-31.nmi", "a.nmh",
                                                                moved + ".nmd", moved + ".nmi", moved + ".nmh"));
    EXPECT_EQ(files.contents["backup/a 2024-12-31.nmd"], dataBefore);
    EXPECT_EQ(files.contents["backup/" + moved + ".nmd"], copyBefore);
    EXPECT_TRUE(files.unflushed.empty());
}

TEST(SetMerge, KeepsWhatItReplacesAndJoinsTheHistories) {
    FakeNoteFiles files = FilesInConflict();
    NoteSets notes = Opened(files);
    Merge(files, notes);
    EXPECT_THAT(HistoryOf(files, "a", 1), ElementsAre("uno"));
    EXPECT_THAT(HistoryOf(files, "a", 2), ElementsAre("two here", "two", "two"));
    EXPECT_THAT(HistoryOf(files, "a", 3), ElementsAre("three"));
    EXPECT_THAT(HistoryOf(files, "a", 4), ElementsAre("four", "four"));
    EXPECT_EQ(EarlierNotesOf(DeviceOver(files), "a", 2)[0],
              (EarlierNote{kNow.seconds, 2, KeptReason::kMerged, "two here"}));
}

TEST(SetMerge, CanBeFollowedByASave) {
    FakeNoteFiles files = FilesInConflict();
    NoteSets notes = Opened(files);
    Merge(files, notes);
    SelectStoredNote(notes, 0, 9);
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string& text) {
                                 ADD_FAILURE() << text;
                                 return true;
                             }};
    NoteEdit edit{"nine"};
    EXPECT_EQ(SaveNote(DeviceOver(files), voice, notes, edit, kNow), NoteSaveResult::kSaved);
    Texts texts = kMerged;
    texts[9] = "nine";
    EXPECT_EQ(TextsOf(files, "a"), texts);
}

// The files of a copy often have different times in their names.
TEST(SetMerge, TakesHalvesOfACopy) {
    FakeNoteFiles files = FilesInConflict();
    const std::string copy = kCopy;
    const auto rename = [&](const std::string& from, const std::string& to) {
        auto file = files.contents.extract(from);
        file.key() = to;
        files.contents.insert(std::move(file));
    };
    rename(copy + ".nmi", "a.sync-conflict-20240501-120001-ABCDEFG.nmi");
    rename("backup/" + copy + ".nmh", "backup/a.sync-conflict-20240501-120002-ABCDEFG.nmh");
    NoteSets notes = Opened(files);
    ASSERT_THAT(NamesOf(notes), ElementsAre("a"));
    EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    EXPECT_EQ(TextsOf(files, "a"), kMerged);
    EXPECT_THAT(FilesIn(files, ""), UnorderedElementsAre("a.nmd", "a.nmi"));
    EXPECT_THAT(HistoryCopiesOf(FindHalfCopies(DeviceOver(files)), "a"), IsEmpty());
    EXPECT_THAT(NamesOf(Opened(files)), ElementsAre("a"));
}

TEST(SetMerge, IsOfAnyTwoSets) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}});
    AddFakeSet(files, "other", {{2, "two"}});
    AddFakeSet(files, "third", {});
    NoteSets notes = Opened(files);
    SelectSet(notes, 2);
    EXPECT_EQ(Merge(files, notes, "other", "a"), SetMergeEnd::kMerged);
    EXPECT_EQ(TextsOf(files, "a"), (Texts{{1, "one"}, {2, "two"}}));
    EXPECT_THAT(NamesOf(notes), ElementsAre("a", "third"));
    EXPECT_EQ(notes.currentSet, 1);
}

TEST(SetMerge, GivesEachCopyANameOfItsOwn) {
    FakeNoteFiles files = FilesInConflict();
    NoteSets notes = Opened(files);
    Merge(files, notes);
    AddFakeSet(files, kCopy, {{8, "eight"}});
    Merge(files, notes);
    const std::string moved = "backup/" + std::string(kCopy) + " merged";
    EXPECT_TRUE(files.contents.contains(moved + ".nmd"));
    EXPECT_EQ(files.contents[moved + " 2.nmd"], FakeSetOf({{8, "eight"}}).data);
    EXPECT_EQ(TextsOf(files, "a").at(8), "eight");
}

TEST(SetMerge, KeepsATextForWhichThereIsNoRoom) {
    FakeNoteFiles files;
    const std::string mine(40000, 'a'), other(40000, 'b');
    AddFakeSet(files, "a", {{1, mine}});
    AddFakeSet(files, kCopy, {{1, other}});
    NoteSets notes = Opened(files);
    EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    EXPECT_EQ(TextsOf(files, "a"), (Texts{{1, mine}}));
    EXPECT_THAT(HistoryOf(files, "a", 1), ElementsAre(other));
}

TEST(SetMerge, PassesTheDevotionalTableOn) {
    for (const bool hasOwn : {false, true}) {
        FakeNoteFiles files = FilesInConflict();
        const std::vector<unsigned char> own(2976, 1), ofCopy(2976, 2);
        if (hasOwn) files.contents["a.dti"] = own;
        files.contents[std::string(kCopy) + ".dti"] = ofCopy;
        NoteSets notes = Opened(files);
        EXPECT_EQ(notes.devotionalSet, 1);
        EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
        EXPECT_EQ(notes.devotionalSet, 0);
        EXPECT_EQ(notes.devotionalTable[7], hasOwn ? 0x01010101u : 0x02020202u);
        EXPECT_EQ(files.contents["a.dti"], hasOwn ? own : ofCopy);
        EXPECT_EQ(files.contents.contains("backup/" + std::string(kCopy) + " merged.dti"), hasOwn);
        EXPECT_FALSE(files.contents.contains(std::string(kCopy) + ".dti"));
    }
}

TEST(SetMerge, DoesNotBringTheCopyBackFromItsTemporaryFile) {
    FakeNoteFiles files = FilesInConflict();
    files.contents[std::string(kCopy) + ".nmd.temp"] = FakeSetOf({{1, "old"}}).data;
    NoteSets notes = Opened(files);
    Merge(files, notes);
    EXPECT_THAT(NamesOf(Opened(files)), ElementsAre("a"));
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST(SetMerge, WritesNothingIntoFilesThatHaveChanged) {
    for (const std::string& changed : {std::string("a.nmd"), std::string("a.nmi"), kCopy + std::string(".nmd")}) {
        FakeNoteFiles files = FilesInConflict();
        NoteSets notes = Opened(files);
        const std::optional<SetMerge> merge = PlanSetMerge(DeviceOver(files), kCopy, "a");
        ChangeFile(files, changed, std::vector<unsigned char>(files.contents[changed]));
        const auto before = files.contents;
        EXPECT_EQ(MergeSets(DeviceOver(files), notes, *merge, kNow), SetMergeEnd::kChangedOnDisk) << changed;
        EXPECT_EQ(files.contents, before);
        EXPECT_EQ(notes.sets.size(), 2u);
    }
}

TEST(SetMerge, LeavesTheSetsOnAFullDisk) {
    for (const std::int64_t room : {0, 10, 500, 30000, 200000}) {
        FakeNoteFiles files = FilesInConflict();
        NoteSets notes = Opened(files);
        const std::vector<unsigned char> data = files.contents["a.nmd"],
                                         copy = files.contents[kCopy + std::string(".nmd")];
        files.room = room;
        const SetMergeEnd end = Merge(files, notes);
        if (end == SetMergeEnd::kMerged) {
            EXPECT_EQ(TextsOf(files, "a"), kMerged);
            continue;
        }
        EXPECT_EQ(end, SetMergeEnd::kCannotWrite) << room;
        EXPECT_EQ(files.contents["a.nmd"], data);
        EXPECT_EQ(files.contents[kCopy + std::string(".nmd")], copy);
        files.room = -1;
        EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
        EXPECT_EQ(TextsOf(files, "a"), kMerged);
    }
}

TEST(SetMerge, TellsWhenTheCopyIsInUse) {
    FakeNoteFiles files = FilesInConflict();
    NoteSets notes = Opened(files);
    files.unrenamable = {std::string(kCopy) + ".nmd"};
    EXPECT_EQ(Merge(files, notes), SetMergeEnd::kNotMovedAway);
    EXPECT_EQ(TextsOf(files, "a"), kMerged);
    EXPECT_TRUE(files.contents.contains(std::string(kCopy) + ".nmd"));
    files.unrenamable.clear();
    EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    EXPECT_EQ(TextsOf(files, "a"), kMerged);
}

// ---- Stops ----------------------------------------------------------------------------------------------------------

static bool MergeUntilItStops(FakeNoteFiles& files, std::int64_t steps) {
    NoteSets notes = Opened(files);
    files.steps = steps;
    bool ended = true;
    try {
        EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    } catch (const ProgramStopped&) {
        ended = false;
    }
    files.steps = -1;
    return ended;
}

// The set is old and the copy there, or the set is new. Whatever is left to do, the next start and merge do it.
static void ExpectNothingLost(FakeNoteFiles files) {
    const std::string copy = kCopy;
    NoteSets notes = Opened(files);
    ASSERT_THAT(NamesOf(notes), testing::Contains("a"));
    EXPECT_FALSE(notes.sets[0].readOnly);
    const bool isNew = TextsOf(files, "a") == kMerged;
    if (!isNew) {
        EXPECT_EQ(TextsOf(files, "a"), (Texts{{1, "one"}, {2, "two here"}, {3, "three here"}, {4, "four"}}));
    }
    const bool hasCopy = files.contents.contains(copy + ".nmd");
    ASSERT_TRUE(isNew || hasCopy);
    EXPECT_EQ(hasCopy, FindConflictCopies(DeviceOver(files)).size() == 1);
    if (hasCopy) {
        EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
    }
    EXPECT_EQ(TextsOf(files, "a"), kMerged);
    PutAwayHalfCopies(DeviceOver(files));
    EXPECT_EQ(TextsOf(files, "backup/" + copy + " merged"),
              (Texts{{1, "one"}, {2, "two there"}, {3, "three"}, {4, "four there"}}));
    EXPECT_THAT(NamesOf(Opened(files)), ElementsAre("a"));
    for (const char* text : {"two here", "two"}) EXPECT_THAT(HistoryOf(files, "a", 2), testing::Contains(text));
    EXPECT_THAT(HistoryOf(files, "a", 4), testing::Contains("four"));
    EXPECT_THAT(HistoryCopiesOf(FindHalfCopies(DeviceOver(files)), "a"), IsEmpty());
}

TEST(StoppedMerge, LosesNothing) {
    const FakeNoteFiles before = FilesInConflict();
    std::int64_t step = 0;
    for (bool ended = false; !ended; ++step) {
        FakeNoteFiles files = before;
        ended = MergeUntilItStops(files, step);
        for (const PowerCut cut : PowerCutsAfter(step)) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", power cut " << static_cast<int>(cut));
            FakeNoteFiles left = files;
            CutPower(left, cut);
            ExpectNothingLost(std::move(left));
            if (HasFailure()) return;
        }
    }
    EXPECT_GE(step, 20);
}

// Only a backup tells what was changed.
TEST(StoppedMerge, ComesToTheSameWithoutHistories) {
    FakeNoteFiles before;
    AddFakeSet(before, "a", {{1, "one"}, {2, "two here"}, {3, "three here"}, {4, "four"}});
    AddFakeSet(before, kCopy, {{1, "one"}, {2, "two there"}, {3, "three"}, {4, "four there"}});
    before.contents["backup/a 2024-05-01.nmd"] = FakeSetOf({{1, "one"}, {2, "two"}, {3, "three"}, {4, "four"}}).data;
    before.times[kCopy + std::string(".nmd")] = 1;  // after the backup
    std::int64_t step = 0;
    for (bool ended = false; !ended; ++step) {
        SCOPED_TRACE(step);
        FakeNoteFiles files = before;
        ended = MergeUntilItStops(files, step);
        NoteSets notes = Opened(files);
        if (!FindConflictCopies(DeviceOver(files)).empty()) {
            EXPECT_EQ(Merge(files, notes), SetMergeEnd::kMerged);
        }
        EXPECT_EQ(TextsOf(files, "a"), kMerged);
        if (HasFailure()) return;
    }
}

// ---- Halves without a copy ------------------------------------------------------------------------------------------

TEST(HalfCopies, ArePutAway) {
    FakeNoteFiles files = FilesInConflict();
    files.contents.erase(std::string(kCopy) + ".nmd");
    PutAwayHalfCopies(DeviceOver(files));
    EXPECT_THAT(FilesIn(files, ""), UnorderedElementsAre("a.nmd", "a.nmi"));
    EXPECT_THAT(HistoryOf(files, "a", 4), ElementsAre("four"));
    EXPECT_THAT(HistoryOf(files, "a", 1), ElementsAre("uno"));
    EXPECT_THAT(HistoryCopiesOf(FindHalfCopies(DeviceOver(files)), "a"), IsEmpty());
    const auto after = files.contents;
    PutAwayHalfCopies(DeviceOver(files));
    EXPECT_EQ(files.contents, after);
}

TEST(HalfCopies, StayWhileThereIsACopy) {
    FakeNoteFiles files = FilesInConflict();
    files.contents["a_conflict-1.nmi"] = {};
    const auto before = files.contents;
    PutAwayHalfCopies(DeviceOver(files));
    EXPECT_EQ(files.contents, before);
}

// A listing takes the longer the more files the folder has, so one for each set made the start wait for all of them.
TEST(HalfCopies, AreLookedForInAsManyListingsForAnyNumberOfSets) {
    const auto listingsFor = [](int sets) {
        FakeNoteFiles files;
        for (int set = 0; set < sets; ++set) AddFakeSet(files, "a" + std::to_string(set), {});
        PutAwayHalfCopies(DeviceOver(files));
        return files.listings;
    };
    EXPECT_EQ(listingsFor(31), listingsFor(1));
}
