#include "notes/note_keeping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

static const std::map<int, std::string> kNotes = {{0, "first"}, {5, "fifth"}, {15000, "middle"}, {31101, "end"}};
static constexpr std::int64_t kTime = 1735603200;

static std::vector<EarlierNote> Kept(FakeNoteFiles& files) {
    return AllEarlierNotes(DeviceOver(files), "a");
}

static EarlierNote LeftOver(int verse, const std::string& text) {
    return {kTime, verse, KeptReason::kLeftOver, text};
}

static FakeNoteFiles FilesWithTwin(const std::map<int, std::string>& notes) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.contents["a.nmd.temp"] = FakeSetOf(notes).data;
    return files;
}

// ---- All notes ------------------------------------------------------------------------------------------------------

TEST(KeepAllNotes, KeepsThoseThatAreNotEmpty) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    const NoteSet set = ReadWholeSet(DeviceOver(files), "a.nmd").value();
    EXPECT_TRUE(KeepAllNotes(DeviceOver(files), "a", set, KeptReason::kDeleted, kTime));
    std::vector<EarlierNote> expected;
    for (const auto& [verse, text] : kNotes) expected.push_back({kTime, verse, KeptReason::kDeleted, text});
    EXPECT_EQ(Kept(files), expected);
}

TEST(KeepAllNotes, KeepsMoreThanIsWrittenAtOnce) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < 160; ++verse)
        notes[verse * 100] = std::string(60000, static_cast<char>('a' + verse % 26));
    FakeNoteFiles files;
    AddFakeSet(files, "a", notes);
    const NoteSet set = ReadWholeSet(DeviceOver(files), "a.nmd").value();
    EXPECT_TRUE(KeepAllNotes(DeviceOver(files), "a", set, KeptReason::kDeleted, kTime));
    EXPECT_EQ(std::ranges::count_if(files.log, [](const std::string& entry) { return entry.starts_with("append"); }),
              2);
    const std::vector<EarlierNote> kept = Kept(files);
    ASSERT_EQ(kept.size(), notes.size());
    for (const EarlierNote& note : kept) EXPECT_EQ(note.text, notes[note.verse]);
    files.room = 100;
    EXPECT_FALSE(KeepAllNotes(DeviceOver(files), "a", set, KeptReason::kDeleted, kTime));
}

// ---- Temporary files ------------------------------------------------------------------------------------------------

TEST(KeepLeftOver, KeepsTheNotesThatDiffer) {
    FakeNoteFiles files = FilesWithTwin({{0, "first"}, {5, "changed"}, {6, "new"}, {15000, "middlE"}, {31101, "ende"}});
    const LeftOverNotes result = KeepLeftOver(DeviceOver(files), "a", kTime);
    EXPECT_EQ(result.kept, 4);
    EXPECT_FALSE(result.isFailed);
    EXPECT_THAT(Kept(files), ElementsAre(LeftOver(5, "changed"), LeftOver(6, "new"), LeftOver(15000, "middlE"),
                                         LeftOver(31101, "ende")));
    EXPECT_FALSE(files.contents.contains("a.nmd.temp"));
    EXPECT_TRUE(files.contents["a.nmd"] == FakeSetOf(kNotes).data);
}

TEST(KeepLeftOver, RemovesAFileWithoutOtherNotes) {
    for (const bool isEmptied : {false, true}) {
        FakeNoteFiles files = FilesWithTwin(isEmptied ? std::map<int, std::string>{} : kNotes);
        EXPECT_EQ(KeepLeftOver(DeviceOver(files), "a", kTime).kept, 0);
        EXPECT_FALSE(files.contents.contains("a.nmd.temp"));
        EXPECT_FALSE(files.contents.contains("backup/a.nmh"));
    }
}

TEST(KeepLeftOver, LeavesWhatIsNotWhole) {
    for (int fault = 0; fault < 5; ++fault) {
        SCOPED_TRACE(fault);
        FakeNoteFiles files = FilesWithTwin({{5, "changed"}});
        if (fault == 0) files.contents["a.nmd.temp"].pop_back();
        if (fault == 1) files.contents["a.nmd"].pop_back();
        if (fault == 2) files.contents.erase("a.nmd");
        if (fault == 3) files.unreadable = {"a.nmd"};
        if (fault == 4) files.unreadable = {"a.nmd.temp"};
        const auto before = files.contents;
        EXPECT_EQ(KeepLeftOver(DeviceOver(files), "a", kTime).kept, 0);
        EXPECT_TRUE(files.contents == before);
    }
}

TEST(KeepLeftOver, LeavesTheFileIfItsNotesCannotBeKept) {
    FakeNoteFiles files = FilesWithTwin({{5, "changed"}});
    files.uncreatable = {"backup/a.nmh.temp"};
    const LeftOverNotes result = KeepLeftOver(DeviceOver(files), "a", kTime);
    EXPECT_EQ(result.kept, 1);
    EXPECT_TRUE(result.isFailed);
    EXPECT_TRUE(files.contents.contains("a.nmd.temp"));
}

TEST(KeepLeftOver, KeepsNothingTwiceIfTheFileCannotBeRemoved) {
    FakeNoteFiles files = FilesWithTwin({{5, "changed"}});
    files.undeletable = {"a.nmd.temp"};
    EXPECT_EQ(KeepLeftOver(DeviceOver(files), "a", kTime).kept, 1);
    EXPECT_EQ(KeepLeftOver(DeviceOver(files), "a", kTime + 9).kept, 0);
    EXPECT_THAT(Kept(files), ElementsAre(LeftOver(5, "changed")));
}

// ---- At the next start ----------------------------------------------------------------------------------------------

static std::string ReportOfStart(FakeNoteFiles& files) {
    NoteSets notes;
    return OpenAndCheckSets(DeviceOver(files), notes, {"2024-12-31", kTime}).report;
}

TEST(OpenNoteSets, KeepsWhatASaveCouldNotPutInPlace) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", kNotes);
    files.undeletable = {"a.nmd"};
    NoteSets notes;
    FindNoteSets(DeviceOver(files), notes);
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};
    NoteEdit edit{"typed", "first"};
    EXPECT_EQ(SaveNote(DeviceOver(files), voice, notes, edit, {"2024-12-31", kTime}), NoteSaveResult::kFailed);
    EXPECT_EQ(
        ReportOfStart(files),
        "A save of the note set \"a\" was not completed. Its temporary file had 1 note that is not in the set. It "
        "is now among the earlier notes of its verse: see Notes, Earlier Notes for this Verse.");
    EXPECT_THAT(EarlierNotesOf(DeviceOver(files), "a", 0), testing::Contains(LeftOver(0, "typed")));
    EXPECT_EQ(ReportOfStart(files), "");
}

TEST(OpenNoteSets, ReportsHowManyNotesWereKeptAndWhetherTheyCouldBe) {
    FakeNoteFiles files = FilesWithTwin({{5, "changed"}, {6, "new"}});
    files.uncreatable = {"backup"};
    EXPECT_THAT(ReportOfStart(files),
                HasSubstr("temporary file has 2 notes that are not in the set. They could not be"));
    files.uncreatable = {};
    EXPECT_THAT(ReportOfStart(files),
                HasSubstr("temporary file had 2 notes that are not in the set. They are now among"));
    EXPECT_THAT(ReportOfStart(files), IsEmpty());
}
