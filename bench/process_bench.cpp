// Times whole runs of `vw`, from the start of the process to its end: against a program that does nothing, and against
// ripgrep, which searches a plain file with one verse a line for whole words in any case.
//
//   process_bench VW
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/verse_lines.h"

static constexpr int kRounds = 60;

using Words = std::vector<std::string>;

// Runs a program with its output thrown away. Ends this one if it fails.
static void Run(const Words& words) {
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // A pipe or a file would take as long as its reader; ripgrep knows /dev/null and searches less, so both get a file.
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/shm/versewell-bench-output",
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = 0;
    int status = -1;
    const bool isStarted = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ) == 0;
    posix_spawn_file_actions_destroy(&actions);
    if (isStarted && waitpid(child, &status, 0) == child && status == 0) return;
    std::fprintf(stderr, "process_bench: %s does not run\n", arguments[0]);
    std::exit(1);
}

// ---- The rows -------------------------------------------------------------------------------------------------------

// A whole run may take half as long again as one of a program that does nothing, and 5 ms.
static void CompareWithNothing(const Words& words, const std::string& name) {
    static constexpr double kMostTimes = 1.5, kMostMilliseconds = 5;
    const std::vector<double> times = BestTimesInTurns(kRounds, {[&] { Run(words); }, [] { Run({"true"}); }});
    PrintLimited(name + ", above 1.5 times `true`", times[0] - kMostTimes * times[1], kMostMilliseconds, "ms");
}

static void CompareWithRipgrep(const Words& words, const Words& ripgrep, const std::string& name) {
    const std::vector<double> times = BestTimesInTurns(kRounds, {[&] { Run(words); }, [&] { Run(ripgrep); }});
    Print({.what = name + ", ripgrep", .time = times[0], .floor = times[1], .mostTimesFloor = 1});
}

static void CompareQuery(const std::string& program, const std::string& text, const std::string& path) {
    const bool isPhrase = text.find(' ') != std::string::npos;
    Words words = {program, "find", text}, ripgrep = {"rg", "--no-config", "-iw", text, path};
    if (isPhrase) words.push_back("--phrase");
    CompareWithRipgrep(words, ripgrep, "vw find \"" + text + "\"");
    words.push_back("--count");
    ripgrep.push_back("-c");
    CompareWithRipgrep(words, ripgrep, "vw find --count \"" + text + "\"");
}

int main(int count, char** arguments) {
    static constexpr double kMostToCount = 10;
    const std::string program = count > 1 ? arguments[1] : "vw";
    const std::string path = (std::filesystem::temp_directory_path() / "versewell-lines.txt").string();
    setenv("VERSEWELL_DATA", VERSEWELL_DATA_DIR, 1);
    WriteVerseLines(path);
    CompareWithNothing({program, "find", "grace"}, "vw find grace");
    PrintLimited("vw find the --count",
                 BestTimeOf(kRounds,
                            [&] {
                                Run({program, "find", "the", "--count"});
                            }),
                 kMostToCount, "ms");
    for (const char* text : {"grace", "lord", "the", "grace of god", "of the"}) CompareQuery(program, text, path);
    std::filesystem::remove(path);
    std::filesystem::remove("/dev/shm/versewell-bench-output");
    return ExitCode();
}
