// Running a fuzz target: seeds, each changed a little in many ways, until the time is over.
//
// Input number N is the same in every run: what it depends on is N and the seeds alone. A target that crashes, hangs or
// finds something wrong names its number, and "fuzz_NAME SEEDS 0 N" runs that input again.
#pragma once

#include "tests/fuzz/seeds.h"

// Takes what a file may hold and gives it to the code under test, which must come back whatever it is.
using FuzzTarget = void (*)(const FuzzBytes& input);

// Ends the run where something that must be so is not.
void Expect(bool isSo, const char* what);

// Arguments: the seed file; seconds; the number of the first input. With 0 seconds that input is the only one.
int FuzzMain(int argc, char** argv, FuzzTarget target);
