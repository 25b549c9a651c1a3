// The commands and their options as plain data, from which the manual and the completions are made.
#pragma once

#include <string>
#include <vector>

#include "cli/command.h"

struct DescribedOption {
    std::vector<std::string> names;    // "--json", "-h", "--no-lines"; empty for a positional
    std::string value;                 // "N", "FOLDER", "auto|always"; of a positional its name; empty for a flag
    std::vector<std::string> choices;  // of the value, if there are only these
    std::string help;
    bool isPositional = false;
    bool isRequired = false;
    bool mayRepeat = false;  // positional: any number of them
};

struct DescribedCommand {
    std::string name;  // with that of the command above it: "notes list"
    std::string help;
    std::string details;
    std::vector<DescribedOption> options;
    std::vector<DescribedCommand> commands{};  // below it
};

struct DescribedProgram {
    std::string help;
    std::vector<DescribedOption> options;  // of all commands
    std::vector<DescribedCommand> commands;
};

// Hidden commands are left out.
DescribedProgram DescribeProgram();

// All commands that can be run, without those that only have others below them.
std::vector<DescribedCommand> RunCommandsOf(const DescribedProgram& program);
