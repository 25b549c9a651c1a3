// Benchmarks a step of the Passage by a line, in a burst of keys from outside the program until the screen is still,
// against a bare program that scrolls one plain pane (bare_program.cpp), on screens of several sizes. Also measures the
// memory of the program on the largest one.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"

static constexpr int kSteps = 60;
static constexpr int kRounds = 9;
static constexpr int kPassagePart = 3;     // of the status bar
static constexpr double kMostMemory = 60;  // MiB

namespace {

struct ScreenSize {
    const char* name;
    int width, height;
    double mostTimesBare;
};

struct Contestant {
    Program program;
    HWND passage = nullptr;
    std::string first{}, last{};  // the references shown before and after a burst downwards
    std::vector<double> times{};  // of a step, milliseconds
};

}  // namespace

// What is allowed is 0.6 of the ratio that the program had when it painted the whole pane and updated the status bar,
// the scroll box and the tabs in each step.
static constexpr ScreenSize kSizes[] = {
    {"1600 x 1000", 1600, 1000, 2.0},
    {"2560 x 1440", 2560, 1440, 3.7},
    {"3840 x 2160", 3840, 2160, 2.3},
};

static std::string BareProgram() {
    char file[MAX_PATH];
    GetModuleFileNameA(nullptr, file, sizeof file);
    return (std::filesystem::path(file).parent_path() / "bare_program.exe").string();
}

static Contestant Start(const ScratchFolder& folder, const StartOptions& options) {
    Contestant contestant{LaunchProgram(folder, options)};
    WaitForFirstVerse(contestant.program, options.frameClass.c_str());
    contestant.passage = Child(contestant.program.frame, {IDC_PASSAGE_TABS, IDC_PASSAGE});
    return contestant;
}

static void WaitUntilStill(const Program& program) {
    for (int turn = 0; turn < 5; ++turn) {
        Ask(program, program.frame, WM_NULL);
        Sleep(20);
    }
}

// Only one of the two is shown at a time, because a window behind another one has nothing to paint.
static void Show(const Contestant& contestant, const ScreenSize& size) {
    const HWND frame = contestant.program.frame;
    SetWindowPos(frame, HWND_TOP, 0, 0, size.width, size.height, SWP_SHOWWINDOW);
    SetForegroundWindow(frame);
    WaitUntilStill(contestant.program);
}

static void Hide(const Contestant& contestant) {
    ShowWindow(contestant.program.frame, SW_HIDE);
    WaitUntilStill(contestant.program);
}

static void PressKeys(const Contestant& contestant, WPARAM key) {
    for (int step = 0; step < kSteps; ++step) PostMessageA(contestant.passage, WM_KEYDOWN, key, 0);
}

// A burst downwards and the references at its ends.
static void Learn(Contestant& contestant, const RemoteMemory& room) {
    contestant.first = StatusTextNow(contestant.program, kPassagePart, room);
    PressKeys(contestant, VK_DOWN);
    Sleep(2000);
    contestant.last = StatusTextNow(contestant.program, kPassagePart, room);
    PressKeys(contestant, VK_UP);
    Sleep(2000);
}

static void TimeBurst(Contestant& contestant, WPARAM key, const std::string& reference, const RemoteMemory& room) {
    const double start = Now();
    PressKeys(contestant, key);
    AskUntil(contestant.program, 1, [&] { return StatusTextNow(contestant.program, kPassagePart, room) == reference; });
    Ask(contestant.program, contestant.program.frame, WM_NULL);  // after what it is painting
    contestant.times.push_back((Now() - start) / kSteps);
}

static void TimeRound(Contestant& contestant, const ScreenSize& size) {
    const RemoteMemory room(contestant.program, kStatusRoom);
    Show(contestant, size);
    if (contestant.last.empty()) Learn(contestant, room);
    TimeBurst(contestant, VK_DOWN, contestant.last, room);
    TimeBurst(contestant, VK_UP, contestant.first, room);
    Hide(contestant);
}

static void Compare(Contestant& program, Contestant& bare, const ScreenSize& size) {
    program.times.clear();
    bare.times.clear();
    for (int round = 0; round < kRounds; ++round) {
        TimeRound(program, size);
        TimeRound(bare, size);
    }
    Print({std::string("scroll step, ") + size.name + " / bare program", MedianOf(program.times), MedianOf(bare.times),
           size.mostTimesBare, 0, "ms", program.first == bare.first && program.last == bare.last});
}

static void SearchFor(const Program& program, const char* words) {
    PostMessageA(program.frame, WM_COMMAND, IDM_WORD_SEARCH, 0);
    const HWND dialog = WaitForDialog(program, "Word Search");
    SendMessageA(GetDlgItem(dialog, IDC_SEARCH_TEXT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(words));
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    AskUntil(program, 5, [&] { return !HasDialog(program); });
    WaitUntilStill(program);
}

// After searches and pages of both panes, on the largest screen.
static void MeasureMemory(const Contestant& contestant, const ScreenSize& size) {
    const Program& program = contestant.program;
    const HWND list = Child(program.frame, {IDC_LIST_TABS, IDC_VERSE_LIST});
    Show(contestant, size);
    for (const char* words : {"grace", "the", "lord god"}) {
        SearchFor(program, words);
        for (const HWND pane : {list, contestant.passage}) {
            for (int page = 0; page < 20; ++page) PostMessageA(pane, WM_KEYDOWN, VK_NEXT, 0);
        }
        WaitUntilStill(program);
    }
    PrintLimited(std::string("working set after searches, ") + size.name, MemoryOf(program).workingSet, kMostMemory,
                 "MiB");
}

int main() {
    const ScratchFolder folder = FolderWithScripture();
    StartOptions bareOptions;
    bareOptions.programFile = BareProgram();
    bareOptions.frameClass = "BareProgram";
    Contestant program = Start(folder, {});
    Hide(program);
    Contestant bare = Start(folder, bareOptions);
    Hide(bare);
    for (const ScreenSize& size : kSizes) Compare(program, bare, size);
    MeasureMemory(program, kSizes[std::size(kSizes) - 1]);
    PrintAmount("the bare program's working set", MemoryOf(bare.program).workingSet, "MiB");
    CloseProgram(program.program);
    CloseProgram(bare.program);
    return ExitCode();
}
