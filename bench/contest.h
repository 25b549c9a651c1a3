// Times procedures against each other.
//
// Other work on the machine slows some runs and not others, so the contestants run in turns and the median of each
// one's runs is used. Only the ratios are meaningful.
#pragma once

#include <functional>
#include <vector>

// Milliseconds since an arbitrary moment.
double Now();

double MedianOf(std::vector<double> values);

// The least time of so many consecutive runs, in milliseconds, which other work on the machine has disturbed least.
double BestTimeOf(int runs, const std::function<void()>& procedure);

// The least time of each procedure's runs in milliseconds, in the order of `contestants`. Each of them runs once in
// every round, in turns: for those that take seconds, because other work on the machine changes from second to second.
std::vector<double> BestTimesInTurns(int rounds, const std::vector<std::function<void()>>& contestants);

// After a warm-up round, runs each procedure in every round. The time of a round is the best of three consecutive runs,
// because a run that is preempted takes ten times as long. Returns the median of each procedure's rounds in
// milliseconds, in the order of `contestants`.
std::vector<double> MediansInTurns(int rounds, const std::vector<std::function<void()>>& contestants);
