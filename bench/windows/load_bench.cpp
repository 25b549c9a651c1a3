// Benchmarks loading the five scripture files with the program's procedures. Must be started in their folder.

#include <cstdio>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "scripture/scripture.h"
#include "scripture/scripture_win32.h"
#include "search/word_index.h"

static constexpr int kRounds = 101;
static constexpr double kMostMilliseconds = 4;

static bool Load(Scripture& scripture, WordIndex& index) {
    const DataFiles files = ScriptureDataFiles();
    return LoadWordIndex(files, index) == IndexLoad::kLoaded && LoadScripture(files, scripture);
}

int main() {
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        Scripture scripture;
        WordIndex index;
        const double start = Now();
        const bool loaded = Load(scripture, index);
        times.push_back(Now() - start);
        ReleaseDataFiles();
        if (!loaded) {
            std::fprintf(stderr, "load_bench: no scripture files in the current folder\n");
            return 1;
        }
    }
    PrintLimited("loading the five files", MedianOf(times), kMostMilliseconds, "ms");
    return ExitCode();
}
