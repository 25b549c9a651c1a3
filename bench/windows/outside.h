// A program watched from a second process. Nothing is hooked into it, since that would slow every message it sends.
#pragma once

#include <string>

#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"

// Waits, asking every millisecond, until a frame of `frameClass` has come up and said in its status bar which verse it
// paints, and until it has answered once more, which it does only when that paint is through.
void WaitForFirstVerse(Program& program, const char* frameClass);

// Text of a part of the status bar, without waiting for the program to come to rest. `room` in the program serves for
// many questions: making it costs more than one.
inline constexpr std::size_t kStatusRoom = 256;
std::string StatusTextNow(const Program& program, int part, const RemoteMemory& room);

// Asks until `isSo`, every `pause` milliseconds or, with none, as often as the program answers.
template <typename Question>
void AskUntil(const Program& program, DWORD pause, Question isSo) {
    while (!isSo()) {
        if (!IsRunning(program)) Fail(&program, "the program ended meanwhile");
        Sleep(pause);
    }
}

struct Memory {
    double workingSet = 0;  // MiB
    double ownMemory = 0;   // what it shares with nobody
};
Memory MemoryOf(const Program& program);
