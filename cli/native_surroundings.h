// The surroundings of the program itself: its terminal or console, its files, its environment.
#pragma once

#include <string>
#include <vector>

#include "cli/surroundings.h"

// To be asked once.
Surroundings NativeSurroundings();

// The arguments behind the program's name, in UTF-8.
std::vector<std::string> NativeArguments(int count, char** arguments);

// Waits for the pager, and leaves the console as it was.
void EndSurroundings(Surroundings& surroundings);
