#include "notes/note_history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/fake_note_files.h"
#include "tests/support/real_note_files.h"

using Bytes = std::vector<unsigned char>;
using testing::ElementsAre;
using testing::IsEmpty;

static constexpr char kFile[] = "backup/a.nmh";
static constexpr std::int64_t kDay = 86400;
static constexpr std::int64_t kNow = 1735603200;  // 2024-12-31 00:00:00 UTC

static EarlierNote Note(std::int64_t time, int verse, const std::string& text,
                        KeptReason reason = KeptReason::kReplaced) {
    return {time, verse, reason, text};
}

static bool Keep(FakeNoteFiles& files, const std::vector<EarlierNote>& notes, const std::string& set = "a") {
    return KeepEarlierNotes(DeviceOver(files), set, notes);
}

static std::vector<EarlierNote> All(FakeNoteFiles& files, const std::string& set = "a") {
    return AllEarlierNotes(DeviceOver(files), set);
}

static std::vector<std::string> Texts(const std::vector<EarlierNote>& notes) {
    std::vector<std::string> texts;
    for (const EarlierNote& note : notes) texts.push_back(note.text);
    return texts;
}

static const std::vector<EarlierNote> kThree = {Note(kNow, 5, "first"),
                                                Note(kNow + 1, 31101, "", KeptReason::kCancelled),
                                                Note(kNow + 1, 5, "third\r\n\xE9", KeptReason::kDeleted)};

// ---- Keeping and reading --------------------------------------------------------------------------------------------

TEST(EarlierNotes, AreReadAsTheyWereKept) {
    FakeNoteFiles files;
    EXPECT_THAT(All(files), IsEmpty());
    for (const EarlierNote& note : kThree) EXPECT_TRUE(Keep(files, {note}));
    EXPECT_EQ(All(files), kThree);
    EXPECT_THAT(EarlierNotesOf(DeviceOver(files), "a", 5), ElementsAre(kThree[2], kThree[0]));
    EXPECT_THAT(EarlierNotesOf(DeviceOver(files), "a", 6), IsEmpty());
    EXPECT_THAT(All(files, "b"), IsEmpty());
    EXPECT_EQ(files.openFiles, 0);
    FakeNoteFiles together;
    EXPECT_TRUE(Keep(together, {}));
    EXPECT_FALSE(together.contents.contains(kFile));
    EXPECT_TRUE(Keep(together, kThree));
    EXPECT_EQ(together.contents[kFile], files.contents[kFile]);
}

TEST(EarlierNotes, HaveTheFormatOfTheHeader) {
    FakeNoteFiles files;
    Keep(files, {Note(0x0102030405060708, 0x1234, "ab", KeptReason::kLeftOver)});
    EXPECT_EQ(files.contents[kFile], Bytes({'V',  'W',  'N',  'H',  1, 0, 0, 0,  //
                                            22,   0,    0,    0,                 //
                                            0xD5, 0x99, 0x30, 0x53,              // as zlib computes it
                                            8,    7,    6,    5,    4, 3, 2, 1,  //
                                            0x34, 0x12, 0,    0,    6, 0, 0, 0, 'a', 'b'}));
}

TEST(EarlierNotes, AreInTheOrderOfTheirTimes) {
    FakeNoteFiles files;
    Keep(files, {Note(kNow, 1, "b"), Note(kNow - 5, 1, "a"), Note(kNow, 1, "c"), Note(-1, 1, "before")});
    EXPECT_THAT(Texts(All(files)), ElementsAre("before", "a", "b", "c"));
    EXPECT_THAT(Texts(EarlierNotesOf(DeviceOver(files), "a", 1)), ElementsAre("c", "b", "a", "before"));
}

TEST(EarlierNotes, AreCutAtTheirNulAndDividedWhenTheyAreTooLong) {
    FakeNoteFiles files;
    const std::string longest(65533, 'x');
    Keep(files, {Note(kNow, 0, {"ab\0cd", 5}), Note(kNow, 1, longest), Note(kNow, 2, longest + "y"),
                 Note(kNow, 3, longest + longest)});
    EXPECT_THAT(Texts(All(files)), ElementsAre("ab", longest, longest, "y", longest, longest));
}

// ---- Damage ---------------------------------------------------------------------------------------------------------

TEST(EarlierNotes, SurviveARecordTornAtAnyByte) {
    FakeNoteFiles whole;
    Keep(whole, {kThree[0], kThree[1]});
    const std::size_t two = whole.contents[kFile].size();
    Keep(whole, {kThree[2]});
    const EarlierNote next = Note(kNow + 2, 7, "next");
    for (std::size_t size = two; size <= whole.contents[kFile].size(); ++size) {
        FakeNoteFiles files = whole;
        files.contents[kFile].resize(size);
        std::vector<EarlierNote> expected = kThree;
        if (size < whole.contents[kFile].size()) expected.pop_back();
        EXPECT_EQ(All(files), expected) << size;
        EXPECT_TRUE(Keep(files, {next}));
        expected.push_back(next);
        EXPECT_EQ(All(files), expected) << size;
    }
}

TEST(EarlierNotes, AreMissedOnlyWhereABitIsWrong) {
    FakeNoteFiles whole;
    Keep(whole, kThree);
    const std::size_t lengths[] = {24 + 5, 24, 24 + 8};
    std::size_t begin = 8;
    for (std::size_t record = 0; record < 3; begin += lengths[record++]) {
        std::vector<EarlierNote> others = kThree;
        others.erase(others.begin() + static_cast<std::ptrdiff_t>(record));
        for (std::size_t bit = begin * 8; bit < (begin + lengths[record]) * 8; ++bit) {
            FakeNoteFiles files = whole;
            files.contents[kFile][bit / 8] ^= static_cast<unsigned char>(1 << bit % 8);
            EXPECT_EQ(All(files), others) << bit;
        }
    }
}

TEST(EarlierNotes, PutAFileThatIsNoHistoryAside) {
    const Bytes kForeign[] = {{1},
                              {'V', 'W', 'N', 'H', 1, 0, 0},
                              {'V', 'W', 'N', 'X', 1, 0, 0, 0},
                              {'V', 'W', 'N', 'H', 0, 0, 0, 0, 9, 9},
                              Bytes(100)};
    for (const Bytes& foreign : kForeign) {
        FakeNoteFiles files;
        files.contents = {{kFile, foreign}, {"backup/a.nmh.damaged", {7}}};
        EXPECT_THAT(All(files), IsEmpty());
        EXPECT_EQ(files.contents[kFile], foreign);
        EXPECT_TRUE(Keep(files, kThree));
        EXPECT_EQ(All(files), kThree);
        EXPECT_EQ(files.contents["backup/a.nmh.damaged"], Bytes({7}));
        EXPECT_EQ(files.contents["backup/a.nmh.damaged 2"], foreign);
        files.contents = {{kFile, foreign}};
        files.unrenamable = {kFile};
        EXPECT_FALSE(Keep(files, kThree));
        EXPECT_EQ(files.contents[kFile], foreign);
    }
}

TEST(EarlierNotes, LeaveAFileOfANewerVersionAlone) {
    FakeNoteFiles files;
    Keep(files, kThree);
    files.contents[kFile][4] = 2;
    const Bytes newer = files.contents[kFile];
    EXPECT_THAT(All(files), IsEmpty());
    EXPECT_FALSE(Keep(files, kThree));
    EXPECT_EQ(files.contents[kFile], newer);
    EXPECT_EQ(files.contents.size(), 1u);
}

TEST(EarlierNotes, BeginAnewInAnEmptyFile) {
    FakeNoteFiles files;
    files.contents[kFile] = {};
    EXPECT_TRUE(Keep(files, kThree));
    EXPECT_EQ(All(files), kThree);
    EXPECT_EQ(files.contents.size(), 1u);
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST(EarlierNotes, AreNotLostWhenTheDiskFails) {
    for (const bool hasOne : {false, true}) {
        for (int fault = 0; fault < 5; ++fault) {
            SCOPED_TRACE(testing::Message() << "fault " << fault << (hasOne ? ", second" : ", first"));
            FakeNoteFiles files;
            if (hasOne) Keep(files, {kThree[0]});
            if (fault == 0) files.uncreatable = {"backup"};
            if (fault == 1) files.uncreatable = {"backup/a.nmh.temp", kFile}, files.unreadable = {kFile};
            if (fault == 2) files.room = 0;
            if (fault == 3) files.room = 20;
            if (fault == 4) files.isFlushable = false;
            EXPECT_FALSE(Keep(files, {kThree[1], kThree[2]}));
            files.uncreatable = files.unreadable = {};
            files.room = -1;
            files.isFlushable = true;
            const std::vector<EarlierNote> left = All(files);
            EXPECT_TRUE(!hasOne || (!left.empty() && left[0] == kThree[0]));
            EXPECT_TRUE(Keep(files, {kThree[2]}));
            EXPECT_EQ(All(files).size(), left.size() + 1);
            EXPECT_EQ(files.openFiles, 0);
        }
    }
}

TEST(EarlierNotes, AreThereAfterAPowerCutAtAnyStep) {
    const std::vector<EarlierNote> added = {kThree[1], kThree[2]};
    for (const bool hasOne : {false, true}) {
        bool hasEnded = false;
        for (std::int64_t step = 0; !hasEnded; ++step) {
            FakeNoteFiles stopped;
            if (hasOne) Keep(stopped, {kThree[0]});
            stopped.steps = step;
            try {
                hasEnded = Keep(stopped, added);
            } catch (const ProgramStopped&) {
            }
            for (const PowerCut cut :
                 {PowerCut::kNone, PowerCut::kLosesAll, PowerCut::kLeavesZeros, PowerCut::kLeavesHalf}) {
                SCOPED_TRACE(testing::Message() << "step " << step << ", cut " << static_cast<int>(cut));
                FakeNoteFiles files = stopped;
                files.steps = -1;
                CutPower(files, cut);
                std::vector<EarlierNote> left = All(files);
                ASSERT_GE(left.size(), hasEnded ? 2u + hasOne : 0u + hasOne);
                EXPECT_TRUE(!hasOne || left[0] == kThree[0]);
                EXPECT_TRUE(Keep(files, {kThree[0]}));
                EXPECT_EQ(All(files).size(), left.size() + 1);
            }
            ASSERT_LT(step, 50);
        }
    }
}

TEST(EarlierNotes, AreKeptOnARealDisk) {
    RealNoteFiles real{MakeScratchFolder()};
    for (const EarlierNote& note : kThree) EXPECT_TRUE(KeepEarlierNotes(DeviceOver(real), "a", {&note, 1}));
    EXPECT_EQ(AllEarlierNotes(DeviceOver(real), "a"), kThree);
    RemoveScratchFolder(real.folder);
}

// ---- Cost and dropping ----------------------------------------------------------------------------------------------

static std::vector<EarlierNote> Megabytes(int count, std::int64_t time, int verse,
                                          KeptReason reason = KeptReason::kReplaced) {
    return std::vector<EarlierNote>(static_cast<std::size_t>(count) * 17,
                                    Note(time, verse, std::string(61656, 'm'), reason));
}

static std::uint64_t SizeOf(const FakeNoteFiles& files) {
    return files.contents.at(kFile).size();
}

// Only the file's header is read.
TEST(EarlierNotes, CostTheSameHoweverManyThereAre) {
    FakeNoteFiles files;
    Keep(files, Megabytes(3, kNow, 1));
    files.log.clear();
    EXPECT_TRUE(Keep(files, {Note(kNow, 2, "x")}));
    EXPECT_THAT(files.log, ElementsAre("folder backup", "read backup/a.nmh", "append backup/a.nmh 25"));
}

TEST(EarlierNotes, AreThinnedAfterNinetyDays) {
    const std::int64_t old = kNow - 90 * kDay;
    FakeNoteFiles files;
    Keep(files, Megabytes(2, old - 1, 9));
    Keep(files, {Note(old, 1, "ninety days"), Note(old - 1, 1, "third"), Note(old - 3, 1, "first"),
                 Note(old - 1, 1, "fourth"), Note(old - 2, 1, "second"), Note(old - 1, 2, "other verse"),
                 Note(old - 40 * kDay, 1, "other month"), Note(kNow, 1, "now")});
    Keep(files, Megabytes(2, kNow, 3));
    EXPECT_THAT(Texts(EarlierNotesOf(DeviceOver(files), "a", 1)),
                ElementsAre("now", "ninety days", "fourth", "other month"));
    EXPECT_THAT(Texts(EarlierNotesOf(DeviceOver(files), "a", 2)), ElementsAre("other verse"));
    EXPECT_EQ(EarlierNotesOf(DeviceOver(files), "a", 9).size(), 1u);
    EXPECT_EQ(EarlierNotesOf(DeviceOver(files), "a", 3).size(), 34u);
}

// 2024-10-31 23:59:59 and one second later.
TEST(EarlierNotes, AreThinnedByMonthsOfTheCalendar) {
    FakeNoteFiles files;
    Keep(files, Megabytes(2, 1730419199, 9));
    Keep(files, {Note(1730419198, 1, "dropped"), Note(1730419199, 1, "October"), Note(1730419200, 1, "November")});
    Keep(files, Megabytes(2, 1730419200 + 91 * kDay, 3));
    EXPECT_THAT(Texts(EarlierNotesOf(DeviceOver(files), "a", 1)), ElementsAre("November", "October"));
}

TEST(EarlierNotes, AreNotRewrittenToDropLittle) {
    FakeNoteFiles files;
    Keep(files, Megabytes(3, kNow, 1));
    Keep(files, {Note(0, 2, "a"), Note(0, 2, "b")});
    files.log.clear();
    Keep(files, Megabytes(2, kNow, 1));
    EXPECT_GT(SizeOf(files), kHistoryStep);
    EXPECT_EQ(All(files).size(), 5u * 17 + 2);
    EXPECT_EQ(std::ranges::count(files.log, "create anew backup/a.nmh.temp"), 0);
}

TEST(EarlierNotes, DropTheOldestBeyondTheLimit) {
    FakeNoteFiles files;
    Keep(files, {Note(kNow + 1000, 2, "of a deleted set", KeptReason::kDeleted)});
    for (int i = 0; i < 66; ++i) {
        EXPECT_TRUE(Keep(files, Megabytes(1, kNow + i, 1)));
        EXPECT_LE(SizeOf(files), kHistoryLimit);
    }
    const std::vector<EarlierNote> left = EarlierNotesOf(DeviceOver(files), "a", 1);
    EXPECT_GT(left.size(), 45u * 17);
    EXPECT_EQ(left.front().time, kNow + 65);
    for (std::size_t i = 0; i < left.size(); ++i)
        EXPECT_EQ(left[i].time, kNow + 65 - static_cast<std::int64_t>(i) / 17) << i;
    EXPECT_THAT(EarlierNotesOf(DeviceOver(files), "a", 2), IsEmpty());
}

TEST(EarlierNotes, AreAddedWhenNothingCanBeDropped) {
    const auto full = [] {
        FakeNoteFiles files;
        Keep(files, Megabytes(3, 0, 1));
        return files;
    };
    for (int fault = 0; fault < 2; ++fault) {
        FakeNoteFiles files = full();
        if (fault == 0) files.uncreatable = {"backup/a.nmh.temp"};
        if (fault == 1) files.unrenamable = {"backup/a.nmh.temp"};
        EXPECT_TRUE(Keep(files, Megabytes(2, kNow, 2)));
        EXPECT_EQ(All(files).size(), 5u * 17) << fault;
    }
}

TEST(EarlierNotes, LoseDamagedBytesWhenTheFileIsRewritten) {
    FakeNoteFiles files;
    Keep(files, {Note(kNow, 1, "one")});
    files.contents[kFile].insert(files.contents[kFile].end(), 3u << 20, 'x');
    Keep(files, Megabytes(1, kNow, 2));
    EXPECT_LT(SizeOf(files), 2u << 20);
    EXPECT_EQ(All(files).size(), 18u);
}

// ---- Another name ---------------------------------------------------------------------------------------------------

TEST(EarlierNotes, FollowTheirSet) {
    FakeNoteFiles files;
    EXPECT_TRUE(MoveEarlierNotes(DeviceOver(files), "a", "b"));
    Keep(files, kThree);
    EXPECT_TRUE(MoveEarlierNotes(DeviceOver(files), "a", "b"));
    EXPECT_EQ(All(files, "b"), kThree);
    EXPECT_EQ(files.contents.size(), 1u);
}

TEST(EarlierNotes, AreAddedToThoseOfADeletedSet) {
    FakeNoteFiles files;
    Keep(files, kThree);
    Keep(files, {Note(kNow + 1, 8, "deleted", KeptReason::kDeleted)}, "b");
    EXPECT_TRUE(MoveEarlierNotes(DeviceOver(files), "a", "b"));
    EXPECT_THAT(Texts(All(files, "b")), ElementsAre("first", "deleted", "", "third\r\n\xE9"));
    EXPECT_EQ(files.contents.size(), 1u);
}

TEST(EarlierNotes, StayUnderTheirNameIfTheyCannotBeAdded) {
    for (int fault = 0; fault < 4; ++fault) {
        SCOPED_TRACE(fault);
        FakeNoteFiles files;
        Keep(files, kThree);
        Keep(files, {Note(kNow, 8, "deleted")}, "b");
        if (fault == 0) files.room = 50;
        if (fault == 1) files.unreadable = {kFile};
        if (fault == 2) files.contents["backup/b.nmh"][4] = 9;
        if (fault == 3) files.contents[kFile][4] = 9;
        const Bytes before = files.contents[kFile];
        EXPECT_FALSE(MoveEarlierNotes(DeviceOver(files), "a", "b"));
        EXPECT_EQ(files.contents[kFile], before);
    }
}
