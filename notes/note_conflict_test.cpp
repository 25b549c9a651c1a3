// Saving a note that was also changed elsewhere while it was edited.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_history.h"
#include "notes/note_refresh.h"
#include "notes/note_saving.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Notes = std::map<int, std::string>;

static constexpr int kVerse = 7;

namespace {

// A set "a" whose note of kVerse is open in the editor.
struct Desk {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
    NoteEdit edit;
    std::vector<SaveNotice> told;
    std::vector<std::string> texts;
    int openFilesWhenTold = 0;
    bool answer = true;
};

}  // namespace

static void OpenEditor(Desk& desk, const Notes& notes) {
    AddFakeSet(desk.fakes, "a", notes);
    desk.files = DeviceOver(desk.fakes);
    EXPECT_TRUE(FindNoteSets(desk.files, desk.notes));
    SelectStoredNote(desk.notes, 0, kVerse);
    EXPECT_TRUE(ReadStoredNote(desk.files, desk.notes, desk.edit.openedOn));
}

static void ChangeElsewhere(Desk& desk, const Notes& notes) {
    const FakeSet set = FakeSetOf(notes);
    ChangeFile(desk.fakes, "a.nmd", set.data);
    ChangeFile(desk.fakes, "a.nmi", set.index);
}

static bool TellDesk(void* device, SaveNotice notice, const std::string& text) {
    Desk& desk = *static_cast<Desk*>(device);
    desk.told.push_back(notice);
    desk.texts.push_back(text);
    desk.openFilesWhenTold = desk.fakes.openFiles;
    return desk.answer;
}

static NoteSaveResult Save(Desk& desk) {
    const NoteSaveResult result =
        SaveNote(desk.files, {&desk, TellDesk}, desk.notes, desk.edit, {"2024-12-31", 1735603200});
    EXPECT_EQ(desk.fakes.openFiles, 0);
    return result;
}

static void ExpectStored(const Desk& desk, const Notes& notes) {
    const FakeSet set = FakeSetOf(notes);
    EXPECT_TRUE(desk.fakes.contents.at("a.nmd") == set.data);
    EXPECT_TRUE(desk.fakes.contents.at("a.nmi") == set.index);
}

static std::string Both(const std::string& mine, const std::string& other) {
    return mine + "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n" + other;
}

TEST(ChangedNote, ComesBackWithBothTexts) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    ChangeElsewhere(desk, {{3, "three"}, {kVerse, "theirs"}});
    desk.edit.text = "mine";
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text, Both("mine", "theirs"));
    EXPECT_EQ(desk.edit.openedOn, "theirs");
    EXPECT_THAT(desk.told, ElementsAre(SaveNotice::kMerged)) << "one box, not a second one for the changed files";
    EXPECT_THAT(desk.texts, ElementsAre(HasSubstr("\"a\" was also changed elsewhere")));
    EXPECT_EQ(desk.openFilesWhenTold, 0);
    ExpectStored(desk, {{3, "three"}, {kVerse, "theirs"}});
    EXPECT_FALSE(desk.fakes.contents.contains("a.nmd.temp"));

    desk.told.clear();
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
    EXPECT_THAT(desk.told, IsEmpty());
    ExpectStored(desk, {{3, "three"}, {kVerse, Both("mine", "theirs")}});
    EXPECT_EQ(desk.notes.noteText, Both("mine", "theirs"));
}

TEST(ChangedNote, ComesBackEachTimeItIsChanged) {
    Desk desk;
    OpenEditor(desk, {});
    desk.edit.text = "mine";
    ChangeElsewhere(desk, {{kVerse, "one"}});
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    ChangeElsewhere(desk, {{kVerse, "two"}});
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text, Both(Both("mine", "one"), "two"));
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
    ExpectStored(desk, {{kVerse, Both(Both("mine", "one"), "two")}});
}

TEST(ChangedNote, IsFoundAfterTheSetWasReadAgain) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    ChangeElsewhere(desk, {{3, "three"}, {kVerse, "theirs"}});
    EXPECT_EQ(RefreshSet(desk.files, desk.notes.sets[0]), SetRefresh::kReadAgain);
    desk.edit.text = "mine";
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text, Both("mine", "theirs"));
}

// A file of the same size with the old time: only the note itself tells.
TEST(ChangedNote, IsFoundWithoutAnotherStamp) {
    static const struct {
        const char* why;
        Notes now;
    } kRows[] = {{"in its place", {{3, "three"}, {kVerse, "new"}, {9, "9"}}},
                 {"in another place", {{3, "3"}, {kVerse, "newer"}, {9, "999"}}}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        Desk desk;
        OpenEditor(desk, {{3, "three"}, {kVerse, "old"}, {9, "9"}});
        desk.fakes.contents["a.nmd"] = FakeSetOf(row.now).data;
        desk.edit.text = "mine";
        EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
        EXPECT_EQ(desk.edit.text, Both("mine", row.now.at(kVerse)));
        EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
        Notes notes = row.now;
        notes[kVerse] = Both("mine", row.now.at(kVerse));
        ExpectStored(desk, notes);
    }
}

TEST(ChangedNote, IsSimplySavedIfBothTextsAreEqual) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    ChangeElsewhere(desk, {{3, "three"}, {kVerse, "same"}});
    desk.edit.text = "same";
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
    EXPECT_THAT(desk.told, IsEmpty());
    ExpectStored(desk, {{3, "three"}, {kVerse, "same"}});
}

TEST(ChangedNote, IsReplacedIfItWasDeletedElsewhere) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    ChangeElsewhere(desk, {{3, "three"}});
    desk.edit.text = "mine";
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
    EXPECT_THAT(desk.told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectStored(desk, {{3, "three"}, {kVerse, "mine"}});
}

TEST(ChangedNote, ComesBackIfItWasEmptiedHere) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    ChangeElsewhere(desk, {{kVerse, "theirs"}});
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text, "theirs");  // an empty text adds nothing
    desk.edit.text = "";
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);  // emptied again, now knowing the other text
}

TEST(ChangedNote, MayBeTheLastOfTheBible) {
    Desk desk;
    OpenEditor(desk, {});
    SelectStoredNote(desk.notes, 0, 31101);
    ChangeElsewhere(desk, {{31101, "theirs"}});
    desk.edit.text = "mine";
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
    ExpectStored(desk, {{31101, Both("mine", "theirs")}});
}

static const std::size_t kBetween = Both("", "").size();

// Two texts, `length` characters together with what is between them.
static void TypeAgainstLongNote(Desk& desk, std::size_t length) {
    OpenEditor(desk, {});
    const std::string theirs(30000, 't');
    ChangeElsewhere(desk, {{kVerse, theirs}});
    desk.edit.text = std::string(length - 30000 - kBetween, 'm');
}

TEST(ChangedNote, FillsANoteToTheLimit) {
    Desk desk;
    TypeAgainstLongNote(desk, 65533);
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text.size(), 65533u);
    EXPECT_TRUE(AllEarlierNotes(desk.files, "a").empty());
}

TEST(ChangedNote, IsKeptAmongTheEarlierNotesIfBothAreTooLong) {
    for (const bool replaces : {true, false}) {
        Desk desk;
        TypeAgainstLongNote(desk, 65534);
        const std::string mine = desk.edit.text, theirs(30000, 't');
        desk.answer = replaces;
        EXPECT_EQ(Save(desk), replaces ? NoteSaveResult::kSaved : NoteSaveResult::kStopped);
        EXPECT_THAT(desk.told, ElementsAre(SaveNotice::kTooLong));
        const std::vector<EarlierNote> kept = AllEarlierNotes(desk.files, "a");
        ASSERT_EQ(kept.size(), 1u);
        EXPECT_EQ(kept[0], (EarlierNote{1735603200, kVerse, KeptReason::kReplaced, theirs}));
        ExpectStored(desk, {{kVerse, replaces ? mine : theirs}});
        EXPECT_EQ(desk.edit.text, mine);
    }
}

TEST(ChangedNote, IsPutIntoOneNoteWithLettersBeyondTheCodePage) {
    static const std::string kGreek = std::string(kUtf8Mark) + "\xCE\xB1";
    for (const bool isMineGreek : {true, false}) {
        Desk desk;
        OpenEditor(desk, {{kVerse, "old"}});
        desk.edit.text = isMineGreek ? kGreek : "caf\xE9";
        ChangeElsewhere(desk, {{kVerse, isMineGreek ? "caf\xE9" : kGreek}});
        EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
        EXPECT_THAT(Utf8OfNote({}, desk.edit.text), testing::StartsWith(isMineGreek ? "\xCE\xB1" : "caf\xC3\xA9"));
        EXPECT_THAT(Utf8OfNote({}, desk.edit.text), testing::EndsWith(isMineGreek ? "caf\xC3\xA9" : "\xCE\xB1"));
        EXPECT_EQ(Save(desk), NoteSaveResult::kSaved);
        ExpectStored(desk, {{kVerse, desk.edit.text}});
    }
}

TEST(ChangedNote, IsNotReplacedIfItCannotBeKept) {
    Desk desk;
    TypeAgainstLongNote(desk, 65534);
    const std::string mine = desk.edit.text;
    desk.fakes.uncreatable = {"backup", "backup/a.nmh", "backup/a.nmh.temp"};
    EXPECT_EQ(Save(desk), NoteSaveResult::kStopped);
    EXPECT_THAT(desk.told, ElementsAre(SaveNotice::kCannotKeep));
    ExpectStored(desk, {{kVerse, std::string(30000, 't')}});
    EXPECT_EQ(desk.edit.text, mine);
}

TEST(ChangedNote, WaitsUntilTheSetIsWhole) {
    Desk desk;
    OpenEditor(desk, {{kVerse, "old"}});
    std::vector<unsigned char> half = FakeSetOf({{kVerse, "theirs"}}).data;
    half.resize(20000);
    ChangeFile(desk.fakes, "a.nmd", half);
    desk.edit.text = "mine";
    EXPECT_EQ(Save(desk), NoteSaveResult::kStopped);
    EXPECT_THAT(desk.told, ElementsAre(SaveNotice::kNotWhole));
    EXPECT_EQ(desk.edit.text, "mine");
    ChangeElsewhere(desk, {{kVerse, "theirs"}});
    EXPECT_EQ(Save(desk), NoteSaveResult::kMerged);
    EXPECT_EQ(desk.edit.text, Both("mine", "theirs"));
}
