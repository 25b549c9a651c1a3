// Benchmarks the time from the start of the process to the first painted verse, and the memory used by then, of the
// program against a bare program with the same controls and files (bare_program.cpp).

#include <cstdio>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"

static constexpr int kRounds = 45;
static constexpr double kMostTimesBare = 1.3;
static constexpr double kMostMemoryAboveBare = 15;  // MiB

namespace {

struct Starter {
    StartOptions options;
    std::vector<double> times{}, workingSets{}, ownMemory{};
};

}  // namespace

static void StartOnce(const ScratchFolder& folder, Starter& starter) {
    const double start = Now();
    Program program = LaunchProgram(folder, starter.options);
    WaitForFirstVerse(program, starter.options.frameClass.c_str());
    starter.times.push_back(Now() - start);
    const Memory memory = MemoryOf(program);
    starter.workingSets.push_back(memory.workingSet);
    starter.ownMemory.push_back(memory.ownMemory);
    CloseBeforeNextStart(program);
}

// The first start of each creates the note files and reads files that are not cached yet.
static void WarmUp(const ScratchFolder& folder, Starter& starter) {
    Starter thrownAway{starter.options};
    StartOnce(folder, thrownAway);
}

static void Measure() {
    const ScratchFolder folder = FolderWithScripture();
    Starter program;
    Starter bare;
    bare.options = BareProgramOptions();
    WarmUp(folder, program);
    WarmUp(folder, bare);
    for (int round = 0; round < kRounds; ++round) {
        StartOnce(folder, round % 2 == 0 ? program : bare);  // each after itself and after the other as often
        StartOnce(folder, round % 2 == 0 ? bare : program);
    }
    Print(
        {"start to first painted verse / bare program", MedianOf(program.times), MedianOf(bare.times), kMostTimesBare});
    PrintLimited("working set above the bare program's", MedianOf(program.workingSets) - MedianOf(bare.workingSets),
                 kMostMemoryAboveBare, "MiB");
    PrintLimited("own memory above the bare program's", MedianOf(program.ownMemory) - MedianOf(bare.ownMemory),
                 kMostMemoryAboveBare, "MiB");
}

int main() {
    return RunBenchmark(Measure);
}
