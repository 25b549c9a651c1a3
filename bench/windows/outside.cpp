#include "bench/windows/outside.h"

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <algorithm>

#include "resources/ids.h"

static constexpr int kPassagePart = 3;  // of the status bar

static HWND FrameShown(const Program& program, const char* frameClass) {
    const HWND frame = FindWindowA(frameClass, nullptr);
    DWORD process = 0;
    GetWindowThreadProcessId(frame, &process);
    return process == program.processId && IsWindowVisible(frame) ? frame : nullptr;
}

void WaitForFirstVerse(Program& program, const char* frameClass) {
    AskUntil(program, 1, [&] { return (program.frame = FrameShown(program, frameClass)) != nullptr; });
    const HWND statusBar = Child(program.frame, {IDC_STATUS_BAR});
    AskUntil(program, 1, [&] { return Ask(program, statusBar, SB_GETTEXTLENGTHA, kPassagePart) != 0; });
    Ask(program, program.frame, WM_NULL);
}

std::string StatusTextNow(const Program& program, int part, const RemoteMemory& room) {
    Ask(program, Child(program.frame, {IDC_STATUS_BAR}), SB_GETTEXTA, static_cast<WPARAM>(part),
        reinterpret_cast<LPARAM>(room.address));
    char text[kStatusRoom] = "";
    ReadRemote(room, text, sizeof text);
    return text;
}

StartOptions BareProgramOptions() {
    char file[MAX_PATH];
    GetModuleFileNameA(nullptr, file, sizeof file);
    StartOptions options;
    options.programFile = (std::filesystem::path(file).parent_path() / "bare_program.exe").string();
    options.frameClass = "BareProgram";
    return options;
}

static BOOL CALLBACK AddWindow(HWND window, LPARAM windows) {
    reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
    return TRUE;
}

std::vector<HWND> WindowsOf(const Program& program) {
    std::vector<HWND> windows{program.frame};
    EnumChildWindows(program.frame, AddWindow, reinterpret_cast<LPARAM>(&windows));
    std::ranges::reverse(windows);  // the system paints them from the top down
    return windows;
}

static bool IsPainted(HWND window) {
    static const HRGN region = CreateRectRgn(0, 0, 0, 0);
    return GetUpdateRgn(window, region, FALSE) == NULLREGION;
}

// A window has nothing left to be painted when its paint begins, so a message is answered after the paint has ended.
void WaitUntilStill(const Program& program, const std::vector<HWND>& windows) {
    do {
        AskUntil(program, 1, [&] { return std::ranges::all_of(windows, IsPainted); });
        Ask(program, program.frame, WM_NULL);
    } while (!std::ranges::all_of(windows, IsPainted));
}

Memory MemoryOf(const Program& program) {
    static constexpr double kMiB = 1024.0 * 1024.0;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(program.process.get(), &counters, sizeof counters);
    return {static_cast<double>(counters.WorkingSetSize) / kMiB, static_cast<double>(counters.PagefileUsage) / kMiB};
}
