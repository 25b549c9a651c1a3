#include "cli/vw.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>

#include "cli/arguments.h"
#include "cli/command_table.h"
#include "cli/text_folder.h"

void Tell(const Vw& vw, const std::string& line) {
    vw.surroundings.write(vw.surroundings.device, Stream::kErrors, "vw: " + line + "\n");
}

void StartPager(Vw& vw) {
    if (vw.surroundings.isTerminal && !vw.options.json) vw.surroundings.startPager(vw.surroundings.device);
}

static bool ShowsColors(const Vw& vw) {
    if (vw.options.color != "auto") return vw.options.color == "always";
    return vw.surroundings.showsColors && !VariableOf(vw, "NO_COLOR");
}

static int WidthOf(const Vw& vw) {
    if (vw.options.width > 0) return vw.options.width;
    return vw.surroundings.isTerminal ? vw.surroundings.columns : 0;
}

// The whole output must be written, or the user would take a part of it for all.
static ExitCode Ended(Vw& vw, ExitCode code) {
    Flush(vw.printer);
    if (vw.printer.written != Written::kFailed) return code;
    Tell(vw, "output: cannot be written");
    return kFileTrouble;
}

static ExitCode RunParsed(Vw& vw, const Arguments& arguments) {
    vw.options = *arguments.options;
    vw.printer.json = vw.options.json;
    vw.printer.colors = !vw.options.json && ShowsColors(vw);
    vw.printer.width = WidthOf(vw);
    for (const Arguments::Prepared& command : arguments.prepared)
        if (command.app->parsed()) return command.run(vw);
    return kBadUse;
}

// What is wrong, without the terms of the library.
static Complaint ComplaintOf(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App* last = &app;  // that was understood
    std::string name = "vw";
    while (!last->get_subcommands().empty()) {
        last = last->get_subcommands().front();
        name += ' ' + last->get_name();
    }
    if (last->get_require_subcommand_min() == 0 || !dynamic_cast<const CLI::RequiredError*>(&error))
        return {kBadUse, error.what()};
    const std::vector<std::string> words = app.remaining(true);
    if (words.empty()) return {kBadUse, "COMMAND is required (" + name + " --help)"};
    return {kBadUse, "\"" + words.front() + "\" is no command (" + name + " --help)"};
}

static ExitCode ParseAndRun(Vw& vw, const std::vector<std::string>& words) {
    const Arguments arguments = ArgumentsFor(words.empty() ? std::vector<std::string>{""} : words);
    try {
        arguments.app->parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::CallForHelp&) {
        Print(vw.printer, arguments.app->help());
        return kFound;
    } catch (const CLI::CallForVersion& version) {
        Print(vw.printer, std::string(version.what()) + "\n");
        return kFound;
    } catch (const CLI::ParseError& error) {
        throw ComplaintOf(*arguments.app, error);
    }
    return RunParsed(vw, arguments);
}

int RunVw(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    Vw vw{surroundings, {}, {surroundings}};
    try {
        return Ended(vw, ParseAndRun(vw, arguments));
    } catch (const Complaint& complaint) {
        Flush(vw.printer);
        Tell(vw, complaint.text);
        return complaint.code;
    } catch (const std::exception& exception) {
        Tell(vw, std::string("cannot go on: ") + exception.what());
        return kFileTrouble;
    }
}
