// Benchmarks a step of the Passage by a line, in a burst of keys from outside the program until the screen is still,
// against a bare program that scrolls one plain pane (bare_program.cpp), on screens of several sizes. Also measures the
// memory of the program on the largest one.

#include <windows.h>

#include <algorithm>
#include <limits>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"
#include "scripture/scripture.h"
#include "scripture/scripture_win32.h"

static constexpr int kSteps = 60;
static constexpr int kRounds = 9;
static constexpr int kTries = 3;
static constexpr int kPassagePart = 3;      // of the status bar
static constexpr double kMostMemory = 60;   // MiB
static constexpr DWORD kTimeToRest = 3000;  // milliseconds

namespace {

struct ScreenSize {
    const char* name;
    int width, height;
    double mostTimesBare;
};

// The references that are shown before and after a burst downwards.
struct BurstEnds {
    std::string first, last;
};

}  // namespace

// When it painted the whole pane and updated the status bar, the scroll box and the tabs in each step, the program took
// 3.4, 6.2 and 3.9 times as long as the bare program. 0.6 of that is the most that is wanted; less is reached.
static constexpr ScreenSize kSizes[] = {
    {"1600 x 1000", 1600, 1000, 2.0},
    {"2560 x 1440", 2560, 1440, 2.2},
    {"3840 x 2160", 3840, 2160, 2.0},
};

static BurstEnds EndsOfBurst() {
    Scripture scripture;
    if (!LoadScripture(ScriptureDataFiles(), scripture)) Fail(nullptr, "no scripture files in the current folder");
    return {ReferenceText(scripture.records, 0, BookForm::kName),
            ReferenceText(scripture.records, kSteps, BookForm::kName)};
}

// Only one of the two is shown at a time, because a window behind another one has nothing to paint.
static void Show(const Contestant& contestant, const ScreenSize& size) {
    const HWND frame = contestant.program.frame;
    SetWindowPos(frame, HWND_TOP, 0, 0, size.width, size.height, SWP_SHOWWINDOW);
    SetForegroundWindow(frame);
    WaitUntilStill(contestant);
}

static void Hide(const Contestant& contestant) {
    ShowWindow(contestant.program.frame, SW_HIDE);
    Ask(contestant.program, contestant.program.frame, WM_NULL);
}

static void PressKeys(HWND pane, WPARAM key, int count) {
    for (int i = 0; i < count; ++i) PostMessageA(pane, WM_KEYDOWN, key, 0);
}

// Milliseconds of a step.
static double TimeOfBurst(const Contestant& contestant, WPARAM key, const std::string& reference,
                          const RemoteMemory& room) {
    const Program& program = contestant.program;
    const HWND passage = Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    const double start = Now();
    PressKeys(passage, key, kSteps);
    AskUntil(program, reference + " in the status bar", 1,
             [&] { return StatusTextNow(program, kPassagePart, room) == reference; });
    Ask(program, program.frame, WM_NULL);  // after what it is painting
    return (Now() - start) / kSteps;
}

// The best of three bursts and back, because a step that is preempted takes ten times as long.
static double BestTimeOfStep(const Contestant& contestant, const ScreenSize& size, const BurstEnds& ends) {
    const RemoteMemory room(contestant.program, kStatusRoom);
    double best = std::numeric_limits<double>::infinity();
    Show(contestant, size);
    for (int attempt = 0; attempt < kTries; ++attempt) {
        best = std::min(best, TimeOfBurst(contestant, VK_DOWN, ends.last, room));
        best = std::min(best, TimeOfBurst(contestant, VK_UP, ends.first, room));
    }
    Hide(contestant);
    return best;
}

static void Compare(const Contestant& program, const Contestant& bare, const ScreenSize& size, const BurstEnds& ends) {
    std::vector<double> times, floors;
    for (int round = 0; round < kRounds; ++round) {
        times.push_back(BestTimeOfStep(program, size, ends));
        floors.push_back(BestTimeOfStep(bare, size, ends));
    }
    Print({std::string("scroll step, ") + size.name + " / bare program", MedianOf(times), MedianOf(floors),
           size.mostTimesBare});
}

static void SearchFor(const Contestant& contestant, const char* words) {
    PostMessageA(OpenWordSearch(contestant, words), WM_COMMAND, IDOK, 0);
    AskUntil(contestant.program, "the dialog's end", 5, [&] { return !HasDialog(contestant.program); });
    WaitUntilStill(contestant);
}

// After searches and pages of both panes, on the largest screen. A question overtakes keys that were posted before it,
// so a busy machine may still show pages; when they are shown and the program has come to rest, it gives back what it
// only kept for the next moment (app/spare_memory_win32.h).
static double MemoryAfterSearches(const Contestant& contestant, const ScreenSize& size) {
    const Program& program = contestant.program;
    Show(contestant, size);
    for (const char* words : {"grace", "the", "lord god"}) {
        SearchFor(contestant, words);
        PressKeys(Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST}), VK_NEXT, 20);
        PressKeys(Child(program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE}), VK_NEXT, 20);
        WaitUntilStill(contestant);
    }
    Sleep(kTimeToRest);
    return MemoryOf(program).workingSet;
}

static void CompareAll(const Contestant& program, const Contestant& bare) {
    const BurstEnds ends = EndsOfBurst();
    for (const Contestant* each : {&program, &bare}) Hide(*each);
    for (const ScreenSize& size : kSizes) Compare(program, bare, size, ends);
    const ScreenSize& largest = kSizes[std::size(kSizes) - 1];
    const double memory = MemoryAfterSearches(program, largest);
    Hide(program);
    PrintLimited(std::string("working set after searches, ") + largest.name, memory, kMostMemory, "MiB");
    PrintAmount("  the bare program's, which shows a list each time", MemoryAfterSearches(bare, largest), "MiB");
}

int main() {
    return RunBenchmark([] { CompareWithBareProgram(CompareAll); });
}
