#include "bench/windows/outside.h"

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <exception>

#include "bench/outcomes.h"
#include "resources/ids.h"

static constexpr int kPassagePart = 3;  // of the status bar

// ---- The benchmark --------------------------------------------------------------------------------------------------

// A system call that waits for a program cannot be ended from its own thread.
static DWORD WINAPI EndAfterPatience(void*) {
    static constexpr DWORD kPatienceForAll = 10 * 60 * 1000;
    Sleep(kPatienceForAll);
    std::fprintf(stderr, "the benchmark was not done after ten minutes\n");
    std::fflush(nullptr);
    TerminateProcess(GetCurrentProcess(), 1);
    return 0;
}

int RunBenchmark(void (*measure)()) {
    CloseHandle(CreateThread(nullptr, 0, EndAfterPatience, nullptr, 0, nullptr));
    try {
        measure();
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return ExitCode();
}

// ---- What a program shows -------------------------------------------------------------------------------------------

static HWND FrameShown(const Program& program, const char* frameClass) {
    const HWND frame = FindWindowA(frameClass, nullptr);
    DWORD process = 0;
    GetWindowThreadProcessId(frame, &process);
    return process == program.processId && IsWindowVisible(frame) ? frame : nullptr;
}

void WaitForFirstVerse(Program& program, const char* frameClass) {
    AskUntil(program, "the frame", 1, [&] { return (program.frame = FrameShown(program, frameClass)) != nullptr; });
    const HWND statusBar = Child(program.frame, {IDC_STATUS_BAR});
    AskUntil(program, "the first verse", 1,
             [&] { return Ask(program, statusBar, SB_GETTEXTLENGTHA, kPassagePart) != 0; });
    Ask(program, program.frame, WM_NULL);
}

void CloseBeforeNextStart(Program& program) {
    static constexpr DWORD kRemoval = 150;  // milliseconds
    CloseProgram(program);
    Sleep(kRemoval);
}

std::string StatusTextNow(const Program& program, int part, const RemoteMemory& room) {
    Ask(program, Child(program.frame, {IDC_STATUS_BAR}), SB_GETTEXTA, static_cast<WPARAM>(part),
        reinterpret_cast<LPARAM>(room.address));
    char text[kStatusRoom] = "";
    ReadRemote(room, text, sizeof text);
    return text;
}

static bool IsPainted(HWND window) {
    static const HRGN region = CreateRectRgn(0, 0, 0, 0);
    return GetUpdateRgn(window, region, FALSE) == NULLREGION;
}

// A window has nothing left to be painted when its paint begins, so a message is answered after the paint has ended.
void WaitUntilStill(const Contestant& contestant) {
    const Program& program = contestant.program;
    const auto isPainted = [&] { return std::ranges::all_of(contestant.windows, IsPainted); };
    AskUntil(program, "a still screen", 1, [&] {
        if (!isPainted()) return false;
        Ask(program, program.frame, WM_NULL);
        return isPainted();
    });
}

Memory MemoryOf(const Program& program) {
    static constexpr double kMiB = 1024.0 * 1024.0;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(program.process.get(), &counters, sizeof counters);
    return {static_cast<double>(counters.WorkingSetSize) / kMiB, static_cast<double>(counters.PagefileUsage) / kMiB};
}

// ---- The contestants ------------------------------------------------------------------------------------------------

StartOptions BareProgramOptions() {
    StartOptions options;
    options.programFile = ProgramBesideThis("bare_program.exe");
    options.frameClass = "BareProgram";
    return options;
}

static BOOL CALLBACK AddWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

static std::vector<HWND> WindowsOf(const Program& program) {
    std::vector<HWND> windows{program.frame};
    EnumChildWindows(program.frame, AddWindow, reinterpret_cast<LPARAM>(&windows));
    std::ranges::reverse(windows);  // the system paints them from the top down
    return windows;
}

Contestant Started(const ScratchFolder& folder, const StartOptions& options) {
    Contestant contestant{LaunchProgram(folder, options)};
    WaitForFirstVerse(contestant.program, options.frameClass.c_str());
    contestant.windows = WindowsOf(contestant.program);
    return contestant;
}

HWND OpenWordSearch(const Contestant& contestant, const char* words) {
    const Program& program = contestant.program;
    SetForegroundWindow(program.frame);
    PostMessageA(program.frame, WM_COMMAND, IDM_WORD_SEARCH, 0);
    const HWND dialog = WaitForDialog(program, "Word Search");
    Ask(program, GetDlgItem(dialog, IDC_SEARCH_TEXT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(words));
    WaitUntilStill(contestant);
    return dialog;
}

void CompareWithBareProgram(void (*compare)(const Contestant& program, const Contestant& bare)) {
    const ScratchFolder folder = FolderWithScripture();
    Contestant program = Started(folder, {});
    Contestant bare = Started(folder, BareProgramOptions());
    compare(program, bare);
    for (Contestant* each : {&program, &bare}) CloseProgram(each->program);
}
