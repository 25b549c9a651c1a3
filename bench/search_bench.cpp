// Benchmarks searches of the real text against floors that find the same verses and count the same occurrences: first
// of a process that has searched before and knows the kinds of the texts, as the program does as soon as no input
// waits; then the first search of a process that does not know them yet.
//
// With the arguments `--first KIND SAMPLE` the program prints the microseconds, verses and occurrences of one search
// only; it starts itself this way.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/search_floors.h"
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
    {"grace", Kind::kWords},
    {"zerubbabel", Kind::kWords},
    {"lord", Kind::kWords},
    {"unto", Kind::kWords},
    {"the", Kind::kWords},
    {"lord god", Kind::kWords},
    {"faith hope", Kind::kWords},
    {"love", Kind::kSubstring},
    {"lord", Kind::kSubstring},
    {"e", Kind::kSubstring},
    {"of the", Kind::kPhrase},
    {"and the", Kind::kPhrase},
    {"the lord", Kind::kPhrase},
    {"of the lord", Kind::kPhrase},
    {"son of man", Kind::kPhrase},
    {"he said", Kind::kPhrase},
    {"and it came to pass", Kind::kPhrase},
    {"grace of god", Kind::kPhrase},
    {"in the beginning", Kind::kPhrase},
};
static constexpr Sample kFirstSamples[] = {
    {"grace", Kind::kWords}, {"lord", Kind::kWords}, {"in the beginning", Kind::kPhrase}};

static constexpr int kRounds = 101;
static constexpr int kProcesses = 31;
static constexpr double kMostTimesFloor = 1.3;
static constexpr double kMostAboveFloor = 2;  // microseconds
static constexpr double kMostTimesFirstFloor = 1.5;

static std::string NameOf(const Sample& sample) {
    static constexpr const char* kKinds[] = {
        "search for words: ", "search for parts of words: ", "search for a phrase: "};
    return kKinds[static_cast<int>(sample.kind)] + std::string(sample.text);
}

// ---- The program and the floors -------------------------------------------------------------------------------------

static SearchResult SearchAsTheProgram(const Scripture& scripture, const Sample& sample) {
    static HitCounters hits;
    const SearchOptions options = {.SubString = sample.kind == Kind::kSubstring ? 1 : 0};
    const QueryKind kind = sample.kind == Kind::kPhrase ? QueryKind::kPhrase : QueryKind::kWords;
    const Query query = QueryOf(sample.text, options, kind);
    return Search(scripture, TheRealWordIndex(), query, {}, hits);
}

static FloorText TheFloorText() {
    return FloorTextOf(TheRealScripture(), TheRealWordIndex());
}

static FloorAnswer FloorOf(const Sample& sample, const std::vector<std::string>& words) {
    switch (sample.kind) {
        case Kind::kWords:
            return words.size() == 1 ? FloorOfWord(TheFloorText(), words[0]) : FloorOfAllWords(TheFloorText(), words);
        case Kind::kSubstring: return FloorOfSubstring(TheFloorText(), words[0]);
        default: return FloorOfPhraseByList(TheFloorText(), words);
    }
}

static std::vector<std::string> WordsOf(const Sample& sample) {
    return QueryOf(sample.text, {}, QueryKind::kWords).words;
}

static bool IsSame(const SearchResult& result, const FloorAnswer& answer) {
    return result.occurrences == answer.occurrences && std::ranges::equal(result.verses, answer.verses);
}

static void PrintSample(const Sample& sample) {
    const std::vector<std::string> words = WordsOf(sample);
    const Scripture& scripture = TheScriptureWithKinds();
    SearchResult result;
    FloorAnswer answer, answerOfSweep;
    std::vector<std::function<void()>> contestants = {[&] { result = SearchAsTheProgram(scripture, sample); },
                                                      [&] { answer = FloorOf(sample, words); }};
    if (sample.kind == Kind::kPhrase)
        contestants.emplace_back([&] { answerOfSweep = FloorOfPhraseBySweep(TheFloorText(), words); });
    const std::vector<double> times = MediansInTurns(kRounds, contestants);
    bool sameAnswer = IsSame(SearchAsTheProgram(scripture, sample), FloorOf(sample, words));
    if (sample.kind == Kind::kPhrase)
        sameAnswer = sameAnswer && IsSame(result, FloorOfPhraseBySweep(TheFloorText(), words));
    Print({.what = NameOf(sample),
           .time = 1000 * times[0],
           .floor = 1000 * *std::min_element(times.begin() + 1, times.end()),
           .mostTimesFloor = kMostTimesFloor,
           .mostAboveFloor = kMostAboveFloor,
           .unit = "us",
           .sameAnswer = sameAnswer});
}

// ---- The first search of a process ----------------------------------------------------------------------------------

namespace {

struct FirstSearch {
    double microseconds = 0;
    unsigned long verses = 0;
    int occurrences = 0;
};

}  // namespace

static int SearchOnce(const std::string& kind, const Sample& sample) {
    const std::vector<std::string> words = WordsOf(sample);
    TheRealWordIndex();
    TheRealScripture();
    SearchResult result;
    FloorAnswer answer;
    const double start = Now();
    if (kind == "program")
        result = SearchAsTheProgram(TheRealScripture(), sample);
    else
        answer = FloorOf(sample, words);
    const double milliseconds = Now() - start;
    std::printf("%f %zu %d\n", 1000 * milliseconds, result.verses.size() + answer.verses.size(),
                result.occurrences + answer.occurrences);
    return 0;
}

static FirstSearch InNewProcess(const std::string& program, const char* kind, std::size_t sample) {
    const std::string command = "'" + program + "' --first " + kind + " " + std::to_string(sample);
    FirstSearch first;
    std::FILE* output = popen(command.c_str(), "r");
    const bool isRead = output != nullptr &&
                        std::fscanf(output, "%lf %lu %d", &first.microseconds, &first.verses, &first.occurrences) == 3;
    if (output != nullptr) pclose(output);
    if (isRead) return first;
    std::fprintf(stderr, "search_bench: cannot run %s\n", command.c_str());
    std::exit(1);
}

static void PrintFirst(const std::string& program, std::size_t sample) {
    std::vector<double> times, floors;
    bool sameAnswer = true;
    for (int process = 0; process < kProcesses; ++process) {
        const FirstSearch ours = InNewProcess(program, "program", sample);
        const FirstSearch floor = InNewProcess(program, "floor", sample);
        times.push_back(ours.microseconds);
        floors.push_back(floor.microseconds);
        sameAnswer = sameAnswer && ours.verses == floor.verses && ours.occurrences == floor.occurrences;
    }
    Print({.what = "first " + NameOf(kFirstSamples[sample]),
           .time = MedianOf(times),
           .floor = MedianOf(floors),
           .mostTimesFloor = kMostTimesFirstFloor,
           .mostAboveFloor = 0,
           .unit = "us",
           .sameAnswer = sameAnswer});
}

// ---- Words near each other ------------------------------------------------------------------------------------------

namespace {

struct NearSample {
    const char* text;
    NearOptions options;
};

}  // namespace

static constexpr NearSample kNearSamples[] = {
    {"faith hope", {kNearInWords, 5}}, {"king david", {kNearInWords, 10}}, {"lord god", {kNearInWords, 5}},
    {"lord god", {kNearInVerse}},      {"the lord", {kNearInWords, 5}},
};
static constexpr double kMostTimesNearFloor = 2;  // it knows two words and one option
static constexpr double kMostTimesAllWords = 2;
static constexpr int kAnyDistance = 500;  // more than a verse has words

static SearchResult SearchNearAsTheProgram(const NearSample& sample) {
    SearchState search;
    search.searchText = sample.text;
    search.nearOptions = sample.options;
    static HitCounters hits;
    return Search(TheScriptureWithKinds(), TheRealWordIndex(), NearQueryOf(search), {}, hits);
}

static std::string NameOf(const NearSample& sample) {
    const std::string distance = std::to_string(sample.options.Distance);
    const char* const units[] = {" words", "", " verses"};
    const std::string within =
        sample.options.Unit == kNearInVerse ? "one verse" : distance + units[sample.options.Unit];
    return "search within " + within + ": " + sample.text;
}

static void PrintNear(const NearSample& sample) {
    const std::vector<std::string> words = WordsOf({sample.text, Kind::kWords});
    const int distance = sample.options.Unit == kNearInVerse ? kAnyDistance : sample.options.Distance;
    SearchResult result, ofAllWords;
    FloorAnswer answer;
    const std::vector<double> times = MediansInTurns(
        kRounds, {[&] { result = SearchNearAsTheProgram(sample); },
                  [&] { answer = FloorOfNearWords(TheFloorText(), words, distance); },
                  [&] {
                      ofAllWords = SearchAsTheProgram(TheScriptureWithKinds(), {sample.text, Kind::kWords});
                  }});
    Print({.what = NameOf(sample),
           .time = 1000 * times[0],
           .floor = 1000 * times[1],
           .mostTimesFloor = kMostTimesNearFloor,
           .mostAboveFloor = kMostAboveFloor,
           .unit = "us",
           .sameAnswer = IsSame(result, FloorOfNearWords(TheFloorText(), words, distance))});
    Print({.what = NameOf(sample) + " / all words",
           .time = 1000 * times[0],
           .floor = 1000 * times[2],
           .mostTimesFloor = kMostTimesAllWords,
           .mostAboveFloor = kMostAboveFloor,
           .unit = "us"});
}

int main(int argc, char** argv) {
    if (argc == 4 && argv[1] == std::string("--first"))
        return SearchOnce(argv[2], kFirstSamples[std::strtoul(argv[3], nullptr, 10) % std::size(kFirstSamples)]);
    for (const Sample& sample : kSamples) PrintSample(sample);
    for (const NearSample& sample : kNearSamples) PrintNear(sample);
    for (std::size_t i = 0; i < std::size(kFirstSamples); ++i) PrintFirst(argv[0], i);
    return ExitCode();
}
