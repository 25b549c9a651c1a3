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

enum class Kind { kWords, kSubstring, kPhrase };

struct Query {
    const char* text;
    Kind kind;
};

static constexpr Query kQueries[] = {
    {"grace", Kind::kWords},         {"lord", Kind::kWords},
    {"the", Kind::kWords},           {"e", Kind::kSubstring},
    {"of the", Kind::kPhrase},       {"and the", Kind::kPhrase},
    {"the lord", Kind::kPhrase},     {"son of man", Kind::kPhrase},
    {"he said", Kind::kPhrase},      {"and it came to pass", Kind::kPhrase},
    {"grace of god", Kind::kPhrase}, {"in the beginning", Kind::kPhrase},
};

static std::string Name(const char* what, const Query& query) {
    static constexpr const char* kKinds[] = {"words", "substring", "phrase"};
    return std::string(what) + "/" + kKinds[static_cast<int>(query.kind)] + "/" + query.text;
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

static void RegisterSearch(const Query& query, SearchState& search) {
    Register(Name("search", query), [&query, &search] {
        search.searchText = query.text;
        search.options.SubString = query.kind == Kind::kSubstring ? 1 : 0;
        const auto run = query.kind == Kind::kPhrase ? PhraseSearch : WordSearch;
        run(TheRealScripture(), TheRealWordIndex(), search);
        return search.result.occurrenceCount;
    });
}

static void RegisterFloors(const Query& query, std::vector<std::uint16_t>& counters) {
    const std::string text = query.text;
    if (query.kind == Kind::kWords)
        Register(Name("mark every hit", query),
                 [text] { return MarkEveryHit(TheRealScripture(), TheRealWordIndex(), text); });
    if (query.kind != Kind::kPhrase) return;
    std::vector<std::string> words;
    for (const std::string_view word : QueryWords(text)) words.emplace_back(word);
    Register(Name("check candidates", query), [text, words, &counters] {
        return CheckCandidates(TheRealScripture(), TheRealWordIndex(), words, text, counters);
    });
    Register(Name("sweep", query), [text] { return SweepWholeText(TheRealScripture(), text); });
}

static void RegisterFullText(const Query& query, sqlite3* table) {
    if (query.kind == Kind::kSubstring) return;  // its tables do not support substrings
    const std::string match = "\"" + std::string(query.text) + "\"";
    Register(Name("SQLite", query), [match, table] { return FetchHighlighted(table, match); });
}

static double FloorOf(const Query& query, const Times& times) {
    switch (query.kind) {
        case Kind::kWords: return times.at(Name("mark every hit", query)) + times.at("clear and scan counters");
        case Kind::kPhrase: return std::min(times.at(Name("check candidates", query)), times.at(Name("sweep", query)));
        default: return times.at(Name("mark every hit", {"the", Kind::kWords}));
    }
}

static void PrintRatios(const Times& times) {
    std::printf("\n%-32s %10s %10s %8s %12s %8s\n", "query", "search us", "floor us", "ratio", "SQLite us", "ahead");
    for (const Query& query : kQueries) {
        const double search = times.at(Name("search", query));
        const double floor = FloorOf(query, times);
        std::printf("%-32s %10.1f %10.1f %8.2f", Name("", query).c_str() + 1, search, floor, search / floor);
        const auto fullText = times.find(Name("SQLite", query));
        if (fullText != times.end()) std::printf(" %12.1f %7.1fx", fullText->second, fullText->second / search);
        std::printf("\n");
    }
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    SearchState search;
    std::vector<std::uint16_t> counters(kVerseCount);
    sqlite3* table = OpenFullTextTable(TheRealScripture());
    Register("clear and scan counters", [&counters] { return ClearAndScanCounters(counters); });
    for (const Query& query : kQueries) {
        RegisterSearch(query, search);
        RegisterFloors(query, counters);
        RegisterFullText(query, table);
    }
    TimeKeeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper);
    PrintRatios(keeper.times);
    return 0;
}
