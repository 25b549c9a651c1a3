// The rows of the table of results. Each is printed as a row of a Markdown table: what was measured, its time, the time
// of the floor, their ratio, the bound and the verdict.
#pragma once

#include <string>

// A floor is the least work that gives the same answer as the program.
struct Outcome {
    std::string what;
    double time = 0;
    double floor = 0;
    double mostTimesFloor = 0;  // the largest ratio that is allowed; 0: no bound, for information
    double mostAboveFloor = 0;  // a time that is so little above the floor is allowed whatever the ratio
    const char* unit = "ms";    // of the times
    bool sameAnswer = true;     // did the floor give the same answer?
};
void Print(const Outcome& outcome);

// A row for an amount with an absolute bound: "page up above one paint", 0.4, 2, "ms".
void PrintLimited(const std::string& what, double amount, double most, const char* unit);

// A row for an amount without bound.
void PrintAmount(const std::string& what, double amount, const char* unit);

// What `main` returns: 1 if a row that was printed missed its bound or had a floor with another answer.
int ExitCode();
