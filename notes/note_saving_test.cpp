#include "notes/note_saving.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "notes/note_history.h"
#include "notes/note_places.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::IsSupersetOf;

static constexpr char kToday[] = "2024-12-31";

// A folder with one set, which has been loaded, and a user who answers the message boxes.
struct Desk {
    FakeNoteFiles files;
    NoteSets notes;
    std::string openedOn;
    std::vector<SaveNotice> told;
    bool answer = true;
    void (*whenTold)(Desk& desk, SaveNotice notice) = nullptr;
    SaveVoice voice;
};

static bool TellDesk(void* device, SaveNotice notice, const std::string& text) {
    Desk& desk = *static_cast<Desk*>(device);
    desk.told.push_back(notice);
    desk.files.log.push_back("box: " + text);
    if (desk.whenTold != nullptr) desk.whenTold(desk, notice);
    return desk.answer;
}

static std::unique_ptr<Desk> DeskWith(const std::map<int, std::string>& notes, int verse = 0) {
    auto desk = std::make_unique<Desk>();
    AddFakeSet(desk->files, "a", notes);
    for (const char* backup : {"backup/a 2024-12-31.nmd", "backup/a 2024-12-31.nmi"})
        desk->files.contents[backup] = {};  // today's backup exists, so the log shows only the save
    EXPECT_TRUE(FindNoteSets(DeviceOver(desk->files), desk->notes));
    SelectStoredNote(desk->notes, 0, verse);
    EXPECT_TRUE(ReadStoredNote(DeviceOver(desk->files), desk->notes, desk->openedOn));
    desk->notes.noteText = "as displayed";
    desk->files.log.clear();
    desk->voice = {desk.get(), TellDesk};
    return desk;
}

// With the editor opened on the note that was there before other programs changed it.
static NoteSaveResult SaveAt(Desk& desk, const std::string& text) {
    NoteEdit edit{text, desk.openedOn};
    const NoteSaveResult result = SaveNote(DeviceOver(desk.files), desk.voice, desk.notes, edit, {kToday, 1735603200});
    EXPECT_EQ(desk.files.openFiles, 0);
    if (result == NoteSaveResult::kSaved) desk.openedOn = desk.notes.noteText;
    return result;
}

static void ExpectFilesHold(const Desk& desk, const std::map<int, std::string>& notes) {
    const FakeSet set = FakeSetOf(notes);
    EXPECT_TRUE(desk.files.contents.at("a.nmd") == set.data);
    EXPECT_TRUE(desk.files.contents.at("a.nmi") == set.index);
    EXPECT_TRUE(IndexBytes(desk.notes.sets[0].offsets) == set.index);
}

static bool HasTemp(const Desk& desk) {
    return desk.files.contents.contains("a.nmd.temp");
}

// ---- Successful saves -----------------------------------------------------------------------------------------------

TEST(SaveNote, KeepsAllOtherNotes) {
    static const struct {
        int verse;
        const char* before;
        const char* after;
    } kRows[] = {
        {0, "", "new"},        {0, "four", "ten lett.."},     {0, "long one", "s"},     {0, "gone", ""},
        {15000, "", "new"},    {15000, "four", "ten lett.."}, {15000, "long one", "s"}, {15000, "gone", ""},
        {31101, "", "new"},    {31101, "four", "ten lett.."}, {31101, "long one", "s"}, {31101, "gone", ""},
        {31100, "a", "b\r\n"}, {1, "same", "emas"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.verse);
        std::map<int, std::string> notes = {{2, "two"}, {14999, "before"}, {15001, "behind"}, {31099, "near the end"}};
        notes[row.verse] = row.before;
        const auto desk = DeskWith(notes, row.verse);
        EXPECT_EQ(SaveAt(*desk, row.after), NoteSaveResult::kSaved);
        notes[row.verse] = row.after;
        ExpectFilesHold(*desk, notes);
        EXPECT_EQ(desk->notes.noteText, row.after);
        EXPECT_THAT(desk->told, IsEmpty());
        EXPECT_FALSE(HasTemp(*desk));
    }
}

TEST(SaveNote, AdjustsTheOffsetsAfterTheNote) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    const std::vector<std::uint32_t> before = desk->notes.sets[0].offsets;
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kSaved);
    const std::vector<std::uint32_t>& after = desk->notes.sets[0].offsets;
    for (std::size_t verse = 0; verse < after.size(); ++verse)
        ASSERT_EQ(after[verse], before[verse] + (verse > 7 ? 6 : 0)) << verse;
}

TEST(SaveNote, TreatsAnEmptyNoteAsNoNote) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    EXPECT_TRUE(NoteExists(DeviceOver(desk->files), desk->notes, 7));
    EXPECT_EQ(SaveAt(*desk, ""), NoteSaveResult::kSaved);
    EXPECT_FALSE(NoteExists(DeviceOver(desk->files), desk->notes, 7));
    EXPECT_EQ(desk->notes.noteText, "");
    EXPECT_EQ(desk->files.contents["a.nmd"], std::vector<unsigned char>(31102, 0));
}

TEST(SaveNote, TruncatesTheTextToTheLimit) {
    static const struct {
        std::string typed;
        std::size_t saved;
    } kRows[] = {{std::string(65532, 'x'), 65532},
                 {std::string(65533, 'x'), 65533},
                 {std::string(65534, 'x'), 65533},
                 {std::string(200000, 'x'), 65533},
                 {std::string("ab\0cd", 5), 2}};
    for (const auto& row : kRows) {
        const auto desk = DeskWith({{8, "next"}}, 7);
        EXPECT_EQ(SaveAt(*desk, row.typed), NoteSaveResult::kSaved);
        ExpectFilesHold(*desk, {{7, row.typed.substr(0, row.saved)}, {8, "next"}});
        EXPECT_EQ(desk->notes.noteText.size(), row.saved);
    }
}

TEST(SaveNote, SavesOnlyIntoTheCurrentSet) {
    const auto desk = DeskWith({{7, "of a"}}, 7);
    AddFakeSet(desk->files, "b", {{7, "of b"}});
    EXPECT_TRUE(FindNoteSets(DeviceOver(desk->files), desk->notes));
    SelectStoredNote(desk->notes, 1, 7);
    desk->openedOn = "of b";
    EXPECT_EQ(SaveAt(*desk, "new"), NoteSaveResult::kSaved);
    EXPECT_TRUE(desk->files.contents["b.nmd"] == FakeSetOf({{7, "new"}}).data);
    EXPECT_TRUE(desk->files.contents["a.nmd"] == FakeSetOf({{7, "of a"}}).data);
}

TEST(SaveNote, CopiesLargeSetsInPieces) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < 31102; ++verse) notes[verse] = std::string(100, 'n') + std::to_string(verse);
    const auto desk = DeskWith(notes, 15000);
    EXPECT_EQ(SaveAt(*desk, "new"), NoteSaveResult::kSaved);
    notes[15000] = "new";
    ExpectFilesHold(*desk, notes);
}

TEST(SaveNote, FlushesBeforeDeletingTheOldFile) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->files.log,
                ElementsAre("open a.nmd", "create anew a.nmd.temp", "write a.nmd.temp 7", "write a.nmd.temp 11",
                            "write a.nmd.temp 31094", "flush a.nmd.temp", "close a.nmd", "folder backup",
                            "create anew backup/a.nmh.temp", "write backup/a.nmh.temp 36", "flush backup/a.nmh.temp",
                            "close backup/a.nmh.temp", "replace backup/a.nmh by backup/a.nmh.temp", "close a.nmd.temp",
                            "remove a.nmd", "rename a.nmd.temp to a.nmd", "create anew a.nmi", "write a.nmi 124408",
                            "flush a.nmi", "close a.nmi"));
}

TEST(SaveNote, WritesNothingBeforeTheFirstOrAfterTheLastNote) {
    static const struct {
        int verse;
        std::vector<std::string> writes;
    } kRows[] = {{0, {"write a.nmd.temp 4", "write a.nmd.temp 31101"}},
                 {31101, {"write a.nmd.temp 31101", "write a.nmd.temp 4"}}};
    for (const auto& row : kRows) {
        const auto desk = DeskWith({}, row.verse);
        EXPECT_EQ(SaveAt(*desk, "new"), NoteSaveResult::kSaved);
        std::vector<std::string> writes;
        for (const std::string& entry : desk->files.log)
            if (entry.starts_with("write a.nmd.temp")) writes.push_back(entry);
        EXPECT_EQ(writes, row.writes);
    }
}

// ---- Earlier notes --------------------------------------------------------------------------------------------------

TEST(SaveNote, KeepsTheTextThatItReplaces) {
    static const struct {
        int verse;
        const char* before;
        const char* after;
        bool isKept;
    } kRows[] = {{7, "four", "characters", true}, {0, "four", "", true},      {31101, "the last\r\n", "new", true},
                 {7, "", "new", false},           {7, "same", "same", false}, {31101, "", "", false}};
    for (const auto& row : kRows) {
        const auto desk = DeskWith({{row.verse, row.before}, {9, "nine"}}, row.verse);
        EXPECT_EQ(SaveAt(*desk, row.after), NoteSaveResult::kSaved);
        std::vector<EarlierNote> expected;
        if (row.isKept) expected.push_back({1735603200, row.verse, KeptReason::kReplaced, row.before});
        EXPECT_EQ(AllEarlierNotes(DeviceOver(desk->files), "a"), expected) << row.verse << row.before;
    }
}

TEST(SaveNote, KeepsTheTextThatIsOnTheDisk) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    ChangeFile(desk->files, "a.nmd", FakeSetOf({{2, "two"}, {7, "of another program"}}).data);
    desk->openedOn = "of another program";
    EXPECT_EQ(SaveAt(*desk, "new"), NoteSaveResult::kSaved);
    EXPECT_THAT(AllEarlierNotes(DeviceOver(desk->files), "a"),
                ElementsAre(EarlierNote{1735603200, 7, KeptReason::kReplaced, "of another program"}));
}

TEST(SaveNote, DoesNotFailWhenTheEarlierNoteCannotBeKept) {
    for (int fault = 0; fault < 2; ++fault) {
        const auto desk = DeskWith({{7, "four"}}, 7);
        if (fault == 0) desk->files.uncreatable = {"backup"};
        if (fault == 1) desk->files.uncreatable = {"backup/a.nmh.temp"};
        EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kSaved);
        EXPECT_THAT(desk->told, IsEmpty());
        ExpectFilesHold(*desk, {{7, "characters"}});
    }
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST(SaveNote, StopsWhenTheUserDoesNotRetry) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.unreadable = {"a.nmd"};
    desk->answer = false;
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kStopped);
    EXPECT_THAT(desk->files.log,
                ElementsAre("open a.nmd",
                            "box: There was an error opening the file \"a.nmd\". Please make sure this file is not "
                            "being used by any other program."));
    ExpectFilesHold(*desk, {{7, "four"}});
    EXPECT_EQ(desk->notes.noteText, "as displayed");
}

// Deliberate: Retry does not open the file again, even if that would succeed by then.
TEST(SaveNote, FailsAfterARetry) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.unreadable = {"a.nmd"};
    desk->whenTold = [](Desk& there, SaveNotice) { there.files.unreadable.clear(); };
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_THAT(desk->files.log, ElementsAre("open a.nmd",
                                             "box: There was an error opening the file \"a.nmd\". Please make sure "
                                             "this file is not being used by any other program.",
                                             "create anew a.nmd.temp", "close a.nmd.temp",
                                             "box: Failure saving note (file creation error)",
                                             "box: Failure writing. Disk may be full!"));
    ExpectFilesHold(*desk, {{7, "four"}});
    EXPECT_TRUE(HasTemp(*desk));
}

// The notes of its temporary file can neither be compared nor kept while the data file is in use.
TEST(SaveNote, LeavesTheTemporaryFileWhileTheDataFileIsInUse) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.unreadable = {"a.nmd"};
    const std::vector<unsigned char> leftOver = FakeSetOf({{7, "unsaved"}}).data;
    desk->files.contents["a.nmd.temp"] = leftOver;
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_TRUE(desk->files.contents["a.nmd.temp"] == leftOver);
}

TEST(SaveNote, FailsWhenTheTemporaryFileCannotBeCreated) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.uncreatable = {"a.nmd.temp"};
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_THAT(desk->files.log, ElementsAre("open a.nmd", "create anew a.nmd.temp", "close a.nmd",
                                             "box: Failure saving note (file creation error)",
                                             "box: Failure writing. Disk may be full!"));
    ExpectFilesHold(*desk, {{7, "four"}});
}

TEST(SaveNote, FailsWithoutMemory) {
    for (const int verse : {0, 7, 31101}) {
        const auto desk = DeskWith({{7, "four"}}, verse);
        desk->files.hasMemory = false;
        EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
        EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kNoMemory, SaveNotice::kCannotWrite));
        EXPECT_THAT(desk->files.log, IsSupersetOf({"box: Failure saving note (memory alloc error)",
                                                   "box: Failure writing. Disk may be full!"}));
        ExpectFilesHold(*desk, {{7, "four"}});
        EXPECT_EQ(desk->files.openFiles, 0);
    }
}

// The message box is shown while the files are still open.
TEST(SaveNote, FailsOnAFullDiskAtEachByte) {
    static constexpr int kWhole = 31102 + 10;
    for (const int verse : {0, 15000, 31101}) {
        for (const int room : {0, 1, 14999, 15000, 15005, 15011, 15012, 31100, 31101, 31105, kWhole - 1}) {
            SCOPED_TRACE(testing::Message() << verse << " " << room);
            const auto desk = DeskWith({}, verse);
            desk->files.room = room;
            EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
            EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kCannotWrite));
            const std::vector<std::string> end(desk->files.log.end() - 3, desk->files.log.end());
            EXPECT_THAT(end, ElementsAre("box: Failure writing. Disk may be full!", "close a.nmd", "close a.nmd.temp"));
            ExpectFilesHold(*desk, {});
            EXPECT_TRUE(HasTemp(*desk));
            EXPECT_EQ(desk->notes.noteText, "as displayed");
            desk->files.room = -1;
            EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kSaved);
            ExpectFilesHold(*desk, {{verse, "characters"}});
        }
    }
}

TEST(SaveNote, FailsWhenTheTemporaryFileDoesNotReachTheDisk) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.isFlushable = false;
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kCannotWrite));
    ExpectFilesHold(*desk, {{7, "four"}});
}

// The note is in the data file, and the next start rebuilds the index.
TEST(SaveNote, SucceedsWithoutRoomForTheIndex) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.room = 31102 + 10;
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kSaved);
    EXPECT_TRUE(desk->files.contents["a.nmd"] == FakeSetOf({{7, "characters"}}).data);
    EXPECT_EQ(desk->files.contents["a.nmi"].size(), 0u);
    desk->files.room = -1;
    EXPECT_EQ(SaveAt(*desk, "again"), NoteSaveResult::kSaved);
    ExpectFilesHold(*desk, {{7, "again"}});
    EXPECT_THAT(desk->told, IsEmpty());
}

TEST(SaveNote, KeepsTheTemporaryFileWhenTheOldOneCannotBeDeleted) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.undeletable = {"a.nmd"};
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_EQ(desk->files.log.back(),  // "Faliure" (sic)
              "box: Faliure Saving Note (delete old failure):\nYou should exit Versewell and restart.");
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kCannotDelete));
    EXPECT_TRUE(desk->files.contents["a.nmd"] == FakeSetOf({{7, "four"}}).data);
    EXPECT_TRUE(desk->files.contents["a.nmd.temp"] == FakeSetOf({{7, "characters"}}).data);
    EXPECT_TRUE(IndexBytes(desk->notes.sets[0].offsets) == FakeSetOf({{7, "characters"}}).index);
    EXPECT_EQ(desk->notes.noteText, "as displayed");
}

// After that failure the offsets in memory do not match the disk; a later save must not use them.
TEST(SaveNote, ReloadsAfterTheOldFileCouldNotBeDeleted) {
    const auto desk = DeskWith({{7, "four"}, {9, "nine"}}, 7);
    desk->files.undeletable = {"a.nmd"};
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    desk->files.undeletable.clear();
    desk->told.clear();
    SelectStoredNote(desk->notes, 0, 8);
    EXPECT_EQ(SaveAt(*desk, "eight"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectFilesHold(*desk, {{7, "four"}, {8, "eight"}, {9, "nine"}});
}

TEST(SaveNote, NeverOverwritesTheOnlyCopy) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.unrenamable = {"a.nmd.temp"};
    EXPECT_EQ(SaveAt(*desk, "characters"), NoteSaveResult::kFailed);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kCannotRename));
    EXPECT_FALSE(desk->files.contents.contains("a.nmd"));
    const std::vector<unsigned char> copy = desk->files.contents["a.nmd.temp"];
    desk->told.clear();
    desk->openedOn = "characters";
    EXPECT_EQ(SaveAt(*desk, "again"), NoteSaveResult::kFailed);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kCannotOpen, SaveNotice::kCannotCreate, SaveNotice::kCannotWrite));
    EXPECT_TRUE(desk->files.contents["a.nmd.temp"] == copy);
    desk->files.unrenamable.clear();
    desk->told.clear();
    EXPECT_EQ(SaveAt(*desk, "again"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->told, IsEmpty());
    ExpectFilesHold(*desk, {{7, "again"}});
}

// ---- Changes by other programs --------------------------------------------------------------------------------------

TEST(SaveNote, UsesTheCurrentLayoutOnTheDisk) {
    const FakeSet theirs = FakeSetOf({{3, "three"}, {7, "four"}, {9, "nine"}});
    static const struct {
        const char* why;
        bool data, index;
    } kRows[] = {{"both files", true, true}, {"the data file alone", true, false}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.why);
        const auto desk = DeskWith({{7, "four"}}, 7);
        if (row.data) ChangeFile(desk->files, "a.nmd", theirs.data);
        if (row.index) ChangeFile(desk->files, "a.nmi", theirs.index);
        EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kSaved);
        EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kChangedOnDisk));
        ExpectFilesHold(*desk, {{3, "three"}, {7, "mine"}, {9, "nine"}});
        desk->told.clear();
        EXPECT_EQ(SaveAt(*desk, "again"), NoteSaveResult::kSaved);
        EXPECT_THAT(desk->told, IsEmpty());
    }
}

TEST(SaveNote, DetectsAChangedIndex) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    desk->files.contents.erase("a.nmi");
    EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectFilesHold(*desk, {{7, "mine"}});
}

// Afterwards the notes on the disk are displayed.
TEST(SaveNote, StopsWhenTheFilesChangedAndTheUserDeclines) {
    const auto desk = DeskWith({{7, "four"}}, 7);
    const FakeSet theirs = FakeSetOf({{3, "three"}});
    ChangeFile(desk->files, "a.nmd", theirs.data);
    ChangeFile(desk->files, "a.nmi", theirs.index);
    desk->answer = false;
    EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kStopped);
    ExpectFilesHold(*desk, {{3, "three"}});
    EXPECT_FALSE(HasTemp(*desk));
    desk->answer = true;
    desk->told.clear();
    EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->told, IsEmpty());
    ExpectFilesHold(*desk, {{3, "three"}, {7, "mine"}});
}

// Size and time of the file may be unchanged, so the ends of notes are counted while they are copied.
TEST(SaveNote, DetectsAChangedLayoutWithTheSameSizeAndTime) {
    const auto desk = DeskWith({{3, "three"}, {7, "four"}, {9, "9"}}, 7);
    desk->files.contents["a.nmd"] = FakeSetOf({{3, "th"}, {7, "four"}, {9, "nine"}}).data;  // the same size
    EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kSaved);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kChangedOnDisk));
    ExpectFilesHold(*desk, {{3, "th"}, {7, "mine"}, {9, "nine"}});
}

TEST(SaveNote, StopsIfTheDataFileChangesAgainMeanwhile) {
    const auto desk = DeskWith({{3, "three"}, {7, "four"}, {9, "9"}}, 7);
    desk->files.contents["a.nmd"] = FakeSetOf({{3, "th"}, {7, "four"}, {9, "nine"}}).data;  // as many bytes
    desk->whenTold = [](Desk& there, SaveNotice) {
        there.files.contents["a.nmd"] = FakeSetOf({{3, "t"}, {7, "four"}, {9, "nine!"}}).data;
    };
    EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kStopped);
    EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kChangedOnDisk, SaveNotice::kNotWhole));
    EXPECT_TRUE(desk->files.contents["a.nmd"] == FakeSetOf({{3, "t"}, {7, "four"}, {9, "nine!"}}).data);
    EXPECT_EQ(desk->notes.noteText, "as displayed");
}

TEST(SaveNote, NeverReplacesADamagedFile) {
    const FakeSet whole = FakeSetOf({{7, "four"}, {9, "nine"}});
    std::vector<unsigned char> tooFew(whole.data.begin(), whole.data.end() - 20000);
    std::vector<unsigned char> tooMany = whole.data;
    tooMany.push_back(0);
    std::vector<unsigned char> endless = whole.data;
    endless.push_back('x');
    for (const std::vector<unsigned char>& damaged : {tooFew, tooMany, endless, std::vector<unsigned char>{}}) {
        for (const bool isSeen : {false, true}) {
            const auto desk = DeskWith({{7, "four"}, {9, "nine"}}, 7);
            desk->files.contents["a.nmd"] = damaged;
            if (isSeen) ChangeFile(desk->files, "a.nmd", damaged);
            EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kStopped);
            EXPECT_THAT(desk->told, ElementsAre(SaveNotice::kNotWhole));
            EXPECT_TRUE(desk->files.contents["a.nmd"] == damaged);
            EXPECT_TRUE(desk->files.contents["a.nmi"] == whole.index);
            EXPECT_TRUE(desk->notes.sets[0].readOnly);
            desk->files.log.clear();
            EXPECT_EQ(SaveAt(*desk, "mine"), NoteSaveResult::kStopped);
            EXPECT_EQ(desk->files.log.size(), 1u);  // only the message box; no file is opened
        }
    }
}
