#include "app/session_pace.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

// A program whose session changes at given times, and what it writes.
struct Course {
    SessionPace pace;
    std::uint64_t now = 1000;
    int changes = 0;  // so far
    int checked = 0;  // number of changes at the last check
    int written = 0;  // number of changes in the file
    std::uint64_t duration = 0;
    bool canWrite = true;
    int checks = 0;
    std::vector<std::uint64_t> writes;  // times
};

}  // namespace

static void Check(Course& run) {
    ++run.checks;
    const SessionCheck check{run.changes != run.written, run.changes != run.checked};
    run.checked = run.changes;
    if (!IsWriteDue(run.pace, check, run.now)) return;
    run.writes.push_back(run.now);
    run.now += run.duration;
    if (run.canWrite) run.written = run.checked;
    NoteWrite(run.pace, run.canWrite, run.duration, run.now);
}

// Goes on to `end` as the message loop does. `change` tells whether something changes at a time.
static void GoOn(Course& run, std::uint64_t end, const std::function<bool(std::uint64_t)>& change) {
    for (; run.now < end; ++run.now) {
        if (change(run.now)) {
            ++run.changes;
            NoteActivity(run.pace, run.now);
        }
        if (IsCheckDue(run.pace, run.now)) Check(run);
    }
}

static bool Never(std::uint64_t) {
    return false;
}

static bool EveryTenth(std::uint64_t time) {
    return time % 100 == 0;
}

using Times = std::vector<std::uint64_t>;

TEST(SessionPace, DoesNothingWithoutActivity) {
    Course run;
    GoOn(run, 100000, Never);
    EXPECT_EQ(run.checks, 0);
}

TEST(SessionPace, ChecksOnceAfterActivityWithoutAChange) {
    Course run;
    NoteActivity(run.pace, run.now);
    GoOn(run, 100000, Never);
    EXPECT_EQ(run.checks, 1);
    EXPECT_EQ(run.writes, Times{});
}

TEST(SessionPace, WritesAChangeOnceWithinASecond) {
    Course run;
    GoOn(run, 100000, [](std::uint64_t time) { return time == 2000; });
    EXPECT_EQ(run.writes, Times{2600});
    EXPECT_EQ(run.checks, 2);
}

TEST(SessionPace, WritesAChangeBehindACheckWithinASecond) {
    Course run;
    NoteActivity(run.pace, 1700);
    GoOn(run, 100000, [](std::uint64_t time) { return time == 2001; });
    EXPECT_EQ(run.writes, Times{2601});
    EXPECT_EQ(run.checks, 3);
}

TEST(SessionPace, WritesDuringSteadyChanges) {
    Course run;
    GoOn(run, 5000, EveryTenth);
    for (std::size_t i = 1; i < run.writes.size(); ++i) EXPECT_LE(run.writes[i] - run.writes[i - 1], 700u);
    EXPECT_GE(run.writes.size(), 5u);
}

TEST(SessionPace, NeverLosesMoreThanASecond) {
    for (const std::uint64_t duration : {0u, 1u, 10u, 30u, 100u}) {
        Course run;
        run.duration = duration;
        std::uint64_t oldest = 0;  // time of the first change that is not in the file
        GoOn(run, 20000, [&](std::uint64_t time) {
            const bool changes = time % 37 == 0;
            if (run.changes == run.written) oldest = changes ? time : 0;
            EXPECT_TRUE(oldest == 0 || time - oldest <= 1000) << duration;
            return changes;
        });
    }
}

TEST(SessionPace, SpendsAtMostAQuarterOfTheTimeWriting) {
    static constexpr struct {
        std::uint64_t duration, longestWait;
    } kRows[] = {{0, 300}, {100, 300}, {101, 303}, {1000, 3000}, {1466, 4398}, {1467, 4400}, {9000, 4400}};
    for (const auto& [duration, longestWait] : kRows) {
        SessionPace pace;
        NoteWrite(pace, true, duration, 5000);
        EXPECT_EQ(pace.longestWait, longestWait) << duration;
    }
}

TEST(SessionPace, WritesEveryFiveSecondsEvenOnASlowDisk) {
    Course run;
    run.duration = 2000;
    GoOn(run, 60000, EveryTenth);
    ASSERT_GE(run.writes.size(), 8u);
    for (std::size_t i = 1; i < run.writes.size(); ++i)
        EXPECT_LE(run.writes[i] - (run.writes[i - 1] + run.duration), 5000u);
}

TEST(SessionPace, TriesAgainLessAndLessOften) {
    Course run;
    run.canWrite = false;
    GoOn(run, 400000, [](std::uint64_t time) { return time == 2000; });
    const Times expected = {2600, 4600, 8600, 16600, 32600, 64600, 128600, 192600, 256600, 320600, 384600};
    EXPECT_EQ(run.writes, expected);
}

TEST(SessionPace, DoesNotTryMoreOftenBecauseOfMoreChanges) {
    Course run;
    run.canWrite = false;
    GoOn(run, 130000, EveryTenth);
    EXPECT_LE(run.writes.size(), 7u);
}

TEST(SessionPace, RecoversAfterAFailure) {
    Course run;
    run.canWrite = false;
    GoOn(run, 5000, [](std::uint64_t time) { return time == 2000; });
    run.canWrite = true;
    GoOn(run, 20000, [](std::uint64_t time) { return time == 12000; });
    const Times expected = {2600, 4600, 8600, 12600};
    EXPECT_EQ(run.writes, expected);
    EXPECT_EQ(run.pace.failures, 0);
}
