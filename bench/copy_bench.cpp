// Benchmarks copying and saving the whole Bible against appending the same pieces to a string, all in the same run.
// After the times it prints a table of ratios, and the peak memory of each benchmark next to the budget of a copy.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>

#include "bench/held_memory.h"
#include "bench/time_keeper.h"
#include "output/copy_text.h"
#include "output/save_text.h"
#include "scripture/books.h"
#include "tests/support/native_scripture.h"

static void AppendDigits(std::string& text, int number) {
    char digits[12];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

// Every verse with a full label before it and a line end after it.
static std::string PlainAppends(const Scripture& scripture) {
    std::string text;
    text.reserve(scripture.text.size() + std::size_t{kVerseCount} * 16);
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const VerseRecord record = RecordOf(scripture.records, verse);
        text.append(1, ' ').append(BookAbbreviation(record.book)).append(1, ' ');
        AppendDigits(text, record.chapter);
        text.append(1, ':');
        AppendDigits(text, record.verse);
        text.append(1, ' ').append(VerseText(scripture, verse)).append("\r\n");
    }
    return text;
}

// The default format removes brackets. The format with the same text as PlainAppends has full labels and brackets.
static constexpr FormatOptions kAsOpened;
static constexpr FormatOptions kAsAppended{0, 0, 0, 1, 1, 1};

static std::size_t CopyWholeBible(const FormatOptions& format) {
    return CopyRangeText(TheRealScripture(), format, 0, kLastVerse, RangeCopyBudget(0, kLastVerse)).text.size();
}

static bool WriteToFile(void* device, std::string_view bytes) {
    return write(*static_cast<int*>(device), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

static bool CountBytes(void* device, std::string_view bytes) {
    *static_cast<std::size_t*>(device) += bytes.size();
    return true;
}

static TextSaveResult SaveWholeBible(const FormatOptions& format, const TextFile& file) {
    return SaveRangeText(TheRealScripture(), format, 0, kLastVerse, nullptr, file);
}

// Calls `save` with a new file, which is deleted afterwards.
template <typename Save>
static bool WithScratchFile(Save save) {
    std::FILE* scratch = std::tmpfile();
    if (!scratch) return false;
    const bool saved = save(fileno(scratch));
    std::fclose(scratch);
    return saved;
}

static bool SaveToScratchFile(int file) {
    return SaveWholeBible(kAsAppended, {&file, WriteToFile}) == TextSaveResult::kSaved;
}

static bool AppendAndWrite(int file) {
    return WriteToFile(&file, PlainAppends(TheRealScripture()));
}

static std::map<std::string, std::size_t> mostBytesOf;

template <typename Procedure>
static void Register(const std::string& name, Procedure procedure) {
    const auto run = [name, procedure](benchmark::State& state) {
        ForgetMostHeld();
        for (auto _ : state) benchmark::DoNotOptimize(procedure());
        mostBytesOf[name] = MostBytesHeld();
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMicrosecond)->MinTime(0.1)->Repetitions(5);
}

namespace {

struct Measurement {
    const char* name;
    const char* floor;
};

}  // namespace

static constexpr Measurement kMeasurements[] = {
    {"copy", "plain appends"},
    {"copy without brackets", "plain appends"},
    {"save, forming alone", "plain appends"},
    {"save to a file", "plain appends to a file"},
};

static void RegisterAll() {
    static std::size_t counted = 0;
    Register("plain appends", [] { return PlainAppends(TheRealScripture()).size(); });
    Register("copy", [] { return CopyWholeBible(kAsAppended); });
    Register("copy without brackets", [] { return CopyWholeBible(kAsOpened); });
    Register("save, forming alone", [] { return SaveWholeBible(kAsAppended, {&counted, CountBytes}); });
    Register("plain appends to a file", [] { return WithScratchFile(AppendAndWrite); });
    Register("save to a file", [] { return WithScratchFile(SaveToScratchFile); });
}

static void PrintRatios(const Times& times) {
    std::printf("\n%-24s %10s %10s %8s %14s\n", "", "us", "floor us", "ratio", "most bytes");
    for (const auto& [name, floor] : kMeasurements) {
        if (!times.contains(name) || !times.contains(floor)) continue;  // excluded by a filter
        std::printf("%-24s %10.1f %10.1f %8.2f %14zu\n", name, times.at(name), times.at(floor),
                    times.at(name) / times.at(floor), mostBytesOf[name]);
    }
    std::printf("%-24s %10s %10s %8s %14zu\n", "aim, budget of a copy", "", "", "<= 2", RangeCopyBudget(0, kLastVerse));
}

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    TheRealScripture();
    RegisterAll();
    TimeKeeper keeper;
    benchmark::RunSpecifiedBenchmarks(&keeper);
    PrintRatios(keeper.times);
}
