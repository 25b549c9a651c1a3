#include "notes/set_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_places.h"
#include "tests/support/fake_note_files.h"

using testing::ElementsAre;

static const NoteTime kNow = {"2024-12-31", 1735603200};

static std::vector<std::string> TextsWith(const std::map<int, std::string>& notes) {
    std::vector<std::string> texts(kVerseCount);
    for (const auto& [verse, text] : notes) texts[static_cast<std::size_t>(verse)] = text;
    return texts;
}

static NoteSet SetNamed(FakeNoteFiles& files, const std::string& name) {
    NoteSet set{name + ".nmd"};
    StampFiles(DeviceOver(files), set);
    return set;
}

TEST(SetTexts, AreThoseOfTheDataFile) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{0, "first"}, {7, "seven\r\nlines"}, {31101, "last"}});
    std::vector<std::string> texts = {"from before"};
    EXPECT_TRUE(ReadSetTexts(DeviceOver(files), "a.nmd", texts));
    EXPECT_EQ(texts, TextsWith({{0, "first"}, {7, "seven\r\nlines"}, {31101, "last"}}));
}

TEST(SetTexts, AreNotThoseOfADamagedFile) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {});
    std::vector<std::string> texts;
    files.contents["a.nmd"].pop_back();
    EXPECT_FALSE(ReadSetTexts(DeviceOver(files), "a.nmd", texts));
    files.contents["a.nmd"].push_back('x');
    EXPECT_FALSE(ReadSetTexts(DeviceOver(files), "a.nmd", texts));
    EXPECT_FALSE(ReadSetTexts(DeviceOver(files), "b.nmd", texts));
    files.contents["a.nmd"].clear();
    EXPECT_FALSE(ReadSetTexts(DeviceOver(files), "a.nmd", texts));
}

TEST(SetTexts, AreReplacedAndKept) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}, {2, "two"}, {4, "four"}});
    const std::vector<unsigned char> before = files.contents["a.nmd"];
    NoteSet set = SetNamed(files, "a");
    const std::map<int, std::string> notes = {{1, "one"}, {2, "zwei"}, {3, "three"}, {31101, "last"}};
    EXPECT_EQ(ReplaceSetTexts(DeviceOver(files), set, TextsWith(notes), KeptReason::kRestored, kNow),
              SetReplacing::kReplaced);
    EXPECT_EQ(files.contents["a.nmd"], FakeSetOf(notes).data);
    EXPECT_EQ(files.contents["a.nmi"], FakeSetOf(notes).index);
    EXPECT_EQ(IndexBytes(set.offsets), files.contents["a.nmi"]);
    EXPECT_EQ(set.dataStamp, DeviceOver(files).stamp(&files, "a.nmd"));
    EXPECT_EQ(set.indexStamp, DeviceOver(files).stamp(&files, "a.nmi"));
    EXPECT_EQ(files.contents["backup/a 2024-12-31.nmd"], before);
    EXPECT_THAT(AllEarlierNotes(DeviceOver(files), "a"),
                ElementsAre(EarlierNote{kNow.seconds, 2, KeptReason::kRestored, "two"},
                            EarlierNote{kNow.seconds, 4, KeptReason::kRestored, "four"}));
    EXPECT_FALSE(files.contents.contains("a.nmd.temp"));
    EXPECT_TRUE(files.unflushed.empty());
}

TEST(SetTexts, AreNotWrittenIfTheyAreThere) {
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}});
    NoteSet set = SetNamed(files, "a");
    files.room = 0;
    EXPECT_EQ(ReplaceSetTexts(DeviceOver(files), set, TextsWith({{1, "one"}}), KeptReason::kMerged, kNow),
              SetReplacing::kReplaced);
    EXPECT_EQ(IndexBytes(set.offsets), files.contents["a.nmi"]);
}

TEST(SetTexts, AreNotReplacedInAFileThatCannotBe) {
    const std::vector<std::string> texts = TextsWith({{1, "new"}});
    FakeNoteFiles files;
    AddFakeSet(files, "a", {{1, "one"}});
    const NoteSet set = SetNamed(files, "a");
    const auto replaced = [&](NoteSet changed) {
        const auto before = files.contents["a.nmd"];
        const SetReplacing end = ReplaceSetTexts(DeviceOver(files), changed, texts, KeptReason::kMerged, kNow);
        EXPECT_EQ(files.contents["a.nmd"], before);
        return end;
    };
    NoteSet readOnly = set;
    readOnly.readOnly = true;
    EXPECT_EQ(replaced(readOnly), SetReplacing::kNotWhole);
    files.uncreatable = {"a.nmd.temp"};
    EXPECT_EQ(replaced(set), SetReplacing::kCannotWrite);
    files.uncreatable = {"backup/a.nmh", "backup/a.nmh.temp"};
    files.contents.erase("backup/a.nmh");
    EXPECT_EQ(replaced(set), SetReplacing::kCannotWrite);  // the earlier text could not be kept
    files.uncreatable.clear();
    ChangeFile(files, "a.nmi", files.contents["a.nmi"]);
    EXPECT_EQ(replaced(set), SetReplacing::kChangedOnDisk);
    files.contents["a.nmd"].pop_back();
    EXPECT_EQ(replaced(SetNamed(files, "a")), SetReplacing::kNotWhole);
}
