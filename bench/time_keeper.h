// Prints the times of a benchmark program and keeps them for a table of ratios.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

// Shortest time of each benchmark by name, in the unit that it was registered with.
using Times = std::map<std::string, double>;

struct TimeKeeper : benchmark::ConsoleReporter {
    Times times;

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double time = run.GetAdjustedCPUTime();
            const auto [place, isNew] = times.try_emplace(run.run_name.function_name, time);
            if (!isNew) place->second = std::min(place->second, time);
        }
        ConsoleReporter::ReportRuns(runs);
    }
};
