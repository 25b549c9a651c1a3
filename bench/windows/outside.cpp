#include "bench/windows/outside.h"

#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

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

Memory MemoryOf(const Program& program) {
    static constexpr double kMiB = 1024.0 * 1024.0;
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    GetProcessMemoryInfo(program.process.get(), &counters, sizeof counters);
    return {static_cast<double>(counters.WorkingSetSize) / kMiB, static_cast<double>(counters.PagefileUsage) / kMiB};
}
