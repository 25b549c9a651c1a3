#include "bench/outcomes.h"

#include <cstdio>

static int failures = 0;

static const char* Verdict(bool held) {
    if (!held) ++failures;
    return held ? "held" : "MISSED";
}

static void PrintRow(const std::string& what, const std::string& time, const std::string& floor,
                     const std::string& ratio, const std::string& most, const char* verdict) {
    std::printf("| %-66s | %14s | %14s | %6s | %14s | %-12s |\n", what.c_str(), time.c_str(), floor.c_str(),
                ratio.c_str(), most.c_str(), verdict);
    std::fflush(stdout);
}

static std::string Formed(const char* format, double number, const char* unit = "") {
    char text[64];
    std::snprintf(text, sizeof text, format, number, unit);
    return text;
}

static std::string Amount(double amount, const char* unit) {
    return Formed(amount < 100 ? "%.3f %s" : "%.1f %s", amount, unit);
}

static std::string BoundOf(const Outcome& outcome) {
    std::string bound = Formed("%.2f", outcome.mostTimesFloor);
    if (outcome.mostAboveFloor > 0) bound += Formed(" or +%g %s", outcome.mostAboveFloor, outcome.unit);
    return bound;
}

void Print(const Outcome& outcome) {
    const bool isFast = outcome.time <= outcome.mostTimesFloor * outcome.floor ||
                        outcome.time <= outcome.floor + outcome.mostAboveFloor;
    const bool isBound = outcome.mostTimesFloor > 0;
    if (!outcome.sameAnswer) ++failures;
    PrintRow(outcome.what, Amount(outcome.time, outcome.unit), Amount(outcome.floor, outcome.unit),
             Formed("%.2f", outcome.time / outcome.floor), isBound ? BoundOf(outcome) : "",
             !outcome.sameAnswer ? "OTHER ANSWER"
             : isBound           ? Verdict(isFast)
                                 : "");
}

void PrintLimited(const std::string& what, double amount, double most, const char* unit) {
    PrintRow(what, Amount(amount, unit), "", "", Formed("%g %s", most, unit), Verdict(amount <= most));
}

void PrintAmount(const std::string& what, double amount, const char* unit) {
    PrintRow(what, Amount(amount, unit), "", "", "", "");
}

int ExitCode() {
    return failures == 0 ? 0 : 1;
}
