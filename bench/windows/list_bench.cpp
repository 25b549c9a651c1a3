// Benchmarks the time from OK in the Word Search dialog to the painted list, measured from outside, of the program
// against a bare program that closes the same dialog and paints a plain pane of the same size with as many lines, but
// does not search (bare_program.cpp). Without the search, the whole time is the system's.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <limits>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"

static constexpr int kRounds = 15;
static constexpr int kTries = 3;
static constexpr double kMostTimesBare = 1.5;
static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;
static constexpr RECT kFrame{10, 10, 1110, 810};

static void Place(const Contestant& contestant) {
    SetWindowPos(contestant.program.frame, nullptr, kFrame.left, kFrame.top, kFrame.right - kFrame.left,
                 kFrame.bottom - kFrame.top, SWP_NOZORDER | SWP_NOACTIVATE);
    WaitUntilStill(contestant);
}

// Painting the list puts its top entry, which is another one for each list, into the status bar. Returns milliseconds.
static double TimeOfList(const Contestant& contestant, const char* words) {
    const Program& program = contestant.program;
    const RemoteMemory room(program, kStatusRoom);
    const std::string before = StatusTextNow(program, kEntryPart, room);
    const HWND dialog = OpenWordSearch(contestant, words);
    const double start = Now();
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    AskUntil(program, "another list", 1, [&] { return StatusTextNow(program, kEntryPart, room) != before; });
    WaitUntilStill(contestant);
    return Now() - start;
}

static RECT ListOf(const Contestant& contestant) {
    return ClientRectOf(Child(contestant.program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST}));
}

static std::string SummaryOf(const Contestant& contestant) {
    const RemoteMemory room(contestant.program, kStatusRoom);
    return StatusTextNow(contestant.program, kSummaryPart, room);
}

// The best of three, because a list that is preempted takes several times as long. `others` are searched for in
// between, so that each list differs from the one before.
static double BestTimeOfList(const Contestant& contestant, const char* words, const char* others) {
    double best = std::numeric_limits<double>::infinity();
    for (int attempt = 0; attempt < kTries; ++attempt) {
        TimeOfList(contestant, others);
        best = std::min(best, TimeOfList(contestant, words));
    }
    return best;
}

static void Compare(const char* words, const char* others, const Contestant& program, const Contestant& bare) {
    const RECT list = ListOf(program), bareList = ListOf(bare);
    bool sameAnswer = EqualRect(&list, &bareList) != 0;
    TimeOfList(program, words);
    const std::string summary = SummaryOf(program);
    std::vector<double> times, floors;
    for (int round = 0; round < kRounds; ++round) {
        times.push_back(BestTimeOfList(program, words, others));
        floors.push_back(BestTimeOfList(bare, words, others));
        sameAnswer = sameAnswer && SummaryOf(program) == summary;
    }
    Print({.what = std::string("OK to painted list, search included, ") + words + " / bare, no search",
           .time = MedianOf(times),
           .floor = MedianOf(floors),
           .mostTimesFloor = kMostTimesBare,
           .sameAnswer = sameAnswer});
}

static void CompareAll(const Contestant& program, const Contestant& bare) {
    for (const Contestant* each : {&program, &bare}) Place(*each);
    Compare("grace", "lord", program, bare);
    Compare("lord", "the", program, bare);
    Compare("the", "lord", program, bare);
}

int main() {
    return RunBenchmark([] { CompareWithBareProgram(CompareAll); });
}
