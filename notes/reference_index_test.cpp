#include "notes/reference_index.h"

#include <gtest/gtest.h>

#include <utility>

#include "notes/note_refresh.h"
#include "notes/note_saving.h"
#include "scripture/reference_parser.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& IndexRecords() {
    return TheRealScripture().records;
}

static int IndexVerse(const std::string& reference) {
    return ParseReference(IndexRecords(), reference).verse;
}

namespace {

// Sets "a" and "b" in memory, and their index.
struct IndexedSets : testing::Test {
    FakeNoteFiles disk;
    NoteFiles files = DeviceOver(disk);
    NoteSets notes;
    ReferenceIndex index = ReferenceIndexFor(IndexRecords());

    void AddSet(const std::string& name, const std::map<std::string, std::string>& texts) {
        std::map<int, std::string> byVerse;
        for (const auto& [reference, text] : texts) byVerse[IndexVerse(reference)] = text;
        AddFakeSet(disk, name, byVerse);
    }

    void Open() { ASSERT_EQ(OpenAndCheckSets(files, notes).report, ""); }

    // How many pieces it took.
    int IndexAll(std::size_t budget = kIndexedAtOnce) {
        int pieces = 0;
        while (IndexSome(files, IndexRecords(), notes, index, budget)) {
            EXPECT_EQ(disk.openFiles, 0);
            EXPECT_LT(++pieces, 100000);
        }
        return pieces;
    }

    // "a Ge 1:1, b Ex 2:4": the notes that name the verse.
    std::string Naming(const std::string& reference) const {
        std::string named;
        for (const NamingNote& one : NotesThatName(index, notes, IndexVerse(reference)))
            named += (named.empty() ? "" : ", ") + NoteSetName(notes.sets[static_cast<std::size_t>(one.set)]) + ' ' +
                     ReferenceText(IndexRecords(), one.verse, BookForm::kAbbreviation);
        return named;
    }

    void Save(int set, const std::string& reference, const std::string& text) {
        SelectStoredNote(notes, set, IndexVerse(reference));
        std::string before;
        ASSERT_TRUE(ReadStoredNote(files, notes, before));
        NoteEdit edit{text, before};
        const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return false; }};
        ASSERT_EQ(SaveNote(files, voice, notes, edit, {"2024-12-31", 1735603200}), NoteSaveResult::kSaved);
        IndexSavedNote(IndexRecords(), notes, index, set, IndexVerse(reference), text);
    }
};

}  // namespace

TEST_F(IndexedSets, NameVersesInListsAndInText) {
    AddSet("a", {{"Ge 1:1", "see Rom 8:28-30 and v. 3\r\n# Ex 2:4; Le 3:1"}, {"Re 22:21", "Ro 8:29"}});
    AddSet("b", {{"Ge 1:5", "# Ro 8:29"}});
    Open();
    IndexAll();
    EXPECT_TRUE(IsWhole(index, notes));
    EXPECT_EQ(Naming("Ro 8:28"), "a Ge 1:1");
    EXPECT_EQ(Naming("Ro 8:29"), "a Ge 1:1, a Re 22:21, b Ge 1:5");
    EXPECT_EQ(Naming("Ro 8:31"), "");
    EXPECT_EQ(Naming("Ge 1:3"), "a Ge 1:1");
    EXPECT_EQ(Naming("Ex 2:4"), "a Ge 1:1");
    EXPECT_EQ(Naming("Le 3:1"), "a Ge 1:1");
}

// "Ex 5" is Exodus 3:5 in a list of a note on Genesis 3:2, and a chapter in running text.
TEST_F(IndexedSets, KeepTheMeaningOfLists) {
    AddSet("a", {{"Ge 3:2", "# Ex 5"}, {"Ge 3:3", "Exodus 5"}});
    Open();
    IndexAll();
    EXPECT_EQ(Naming("Ex 3:5"), "a Ge 3:2");
    EXPECT_EQ(Naming("Ex 5:1"), "a Ge 3:3");
}

TEST_F(IndexedSets, JoinTheVersesOfANote) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28-30; Rom 8:30-33; Rom 8:34; Rom 8:36; Rom 8:28"}});
    Open();
    IndexAll();
    ASSERT_EQ(index.sets.size(), 1u);
    ASSERT_EQ(index.sets[0].named.size(), 2u);
    EXPECT_EQ(index.sets[0].named[0].first, IndexVerse("Ro 8:28"));
    EXPECT_EQ(index.sets[0].named[0].last, IndexVerse("Ro 8:34"));
    EXPECT_EQ(index.sets[0].named[1].first, IndexVerse("Ro 8:36"));
}

TEST_F(IndexedSets, AreIndexedInPieces) {
    std::map<std::string, std::string> texts;
    for (int verse = 1; verse <= 30; ++verse)
        texts["Ge 1:" + std::to_string(verse)] = std::string(5000, 'x') + " Rom 8:" + std::to_string(verse);
    AddSet("a", texts);
    AddSet("b", texts);
    Open();
    EXPECT_FALSE(IsWhole(index, notes));
    ASSERT_TRUE(IndexSome(files, IndexRecords(), notes, index, 20000));
    EXPECT_EQ(Naming("Ro 8:1"), "a Ge 1:1");
    EXPECT_EQ(Naming("Ro 8:30"), "") << "not yet";
    EXPECT_FALSE(IsWhole(index, notes));
    EXPECT_EQ(UnindexedSets(index, notes), 2);
    EXPECT_LT(IndexedVerses(index), 30);
    EXPECT_GT(IndexAll(20000), 20);
    EXPECT_EQ(Naming("Ro 8:30"), "a Ge 1:30, b Ge 1:30");
    EXPECT_TRUE(IsWhole(index, notes));
    EXPECT_EQ(IndexedVerses(index), 2 * kVerseCount);
    EXPECT_EQ(IndexAll(), 0);
}

TEST_F(IndexedSets, WaitForTheirCheck) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28"}});
    OpenNoteSets(files, notes, {});
    ASSERT_TRUE(notes.sets[0].isUnchecked);
    EXPECT_EQ(IndexAll(), 0);
    EXPECT_FALSE(IsWhole(index, notes));
    for (SetCheck check; CheckNextPiece(files, notes, check);) continue;
    IndexAll();
    EXPECT_EQ(Naming("Ro 8:28"), "a Ge 1:1");
}

TEST_F(IndexedSets, FollowASavedNote) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28"}, {"Ge 1:2", "Rom 8:28"}, {"Ge 1:3", "Rom 8:28"}});
    AddSet("b", {{"Ge 1:2", "Rom 8:28"}});
    Open();
    IndexAll();
    disk.log.clear();
    Save(0, "Ge 1:2", "now v. 5, and Rom 9:1");
    EXPECT_EQ(Naming("Ro 8:28"), "a Ge 1:1, a Ge 1:3, b Ge 1:2");
    EXPECT_EQ(Naming("Ro 9:1"), "a Ge 1:2");
    EXPECT_EQ(Naming("Ge 1:5"), "a Ge 1:2");
    EXPECT_TRUE(IsWhole(index, notes)) << "nothing else has to be read again";
    EXPECT_EQ(IndexAll(), 0);
    Save(0, "Ge 1:2", "");
    EXPECT_EQ(Naming("Ro 9:1"), "");
    Save(0, "Ge 1:20", "Rom 9:1");
    EXPECT_EQ(Naming("Ro 9:1"), "a Ge 1:20");
    ReferenceIndex anew = ReferenceIndexFor(IndexRecords());
    std::swap(anew, index);
    IndexAll();
    EXPECT_EQ(index.sets[0].named.size(), anew.sets[0].named.size());
}

// A note that is saved before it is reached is read when it is.
TEST_F(IndexedSets, FollowANoteThatIsSavedTooEarly) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28" + std::string(5000, ' ')}, {"Ge 1:2", "Rom 8:28"}});
    Open();
    ASSERT_TRUE(IndexSome(files, IndexRecords(), notes, index, 1000));
    Save(0, "Ge 1:2", "Rom 9:1");
    Save(0, "Ge 1:1", "Rom 10:1");
    IndexAll();
    EXPECT_EQ(Naming("Ro 8:28"), "");
    EXPECT_EQ(Naming("Ro 9:1"), "a Ge 1:2");
    EXPECT_EQ(Naming("Ro 10:1"), "a Ge 1:1");
}

TEST_F(IndexedSets, AreIndexedAnewWhenTheirFilesChange) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28"}});
    AddSet("b", {{"Ge 1:1", "Rom 8:28"}});
    Open();
    IndexAll();
    ChangeFile(disk, "a.nmd", FakeSetOf({{3, "Rom 9:1"}}).data);
    RefreshSet(files, notes.sets[0]);
    EXPECT_FALSE(IsWhole(index, notes));
    EXPECT_EQ(IndexAll(), 1) << "b stays";
    EXPECT_EQ(Naming("Ro 8:28"), "b Ge 1:1");
    EXPECT_EQ(Naming("Ro 9:1"), "a Ge 1:4");
}

// Between two pieces, and together with a note that is saved here.
TEST_F(IndexedSets, AreIndexedAnewWhenTheyChangeMeanwhile) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28" + std::string(5000, ' ')}, {"Ge 1:2", "Rom 8:29"}});
    Open();
    ASSERT_TRUE(IndexSome(files, IndexRecords(), notes, index, 1000));
    EXPECT_EQ(Naming("Ro 8:28"), "a Ge 1:1");
    ChangeFile(disk, "a.nmd", FakeSetOf({{0, "Rom 9:1"}}).data);
    IndexAll();
    EXPECT_EQ(Naming("Ro 8:28") + Naming("Ro 8:29"), "");
    EXPECT_EQ(Naming("Ro 9:1"), "a Ge 1:1");
    ChangeFile(disk, "a.nmd", FakeSetOf({{0, "Rom 10:1"}}).data);
    Save(0, "Ge 1:3", "Rom 11:1");
    IndexAll();
    EXPECT_EQ(Naming("Ro 9:1"), "");
    EXPECT_EQ(Naming("Ro 10:1"), "a Ge 1:1");
    EXPECT_EQ(Naming("Ro 11:1"), "a Ge 1:3");
}

TEST_F(IndexedSets, AreForgottenWhenTheyAreGone) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28"}});
    AddSet("b", {{"Ge 1:1", "Rom 8:28"}});
    Open();
    IndexAll();
    notes.sets.erase(notes.sets.begin());
    EXPECT_EQ(Naming("Ro 8:28"), "b Ge 1:1") << "also before the next piece";
    EXPECT_EQ(IndexAll(), 0);
    EXPECT_EQ(index.sets.size(), 1u);
    EXPECT_EQ(Naming("Ro 8:28"), "b Ge 1:1");
    notes.sets.clear();
    EXPECT_EQ(IndexAll(), 0);
    EXPECT_EQ(Naming("Ro 8:28"), "");
}

// Another program may have a set open for a while.
TEST_F(IndexedSets, ThatCannotBeOpenedDoNotHoldTheOthers) {
    AddSet("a", {{"Ge 1:1", "Rom 8:28"}});
    AddSet("b", {{"Ge 1:1", "Rom 8:28"}});
    Open();
    disk.unreadable.insert("a.nmd");
    IndexAll();
    EXPECT_EQ(Naming("Ro 8:28"), "b Ge 1:1");
    EXPECT_FALSE(IsWhole(index, notes));
    EXPECT_EQ(UnindexedSets(index, notes), 1);
    disk.unreadable.clear();
    IndexAll();
    EXPECT_EQ(Naming("Ro 8:28"), "a Ge 1:1, b Ge 1:1");
}

TEST_F(IndexedSets, HaveNotesInUtf8) {
    AddSet("a", {{"Ge 1:1",
                  "\xEF\xBB\xBF\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82 Joh 1:1\xE2\x80\x93"
                  "3"}});
    Open();
    IndexAll();
    EXPECT_EQ(Naming("Joh 1:3"), "a Ge 1:1");
}
