#include "notes/note_sets.h"

#include <gtest/gtest.h>

#include "tests/support/fake_note_files.h"

TEST(TabMarkers, ChangeWhenAPaneHasMoved) {
    static constexpr MarkedPlace kEmptyList{-1, kNoVerse, 5};
    static constexpr struct {
        MarkedPlace before, now;
        bool isNew;
    } kRows[] = {
        {kEmptyList, kEmptyList, false},   {kEmptyList, {-1, kNoVerse, 6}, true}, {kEmptyList, {0, 100, 5}, true},
        {{0, 100, 5}, kEmptyList, true},   {{0, 100, 5}, {0, 100, 5}, false},     {{0, 100, 5}, {1, 100, 5}, true},
        {{0, 100, 5}, {0, 200, 5}, false},  // a new list at the same position as the old one
        {{0, 100, 5}, {0, 100, 4}, true},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(NeedsNewMarks(row.before, row.now), row.isNew)
            << row.before.listPosition << " to " << row.now.listPosition << ", " << row.now.passageVerse;
    }
    EXPECT_TRUE(NeedsNewMarks({}, kEmptyList));
}

TEST(TabMarkers, PrecedeTheNameListMarkFirst) {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "a.b", {{10, "for ten"}, {20, "for twenty"}, {kLastVerse, "for the last"}});
    const NoteFiles files = DeviceOver(fakes);
    NoteSets notes;
    ASSERT_TRUE(FindNoteSets(files, notes));
    static constexpr struct {
        MarkedPlace place;
        const char* label;
    } kRows[] = {
        {{-1, kNoVerse, 11}, "a.b"},
        {{-1, kNoVerse, 10}, "\xBB a.b"},
        {{0, 10, 11}, "\xAB a.b"},
        {{0, 11, 10}, "\xBB a.b"},
        {{3, 10, 20}, "\xAB \xBB a.b"},
        {{0, 10, 10}, "\xAB \xBB a.b"},
        {{0, kLastVerse, kLastVerse}, "\xAB \xBB a.b"},
        {{-1, 10, 11}, "a.b"},  // an empty list has no current entry
    };
    for (const auto& row : kRows) EXPECT_EQ(MarkedLabel(files, notes.sets[0], row.place), row.label);
}

static std::string TabNameOf(const std::string& name, const NoteFiles& files = {}) {
    return TabName(files, NoteSet{name + ".nmd"});
}

// Each letter is two bytes.
static NoteFiles FilesWithLongLetters() {
    NoteFiles files;
    files.codePage.lettersOf = [](void*, std::string_view bytes) { return LettersOfUtf8(bytes); };
    files.codePage.bytesOf = [](void*, std::u16string_view letters, std::string& bytes) {
        bytes = Utf8Of(letters);
        return true;
    };
    return files;
}

TEST(TabNames, AreCutOnlyIfTheyAreVeryLong) {
    const std::string letters = "abcdefghijklmnopqrstuvwxyz0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    for (const std::size_t size : {0u, 1u, 20u, 40u})
        EXPECT_EQ(TabNameOf(letters.substr(0, size)), letters.substr(0, size));
    EXPECT_EQ(TabNameOf(letters.substr(0, 41)), "abcdefghijklmnopqrstuvwxyz...456789ABCDE");
    EXPECT_EQ(TabNameOf(std::string(200, 'a') + letters), "aaaaaaaaaaaaaaaaaaaaaaaaaa...PQRSTUVWXYZ");
    std::string greek;
    for (int i = 0; i < 40; ++i) greek += "\u03B1";
    EXPECT_EQ(TabNameOf(greek, FilesWithLongLetters()), greek);
    EXPECT_EQ(TabNameOf(greek + "x", FilesWithLongLetters()), greek.substr(0, 52) + "..." + greek.substr(0, 20) + "x");
}

// Only the note of the last verse needs the data file, because the index does not give its length.
TEST(TabMarkers, NeedTheDataFileOnlyForTheLastNote) {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "a", {{10, "for ten"}});
    const NoteFiles files = DeviceOver(fakes);
    NoteSets notes;
    ASSERT_TRUE(FindNoteSets(files, notes));
    fakes.log.clear();
    MarkedLabel(files, notes.sets[0], {0, kLastVerse - 1, 10});
    EXPECT_TRUE(fakes.log.empty());
    MarkedLabel(files, notes.sets[0], {0, 10, kLastVerse});
    EXPECT_EQ(fakes.log, std::vector<std::string>{"size a.nmd"});
}
