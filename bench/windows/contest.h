// Times procedures against each other and prints a table of their ratios.
//
// Other work on the machine slows some runs and not others, so the contestants run in turns and the median of each
// one's runs is used. Only the ratios are meaningful.
#pragma once

#include <functional>
#include <string>
#include <vector>

// Milliseconds since an arbitrary moment.
double Now();

double MedianOf(std::vector<double> values);

// After a warm-up round, runs each procedure in every round. The time of a round is the best of three consecutive runs,
// because a run that is preempted takes ten times as long. Returns the median of each procedure's rounds in
// milliseconds, in the order of `contestants`.
std::vector<double> MediansInTurns(int rounds, const std::vector<std::function<void()>>& contestants);

// One line of the table: what was measured, its time in milliseconds, the time of the floor, and the largest allowed
// ratio. If `floor` is 0, only the time is printed.
struct Outcome {
    std::string what;
    double time = 0;
    double floor = 0;
    double mostTimesFloor = 0;  // 0: no limit, only information
};
void Print(const Outcome& outcome);

// The same for an amount with an absolute limit: "page up above one paint", 0.4, 2, "ms".
void PrintLimited(const std::string& what, double amount, double most, const char* unit);
