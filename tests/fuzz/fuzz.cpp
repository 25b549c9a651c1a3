#include "tests/fuzz/fuzz.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

static constexpr unsigned kPatience = 10;  // seconds for one input
static constexpr std::size_t kLongest = 400000;

using Random = std::minstd_rand;

static std::size_t Below(Random& random, std::size_t limit) {
    return limit == 0 ? 0 : random() % limit;
}

static std::ptrdiff_t Place(Random& random, const FuzzBytes& bytes) {
    return static_cast<std::ptrdiff_t>(Below(random, bytes.size() + 1));
}

// ---- Ways to change an input ----------------------------------------------------------------------------------------

using Seeds = std::vector<FuzzBytes>;
using Change = void (*)(Random& random, FuzzBytes& bytes, const Seeds& seeds);

static void SetByte(Random& random, FuzzBytes& bytes, const Seeds&) {
    static constexpr unsigned char kOdd[] = {0, 1, 0x7F, 0x80, 0xFF, '#', '\r', '\n', '-', '"', '=', '['};
    if (bytes.empty()) return;
    unsigned char& byte = bytes[Below(random, bytes.size())];
    byte = random() % 2 == 0 ? kOdd[Below(random, sizeof kOdd)] : static_cast<unsigned char>(random());
}

static void SetNumber(Random& random, FuzzBytes& bytes, const Seeds&) {
    static constexpr std::uint32_t kOdd[] = {0, 1, 31101, 31102, 65535, 65536, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    if (bytes.size() < 4) return;
    const std::uint32_t number = kOdd[Below(random, std::size(kOdd))];
    std::memcpy(bytes.data() + Below(random, bytes.size() / 4) * 4, &number, 4);
}

static void ShiftNumber(Random& random, FuzzBytes& bytes, const Seeds&) {
    if (bytes.size() < 4) return;
    unsigned char* const place = bytes.data() + Below(random, bytes.size() / 4) * 4;
    std::uint32_t number;
    std::memcpy(&number, place, 4);
    number += static_cast<std::uint32_t>(random() % 9) - 4;
    std::memcpy(place, &number, 4);
}

static void Insert(Random& random, FuzzBytes& bytes, const Seeds&) {
    const std::size_t count = random() % 4 == 0 ? Below(random, 70000) : Below(random, 9);
    bytes.insert(bytes.begin() + Place(random, bytes), count, static_cast<unsigned char>(random()));
}

static void Erase(Random& random, FuzzBytes& bytes, const Seeds&) {
    const std::ptrdiff_t begin = Place(random, bytes);
    const std::size_t rest = bytes.size() - static_cast<std::size_t>(begin);
    const std::size_t count = random() % 4 == 0 ? Below(random, rest) : std::min(rest, Below(random, 9));
    bytes.erase(bytes.begin() + begin, bytes.begin() + begin + static_cast<std::ptrdiff_t>(count));
}

static void Cut(Random& random, FuzzBytes& bytes, const Seeds&) {
    bytes.resize(Below(random, bytes.size() + 1));
}

static void Repeat(Random& random, FuzzBytes& bytes, const Seeds&) {
    const std::ptrdiff_t begin = Place(random, bytes);
    const std::size_t rest = bytes.size() - static_cast<std::size_t>(begin);
    const FuzzBytes piece(bytes.begin() + begin,
                          bytes.begin() + begin + static_cast<std::ptrdiff_t>(std::min(rest, Below(random, 5000))));
    bytes.insert(bytes.begin() + Place(random, bytes), piece.begin(), piece.end());
}

static void Splice(Random& random, FuzzBytes& bytes, const Seeds& seeds) {
    const FuzzBytes& other = seeds[Below(random, seeds.size())];
    bytes.resize(Below(random, bytes.size() + 1));
    bytes.insert(bytes.end(), other.begin() + Place(random, other), other.end());
}

static FuzzBytes InputOf(std::uint64_t number, const Seeds& seeds) {
    static constexpr Change kChanges[] = {SetByte, SetNumber, ShiftNumber, Insert, Erase, Cut, Repeat, Splice};
    if (number < seeds.size()) return seeds[number];
    Random random(static_cast<Random::result_type>(number));
    random.discard(3);  // neighbouring numbers begin alike
    FuzzBytes bytes = seeds[Below(random, seeds.size())];
    for (std::size_t i = 1 + Below(random, 6); i > 0; --i)
        kChanges[Below(random, std::size(kChanges))](random, bytes, seeds);
    if (bytes.size() > kLongest) bytes.resize(kLongest);
    return bytes;
}

// ---- The run --------------------------------------------------------------------------------------------------------

void Expect(bool isSo, const char* what) {
    if (isSo) return;
    std::fprintf(stderr, "wrong: %s\n", what);
    std::abort();
}

struct FuzzRun {
    std::uint64_t first = 0;
    std::uint64_t* number;  // of the input at work; the starter of the run sees it too
    double seconds = 10;
};

static void RunInputs(const FuzzRun& run, const Seeds& seeds, FuzzTarget target) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(run.seconds);
    *run.number = run.first;
    do {
        alarm(kPatience);
        target(InputOf(*run.number, seeds));
        ++*run.number;
    } while (std::chrono::steady_clock::now() < end);
}

int FuzzMain(int argc, char** argv, FuzzTarget target) {
    const Seeds seeds = ReadSeeds(argc > 1 ? argv[1] : "");
    FuzzRun run;
    run.seconds = argc > 2 ? std::atof(argv[2]) : 10;
    run.first = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 0;
    void* const shared = mmap(nullptr, sizeof *run.number, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED || seeds.size() < 2) return 2;
    run.number = static_cast<std::uint64_t*>(shared);
    const pid_t child = fork();
    if (child == 0) {
        RunInputs(run, seeds, target);
        std::exit(0);
    }
    int status = 1;
    waitpid(child, &status, 0);
    const bool ended = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    std::printf("%s %llu\n", ended ? "inputs:" : "failed or hung at input",
                static_cast<unsigned long long>(*run.number));
    return ended && *run.number > run.first ? 0 : 1;
}
