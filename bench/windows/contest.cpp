#include "bench/windows/contest.h"

#include <algorithm>
#include <cstdio>
#include <limits>

#include "win32/windows_api.h"

double Now() {
    static const double ticksPerMillisecond = [] {
        LARGE_INTEGER frequency{};
        QueryPerformanceFrequency(&frequency);
        return static_cast<double>(frequency.QuadPart) / 1000.0;
    }();
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return static_cast<double>(ticks.QuadPart) / ticksPerMillisecond;
}

double MedianOf(std::vector<double> values) {
    if (values.empty()) return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

static double BestTimeOf(const std::function<void()>& procedure) {
    static constexpr int kTries = 3;
    double best = std::numeric_limits<double>::infinity();
    for (int attempt = 0; attempt < kTries; ++attempt) {
        const double start = Now();
        procedure();
        best = std::min(best, Now() - start);
    }
    return best;
}

std::vector<double> MediansInTurns(int rounds, const std::vector<std::function<void()>>& contestants) {
    std::vector<std::vector<double>> times(contestants.size());
    for (const auto& contestant : contestants) contestant();
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) times[i].push_back(BestTimeOf(contestants[i]));
    }
    std::vector<double> medians;
    for (const std::vector<double>& measured : times) medians.push_back(MedianOf(measured));
    return medians;
}

static const char* Verdict(bool held) {
    return held ? "held" : "MISSED";
}

void Print(const Outcome& outcome) {
    std::printf("%-70s %9.3f ms", outcome.what.c_str(), outcome.time);
    if (outcome.floor > 0) std::printf(" %9.3f ms %7.2f", outcome.floor, outcome.time / outcome.floor);
    if (outcome.mostTimesFloor > 0) {
        const bool held = outcome.time <= outcome.mostTimesFloor * outcome.floor;
        std::printf(" %7.2f  %s", outcome.mostTimesFloor, Verdict(held));
    }
    std::printf("\n");
    std::fflush(stdout);
}

void PrintLimited(const std::string& what, double amount, double most, const char* unit) {
    std::printf("%-70s %9.3f %-20s %12.2f  %s\n", what.c_str(), amount, unit, most, Verdict(amount <= most));
    std::fflush(stdout);
}
