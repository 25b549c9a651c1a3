// Times searches side by side with other ways to search the same text, for comparison only: SQLite's full-text table,
// SWORD's own search, and ripgrep if it is installed. Prints a Markdown table of milliseconds.
//
// The program, SQLite and SWORD search within this process: SQLite fetches the verses with their matches marked. A run
// of ripgrep is a whole process, on a file with one verse a line.
#include <swmgr.h>
#include <swmodule.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench/contest.h"
#include "bench/fts_search.h"
#include "search/search_engine.h"
#include "tests/support/native_scripture.h"

namespace {

struct Sample {
    const char* text;
    bool isPhrase;
};

}  // namespace

static constexpr Sample kSamples[] = {
    {"grace", false}, {"lord", false}, {"the", false}, {"grace of god", true}, {"of the", true}};
static constexpr const char* kModule = "engKJV2006eb";

static double MillisecondsOf(int rounds, const std::function<void()>& search) {
    return MediansInTurns(rounds, {search})[0];
}

static double ProgramTime(const Sample& sample) {
    static HitCounters hits;
    return MillisecondsOf(51, [&] {
        const Query query = QueryOf(sample.text, {}, sample.isPhrase ? QueryKind::kPhrase : QueryKind::kWords);
        Search(TheRealScripture(), TheRealWordIndex(), query, {}, hits);
    });
}

static double SwordTime(sword::SWModule& module, const Sample& sample) {
    // Words are looked for one by one, a phrase as it stands; upper and lower case are the same.
    static constexpr int kPhraseSearch = -1, kIgnoreCase = 2;
    const double start = Now();
    module.search(sample.text, kPhraseSearch, kIgnoreCase);
    return Now() - start;
}

static void WriteLines(const std::string& path) {
    std::ofstream lines(path);
    for (int verse = 0; verse < kVerseCount; ++verse) lines << VerseText(TheRealScripture(), verse) << '\n';
}

static bool HasRipgrep() {
    return std::system("rg --version >/dev/null 2>&1") == 0;
}

static double RipgrepTime(const std::string& path, const Sample& sample) {
    const std::string command = "rg -aiw --count-matches '" + std::string(sample.text) + "' '" + path + "' >/dev/null";
    return MillisecondsOf(5, [&] {
        if (std::system(command.c_str()) != 0) std::exit(1);
    });
}

int main() {
    sqlite3* const table = OpenFullTextTable(TheRealScripture());
    sword::SWMgr library;
    sword::SWModule* const module = library.getModule(kModule);
    const std::string path = (std::filesystem::temp_directory_path() / "versewell-verses.txt").string();
    WriteLines(path);
    const bool hasRipgrep = HasRipgrep();
    std::printf("| query | Versewell | SQLite FTS5 |%s%s\n|---|--:|--:|%s%s\n", module ? " SWORD |" : "",
                hasRipgrep ? " ripgrep |" : "", module ? "--:|" : "", hasRipgrep ? "--:|" : "");
    for (const Sample& sample : kSamples) {
        const std::string match = "\"" + std::string(sample.text) + "\"";
        std::printf("| %s%s | %.3f ms", sample.isPhrase ? "phrase " : "", sample.text, ProgramTime(sample));
        std::printf(" | %.2f ms |", MillisecondsOf(5, [&] { FetchHighlighted(table, match); }));
        if (module) std::printf(" %.0f ms |", SwordTime(*module, sample));
        if (hasRipgrep) std::printf(" %.1f ms |", RipgrepTime(path, sample));
        std::printf("\n");
        std::fflush(stdout);
    }
    std::filesystem::remove(path);
    return 0;
}
