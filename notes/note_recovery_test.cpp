#include "notes/note_recovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "notes/note_places.h"
#include "notes/note_saving.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Bytes = std::vector<unsigned char>;

static const std::map<int, std::string> kNotes = {
    {0, "first"}, {5, "fifth\r\n#Ge 1:1"}, {15000, "middle"}, {31101, "end"}};

struct Opened {
    OpenedSets result;
    NoteSets notes;
};

static Opened Open(FakeNoteFiles& files) {
    Opened opened;
    files.log.clear();
    opened.result = OpenAndCheckSets(DeviceOver(files), opened.notes);
    EXPECT_EQ(files.openFiles, 0);
    return opened;
}

// The scan looks at blocks of 64 bytes, eight at a time.
TEST(AddPlaces, FindsANulAtEachOffset) {
    for (std::uint32_t offset = 0; offset < 130; ++offset) {
        Bytes bytes(130, 0xFF);
        bytes[offset] = 0;
        NotePlaces places;
        AddPlaces(places, bytes);
        EXPECT_EQ(places.ends, 1u) << offset;
        EXPECT_THAT(places.offsets, ElementsAre(0u, offset + 1));
    }
}

// ---- Files that are not changed -------------------------------------------------------------------------------------

TEST(OpenNoteSets, DoesNotChangeValidFiles) {
    const FakeSet set = FakeSetOf(kNotes);
    Bytes longer = set.index;
    longer.insert(longer.end(), 1000, 0xFF);  // bytes after the last offset are never read
    static const struct {
        const char* why;
        Bytes index;
        std::map<std::string, Bytes> others;
    } kRows[] = {
        {"nothing else", set.index, {}},
        {"a longer index", longer, {}},
        {"a torn temporary file", set.index, {{"a.nmd.temp", {'x'}}}},
        {"a temporary file of no set", set.index, {{"b.nmd.temp", {'x', 0}}}},
        {"a devotional table", set.index, {{"a.dti", Bytes(2976, 1)}}},
        {"a file of another ending", set.index, {{"b.nmdx", {'x'}}}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        FakeNoteFiles files;
        files.contents = row.others;
        files.contents["a.nmd"] = set.data;
        files.contents["a.nmi"] = row.index;
        const auto before = files.contents;
        const Opened opened = Open(files);
        EXPECT_EQ(opened.result.report, "");
        EXPECT_TRUE(opened.result.created);
        EXPECT_TRUE(files.contents == before);
        ASSERT_EQ(opened.notes.sets.size(), 1u);
        EXPECT_FALSE(opened.notes.sets[0].readOnly);
        EXPECT_TRUE(IndexBytes(opened.notes.sets[0].offsets) == set.index);
    }
}

TEST(OpenNoteSets, CreatesTheFirstSetInAnEmptyFolder) {
    FakeNoteFiles files;
    const Opened opened = Open(files);
    EXPECT_TRUE(opened.result.created);
    EXPECT_EQ(opened.result.report, "");
    EXPECT_TRUE(files.contents["My Notes.nmd"] == FakeSetOf({}).data);
    EXPECT_TRUE(files.contents["My Notes.nmi"] == FakeSetOf({}).index);
    EXPECT_EQ(Open(files).result.report, "");
}

// A missing data file may become available again, so the index must be kept.
TEST(OpenNoteSets, DoesNotChangeAnIndexWithoutDataFile) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents.erase("a.nmd");
    const Opened opened = Open(files);
    EXPECT_EQ(opened.result.report, "");
    EXPECT_EQ(opened.notes.sets.size(), 1u);
    EXPECT_TRUE(files.contents["a.nmi"] == FakeSetOf(kNotes).index);
}

TEST(OpenNoteSets, DoesNotChangeASetUsedByAnotherProgram) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents["a.nmi"].resize(10);
    files.contents["b.nmd"] = FakeSetOf(kNotes).data;
    files.unreadable = {"a.nmd", "b.nmd"};
    const auto before = files.contents;
    EXPECT_EQ(Open(files).result.report, "");
    EXPECT_TRUE(files.contents == before);
}

// Windows also finds such files when it searches for "*.nmi".
TEST(OpenNoteSets, AcceptsAnIndexWithALongerExtension) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents["a.nmibak"] = files.contents["a.nmi"];
    files.contents.erase("a.nmi");
    files.listed = {"a.nmibak"};
    const auto before = files.contents;
    const Opened opened = Open(files);
    EXPECT_EQ(opened.result.report, "");
    EXPECT_TRUE(files.contents == before);
    EXPECT_EQ(opened.notes.sets.size(), 1u);
}

// ---- Repairs --------------------------------------------------------------------------------------------------------

static Bytes Part(const Bytes& bytes, std::size_t begin, std::size_t end) {
    return {bytes.begin() + static_cast<std::ptrdiff_t>(begin), bytes.begin() + static_cast<std::ptrdiff_t>(end)};
}

static Bytes Joined(Bytes one, const Bytes& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

struct BadIndex {
    const char* why;
    Bytes index;
};

static std::vector<BadIndex> BadIndexes() {
    const Bytes good = FakeSetOf(kNotes).index;
    std::map<int, std::string> before = kNotes;
    before[5] = "it was short";
    const Bytes stale = FakeSetOf(before).index;
    std::map<int, std::string> balanced = kNotes;  // two notes change, but the later ones keep their offsets
    balanced[5] = kNotes.at(5) + "!!";
    balanced[15000] = "midd";
    Bytes oneWrong = good;
    ++oneWrong[4 * 15000];
    Bytes falling = good;
    std::reverse(falling.begin(), falling.end());
    return {
        {"empty", {}},
        {"three bytes", {1, 2, 3}},
        {"short by one offset", Part(good, 0, good.size() - 4)},
        {"short by one byte", Part(good, 0, good.size() - 1)},
        {"half", Part(good, 0, good.size() / 2)},
        {"torn: new, then nothing", Joined(Part(good, 0, 61440), Bytes(good.size() - 61440, 0))},
        {"torn: old, then new", Joined(Part(stale, 0, 61440), Part(good, 61440, good.size()))},
        {"torn: new, then old", Joined(Part(good, 0, 61440), Part(stale, 61440, good.size()))},
        {"stale", stale},
        {"stale in the middle only", FakeSetOf(balanced).index},
        {"of an empty set", FakeSetOf({}).index},
        {"all zeros", Bytes(good.size(), 0)},
        {"all ones", Bytes(good.size(), 0xFF)},
        {"one offset wrong", oneWrong},
        {"falling", falling},
    };
}

TEST(OpenNoteSets, RebuildsABadIndex) {
    const FakeSet set = FakeSetOf(kNotes);
    for (const BadIndex& row : BadIndexes()) {
        SCOPED_TRACE(row.why);
        FakeNoteFiles files;
        files.contents["a.nmd"] = set.data;
        files.contents["a.nmi"] = row.index;
        Opened opened = Open(files);
        EXPECT_TRUE(files.contents["a.nmd"] == set.data);
        EXPECT_TRUE(files.contents["a.nmi"] == set.index);
        EXPECT_FALSE(files.unflushed.contains("a.nmi"));
        EXPECT_TRUE(IndexBytes(opened.notes.sets[0].offsets) == set.index);
        EXPECT_FALSE(opened.notes.sets[0].readOnly);
        EXPECT_FALSE(opened.result.hasDamaged);
        EXPECT_EQ(opened.result.report,
                  "The index file of the note set \"a\" did not match its notes. It has been made again from the "
                  "notes, which are all there.");
        EXPECT_EQ(Open(files).result.report, "");
    }
}

TEST(OpenNoteSets, FindsASetWithoutIndex) {
    FakeNoteFiles files;
    AddFakeSet(files, "b", {});
    AddFakeSet(files, "a.b", kNotes);
    files.contents.erase("a.b.nmi");
    const Opened opened = Open(files);
    EXPECT_TRUE(files.contents["a.b.nmi"] == FakeSetOf(kNotes).index);
    ASSERT_EQ(opened.notes.sets.size(), 2u);
    EXPECT_EQ(NoteSetName(opened.notes.sets[1]), "a.b");
    EXPECT_EQ(opened.result.report,
              "The index file of the note set \"a.b\" was missing. It has been made again from the notes, which are "
              "all there.");
}

TEST(OpenNoteSets, UsesRebuiltOffsetsWhenTheIndexCannotBeWritten) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents["a.nmi"].resize(10);
    files.uncreatable = {"a.nmi"};
    const Opened opened = Open(files);
    EXPECT_TRUE(IndexBytes(opened.notes.sets[0].offsets) == FakeSetOf(kNotes).index);
    EXPECT_THAT(opened.result.report, HasSubstr("could not be written"));
    EXPECT_TRUE(files.contents["a.nmd"] == FakeSetOf(kNotes).data);
}

TEST(OpenNoteSets, UsesTheTemporaryFileWhenTheDataFileIsMissing) {
    const FakeSet before = FakeSetOf(kNotes);
    const FakeSet after = FakeSetOf({{0, "first"}, {15000, "changed"}});
    for (const Bytes& index : {before.index, after.index, Bytes{}}) {
        for (const bool hasIndex : {true, false}) {
            FakeNoteFiles files;
            files.contents["a.nmd.temp"] = after.data;
            if (hasIndex) files.contents["a.nmi"] = index;
            const Opened opened = Open(files);
            EXPECT_TRUE(files.contents["a.nmd"] == after.data);
            EXPECT_TRUE(files.contents["a.nmi"] == after.index);
            EXPECT_FALSE(files.contents.contains("a.nmd.temp"));
            EXPECT_THAT(opened.result.report,
                        testing::StartsWith("The data file of the note set \"a\" was missing. Its temporary file is "
                                            "whole and has taken its place."));
            ASSERT_EQ(opened.notes.sets.size(), 1u);
            EXPECT_EQ(NoteSetName(opened.notes.sets[0]), "a");
        }
    }
}

TEST(OpenNoteSets, NeverUsesAnIncompleteTemporaryFile) {
    const FakeSet whole = FakeSetOf(kNotes);
    Bytes tooMany = whole.data;
    tooMany.push_back(0);
    for (const Bytes& torn : {Bytes{}, Part(whole.data, 0, whole.data.size() - 1), tooMany}) {
        FakeNoteFiles files;
        files.contents["a.nmd.temp"] = torn;
        files.contents["a.nmi"] = whole.index;
        const auto before = files.contents;
        Open(files);
        EXPECT_TRUE(files.contents == before);
    }
}

TEST(OpenNoteSets, ReportsAllSetsTogether) {
    FakeNoteFiles files;
    for (const char* name : {"a", "b", "c"}) AddFakeSet(files, name, kNotes);
    files.contents["a.nmi"].resize(10);
    files.contents.erase("b.nmi");
    const std::string report = Open(files).result.report;
    EXPECT_THAT(report, HasSubstr("set \"b\" was missing"));
    EXPECT_THAT(report, HasSubstr("\n\nThe index file of the note set \"a\" did not match"));
    EXPECT_THAT(report, testing::Not(HasSubstr("\"c\"")));
}

// ---- Damage that cannot be repaired ---------------------------------------------------------------------------------

TEST(OpenNoteSets, OpensADamagedSetReadOnly) {
    const FakeSet set = FakeSetOf(kNotes);
    Bytes tooMany = set.data;
    tooMany[1] = 0;
    const struct {
        const char* why;
        Bytes data;
        bool hasIndex;
        const char* said;
    } kRows[] = {
        {"cut", Part(set.data, 0, 20000), true, "it should hold 31102 notes, but it has 19975."},
        {"cut, without its index", Part(set.data, 0, 20000), false, "it has 19975."},
        {"a NUL too many", tooMany, true, "it has 31103."},
        {"a NUL too many, without its index", tooMany, false, "it has 31103."},
        {"empty", {}, true, "it has 0."},
        {"no NUL", {'t', 'e', 'x', 't'}, false, "it has 0."},
        {"text behind the last note", Joined(set.data, {'x'}), true, "it has 31102."},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        FakeNoteFiles files;
        files.contents["a.nmd"] = row.data;
        if (row.hasIndex) files.contents["a.nmi"] = set.index;
        AddFakeSet(files, "other", {});
        const auto before = files.contents;
        Opened opened = Open(files);
        EXPECT_TRUE(files.contents == before);
        ASSERT_EQ(opened.notes.sets.size(), 2u);
        const int place = NoteSetName(opened.notes.sets[0]) == "a" ? 0 : 1;
        EXPECT_TRUE(opened.notes.sets[static_cast<std::size_t>(place)].readOnly);
        EXPECT_FALSE(opened.notes.sets[static_cast<std::size_t>(1 - place)].readOnly);
        EXPECT_TRUE(opened.result.hasDamaged);
        EXPECT_THAT(opened.result.report, testing::StartsWith("The data file \"a.nmd\" is damaged"));
        EXPECT_THAT(opened.result.report, HasSubstr(row.said));
        SelectStoredNote(opened.notes, place, 0);
        NoteEdit edit{"new"};
        EXPECT_EQ(SaveNote(DeviceOver(files), {nullptr, [](void*, SaveNotice, const std::string&) { return true; }},
                           opened.notes, edit, {"2024-12-31", 1735603200}),
                  NoteSaveResult::kStopped);
        EXPECT_TRUE(files.contents == before);
    }
}

// The remaining notes can be read, with the index if its offsets are valid, otherwise by the zero bytes after notes.
// Whatever can be seen of it at the end of the file.
TEST(OpenNoteSets, DoesNotReportKnownDamageAgain) {
    for (const bool isTorn : {false, true}) {
        FakeNoteFiles fakes;
        AddFakeSet(fakes, "A", {{3, "three"}});
        AddFakeSet(fakes, "B", {});
        std::vector<unsigned char>& data = fakes.contents["A.nmd"];
        if (isTorn) data.resize(100);
        data[0] = 'x';
        NoteSets notes;
        const std::string known[] = {"A"};
        const OpenedSets opened = OpenNoteSets(DeviceOver(fakes), notes, {}, known);
        EXPECT_EQ(opened.report, "");
        EXPECT_FALSE(opened.hasDamaged);
        EXPECT_TRUE(notes.sets[0].readOnly);
        EXPECT_FALSE(notes.sets[0].isUnchecked);
        EXPECT_EQ(OpenNoteSets(DeviceOver(fakes), notes).hasDamaged, isTorn) << "otherwise a later check reports it";
    }
}

TEST(OpenNoteSets, NamesTheLatestWholeBackupOfADamagedSet) {
    const Bytes whole = FakeSetOf(kNotes).data;
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    AddFakeSet(files, "b", kNotes);
    files.contents["b.nmd"].resize(5);
    files.contents["backup/b 2024-12-29.nmd"] = whole;
    files.contents["backup/b 2024-12-30.nmd"] = whole;
    files.contents["backup/b 2024-12-31.nmd"] = {0};
    files.contents["backup/a 2025-01-01.nmd"] = whole;
    const OpenedSets opened = Open(files).result;
    EXPECT_THAT(opened.report, HasSubstr(" The latest whole backup is of 2024-12-30: \"backup/b 2024-12-30.nmd\"."));
    EXPECT_EQ(opened.damagedSet, 1);
    files.contents["backup/b 2024-12-30.nmd"] = files.contents["backup/b 2024-12-29.nmd"] = {};
    EXPECT_THAT(Open(files).result.report, Not(HasSubstr("backup")));
    files.contents["b.nmd"] = whole;
    EXPECT_EQ(Open(files).result.damagedSet, kNoDamagedSet);
}

TEST(OpenNoteSets, ReadsTheNotesOfADamagedSet) {
    const FakeSet set = FakeSetOf({{0, "first"}, {10, "tenth"}});
    for (const bool hasIndex : {true, false}) {
        FakeNoteFiles files;
        files.contents["a.nmd"] = Part(set.data, 0, 19);
        if (hasIndex) files.contents["a.nmi"] = set.index;
        Opened opened = Open(files);
        for (const auto& [verse, text] : {std::pair(0, "first"), std::pair(10, "tent"), std::pair(7, "")}) {
            const StoredNote note = StoredNoteOf(opened.notes.sets.back(), verse);
            const std::size_t rest = files.contents["a.nmd"].size();
            const std::size_t begin = std::min<std::size_t>(note.offset, rest);
            const Bytes stored = Part(files.contents["a.nmd"], begin, std::min<std::size_t>(begin + note.length, rest));
            EXPECT_EQ(std::string(stored.begin(), std::find(stored.begin(), stored.end(), 0)), text);
        }
    }
}

// Located by their ends, all notes after an extra NUL would be shifted.
TEST(OpenNoteSets, ReadsADamagedSetByAnAscendingIndex) {
    const FakeSet set = FakeSetOf({{0, "first"}, {10, "tenth"}});
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{0, "first"}, {10, "tenth"}});
    files.contents["a.nmd"][2] = 0;
    const Opened opened = Open(files);
    EXPECT_TRUE(opened.notes.sets[0].readOnly);
    EXPECT_TRUE(IndexBytes(opened.notes.sets[0].offsets) == set.index);
}

TEST(OpenNoteSets, ReportsACompleteCopyOfADamagedSet) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents["a.nmd.temp"] = files.contents["a.nmd"];
    files.contents["a.nmd"].resize(100);
    const auto before = files.contents;
    EXPECT_THAT(Open(files).result.report, HasSubstr("A whole copy of the set is in \"a.nmd.temp\"."));
    EXPECT_TRUE(files.contents == before);
}

// Another message box reports it already.
TEST(OpenNoteSets, DoesNotReportAFirstSetThatCannotBeCreated) {
    FakeNoteFiles files;
    files.contents["My Notes.nmd"] = {'o', 'l', 'd', 0};
    const Opened opened = Open(files);
    EXPECT_FALSE(opened.result.created);
    EXPECT_EQ(opened.result.report, "");
    EXPECT_EQ(files.contents["My Notes.nmd"], (Bytes{'o', 'l', 'd', 0}));
    ASSERT_EQ(opened.notes.sets.size(), 1u);
    EXPECT_TRUE(opened.notes.sets[0].readOnly);
}

TEST(OpenNoteSets, ReportsADamagedSetAfterAFirstSetThatCannotBeCreated) {
    FakeNoteFiles files;
    files.contents["My Notes.nmd"] = {'o', 'l', 'd', 0};
    files.contents["other.nmd"] = {'x'};
    const Opened opened = Open(files);
    EXPECT_FALSE(opened.result.created);
    ASSERT_EQ(opened.notes.sets.size(), 2u);
    EXPECT_THAT(opened.result.report, testing::StartsWith("The data file \"other.nmd\" is damaged"));
    EXPECT_THAT(opened.result.report, testing::Not(HasSubstr("My Notes")));
}

TEST(OpenNoteSets, LimitsTheSetsTo31IncludingThoseWithoutIndex) {
    FakeNoteFiles files;
    for (int i = 0; i < 31; ++i) AddFakeSet(files, "set" + std::to_string(i), {});
    files.contents["damaged.nmd"] = {'x'};
    const Opened opened = Open(files);
    EXPECT_EQ(opened.notes.sets.size(), 31u);
    EXPECT_EQ(NotShownText(opened.notes), "1 set not shown: damaged. There can be 31 sets.");
}
