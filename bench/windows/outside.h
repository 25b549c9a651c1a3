// Watches a program from a second process without a hook, which would slow every message that the program sends.
#pragma once

#include <string>
#include <vector>

#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"

// Polls every millisecond until a frame of `frameClass` exists and its status bar shows the painted verse. Then waits
// for one more answer, which the program gives only after it has finished painting.
void WaitForFirstVerse(Program& program, const char* frameClass);

// Text of a part of the status bar, without waiting until the program is idle. `room` is memory in the program that is
// reused for all calls, because allocating it takes longer than a call.
inline constexpr std::size_t kStatusRoom = 256;
std::string StatusTextNow(const Program& program, int part, const RemoteMemory& room);

// Polls until `isSo` returns true, every `pause` milliseconds or, if `pause` is 0, as often as the program answers.
template <typename Question>
void AskUntil(const Program& program, DWORD pause, Question isSo) {
    while (!isSo()) {
        if (!IsRunning(program)) Fail(&program, "the program ended meanwhile");
        Sleep(pause);
    }
}

// The bare program, which is built beside the benchmarks, and the class of its frame.
StartOptions BareProgramOptions();

// The frame and all windows in it, the last painted first.
std::vector<HWND> WindowsOf(const Program& program);

// Waits until nothing of `windows` is left to be painted and the program waits for its next message.
void WaitUntilStill(const Program& program, const std::vector<HWND>& windows);

struct Memory {
    double workingSet = 0;  // MiB
    double ownMemory = 0;   // private memory
};
Memory MemoryOf(const Program& program);
