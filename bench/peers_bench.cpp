// Times searches side by side with other ways to search the same text, for comparison only: SQLite's full-text table,
// SWORD's own search, and ripgrep if it is installed. Prints a Markdown table of milliseconds: the best of some runs.
//
// The program, SQLite and SWORD search within this process: SQLite fetches the verses with their matches marked. A run
// of ripgrep is a whole process, which counts the lines with whole words in any case in a file with one verse a line.
// Where that is the same question, it has to give the number of verses that the program finds.
#include <swmgr.h>
#include <swmodule.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "bench/contest.h"
#include "bench/fts_search.h"
#include "bench/verse_lines.h"
#include "search/search_engine.h"
#include "tests/support/native_scripture.h"

// A query of several words is a phrase.
static constexpr std::string_view kSamples[] = {"grace", "lord", "the", "grace of god", "of the"};

// These are the same for a program that knows lines only. It counts "the LORD's" for "lord" too, and brackets and stops
// are part of its phrases.
static constexpr std::string_view kSameInLines[] = {"grace", "the"};

static constexpr const char* kModule = "engKJV2006eb";

static bool IsPhrase(std::string_view sample) {
    return sample.find(' ') != std::string_view::npos;
}

static std::size_t CountFoundVerses(std::string_view sample) {
    static HitCounters hits;
    const Query query = QueryOf(sample, {}, IsPhrase(sample) ? QueryKind::kPhrase : QueryKind::kWords);
    return Search(TheScriptureWithKinds(), TheRealWordIndex(), query, {}, hits).verses.size();
}

static double ProgramTime(std::string_view sample) {
    return BestTimeOf(51, [&] { CountFoundVerses(sample); });
}

static double SwordTime(sword::SWModule& module, std::string_view sample) {
    // Words are looked for one by one, a phrase as it stands; upper and lower case are the same.
    static constexpr int kPhraseSearch = -1, kIgnoreCase = 2;
    return BestTimeOf(3, [&] { module.search(std::string(sample).c_str(), kPhraseSearch, kIgnoreCase); });
}

// ---- ripgrep --------------------------------------------------------------------------------------------------------

static bool HasRipgrep() {
    return std::system("rg --version >/dev/null 2>&1") == 0;
}

static std::size_t CountLinesByRipgrep(const std::string& path, std::string_view sample) {
    const std::string command = "exec rg --no-config -iwc '" + std::string(sample) + "' '" + path + "'";
    std::size_t lines = 0;
    std::FILE* const output = popen(command.c_str(), "r");
    const bool isRead = output != nullptr && std::fscanf(output, "%zu", &lines) == 1;
    if (output != nullptr && pclose(output) == 0 && isRead) return lines;
    std::fprintf(stderr, "peers_bench: cannot run %s\n", command.c_str());
    std::exit(1);
}

static double RipgrepTime(const std::string& path, std::string_view sample) {
    const std::size_t lines = CountLinesByRipgrep(path, sample), verses = CountFoundVerses(sample);
    if (std::ranges::find(kSameInLines, sample) != std::end(kSameInLines) && lines != verses) {
        std::fprintf(stderr, "peers_bench: ripgrep finds %zu lines and not %zu\n", lines, verses);
        std::exit(1);
    }
    return BestTimeOf(21, [&] { CountLinesByRipgrep(path, sample); });
}

// ---- The table ------------------------------------------------------------------------------------------------------

int main() {
    sqlite3* const table = OpenFullTextTable(TheRealScripture());
    sword::SWMgr library;
    sword::SWModule* const module = library.getModule(kModule);
    const std::string path = (std::filesystem::temp_directory_path() / "versewell-verses.txt").string();
    WriteVerseLines(path);
    const bool hasRipgrep = HasRipgrep();
    std::printf("| query | Versewell | SQLite FTS5 |%s%s\n| --- | --: | --: |%s%s\n", module ? " SWORD |" : "",
                hasRipgrep ? " ripgrep |" : "", module ? " --: |" : "", hasRipgrep ? " --: |" : "");
    for (const std::string_view sample : kSamples) {
        const std::string match = "\"" + std::string(sample) + "\"";
        std::printf("| %s | %.3f", IsPhrase(sample) ? ("phrase " + match).c_str() : match.c_str(), ProgramTime(sample));
        std::printf(" | %.2f |", BestTimeOf(21, [&] { FetchHighlighted(table, match); }));
        if (module) std::printf(" %.0f |", SwordTime(*module, sample));
        if (hasRipgrep) std::printf(" %.1f |", RipgrepTime(path, sample));
        std::printf("\n");
        std::fflush(stdout);
    }
    std::filesystem::remove(path);
    return 0;
}
