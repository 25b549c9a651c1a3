// The commands of `vw`: a row for each, and what their procedures work on.
//
// To add one: a file that defines its row, and the row in `TheCommands` (cli/command_table.cpp).
#pragma once

#include <functional>
#include <span>
#include <string>

#include "cli/printer.h"
#include "cli/surroundings.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

enum ExitCode { kFound = 0, kNothingFound = 1, kBadUse = 2, kFileTrouble = 3 };

// Thrown to end a command. The text names the argument or the file: `--range: "Foo 3" is no reference`.
struct Complaint {
    ExitCode code = kBadUse;
    std::string text;
};

// What every command understands.
struct CommonOptions {
    bool json = false;
    std::string color = "auto";
    int width = 0;  // 0: that of the terminal
    std::string textFolder;
    std::string workingFolder;
};

// A run of the program.
struct Vw {
    const Surroundings& surroundings;
    CommonOptions options;
    Printer printer;
};

using RunCommand = std::function<ExitCode(Vw& vw)>;

struct Command {
    const char* name;
    const char* help;  // one line

    // Adds the options to `app` and gives what is done after they are read; null if there are commands below.
    RunCommand (*prepare)(CLI::App& app) = nullptr;

    const char* details = "";                       // more for the manual: whole sentences
    std::span<const Command* const> commands = {};  // below this one: `vw notes list`
    bool isHidden = false;                          // for building and installing; not in the help
};

std::span<const Command* const> TheCommands();

// Writes a line on the stream of errors.
void Tell(const Vw& vw, const std::string& line);
