// The arguments of `vw` as a tree of CLI11: the options that all commands share, and one subcommand for each row.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "cli/command.h"

struct Arguments {
    std::unique_ptr<CLI::App, void (*)(CLI::App*)> app;
    std::unique_ptr<CommonOptions> options;  // where the tree stores them

    // The command and what it does, of those whose options are in the tree.
    struct Prepared {
        CLI::App* app = nullptr;
        RunCommand run;
    };
    std::vector<Prepared> prepared;
};

// The tree. Only commands whose name is among `words` get their options, because each one takes time at every start;
// all of them if `words` is empty.
Arguments ArgumentsFor(const std::vector<std::string>& words);

// An option that takes a text, which must not be empty: an empty one comes from a variable that is not set, and to
// leave the option out would do something else, for example to all sets.
CLI::Option* AddText(CLI::App& app, const std::string& name, std::string& text, const std::string& help);

// Complain of two of these options together, and of `option` without `needed`.
void AllowOnlyOne(const CLI::App& app, std::initializer_list<const char*> options);
void AllowOnlyWith(const CLI::App& app, const char* option, const char* needed);
