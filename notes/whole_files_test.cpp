#include "notes/whole_files.h"

#include <gtest/gtest.h>

#include "tests/support/fake_note_files.h"
#include "tests/support/real_note_files.h"

using Bytes = std::vector<unsigned char>;

static constexpr PowerCut kCuts[] = {PowerCut::kNone, PowerCut::kLosesAll, PowerCut::kLeavesZeros,
                                     PowerCut::kLeavesHalf};

TEST(WholeFile, IsReadUpToTheLimit) {
    FakeNoteFiles files;
    files.contents["a"] = {1, 2, 3};
    Bytes bytes;
    EXPECT_TRUE(ReadWholeFile(DeviceOver(files), "a", 10, bytes));
    EXPECT_EQ(bytes, Bytes({1, 2, 3}));
    EXPECT_TRUE(ReadWholeFile(DeviceOver(files), "a", 2, bytes));
    EXPECT_EQ(bytes, Bytes({1, 2}));
    EXPECT_FALSE(ReadWholeFile(DeviceOver(files), "b", 10, bytes));
}

TEST(WholeFile, IsOldOrNewWhereverWritingStops) {
    const Bytes before = {1, 2, 3, 4}, after = {5, 6, 7, 8, 9, 10};
    bool ended = false;
    for (std::int64_t step = 0; !ended; ++step) {
        FakeNoteFiles stopped;
        stopped.contents["a"] = before;
        stopped.steps = step;
        try {
            ended = WriteWholeFile(DeviceOver(stopped), "a", after);
        } catch (const ProgramStopped&) {
        }
        for (const PowerCut cut : kCuts) {
            FakeNoteFiles files = stopped;
            CutPower(files, cut);
            EXPECT_TRUE(files.contents["a"] == after || (!ended && files.contents["a"] == before)) << step;
        }
        ASSERT_LT(step, 50);
    }
}

TEST(WholeFile, StaysAsItWasWhenItCannotBeWritten) {
    for (const int fault : {0, 1, 2, 3}) {
        FakeNoteFiles files;
        files.contents["a"] = {1, 2};
        if (fault == 0) files.room = 1;
        if (fault == 1) files.uncreatable = {"a.temp"};
        if (fault == 2) files.undeletable = {"a"};
        if (fault == 3) files.isFlushable = false;
        EXPECT_FALSE(WriteWholeFile(DeviceOver(files), "a", Bytes{3, 4, 5})) << fault;
        EXPECT_EQ(files.contents["a"], Bytes({1, 2}));
        EXPECT_FALSE(files.contents.contains("a.temp"));
        EXPECT_EQ(files.openFiles, 0);
    }
}

TEST(WholeFile, IsWrittenCopiedAndAppendedToOnARealDisk) {
    RealNoteFiles real{MakeScratchFolder()};
    const NoteFiles files = DeviceOver(real);
    ASSERT_TRUE(WriteWholeFile(files, "a", Bytes{1, 2, 3}));
    ASSERT_TRUE(WriteWholeFile(files, "a", Bytes{4, 5}));
    EXPECT_TRUE(CopyWholeFile(files, "a", "b"));
    EXPECT_FALSE(CopyWholeFile(files, "a", "b"));
    EXPECT_TRUE(files.append(files.device, "b", Bytes{6}));
    EXPECT_TRUE(files.append(files.device, "c", Bytes{7}));
    EXPECT_EQ(ReadWholeFile(real.folder + "a"), Bytes({4, 5}));
    EXPECT_EQ(ReadWholeFile(real.folder + "b"), Bytes({4, 5, 6}));
    EXPECT_EQ(ReadWholeFile(real.folder + "c"), Bytes({7}));
    RemoveScratchFolder(real.folder);
}
