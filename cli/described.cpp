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
    described.choices = ChoicesOf(option.get_type_name());
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

static DescribedCommand Described(const CLI::App& above, const Command& command, const std::string& names) {
    const CLI::App& app = *above.get_subcommand(command.name);
    DescribedCommand described{names + command.name, command.help, command.details, OwnOptionsOf(app)};
    for (const Command* below : command.commands)
        described.commands.push_back(Described(app, *below, described.name + ' '));
    return described;
}

DescribedProgram DescribeProgram() {
    const Arguments arguments = ArgumentsFor({});
    DescribedProgram program{arguments.app->get_description(), OptionsOf(*arguments.app), {}};
    for (const Command* command : TheCommands())
        if (!command->isHidden) program.commands.push_back(Described(*arguments.app, *command, ""));
    return program;
}

static void AddRunCommands(const std::vector<DescribedCommand>& commands, std::vector<DescribedCommand>& run) {
    for (const DescribedCommand& command : commands) {
        if (command.commands.empty()) run.push_back(command);
        AddRunCommands(command.commands, run);
    }
}

std::vector<DescribedCommand> RunCommandsOf(const DescribedProgram& program) {
    std::vector<DescribedCommand> run;
    AddRunCommands(program.commands, run);
    return run;
}
