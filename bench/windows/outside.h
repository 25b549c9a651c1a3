// Watches a program from a second process without a hook, which would slow every message that the program sends. Every
// wait ends: when it takes much too long, the benchmark says what it waited for and fails.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"

// Calls `measure` and returns what `main` returns: that of ExitCode, or 1 if it threw, after printing why. A benchmark
// that is not done after ten minutes, whatever it is doing, says so and ends with 1, too.
int RunBenchmark(void (*measure)());

// Polls until `isSo` returns true, every `pause` milliseconds or, if `pause` is 0, as often as the program answers.
// Throws "waited in vain for <what>" after a minute, or if the program ends.
template <typename Question>
void AskUntil(const Program& program, std::string_view what, DWORD pause, Question isSo) {
    static constexpr ULONGLONG kMostPatience = 60000;  // milliseconds
    const ULONGLONG start = GetTickCount64();
    while (!isSo()) {
        if (!IsRunning(program)) Fail(&program, "the program ended before there was " + std::string(what));
        if (GetTickCount64() - start > kMostPatience) Fail(&program, "waited in vain for " + std::string(what));
        Sleep(pause);
    }
}

// Polls every millisecond until a frame of `frameClass` exists and its status bar shows the painted verse. Then waits
// for one more answer, which the program gives only after it has finished painting.
void WaitForFirstVerse(Program& program, const char* frameClass);

// Closes a program before another one is started, and waits until the system has removed what was left of it, which
// would slow the other one's start by up to a third.
void CloseBeforeNextStart(Program& program);

// Text of a part of the status bar, without waiting until the program is idle. `room` is memory in the program that is
// reused for all calls, because allocating it takes longer than a call.
inline constexpr std::size_t kStatusRoom = 256;
std::string StatusTextNow(const Program& program, int part, const RemoteMemory& room);

// The bare program, which is built beside the benchmarks, and the class of its frame.
StartOptions BareProgramOptions();

// A program with its frame and all windows in it, the last painted first.
struct Contestant {
    Program program;
    std::vector<HWND> windows{};
};

// Starts it and waits for its first verse.
Contestant Started(const ScratchFolder& folder, const StartOptions& options);

// Waits until nothing of the windows is left to be painted and the program waits for its next message.
void WaitUntilStill(const Contestant& contestant);

// Opens the Word Search dialog and types `words`.
HWND OpenWordSearch(const Contestant& contestant, const char* words);

// Calls `compare` with the program and the bare program, both in a folder with the scripture files, and closes them.
void CompareWithBareProgram(void (*compare)(const Contestant& program, const Contestant& bare));

struct Memory {
    double workingSet = 0;  // MiB
    double ownMemory = 0;   // private memory
};
Memory MemoryOf(const Program& program);
