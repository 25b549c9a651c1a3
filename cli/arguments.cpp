#include "cli/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

static constexpr char kDescription[] = "Read and search the Authorized Version of the Bible.";

static constexpr char kFooter[] =
    "Exit codes: 0 found, 1 nothing found, 2 bad use, 3 file trouble.\n"
    "\"vw COMMAND --help\" tells more of a command.";

static std::string ReasonAgainst(const std::string& text) {
    return text.empty() ? "must not be empty" : "";
}

CLI::Option* AddText(CLI::App& app, const std::string& name, std::string& text, const std::string& help) {
    return app.add_option(name, text, help)->check(ReasonAgainst);
}

static void AddCommonOptions(CLI::App& app, CommonOptions& options) {
    app.add_flag("--json", options.json, "one JSON object a line instead of text");
    app.add_option("--color", options.color, "colours and italics; auto: on a terminal, unless NO_COLOR is set")
        ->type_name("auto|always|never")
        ->check(CLI::IsMember({"auto", "always", "never"}).description(""));
    app.add_option("--width", options.width, "columns of a line (default: those of the terminal; none in a pipe)")
        ->type_name("COLUMNS")
        ->check(CLI::Range(10, 10000).description(""));
    AddText(app, "--data", options.textFolder,
            "folder with the scripture files (default: $VERSEWELL_DATA, or the usual ones)")
        ->type_name("FOLDER");
    AddText(app, "--folder", options.workingFolder,
            "folder with the window's settings and notes (default: $VERSEWELL_FOLDER, the current one if it has "
            "note sets, or the user's own)")
        ->type_name("FOLDER");
    app.set_version_flag("--version", "vw " VERSEWELL_VERSION, "tell the version");
}

static bool IsAsked(const std::vector<std::string>& words, const Command& command) {
    return words.empty() || std::ranges::find(words, command.name) != words.end();
}

static void AddCommand(Arguments& arguments, CLI::App& above, const std::vector<std::string>& words,
                       const Command& command) {
    CLI::App* const app = above.add_subcommand(command.name, command.help);
    app->fallthrough();
    app->footer(command.details);
    if (command.isHidden) app->group("");
    if (!IsAsked(words, command)) return;
    if (command.prepare != nullptr) arguments.prepared.push_back({app, command.prepare(*app)});
    for (const Command* below : command.commands) AddCommand(arguments, *app, words, *below);
    if (!command.commands.empty()) app->require_subcommand(1, 1);
}

Arguments ArgumentsFor(const std::vector<std::string>& words) {
    static constexpr std::size_t kColumnOfHelp = 30;
    Arguments arguments{
        {new CLI::App(kDescription, "vw"), [](CLI::App* app) { delete app; }}, std::make_unique<CommonOptions>(), {}};
    CLI::App& app = *arguments.app;
    app.allow_windows_style_options(false);
    app.set_help_flag("--help,-h", "tell what there is");
    app.get_formatter()->column_width(kColumnOfHelp);
    app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    app.get_formatter()->label("Subcommands", "Commands");
    app.get_formatter()->label("Positionals", "Arguments");
    app.get_formatter()->label("REQUIRED", "");
    app.footer(kFooter);
    AddCommonOptions(app, *arguments.options);
    for (const Command* command : TheCommands()) AddCommand(arguments, app, words, *command);
    app.require_subcommand(1, 1);
    return arguments;
}

void AllowOnlyOne(const CLI::App& app, std::initializer_list<const char*> options) {
    std::string given;
    for (const char* option : options) {
        if (app.count(option) == 0) continue;
        if (!given.empty()) throw Complaint{kBadUse, std::string(option) + ": not together with " + given};
        given = option;
    }
}

void AllowOnlyWith(const CLI::App& app, const char* option, const char* needed) {
    if (app.count(option) != 0 && app.count(needed) == 0)
        throw Complaint{kBadUse, std::string(option) + ": only with " + needed};
}
