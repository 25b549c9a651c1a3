#include "exchange/exchanged_notes.h"

#include <gmock/gmock.h>

#include "tests/support/checked_sets.h"
#include "tests/support/exchange_samples.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::Pair;

static std::optional<ExchangedNotes> ExportOf(FakeNoteFiles& files) {
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    return NotesToExport(DeviceOver(files), notes.sets.at(0));
}

TEST(NotesToExport, AreThoseOfTheSet) {
    FakeNoteFiles files;
    AddFakeSet(files, "My Notes", {{0, "first"}, {7, "seven\r\n"}, {31101, "last"}});
    const auto notes = ExportOf(files);
    ASSERT_TRUE(notes);
    EXPECT_EQ(notes->setName, "My Notes");
    EXPECT_THAT(PlacedIn(*notes), ElementsAre(Pair(0, "first"), Pair(7, "seven\r\n"), Pair(31101, "last")));
    EXPECT_EQ(notes->notes[1].digest, DigestOf("seven\r\n"));
}

// So that the notes of a damaged set can be rescued.
TEST(NotesToExport, MayBeOfADamagedSet) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{0, "first"}, {7, "seven"}, {31101, "last"}});
    files.contents["a.nmd"].resize(20);
    const auto notes = ExportOf(files);
    ASSERT_TRUE(notes);
    EXPECT_THAT(PlacedIn(*notes), ElementsAre(Pair(0, "first"), Pair(7, "seven")));
}

TEST(NotesToExport, NeedAFileThatCanBeRead) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{0, "first"}});
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(files), notes);
    files.unreadable.insert("a.nmd");
    EXPECT_FALSE(NotesToExport(DeviceOver(files), notes.sets.at(0)));
}

TEST(NoteDigests, TellNotesApart) {
    EXPECT_EQ(DigestOf(""), 0u);
    EXPECT_EQ(DigestOf("123456789"), 0xCBF43926u);
    EXPECT_NE(DigestOf("a"), DigestOf("b"));
}
