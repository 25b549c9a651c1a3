#include "notes/note_source.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/fake_note_files.h"
#include "tests/support/native_scripture.h"

// Two sets that have been loaded; the second is not the current one.
struct TwoSets {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
};

static void OpenTwoSets(TwoSets& sets, const std::map<int, std::string>& secondSet) {
    AddFakeSet(sets.fakes, "shown", {{0, "note of the set shown"}});
    AddFakeSet(sets.fakes, "saved", secondSet);
    sets.files = DeviceOver(sets.fakes);
    ASSERT_TRUE(FindNoteSets(sets.files, sets.notes));
    ASSERT_TRUE(ReadNoteText(sets.files, TheRealScripture().records, sets.notes, 0));
    sets.fakes.log.clear();
}

// The note of `verse` from the source, or a mark for no note or an error.
static std::string NoteOf(NoteReader& notes, int verse) {
    const NoteSource source = SourceOf(notes);
    std::string note = "left alone";
    switch (source.noteOf(source.device, verse, note)) {
        case NoteFound::kNote: return note;
        case NoteFound::kNone: return "(none)";
        case NoteFound::kUnreadable: break;
    }
    return "(unreadable)";
}

TEST(NoteReader, AreReadFromTheirSet) {
    TwoSets sets;
    const std::string longest(65533, 'n');
    OpenTwoSets(sets, {{5, "fifth\r\nnote"}, {6, "s"}, {100, longest}, {kLastVerse - 1, "b"}, {kLastVerse, "last"}});
    NoteReader notes{sets.files, sets.notes.sets[1]};
    const std::pair<int, std::string> rows[] = {
        {0, "(none)"},        {5, "fifth\r\nnote"}, {6, "s"},
        {7, "(none)"},        {100, longest},       {kLastVerse - 1, "b"},
        {kLastVerse, "last"}, {5, "fifth\r\nnote"}, {kVerseCount, "(none)"},
        {-1, "(none)"},
    };
    for (const auto& [verse, note] : rows) EXPECT_EQ(NoteOf(notes, verse), note) << verse;
    EXPECT_EQ(sets.notes.currentSet, 0);
    EXPECT_EQ(sets.notes.noteText, "note of the set shown");
}

TEST(NoteReader, EmptyLastNoteIsNoNote) {
    TwoSets sets;
    OpenTwoSets(sets, {});
    NoteReader notes{sets.files, sets.notes.sets[1]};
    EXPECT_EQ(NoteOf(notes, kLastVerse), "(none)");
}

TEST(NoteReader, EndAtTheirFirstZeroByte) {
    TwoSets sets;
    OpenTwoSets(sets, {{3, std::string("seen\0hidden", 11)}, {4, std::string("\0hidden", 7)}});
    NoteReader notes{sets.files, sets.notes.sets[1]};
    EXPECT_EQ(NoteOf(notes, 3), "seen");
    EXPECT_EQ(NoteOf(notes, 4), "") << "counts as a note because of its length";
}

TEST(NoteReader, AreReadInLargeBlocks) {
    TwoSets sets;
    std::map<int, std::string> texts;
    for (int verse = 0; verse < kVerseCount; ++verse) texts[verse] = "note " + std::to_string(verse);
    OpenTwoSets(sets, texts);
    NoteReader notes{sets.files, sets.notes.sets[1]};
    for (int verse = 0; verse < kVerseCount; ++verse) ASSERT_EQ(NoteOf(notes, verse), texts[verse]);
    EXPECT_LT(sets.fakes.log.size(), 10u) << "a third of a million bytes";
}

TEST(NoteReader, AreUnreadableWhenTheFileIsMissing) {
    TwoSets sets;
    OpenTwoSets(sets, {{3, "note"},
                       {5, std::string(65533, 'n')},
                       {6, std::string(65533, 'n')},
                       {7, std::string(65533, 'n')},
                       {8, std::string(65533, 'n')},
                       {9, "far from the first"}});
    NoteSet& set = sets.notes.sets[1];
    EXPECT_TRUE(CanReadNotes(sets.files, set));
    NoteReader notes{sets.files, set};
    EXPECT_EQ(NoteOf(notes, 3), "note");
    sets.fakes.unreadable = {"saved.nmd"};
    EXPECT_FALSE(CanReadNotes(sets.files, set));
    EXPECT_TRUE(CanReadNotes(sets.files, sets.notes.sets[0]));
    EXPECT_EQ(NoteOf(notes, 2), "(none)");
    EXPECT_EQ(NoteOf(notes, 9), "(unreadable)");
    EXPECT_EQ(NoteOf(notes, 9), "(unreadable)") << "asked again, earlier notes must not be returned";
}

// Offsets that are not ascending, are beyond the end of the file or give a note of gigabytes; a truncated data file; an
// index of a few bytes.
TEST(NoteReader, OfADamagedSetAreReadAsFarAsPossible) {
    TwoSets sets;
    OpenTwoSets(sets, {});
    sets.fakes.contents["saved.nmd"] = {'a', 'b', 'c', 'd'};
    const std::pair<std::vector<std::uint32_t>, std::string> rows[] = {
        {{0, 3}, "abc"},
        {{0, 0xFFFFFFFF}, "abcd"},
        {{1, 70000}, "bcd"},
        {{2, 0}, "(none)"},
        {{0xFFFFFFF0, 0xFFFFFFFF}, ""},
        {{4, 9}, ""},
        {{0}, "(none)"},
        {{}, "(none)"},
    };
    for (const auto& [offsets, note] : rows) {
        NoteSet set{"saved.nmd", offsets};
        StampFiles(sets.files, set);
        NoteReader notes{sets.files, set};
        EXPECT_EQ(NoteOf(notes, 0), note);
        EXPECT_EQ(NoteOf(notes, 1), "(none)");
        EXPECT_EQ(NoteOf(notes, kLastVerse), "(none)");
    }
}

TEST(NoteReader, OfADamagedSetAreTruncatedToTheSizeOfANote) {
    TwoSets sets;
    OpenTwoSets(sets, {});
    sets.fakes.contents["saved.nmd"] = std::vector<unsigned char>(200000, 'x');
    NoteSet set{"saved.nmd", {0, 150000, 150010}};
    StampFiles(sets.files, set);
    NoteReader notes{sets.files, set};
    EXPECT_EQ(NoteOf(notes, 0), std::string(kNoteBufferSize, 'x'));
    EXPECT_EQ(NoteOf(notes, 1), "xxxxxxxxxx");
}
