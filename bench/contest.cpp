#include "bench/contest.h"

#include <algorithm>
#include <chrono>
#include <limits>

double Now() {
    const auto sinceEpoch = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(sinceEpoch).count();
}

double MedianOf(std::vector<double> values) {
    if (values.empty()) return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double BestTimeOf(int runs, const std::function<void()>& procedure) {
    double best = std::numeric_limits<double>::infinity();
    for (int run = 0; run < runs; ++run) {
        const double start = Now();
        procedure();
        best = std::min(best, Now() - start);
    }
    return best;
}

std::vector<double> BestTimesInTurns(int rounds, const std::vector<std::function<void()>>& contestants) {
    std::vector<double> best(contestants.size(), std::numeric_limits<double>::infinity());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) best[i] = std::min(best[i], BestTimeOf(1, contestants[i]));
    }
    return best;
}

std::vector<double> MediansInTurns(int rounds, const std::vector<std::function<void()>>& contestants) {
    static constexpr int kRuns = 3;
    std::vector<std::vector<double>> times(contestants.size());
    for (const auto& contestant : contestants) contestant();
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contestants.size(); ++i) times[i].push_back(BestTimeOf(kRuns, contestants[i]));
    }
    std::vector<double> medians;
    for (const std::vector<double>& measured : times) medians.push_back(MedianOf(measured));
    return medians;
}
