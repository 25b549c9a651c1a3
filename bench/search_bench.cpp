// Benchmarks searches of the real text against floors and against SQLite, all in the same run. Prints the times, then a
// table of ratios.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>
#include <vector>

#include "bench/fts_search.h"
#include "bench/search_floors.h"
#include "bench/time_keeper.h"
#include "search/search_engine.h"
#include "tests/support/native_scripture.h"

namespace {

enum class Kind { kWords, kSubstring, kPhrase };

struct Sample {
    const char* text;
    Kind kind;
};

}  // namespace

static constexpr Sample kSamples[] = {
    {"grace", Kind::kWords},         {"lord", Kind::kWords},
    {"the", Kind::kWords},           {"e", Kind::kSubstring},
    {"of the", Kind::kPhrase},       {"and the", Kind::kPhrase},
    {"the lord", Kind::kPhrase},     {"son of man", Kind::kPhrase},
    {"he said", Kind::kPhrase},      {"and it came to pass", Kind::kPhrase},
    {"grace of god", Kind::kPhrase}, {"in the beginning", Kind::kPhrase},
};

static std::string Name(const char* what, const Sample& sample) {
    static constexpr const char* kKinds[] = {"words", "substring", "phrase"};
    return std::string(what) + "/" + kKinds[static_cast<int>(sample.kind)] + "/" + sample.text;
}

template <typename Procedure>
static void Register(const std::string& name, Procedure procedure) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [procedure](benchmark::State& state) {
                                     for (auto _ : state) benchmark::DoNotOptimize(procedure());
                                 })
        ->Unit(benchmark::kMicrosecond)
        ->MinTime(0.1)
        ->Repetitions(5)
        ->ReportAggregatesOnly(false);
}

static void RegisterSearch(const Sample& sample, HitCounters& hits) {
    Register(Name("search", sample), [&sample, &hits] {
        const SearchOptions options = {.SubString = sample.kind == Kind::kSubstring ? 1 : 0};
        const QueryKind kind = sample.kind == Kind::kPhrase ? QueryKind::kPhrase : QueryKind::kWords;
        const Query query = QueryOf(sample.text, options, kind);
        return Search(TheRealScripture(), TheRealWordIndex(), query, {}, hits).occurrences;
    });
}

static void RegisterFloors(const Sample& sample, HitCounters& counters) {
    const std::string text = sample.text;
    if (sample.kind == Kind::kWords)
        Register(Name("mark every hit", sample),
                 [text] { return MarkEveryHit(TheRealScripture(), TheRealWordIndex(), text); });
    if (sample.kind != Kind::kPhrase) return;
    const std::vector<std::string> words = QueryOf(text, {}, QueryKind::kPhrase).words;
    Register(Name("check candidates", sample), [text, words, &counters] {
        return CheckCandidates(TheRealScripture(), TheRealWordIndex(), words, text, counters);
    });
    Register(Name("sweep", sample), [text] { return SweepWholeText(TheRealScripture(), text); });
}

static void RegisterFullText(const Sample& sample, sqlite3* table) {
    if (sample.kind == Kind::kSubstring) return;  // its tables find no parts of words
    const std::string match = "\"" + std::string(sample.text) + "\"";
    Register(Name("SQLite", sample), [match, table] { return FetchHighlighted(table, match); });
}

static double FloorOf(const Sample& sample, const Times& times) {
    switch (sample.kind) {
        case Kind::kWords: return times.at(Name("mark every hit", sample)) + times.at("clear and scan counters");
        case Kind::kPhrase:
            return std::min(times.at(Name("check candidates", sample)), times.at(Name("sweep", sample)));
        default: return times.at(Name("mark every hit", {"the", Kind::kWords}));
    }
}

static void PrintRatios(const Times& times) {
    std::printf("\n%-32s %10s %10s %8s %12s %8s\n", "query", "search us", "floor us", "ratio", "SQLite us", "ahead");
    for (const Sample& sample : kSamples) {
        const double search = times.at(Name("search", sample));
        const double floor = FloorOf(sample, times);
        std::printf("%-32s %10.1f %10.1f %8.2f", Name("", sample).c_str() + 1, search, floor, search / floor);
        const auto fullText = times.find(Name("SQLite", sample));
        if (fullText != times.end()) std::printf(" %12.1f %7.1fx", fullText->second, fullText->second / search);
        std::printf("\n");
    }
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    HitCounters hits;
    HitCounters counters(kVerseCount);
    sqlite3* table = OpenFullTextTable(TheRealScripture());
    Register("clear and scan counters", [&counters] { return ClearAndScanCounters(counters); });
    for (const Sample& sample : kSamples) {
        RegisterSearch(sample, hits);
        RegisterFloors(sample, counters);
        RegisterFullText(sample, table);
    }
    TimeKeeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper);
    PrintRatios(keeper.times);
    return 0;
}
