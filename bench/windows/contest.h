// Timing of procedures that are compared with each other, and the table of their ratios.
//
// A machine that does other work meanwhile slows one moment and not the next: contestants therefore run in turns, and
// the median of each one's runs counts. Only their ratio says anything.
#pragma once

#include <functional>
#include <string>
#include <vector>

// Milliseconds from an arbitrary moment on.
double Now();

double MedianOf(std::vector<double> values);

// Runs each procedure in every round, after a round that does not count, and takes the best of three runs in a row: one
// that loses the processor on the way takes ten times as long. Gives the median of each one's rounds in milliseconds,
// in their order.
std::vector<double> MediansInTurns(int rounds, const std::vector<std::function<void()>>& contestants);

// One line of the table: what was measured in milliseconds, what it is compared with, and how many times that it may
// take at most. Where `floor` is 0 the time stands alone.
struct Outcome {
    std::string what;
    double time = 0;
    double floor = 0;
    double mostTimesFloor = 0;  // 0: no more than information
};
void Print(const Outcome& outcome);

// The same for an amount that has a limit of its own: "page up above one paint", 0.4, 2, "ms".
void PrintLimited(const std::string& what, double amount, double most, const char* unit);
