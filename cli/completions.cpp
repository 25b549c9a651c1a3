// Apart from the manual, which is text for people.
#include <algorithm>
#include <array>

#include "cli/manual.h"

// ---- What there is to choose ----------------------------------------------------------------------------------------

// Each once.
static void AddOptions(const std::vector<DescribedOption>& added, std::vector<DescribedOption>& options) {
    for (const DescribedOption& option : added)
        if (std::ranges::find(options, option.names, &DescribedOption::names) == options.end())
            options.push_back(option);
}

// Those of a command, of all commands below it and of all commands.
static std::vector<DescribedOption> OptionsOf(const DescribedProgram& program, const DescribedCommand& command) {
    std::vector<DescribedOption> options = command.options;
    for (const DescribedCommand& below : command.commands) AddOptions(below.options, options);
    options.insert(options.end(), program.options.begin(), program.options.end());
    std::erase_if(options, [](const DescribedOption& option) { return option.isPositional; });
    return options;
}

static std::string Joined(const std::vector<std::string>& words, std::string_view between) {
    std::string joined;
    for (const std::string& word : words) joined.append(joined.empty() ? "" : between).append(word);
    return joined;
}

static std::string NamesOf(const std::vector<DescribedOption>& options) {
    std::vector<std::string> names;
    for (const DescribedOption& option : options) names.insert(names.end(), option.names.begin(), option.names.end());
    return Joined(names, " ");
}

static std::string CommandNames(const DescribedProgram& program) {
    std::vector<std::string> names;
    for (const DescribedCommand& command : program.commands) names.push_back(command.name);
    return Joined(names, " ");
}

// "list show " of the command "notes"; empty if there is none below it.
static std::string NamesBelow(const DescribedCommand& command) {
    std::string names;
    for (const DescribedCommand& below : command.commands) names += below.name.substr(command.name.size() + 1) + ' ';
    return names;
}

static bool IsFolder(const DescribedOption& option) {
    return option.value == "FOLDER";
}

// Options of all commands, each once, with something to choose for their value.
static std::vector<DescribedOption> OptionsWithChoices(const DescribedProgram& program) {
    std::vector<DescribedOption> options;
    for (const DescribedCommand& command : program.commands)
        for (const DescribedOption& option : OptionsOf(program, command)) {
            const bool isKnown =
                std::ranges::any_of(options, [&](const DescribedOption& other) { return other.names == option.names; });
            if (!isKnown && (IsFolder(option) || !option.choices.empty())) options.push_back(option);
        }
    return options;
}

static std::string Replaced(std::string text, std::string_view what, std::string_view by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

// ---- bash -----------------------------------------------------------------------------------------------------------

static std::string BashValues(const DescribedProgram& program) {
    std::string cases;
    for (const DescribedOption& option : OptionsWithChoices(program))
        cases += "    " + Joined(option.names, "|") + ") COMPREPLY=($(compgen " +
                 (IsFolder(option) ? "-d" : "-W '" + Joined(option.choices, " ") + "'") +
                 " -- \"$word\")); return ;;\n";
    return cases;
}

static std::string BashCompletion(const DescribedProgram& program) {
    std::string text =
        "# Completion of vw for bash.\n"
        "_vw() {\n"
        "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= each\n"
        "  COMPREPLY=()\n"
        "  case $before in\n" +
        BashValues(program) +
        "  esac\n"
        "  for each in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
        "    case $each in " +
        Replaced(CommandNames(program), " ", "|") +
        ") command=$each; break ;; esac\n"
        "  done\n"
        "  case $command in\n";
    for (const DescribedCommand& command : program.commands)
        text += "    " + command.name + ") COMPREPLY=($(compgen -W '" + NamesBelow(command) +
                NamesOf(OptionsOf(program, command)) + "' -- \"$word\")) ;;\n";
    text += "    *) COMPREPLY=($(compgen -W '" + CommandNames(program) + ' ' + NamesOf(program.options) +
            "' -- \"$word\")) ;;\n  esac\n}\ncomplete -F _vw vw\n";
    return text;
}

// ---- zsh ------------------------------------------------------------------------------------------------------------

// Text between simple quotes in the words of _arguments, where brackets and colons have a meaning.
static std::string ZshText(std::string text) {
    for (const char* c : {"[", "]", ":"}) text = Replaced(std::move(text), c, std::string("\\") + c);
    return Replaced(std::move(text), "'", "'\\''");
}

static std::string ZshValue(const DescribedOption& option) {
    if (option.value.empty()) return "";
    const std::string value = ":" + ZshText(option.value) + ":";
    if (IsFolder(option)) return value + "_files -/";
    return option.choices.empty() ? value : value + "(" + Joined(option.choices, " ") + ")";
}

static std::string ZshOptions(const std::vector<DescribedOption>& options, const std::string& indent) {
    std::string text;
    for (const DescribedOption& option : options)
        for (const std::string& name : option.names)
            text += indent + "'" + name + "[" + ZshText(option.help) + "]" + ZshValue(option) + "' \\\n";
    return text;
}

static std::string ZshCompletion(const DescribedProgram& program) {
    std::string text =
        "#compdef vw\n# Completion of vw for zsh.\n_vw() {\n  local context state line\n  _arguments -C \\\n" +
        ZshOptions(program.options, "    ") +
        "    '1:command:->command' '*::argument:->argument' && return\n"
        "  case $state in\n"
        "    command)\n      local -a commands=(\n";
    for (const DescribedCommand& command : program.commands)
        text += "        '" + command.name + ":" + ZshText(command.help) + "'\n";
    text += "      )\n      _describe command commands ;;\n    argument)\n      case $line[1] in\n";
    for (const DescribedCommand& command : program.commands)
        text += "        " + command.name + ")\n          _arguments \\\n" +
                ZshOptions(OptionsOf(program, command), "            ") +
                "            '*: :" + (command.commands.empty() ? "" : "(" + NamesBelow(command) + ")") + "' ;;\n";
    return text +
           "      esac ;;\n  esac\n}\n"
           "if [[ $funcstack[1] == _vw ]]; then _vw \"$@\"; else compdef _vw vw; fi\n";
}

// ---- fish -----------------------------------------------------------------------------------------------------------

static std::string FishText(std::string text) {
    return Replaced(Replaced(std::move(text), "\\", "\\\\"), "'", "\\'");
}

static std::string FishOption(const DescribedOption& option, const std::string& condition) {
    std::string line = "complete -c vw" + condition;
    for (const std::string& name : option.names)
        line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (IsFolder(option))
        line += " -x -a '(__fish_complete_directories)'";
    else if (!option.choices.empty())
        line += " -x -a '" + Joined(option.choices, " ") + "'";
    else if (!option.value.empty())
        line += " -x";
    return line + " -d '" + FishText(option.help) + "'\n";
}

static std::string FishCompletion(const DescribedProgram& program) {
    std::string text = "# Completion of vw for fish.\ncomplete -c vw -f\n";
    for (const DescribedCommand& command : program.commands)
        text += "complete -c vw -n __fish_use_subcommand -a " + command.name + " -d '" + FishText(command.help) + "'\n";
    for (const DescribedOption& option : program.options) text += FishOption(option, "");
    for (const DescribedCommand& command : program.commands) {
        const std::string condition = " -n '__fish_seen_subcommand_from " + command.name + "'";
        for (const DescribedCommand& below : command.commands)
            text += "complete -c vw" + condition + " -a " + below.name.substr(command.name.size() + 1) + " -d '" +
                    FishText(below.help) + "'\n";
        std::vector<DescribedOption> options = command.options;
        for (const DescribedCommand& below : command.commands) AddOptions(below.options, options);
        for (const DescribedOption& option : options)
            if (!option.isPositional) text += FishOption(option, condition);
    }
    return text;
}

// ---- PowerShell -----------------------------------------------------------------------------------------------------

static std::string PowerShellList(std::string_view words) {
    return "@('" + Replaced(std::string(words), " ", "', '") + "')";
}

static std::string PowerShellCompletion(const DescribedProgram& program) {
    std::string text =
        "# Completion of vw for PowerShell.\n"
        "Register-ArgumentCompleter -Native -CommandName vw, vw.exe -ScriptBlock {\n"
        "    param($wordToComplete, $commandAst, $cursorPosition)\n"
        "    $commands = " +
        PowerShellList(CommandNames(program)) + "\n    $options = @{\n        '' = $commands + " +
        PowerShellList(NamesOf(program.options)) + "\n";
    for (const DescribedCommand& command : program.commands)
        text += "        '" + command.name +
                "' = " + PowerShellList(NamesBelow(command) + NamesOf(OptionsOf(program, command))) + "\n";
    text += "    }\n    $values = @{\n";
    for (const DescribedOption& option : OptionsWithChoices(program))
        if (!option.choices.empty())
            for (const std::string& name : option.names)
                text += "        '" + name + "' = " + PowerShellList(Joined(option.choices, " ")) + "\n";
    return text +
           "    }\n"
           "    $words = @($commandAst.CommandElements | ForEach-Object { $_.ToString() })\n"
           "    $before = @($words | Select-Object -Skip 1 | Where-Object { $_ -ne $wordToComplete })\n"
           "    $command = @($before | Where-Object { $commands -contains $_ } | Select-Object -First 1)\n"
           "    $last = if ($before.Count) { $before[-1] } else { '' }\n"
           "    $offered = if ($values.ContainsKey($last)) { $values[$last] } else { $options[[string]$command] }\n"
           "    $offered | Where-Object { $_ -like \"$wordToComplete*\" } | ForEach-Object {\n"
           "        [System.Management.Automation.CompletionResult]::new($_, $_, 'ParameterValue', $_)\n"
           "    }\n"
           "}\n";
}

std::optional<std::string> CompletionFor(const DescribedProgram& program, std::string_view shell) {
    if (shell == "bash") return BashCompletion(program);
    if (shell == "zsh") return ZshCompletion(program);
    if (shell == "fish") return FishCompletion(program);
    if (shell == "powershell") return PowerShellCompletion(program);
    return std::nullopt;
}
