// `vw manual` and `vw completion`: what a package installs beside the program.
#include <CLI/CLI.hpp>
#include <memory>

#include "cli/command_table.h"
#include "cli/manual.h"

static ExitCode PrintManual(Vw& vw) {
    Print(vw.printer, ManualPage(DescribeProgram(), VERSEWELL_VERSION));
    return kFound;
}

static RunCommand PrepareManual(CLI::App&) {
    return PrintManual;
}

const Command kManualCommand = {
    .name = "manual",
    .help = "write the manual as a man page",
    .prepare = PrepareManual,
    .isHidden = true,
};

static ExitCode PrintCompletion(Vw& vw, const std::string& shell) {
    Print(vw.printer, CompletionFor(DescribeProgram(), shell).value_or(""));
    return kFound;
}

static RunCommand PrepareCompletion(CLI::App& app) {
    const auto shell = std::make_shared<std::string>();
    app.add_option("SHELL", *shell, "the shell")
        ->required()
        ->type_name("bash|zsh|fish|powershell")
        ->check(CLI::IsMember({"bash", "zsh", "fish", "powershell"}).description(""));
    return [shell](Vw& vw) { return PrintCompletion(vw, *shell); };
}

const Command kCompletionCommand = {
    .name = "completion",
    .help = "write the completion for a shell",
    .prepare = PrepareCompletion,
    .details = "For bash: source <(vw completion bash).",
};
