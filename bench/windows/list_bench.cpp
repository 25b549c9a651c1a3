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
#include "tests/driver/remote_memory.h"

static constexpr int kRounds = 15;
static constexpr int kTries = 3;
static constexpr double kMostTimesBare = 1.5;
static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;
static constexpr RECT kFrame{10, 10, 1110, 810};

namespace {

struct Contestant {
    Program program;
    std::vector<HWND> windows{};
};

}  // namespace

static Contestant Started(const ScratchFolder& folder, const StartOptions& options) {
    Contestant contestant{LaunchProgram(folder, options)};
    const Program& program = contestant.program;
    WaitForFirstVerse(contestant.program, options.frameClass.c_str());
    contestant.windows = WindowsOf(program);
    SetWindowPos(program.frame, nullptr, kFrame.left, kFrame.top, kFrame.right - kFrame.left,
                 kFrame.bottom - kFrame.top, SWP_NOZORDER | SWP_NOACTIVATE);
    WaitUntilStill(program, contestant.windows);
    return contestant;
}

static HWND OpenWordSearch(const Contestant& contestant, const char* words) {
    const Program& program = contestant.program;
    SetForegroundWindow(program.frame);
    PostMessageA(program.frame, WM_COMMAND, IDM_WORD_SEARCH, 0);
    const HWND dialog = WaitForDialog(program, "Word Search");
    SendMessageA(GetDlgItem(dialog, IDC_SEARCH_TEXT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(words));
    WaitUntilStill(program, contestant.windows);
    return dialog;
}

// Painting the list puts its top entry, which is another one for each list, into the status bar. Returns milliseconds.
static double TimeOfList(const Contestant& contestant, const char* words) {
    const Program& program = contestant.program;
    const RemoteMemory room(program, kStatusRoom);
    const std::string before = StatusTextNow(program, kEntryPart, room);
    const HWND dialog = OpenWordSearch(contestant, words);
    const double start = Now();
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    AskUntil(program, 1, [&] { return StatusTextNow(program, kEntryPart, room) != before; });
    WaitUntilStill(program, contestant.windows);
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

int main() {
    const ScratchFolder folder = FolderWithScripture();
    Contestant program = Started(folder, {});
    Contestant bare = Started(folder, BareProgramOptions());
    Compare("grace", "lord", program, bare);
    Compare("lord", "the", program, bare);
    Compare("the", "lord", program, bare);
    CloseProgram(program.program);
    CloseProgram(bare.program);
    return ExitCode();
}
