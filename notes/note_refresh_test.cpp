#include "notes/note_refresh.h"

#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_search.h"
#include "notes/note_source.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/native_scripture.h"

using Notes = std::map<int, std::string>;

static const Notes kOld = {{0, "first"}, {5, "fifth"}, {100, "hundredth"}, {31101, "last"}};

// Notes have come, gone, grown and shrunk.
static const Notes kNew = {{0, "the first, much longer"}, {7, "seventh"}, {100, "100"}, {31101, "end"}};

namespace {

// A folder with one set that the program has opened.
struct Shelf {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
};

}  // namespace

static void Open(Shelf& shelf, const Notes& notes) {
    AddFakeSet(shelf.fakes, "a", notes);
    shelf.files = DeviceOver(shelf.fakes);
    EXPECT_EQ(OpenAndCheckSets(shelf.files, shelf.notes).report, "");
}

static NoteSet& SetOf(Shelf& shelf) {
    return shelf.notes.sets[0];
}

// Replaces one or both files as a synchronizing program does.
static void Bring(Shelf& shelf, const Notes& notes, bool data = true, bool index = true) {
    const FakeSet set = FakeSetOf(notes);
    if (data) ChangeFile(shelf.fakes, "a.nmd", set.data);
    if (index) ChangeFile(shelf.fakes, "a.nmi", set.index);
}

static std::string TextAt(Shelf& shelf, int verse) {
    if (!ReadNoteText(shelf.files, TheRealScripture().records, shelf.notes, verse)) return "(unreadable)";
    return NoteExists(shelf.files, shelf.notes, verse) ? shelf.notes.noteText : "";
}

static void ExpectNotes(Shelf& shelf, const Notes& notes) {
    for (const int verse : {0, 1, 5, 6, 7, 8, 99, 100, 101, 31100, 31101}) {
        const auto note = notes.find(verse);
        EXPECT_EQ(TextAt(shelf, verse), note == notes.end() ? "" : note->second) << verse;
    }
}

TEST(RefreshSet, ReadsNothingWhileTheFilesAreTheSame) {
    Shelf shelf;
    Open(shelf, kOld);
    shelf.fakes.log.clear();
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kUnchanged);
    EXPECT_TRUE(shelf.fakes.log.empty());
    EXPECT_EQ(SetOf(shelf).timesChanged, 0u);
}

TEST(RefreshSet, FindsTheNotesOfTheNewFiles) {
    Shelf shelf;
    Open(shelf, kOld);
    ExpectNotes(shelf, kOld);
    Bring(shelf, kNew);
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kReadAgain);
    EXPECT_EQ(SetOf(shelf).timesChanged, 1u);
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kUnchanged);
    ExpectNotes(shelf, kNew);
}

// One of the two files arrives long before the other. Nothing is written meanwhile.
TEST(RefreshSet, NeedsNoIndexThatFits) {
    for (const bool dataFirst : {true, false}) {
        Shelf shelf;
        Open(shelf, kOld);
        Bring(shelf, kNew, dataFirst, !dataFirst);
        const auto halfWay = shelf.fakes.contents;
        ExpectNotes(shelf, dataFirst ? kNew : kOld);
        EXPECT_FALSE(SetOf(shelf).readOnly);
        EXPECT_TRUE(shelf.fakes.contents == halfWay);
        Bring(shelf, kNew, !dataFirst, dataFirst);
        ExpectNotes(shelf, kNew);
    }
}

TEST(RefreshSet, NeedsNoIndex) {
    Shelf shelf;
    Open(shelf, kOld);
    shelf.fakes.contents.erase("a.nmi");
    Bring(shelf, kNew, true, false);
    ExpectNotes(shelf, kNew);
    EXPECT_FALSE(shelf.fakes.contents.contains("a.nmi"));
}

TEST(RefreshSet, LeavesASetReadOnlyUntilItIsWholeAgain) {
    Shelf shelf;
    Open(shelf, kOld);
    std::vector<unsigned char> half = FakeSetOf(kNew).data;
    half.resize(20000);
    ChangeFile(shelf.fakes, "a.nmd", half);
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kReadAgain);
    EXPECT_TRUE(SetOf(shelf).readOnly);
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kUnchanged);
    EXPECT_TRUE(SetOf(shelf).readOnly);
    Bring(shelf, kNew);
    EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kReadAgain);
    EXPECT_FALSE(SetOf(shelf).readOnly);
    ExpectNotes(shelf, kNew);
}

// Without a usable index the NULs show where the notes are.
TEST(RefreshSet, ReadsWhatIsThereOfASetThatIsNotWhole) {
    Shelf shelf;
    Open(shelf, kOld);
    const std::string torn = std::string("one\0two\0the rest", 16);
    ChangeFile(shelf.fakes, "a.nmd", {torn.begin(), torn.end()});
    ChangeFile(shelf.fakes, "a.nmi", {1, 2, 3});
    EXPECT_EQ(TextAt(shelf, 0), "one");
    EXPECT_EQ(TextAt(shelf, 1), "two");
    EXPECT_TRUE(SetOf(shelf).readOnly);
}

TEST(RefreshSet, KeepsTheLastStateWhileTheDataFileCannotBeOpened) {
    for (const bool missing : {true, false}) {
        Shelf shelf;
        Open(shelf, kOld);
        Bring(shelf, kNew);
        if (missing)
            shelf.fakes.contents.erase("a.nmd");
        else
            shelf.fakes.unreadable = {"a.nmd"};
        const std::vector<std::uint32_t> before = SetOf(shelf).offsets;
        for (int tries = 0; tries < 2; ++tries)
            EXPECT_EQ(RefreshSet(shelf.files, SetOf(shelf)), SetRefresh::kUnreadable);
        EXPECT_TRUE(SetOf(shelf).offsets == before);
        EXPECT_FALSE(SetOf(shelf).readOnly);
        EXPECT_EQ(TextAt(shelf, 5), "(unreadable)");
        shelf.fakes.unreadable.clear();
        Bring(shelf, kNew);
        ExpectNotes(shelf, kNew);
    }
}

// It fits neither the old nor the new stamps; such a set must not be used for reading.
TEST(RefreshSet, DoesNotTrustAFileThatChangesAllTheTime) {
    Shelf shelf;
    Open(shelf, kOld);
    Bring(shelf, kNew);
    NoteFiles restless = shelf.files;
    restless.read = [](void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                       std::vector<unsigned char>& bytes) {
        FakeNoteFiles& fakes = *static_cast<FakeNoteFiles*>(device);
        ++fakes.times[name];
        return DeviceOver(fakes).read(device, name, offset, limit, bytes);
    };
    EXPECT_EQ(RefreshSet(restless, SetOf(shelf)), SetRefresh::kUnreadable);
    ExpectNotes(shelf, kNew);
}

TEST(RefreshSet, ReadsLargeFilesPieceByPiece) {
    Shelf shelf;
    Open(shelf, kOld);
    Notes large;
    for (int verse = 0; verse < kVerseCount; ++verse) large[verse] = std::string(100, 'n') + std::to_string(verse);
    Bring(shelf, large);
    ExpectNotes(shelf, large);
    EXPECT_TRUE(LittleEndianBytes(SetOf(shelf).offsets) == FakeSetOf(large).index);
}

TEST(RefreshSet, ReadsAnotherSetThanTheCurrentOne) {
    Shelf shelf;
    AddFakeSet(shelf.fakes, "b", kOld);
    Open(shelf, kOld);
    SelectSet(shelf.notes, 1);
    Bring(shelf, kNew);
    NoteSet& a = NoteSetName(shelf.notes.sets[0]) == "a" ? shelf.notes.sets[0] : shelf.notes.sets[1];
    EXPECT_EQ(RefreshSet(shelf.files, a), SetRefresh::kReadAgain);
    EXPECT_TRUE(NoteExists(shelf.files, a, 7));
}

// At the start another program had the data file open, so the index could not be compared with it.
TEST(RefreshSet, ExaminesASetThatCouldNotBeOpenedAtTheStart) {
    Shelf shelf;
    AddFakeSet(shelf.fakes, "a", kNew);
    shelf.fakes.contents["a.nmi"] = FakeSetOf(kOld).index;
    shelf.fakes.unreadable = {"a.nmd"};
    shelf.files = DeviceOver(shelf.fakes);
    OpenNoteSets(shelf.files, shelf.notes);
    EXPECT_EQ(TextAt(shelf, 7), "(unreadable)");
    shelf.fakes.unreadable.clear();
    ExpectNotes(shelf, kNew);
}

// ---- Everything that reads notes ------------------------------------------------------------------------------------

TEST(ChangedSet, IsReadByTheEditor) {
    Shelf shelf;
    Open(shelf, kOld);
    SelectStoredNote(shelf.notes, 0, 7);
    Bring(shelf, kNew);
    std::string text;
    EXPECT_TRUE(ReadStoredNote(shelf.files, shelf.notes, text));
    EXPECT_EQ(text, "seventh");
}

TEST(ChangedSet, IsSteppedThrough) {
    for (const bool next : {true, false}) {
        Shelf shelf;
        Open(shelf, kOld);
        SelectStoredNote(shelf.notes, 0, 6);
        Bring(shelf, {{7, "seventh"}, {4, "fourth"}});
        EXPECT_EQ(next ? NextNote(shelf.files, shelf.notes) : PreviousNote(shelf.files, shelf.notes), next ? 7 : 4);
    }
}

TEST(ChangedSet, IsSearched) {
    Shelf shelf;
    Open(shelf, kOld);
    Bring(shelf, kNew);
    const SearchProgress unseen{nullptr, [](void*, int) {}};
    const NoteMatch match =
        FindInNotes(shelf.files, SetOf(shelf), AsciiLetters(), {"seventh", true, false, {}}, {}, unseen);
    EXPECT_EQ(match.end, NoteSearchEnd::kFound);
    EXPECT_EQ(match.verse, 7);
    EXPECT_EQ(match.offset, 0u);
}

static std::string SourceText(NoteReader& reader, int verse) {
    const NoteSource source = SourceOf(reader);
    std::string note;
    switch (source.noteOf(source.device, verse, note)) {
        case NoteFound::kNote: return note;
        case NoteFound::kNone: return "";
        case NoteFound::kUnreadable: break;
    }
    return "(unreadable)";
}

TEST(ChangedSet, IsSavedAndPrinted) {
    Shelf shelf;
    Open(shelf, kOld);
    Bring(shelf, kNew);
    EXPECT_TRUE(CanReadNotes(shelf.files, SetOf(shelf)));
    NoteReader reader{shelf.files, SetOf(shelf)};
    EXPECT_EQ(SourceText(reader, 5), "");
    EXPECT_EQ(SourceText(reader, 7), "seventh");
}

TEST(ChangedSet, MayChangeWhileItIsSavedAndPrinted) {
    const std::string large(65000, 'n');
    Notes old = kOld;
    for (const int verse : {1, 2, 3, 4, 6}) old[verse] = large;
    Shelf shelf;
    Open(shelf, old);
    NoteReader reader{shelf.files, SetOf(shelf)};
    EXPECT_EQ(SourceText(reader, 0), "first");
    Bring(shelf, kNew);
    EXPECT_EQ(SourceText(reader, 1), large) << "already read";
    EXPECT_EQ(SourceText(reader, 6), "") << "not there any more";
    EXPECT_EQ(SourceText(reader, 7), "seventh");
    Bring(shelf, {{7, "another length"}, {100, "hundred"}});
    RefreshSet(shelf.files, SetOf(shelf));
    EXPECT_EQ(SourceText(reader, 100), "hundred") << "read again by somebody else";
}

TEST(ChangedSet, CannotBeSavedOrPrintedWhileItCannotBeOpened) {
    Shelf shelf;
    Open(shelf, kOld);
    Bring(shelf, kNew);
    shelf.fakes.unreadable = {"a.nmd"};
    EXPECT_FALSE(CanReadNotes(shelf.files, SetOf(shelf)));
    NoteReader reader{shelf.files, SetOf(shelf)};
    EXPECT_EQ(SourceText(reader, 5), "(unreadable)");
}
