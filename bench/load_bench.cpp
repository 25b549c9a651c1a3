// Benchmarks loading the five scripture files: mapping them and splitting the index into words.
#include <cstdio>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "scripture/scripture.h"
#include "tests/support/native_scripture.h"

static constexpr int kRounds = 501;  // files stay mapped until the program ends, and a process has few mappings
static constexpr double kMostMilliseconds = 2;

static bool Load() {
    const DataFiles files = FilesOfFolder(VERSEWELL_DATA_DIR);
    Scripture scripture;
    WordIndex index;
    return LoadWordIndex(files, index) == IndexLoad::kLoaded && LoadScripture(files, scripture);
}

int main() {
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round) {
        const double start = Now();
        const bool loaded = Load();
        times.push_back(Now() - start);
        if (loaded) continue;
        std::fprintf(stderr, "load_bench: no scripture files in " VERSEWELL_DATA_DIR "\n");
        return 1;
    }
    PrintLimited("loading the five files", MedianOf(times), kMostMilliseconds, "ms");
    return ExitCode();
}
