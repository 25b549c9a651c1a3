// The program `vw`: the core of Versewell on a command line.
#pragma once

#include <string>
#include <vector>

#include "cli/surroundings.h"

// Runs the command that the arguments, without the program's name, tell. The result is an ExitCode (cli/command.h).
// What is wrong is told in one line, "vw: " and the argument or file that it is about.
int RunVw(const std::vector<std::string>& arguments, const Surroundings& surroundings);
