// Benchmarks loading the five scripture files: mapping them and splitting the index into words. The aim is less than
// two milliseconds.
#include <benchmark/benchmark.h>

#include "scripture/scripture.h"
#include "tests/support/native_scripture.h"

static void LoadFiveFiles(benchmark::State& state) {
    const DataFiles files = FilesOfFolder(VERSEWELL_DATA_DIR);
    for (auto _ : state) {
        WordIndex index;
        Scripture scripture;
        const bool loaded = LoadWordIndex(files, index) == IndexLoad::kLoaded && LoadScripture(files, scripture);
        if (!loaded) return state.SkipWithError("no scripture files in " VERSEWELL_DATA_DIR);
        benchmark::DoNotOptimize(index.words.data());
        benchmark::DoNotOptimize(scripture.text.data());
    }
}
// Files stay mapped until the program ends, so the number of mappings of a process limits the iterations.
BENCHMARK(LoadFiveFiles)->Unit(benchmark::kMillisecond)->Iterations(500)->Repetitions(5);

BENCHMARK_MAIN();
