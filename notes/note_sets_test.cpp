#include "notes/note_sets.h"

#include <gtest/gtest.h>

#include "tests/support/fake_note_files.h"
#include "tests/support/native_scripture.h"

static NoteSets Found(FakeNoteFiles& files) {
    NoteSets notes;
    EXPECT_TRUE(FindNoteSets(DeviceOver(files), notes));
    return notes;
}

static std::vector<std::string> NamesOf(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

static std::string NoteText(FakeNoteFiles& files, NoteSets& notes, int verse) {
    EXPECT_TRUE(ReadNoteText(DeviceOver(files), TheRealScripture().records, notes, verse));
    return notes.noteText;
}

TEST(FindNoteSets, KeepsTheOrderOfTheListing) {
    FakeNoteFiles files;
    for (const char* name : {"b", "A", "a.b", ""}) AddFakeSet(files, name, {});
    const NoteSets notes = Found(files);
    EXPECT_EQ(NamesOf(notes), (std::vector<std::string>{"b", "A", "a.b", ""}));
    EXPECT_EQ(notes.sets[2].dataFileName, "a.b.nmd");
    EXPECT_EQ(notes.sets[2].offsets.size(), 31102u);
    EXPECT_EQ(notes.currentSet, 0);
    EXPECT_EQ(notes.devotionalSet, kNoDevotionalSet);
}

// Windows also finds "x.nmibak" when it searches for "*.nmi".
TEST(FindNoteSets, EndsTheNameAtItsLastDot) {
    FakeNoteFiles files;
    AddFakeSet(files, "x", {});
    files.contents["x.nmibak"] = files.contents["x.nmi"];
    files.contents.erase("x.nmi");
    files.listed = {"x.nmibak"};
    const NoteSets notes = Found(files);
    EXPECT_EQ(NamesOf(notes), (std::vector<std::string>{"x"}));
    EXPECT_EQ(notes.sets[0].dataFileName, "x.nmd");
}

TEST(FindNoteSets, FindsAtMost31Sets) {
    FakeNoteFiles files;
    for (int i = 0; i < 40; ++i) AddFakeSet(files, "set" + std::to_string(i), {});
    const NoteSets notes = Found(files);
    EXPECT_EQ(notes.sets.size(), 31u);
    EXPECT_EQ(NamesOf(notes).back(), "set30");
    EXPECT_EQ(files.log.size(), 31u);  // one read per set without a devotional table, none for the 32nd
    EXPECT_EQ(NotShownText(notes),
              "9 sets not shown: set31, set32, set33, set34, set35, set36, "
              "set37, set38, set39. There can be 31 sets.");
}

TEST(FindNoteSets, StopsAtAFileThatCannotBeOpened) {
    FakeNoteFiles files;
    for (const char* name : {"a", "b", "c"}) AddFakeSet(files, name, {});
    files.unreadable = {"b.nmi"};
    NoteSets notes = Found(files);
    EXPECT_EQ(NamesOf(notes), (std::vector<std::string>{"a"}));
    EXPECT_EQ(NotShownText(notes), "2 sets not shown: b, c. \"b.nmi\" cannot be opened.");
    files.unreadable.clear();
    FindNoteSets(DeviceOver(files), notes);
    EXPECT_EQ(NotShownText(notes), "");
}

TEST(FindNoteSets, CountsSetsWhoseFilesHaveNoName) {
    FakeNoteFiles files;
    for (const char* name : {"a", "b"}) AddFakeSet(files, name, {});
    files.unnamed["*.nmi"] = 5;  // an index without its notes is no set
    EXPECT_EQ(NotShownText(Found(files)), "");
    files.unnamed["*.nmd"] = 1;
    EXPECT_EQ(NotShownText(Found(files)),
              "1 set not shown: its name has letters that this system's code page lacks. Rename the files.");
    files.unnamed["*.nmd"] = 2;
    files.unreadable = {"b.nmi"};
    EXPECT_EQ(NotShownText(Found(files)),
              "1 set not shown: b. \"b.nmi\" cannot be opened. 2 sets not shown: their names have letters that this "
              "system's code page lacks. Rename the files.");
}

TEST(FindNoteSets, StartsAgainEachTime) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    files.contents["a.dti"] = {};
    NoteSets notes = Found(files);
    files.contents.erase("a.dti");
    EXPECT_TRUE(FindNoteSets(DeviceOver(files), notes));
    EXPECT_EQ(notes.sets.size(), 1u);
    EXPECT_EQ(notes.devotionalSet, kNoDevotionalSet);
}

TEST(FindNoteSets, GivesTheDevotionalRoleToTheLastSetWithATable) {
    FakeNoteFiles files;
    for (const char* name : {"a", "b", "c"}) AddFakeSet(files, name, {});
    files.contents["a.dti"] = LittleEndianBytes(std::vector<std::uint32_t>(744, 7));
    std::vector<std::uint32_t> table(744);
    for (std::uint32_t i = 0; i < 744; ++i) table[i] = 0x01010100 + i;
    files.contents["b.dti"] = LittleEndianBytes(table);
    const NoteSets notes = Found(files);
    EXPECT_EQ(notes.devotionalSet, 1);
    for (std::size_t i = 0; i < 744; ++i) ASSERT_EQ(notes.devotionalTable[i], table[i]) << i;
}

TEST(FindNoteSets, HandlesDevotionalTablesOfAnySize) {
    static constexpr struct {
        std::size_t size;
        std::uint32_t first, second, last;
    } kRows[] = {
        {0, 0, 0, 0},
        {3, 0x00010101, 0, 0},
        {5, 0x01010101, 1, 0},
        {2975, 0x01010101, 0x01010101, 0x00010101},
        {2976, 0x01010101, 0x01010101, 0x01010101},
        {5000, 0x01010101, 0x01010101, 0x01010101},
    };
    for (const auto& row : kRows) {
        FakeNoteFiles files;
        for (const char* name : {"a", "b"}) AddFakeSet(files, name, {});
        files.contents["a.dti"] = LittleEndianBytes(std::vector<std::uint32_t>(744, 7));  // must be replaced completely
        files.contents["b.dti"] = std::vector<unsigned char>(row.size, 1);
        const NoteSets notes = Found(files);
        EXPECT_EQ(notes.devotionalSet, 1);
        EXPECT_EQ(notes.devotionalTable[0], row.first) << row.size;
        EXPECT_EQ(notes.devotionalTable[1], row.second) << row.size;
        EXPECT_EQ(notes.devotionalTable[743], row.last) << row.size;
    }
}

TEST(FindNoteSets, CreatesTheFirstSet) {
    FakeNoteFiles files;
    const NoteSets notes = Found(files);
    EXPECT_EQ(files.log, (std::vector<std::string>{"create My Notes.nmd", "create My Notes.nmi"}));
    EXPECT_EQ(NamesOf(notes), (std::vector<std::string>{"My Notes"}));
    EXPECT_EQ(files.contents["My Notes.nmd"], std::vector<unsigned char>(31102, 0));
    const std::vector<unsigned char>& index = files.contents["My Notes.nmi"];
    ASSERT_EQ(index.size(), 124408u);
    for (std::uint32_t verse = 0; verse < 31102; ++verse) {
        ASSERT_EQ(notes.sets[0].offsets[verse], verse);
        ASSERT_EQ(index[4 * verse] + 256u * index[4 * verse + 1], verse);
        ASSERT_EQ(index[4 * verse + 2] + index[4 * verse + 3], 0) << verse;
    }
}

TEST(FindNoteSets, KeepsTheFirstSetInMemoryWhenItsFilesCannotBeCreated) {
    static const struct {
        const char* uncreatable;
        std::vector<std::string> log;
    } kRows[] = {
        {"My Notes.nmd", {"create My Notes.nmd"}},
        {"My Notes.nmi", {"create My Notes.nmd", "create My Notes.nmi"}},
    };
    for (const auto& row : kRows) {
        FakeNoteFiles files;
        files.uncreatable = {row.uncreatable};
        NoteSets notes;
        EXPECT_FALSE(FindNoteSets(DeviceOver(files), notes));
        EXPECT_EQ(files.log, row.log);
        ASSERT_EQ(notes.sets.size(), 1u);
        EXPECT_EQ(notes.sets[0].dataFileName, "My Notes.nmd");
        ASSERT_EQ(notes.sets[0].offsets.size(), 31102u);
        EXPECT_EQ(notes.sets[0].offsets[31101], 31101u);
        EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 0));
    }
}

TEST(FindNoteSets, NeverChangesNotesWithoutIndex) {
    FakeNoteFiles files;
    files.contents["My Notes.nmd"] = {'o', 'l', 'd', 0};
    NoteSets notes;
    EXPECT_FALSE(FindNoteSets(DeviceOver(files), notes));
    EXPECT_EQ(files.contents["My Notes.nmd"], (std::vector<unsigned char>{'o', 'l', 'd', 0}));
    EXPECT_FALSE(files.contents.contains("My Notes.nmi"));
}

TEST(SelectStoredNote, ReplacesInvalidSettings) {
    static constexpr struct {
        int set, verse;
        int currentSet, currentVerse;
    } kRows[] = {
        {0, 0, 0, 0},
        {1, 31101, 1, 31101},
        {2, 31102, 0, 0},
        {5, 40000, 0, 0},
        {-1, -1, 0, 0},
        {1, 40000, 1, 0},
        {5, 100, 0, 100},
        {2147483647, 2147483647, 0, 0},
        {-2147483647 - 1, -2147483647 - 1, 0, 0},
    };
    FakeNoteFiles files;
    for (const char* name : {"a", "b"}) AddFakeSet(files, name, {});
    NoteSets notes = Found(files);
    for (const auto& row : kRows) {
        SelectStoredNote(notes, row.set, row.verse);
        EXPECT_EQ(notes.currentSet, row.currentSet) << row.set;
        EXPECT_EQ(notes.currentVerse, row.currentVerse) << row.verse;
    }
}

TEST(ReadNoteText, ReadsTheNoteOrTextForNoNote) {
    static const struct {
        int verse;
        const char* text;
        int currentVerse;
    } kRows[] = {
        {0, "No note for Genesis 1:1.", 0}, {1, "first\r\n#Ge 1:1", 1},
        {2, "No note for Genesis 1:3.", 2}, {31100, "No note for Revelation 22:20.", 31100},
        {31101, "the end", 31101},          {31102, "the end", 31101},
        {63535, "the end", 31101},          {-1, "No note for Genesis 1:1.", 0},
    };
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "first\r\n#Ge 1:1"}, {31101, "the end"}});
    NoteSets notes = Found(files);
    for (const auto& row : kRows) {
        EXPECT_EQ(NoteText(files, notes, row.verse), row.text);
        EXPECT_EQ(notes.currentVerse, row.currentVerse) << row.verse;
    }
}

TEST(ReadNoteText, ChangesNothingWhenTheDataFileCannotBeOpened) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{5, "five"}});
    NoteSets notes = Found(files);
    EXPECT_EQ(NoteText(files, notes, 5), "five");
    files.unreadable = {"a.nmd"};
    for (const int verse : {0, 5, 6, 31101}) EXPECT_FALSE(ReadNoteText(DeviceOver(files), {}, notes, verse));
    EXPECT_EQ(notes.noteText, "five");
    EXPECT_EQ(notes.currentVerse, 5);
}

TEST(ReadNoteText, EndsAtTheFirstNul) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{3, std::string("ab\0cd", 5)}, {4, std::string("\0x", 2)}});
    NoteSets notes = Found(files);
    EXPECT_EQ(NoteText(files, notes, 3), "ab");
    EXPECT_EQ(NoteText(files, notes, 4), "No note for Genesis 1:5.");
}

TEST(ReadNoteText, TruncatesToTheBufferSize) {
    static constexpr struct {
        int verse;
        std::size_t stored, shown;
    } kRows[] = {
        {7, 65533, 65533},  {7, 65535, 65535},     {7, 65536, 65535},
        {7, 200000, 65535}, {31101, 65533, 65533}, {31101, 200000, 65535},
    };
    for (const auto& row : kRows) {
        FakeNoteFiles files;
        AddFakeSet(files, "a", {{row.verse, std::string(row.stored, 'n')}});
        NoteSets notes = Found(files);
        EXPECT_EQ(NoteText(files, notes, row.verse), std::string(row.shown, 'n')) << row.stored;
    }
}

TEST(ReadNoteText, ReadsTheCurrentSet) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{9, "of a"}});
    AddFakeSet(files, "b", {{9, "of b"}});
    NoteSets notes = Found(files);
    SelectStoredNote(notes, 1, 0);
    EXPECT_EQ(NoteText(files, notes, 9), "of b");
    EXPECT_TRUE(NoteExists(DeviceOver(files), notes, 9));
}

TEST(ReadNoteText, NeedsOneReadPerNote) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{7, "seven"}, {31101, "end"}});
    NoteSets notes = Found(files);
    for (const int verse : {0, 7, 31101}) {
        files.log.clear();
        NoteText(files, notes, verse);
        EXPECT_EQ(files.log, (std::vector<std::string>{"read a.nmd"}));
    }
}

TEST(ReadNoteText, FailsWithoutASet) {
    FakeNoteFiles files;
    NoteSets notes;
    EXPECT_FALSE(ReadNoteText(DeviceOver(files), {}, notes, 0));
    EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 0));
    EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 31101));
    EXPECT_EQ(NextNote(DeviceOver(files), notes), 1);
}

// With any offsets, nothing outside the files may be read or shown.
TEST(DamagedSets, AreReadAsFarAsPossible) {
    static const struct {
        const char* why;
        std::vector<std::uint32_t> offsets;
        std::size_t strayBytes;  // after the last complete integer
        int verse;
        const char* text;
        bool exists;
    } kRows[] = {
        {"empty index", {}, 0, 0, "", false},
        {"stray bytes only", {}, 3, 0, "", false},
        {"one entry: no end", {0}, 2, 0, "", false},
        {"two entries", {0, 4}, 0, 0, "abc", true},
        {"second of two: no end", {0, 4}, 0, 1, "", false},
        {"verse far beyond the index", {0, 4}, 0, 31100, "", false},
        {"last verse beyond the index", {0, 4}, 0, 31101, "", false},
        {"decreasing", {4, 0}, 0, 0, "", false},
        {"begins past the data", {100, 200}, 0, 0, "", true},
        {"ends past the data", {4, 0xFFFFFFFF}, 0, 0, "defg", true},
        {"both far out", {0xFFFFFFFE, 0xFFFFFFFF}, 0, 0, "", false},
        {"inside a note", {2, 9}, 0, 0, "c", true},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        FakeNoteFiles files;
        files.listed = {"a.nmi"};
        files.contents["a.nmi"] = LittleEndianBytes(row.offsets);
        files.contents["a.nmi"].insert(files.contents["a.nmi"].end(), row.strayBytes, 0xFF);
        files.contents["a.nmd"] = {'a', 'b', 'c', 0, 'd', 'e', 'f', 'g', 0};
        NoteSets notes = Found(files);
        const std::string none = "No note for " + ReferenceText(TheRealScripture().records, row.verse, BookForm::kName);
        EXPECT_EQ(NoteText(files, notes, row.verse), *row.text == '\0' ? none + "." : row.text);
        EXPECT_EQ(NoteExists(DeviceOver(files), notes, row.verse), row.exists);
    }
}

TEST(DamagedSets, HaveAtMostOneOffsetPerVerse) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    files.contents["a.nmi"].resize(500000, 0xFF);
    EXPECT_EQ(Found(files).sets[0].offsets.size(), 31102u);
}

TEST(DamagedSets, HaveNoLastNoteWithoutData) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{31101, "end"}});
    NoteSets notes = Found(files);
    EXPECT_TRUE(NoteExists(DeviceOver(files), notes, 31101));
    files.contents["a.nmd"].resize(100);
    EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 31101));
    EXPECT_EQ(NoteText(files, notes, 31101), "No note for Revelation 22:21.");
    files.contents.erase("a.nmd");
    EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 31101));
}

TEST(NoteExists, DependsOnTheStoredLength) {
    static constexpr struct {
        int verse;
        bool exists;
    } kRows[] = {{0, false},    {1, true},      {2, true},      {3, false}, {31100, false},
                 {31101, true}, {31102, false}, {63535, false}, {-1, false}};
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "x"}, {2, std::string("\0", 1)}, {31101, "end"}});  // only a NUL is shown as no note
    const NoteSets notes = Found(files);
    for (const auto& row : kRows) EXPECT_EQ(NoteExists(DeviceOver(files), notes, row.verse), row.exists) << row.verse;
}

TEST(NoteExists, OpensTheDataFileForTheLastVerseOnly) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    const NoteSets notes = Found(files);
    files.log.clear();
    for (const int verse : {0, 1, 31100}) EXPECT_FALSE(NoteExists(DeviceOver(files), notes, verse));
    EXPECT_TRUE(files.log.empty());
    for (int time = 0; time < 2; ++time) EXPECT_FALSE(NoteExists(DeviceOver(files), notes, 31101));
    EXPECT_EQ(files.log, (std::vector<std::string>{"size a.nmd", "size a.nmd"}));
}

TEST(NextAndPreviousNote, WrapAroundTheBible) {
    static const struct {
        std::vector<int> withNotes;
        int current;
        int next, previous;
    } kRows[] = {
        {{}, 0, 1, 31101},
        {{}, 31101, 0, 31100},
        {{}, 100, 101, 99},
        {{100}, 100, 101, 99},  // without another note, the neighbouring verse
        {{100}, 50, 100, 100},
        {{100}, 101, 100, 100},
        {{100, 200, 31101}, 100, 200, 31101},
        {{100, 200, 31101}, 31101, 100, 200},
        {{0, 31101}, 0, 31101, 31101},
        {{0, 31101}, 31101, 0, 0},
        {{0, 1}, 0, 1, 1},
    };
    for (const auto& row : kRows) {
        FakeNoteFiles files;
        std::map<int, std::string> texts;
        for (const int verse : row.withNotes) texts[verse] = "note";
        AddFakeSet(files, "a", texts);
        NoteSets notes = Found(files);
        SelectStoredNote(notes, 0, row.current);
        EXPECT_EQ(NextNote(DeviceOver(files), notes), row.next) << row.current;
        EXPECT_EQ(PreviousNote(DeviceOver(files), notes), row.previous) << row.current;
    }
}

TEST(SetNamed, FindsASetByItsName) {
    FakeNoteFiles files;
    for (const char* name : {"b", "Mine", "a.b", ""}) AddFakeSet(files, name, {});
    const NoteSets notes = Found(files);
    const std::pair<const char*, int> rows[] = {{"b", 0}, {"mine", 1}, {"a.b", 2},
                                                {"", 3},  {"a", -1},   {"Mine.nmd", -1}};
    for (const auto& [name, set] : rows) EXPECT_EQ(SetNamed(notes, name), set) << name;
}

TEST(SetNumberedAt, CountsTheSetsThatWereThere) {
    NoteSets notes;
    for (const std::uint64_t time : {30u, 10u, 40u, 20u}) {
        notes.sets.push_back({"x.nmd"});
        notes.sets.back().dataStamp.time = time;
    }
    static constexpr struct {
        int number;
        std::uint64_t time;
        int set;
    } kRows[] = {{0, 10, 1}, {0, 20, 1}, {1, 20, 3}, {0, 35, 0}, {1, 35, 1}, {2, 35, 3},  {3, 35, 3},
                 {0, 99, 0}, {3, 99, 3}, {0, 0, 0},  {2, 0, 2},  {7, 20, 7}, {-1, 99, -1}};
    for (const auto& [number, time, set] : kRows)
        EXPECT_EQ(SetNumberedAt(notes, number, time), set) << number << " " << time;
}
