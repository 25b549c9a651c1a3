#include "cli/described.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/arguments.h"

static std::vector<std::string> ChoicesOf(const std::string& value) {
    std::vector<std::string> choices;
    if (value.find('|') == value.npos) return choices;
    for (std::size_t begin = 0; begin <= value.size();) {
        const std::size_t end = std::min(value.find('|', begin), value.size());
        choices.push_back(value.substr(begin, end - begin));
        begin = end + 1;
    }
    return choices;
}

static DescribedOption Described(const CLI::Option& option) {
    DescribedOption described;
    for (const std::string& name : option.get_lnames()) described.names.push_back("--" + name);
    for (const std::string& name : option.get_snames()) described.names.push_back("-" + name);
    described.isPositional = option.get_positional();
    described.isRequired = option.get_required();
    described.mayRepeat = option.get_items_expected_max() > 1;
    described.help = option.get_description();
    const bool takesValue = option.get_items_expected_max() > 0;
    described.value = described.isPositional ? option.get_name(true) : takesValue ? option.get_type_name() : "";
    described.choices = ChoicesOf(described.value);
    return described;
}

static std::vector<DescribedOption> OptionsOf(const CLI::App& app) {
    std::vector<DescribedOption> options;
    for (const CLI::Option* option : app.get_options({})) options.push_back(Described(*option));
    return options;
}

// Every command has the option for help; it is described once.
static std::vector<DescribedOption> OwnOptionsOf(const CLI::App& app) {
    std::vector<DescribedOption> options = OptionsOf(app);
    std::erase_if(options, [](const DescribedOption& option) {
        return std::ranges::find(option.names, "--help") != option.names.end();
    });
    return options;
}

DescribedProgram DescribeProgram() {
    const Arguments arguments = ArgumentsFor({});
    DescribedProgram program{arguments.app->get_description(), OptionsOf(*arguments.app), {}};
    for (const Command* command : TheCommands()) {
        const CLI::App& app = *arguments.app->get_subcommand(command->name);
        if (!command->isHidden)
            program.commands.push_back({command->name, command->help, command->details, OwnOptionsOf(app)});
    }
    return program;
}
