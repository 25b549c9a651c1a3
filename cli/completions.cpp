// Apart from the manual, which is text for people.
#include <algorithm>
#include <array>

#include "cli/manual.h"

// ---- What there is to choose ----------------------------------------------------------------------------------------

// Those of a command, and of all commands.
static std::vector<DescribedOption> OptionsOf(const DescribedProgram& program, const DescribedCommand& command) {
    std::vector<DescribedOption> options = command.options;
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

// The last word of its name: "list" of "notes list".
static std::string LastWord(const DescribedCommand& command) {
    return command.name.substr(command.name.rfind(' ') + 1);
}

static std::vector<std::string> LastWords(const std::vector<DescribedCommand>& commands) {
    std::vector<std::string> names;
    for (const DescribedCommand& command : commands) names.push_back(LastWord(command));
    return names;
}

// What stands first behind the command: those below it, or what its argument may be.
static std::vector<std::string> ChoicesBehind(const DescribedCommand& command) {
    std::vector<std::string> names = LastWords(command.commands);
    for (const DescribedOption& option : command.options)
        if (option.isPositional) names.insert(names.end(), option.choices.begin(), option.choices.end());
    return names;
}

static bool TakesFile(const DescribedCommand& command) {
    return std::ranges::any_of(
        command.options, [](const DescribedOption& option) { return option.isPositional && option.value == "FILE"; });
}

static void AddAll(const std::vector<DescribedCommand>& commands, std::vector<DescribedCommand>& all) {
    for (const DescribedCommand& command : commands) {
        all.push_back(command);
        AddAll(command.commands, all);
    }
}

// Also those that only have others below them.
static std::vector<DescribedCommand> AllCommandsOf(const DescribedProgram& program) {
    std::vector<DescribedCommand> all;
    AddAll(program.commands, all);
    return all;
}

// What may stand behind the command, the options last.
static std::string WordsBehind(const DescribedProgram& program, const DescribedCommand& command) {
    const std::string choices = Joined(ChoicesBehind(command), " ");
    return choices + (choices.empty() ? "" : " ") + NamesOf(OptionsOf(program, command));
}

static bool IsFolder(const DescribedOption& option) {
    return option.value == "FOLDER";
}

// Options of all commands, each once, with something to choose for their value.
static std::vector<DescribedOption> OptionsWithChoices(const DescribedProgram& program) {
    std::vector<DescribedOption> options;
    for (const DescribedCommand& command : AllCommandsOf(program))
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

// The names of all commands as patterns: "read|notes|notes\ list".
static std::string BashPatterns(const DescribedProgram& program) {
    std::vector<std::string> names;
    for (const DescribedCommand& command : AllCommandsOf(program)) names.push_back(Replaced(command.name, " ", "\\ "));
    return Joined(names, "|");
}

static std::string BashWords(const std::string& words) {
    return "mapfile -t COMPREPLY < <(compgen -W '" + words + "' -- \"$word\") ;;\n";
}

static std::string BashCompletion(const DescribedProgram& program) {
    std::string text =
        "# Completion of vw for bash.\n"
        "_vw() {\n"
        "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= takes_file= each\n"
        "  COMPREPLY=()\n"
        "  case $before in\n" +
        BashValues(program) +
        "  esac\n"
        "  for each in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
        "    case \"${command:+$command }$each\" in\n      " +
        BashPatterns(program) +
        ") command=\"${command:+$command }$each\" ;;\n"
        "    esac\n"
        "  done\n"
        "  case $command in\n";
    for (const DescribedCommand& command : AllCommandsOf(program))
        text += "    " + Replaced(command.name, " ", "\\ ") + ") " + (TakesFile(command) ? "takes_file=yes; " : "") +
                BashWords(WordsBehind(program, command));
    text += "    *) " + BashWords(Joined(LastWords(program.commands), " ") + ' ' + NamesOf(program.options)) +
            "  esac\n"
            "  if [[ $takes_file && $word != -* ]]; then\n"
            "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
            "    compopt -o filenames 2>/dev/null\n"
            "  fi\n"
            "}\n"
            "complete -F _vw vw\n";
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

static std::string ZshArguments(const DescribedProgram& program, const DescribedCommand& command,
                                const std::string& indent);

// The commands below one, each with its own options.
static std::string ZshBelow(const DescribedProgram& program, const std::vector<DescribedCommand>& commands,
                            const std::string& indent) {
    std::string text = indent + "case $line[1] in\n";
    for (const DescribedCommand& command : commands)
        text += indent + "  " + LastWord(command) + ")\n" + ZshArguments(program, command, indent + "    ");
    return text + indent + "esac ;;\n";
}

static std::string ZshArguments(const DescribedProgram& program, const DescribedCommand& command,
                                const std::string& indent) {
    const bool hasBelow = !command.commands.empty();
    const std::string choices = Joined(ChoicesBehind(command), " ");
    std::string text = indent + "_arguments " + (hasBelow ? "-C " : "") + "\\\n" +
                       ZshOptions(OptionsOf(program, command), indent + "  ");
    if (hasBelow)
        return text + indent + "  '1: :(" + choices + ")' '*::argument:->below' && return\n" +
               ZshBelow(program, command.commands, indent);
    return text + indent + "  '*: :" +
           (TakesFile(command) ? "_files"
            : choices.empty()  ? ""
                               : "(" + choices + ")") +
           "' ;;\n";
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
    return text + "      )\n      _describe command commands ;;\n    argument)\n" +
           ZshBelow(program, program.commands, "      ") +
           "  esac\n}\n"
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

// "__fish_seen_subcommand_from notes; and __fish_seen_subcommand_from list"
static std::string FishSeen(const DescribedCommand& command) {
    static constexpr char kSeen[] = "__fish_seen_subcommand_from ";
    return kSeen + Replaced(command.name, " ", std::string("; and ") + kSeen);
}

static std::string FishCommand(const DescribedCommand& command) {
    const std::string condition = " -n '" + FishSeen(command) + "'";
    std::string text;
    for (const DescribedCommand& below : command.commands)
        text += "complete -c vw -n '" + FishSeen(command) + "; and not __fish_seen_subcommand_from " +
                Joined(LastWords(command.commands), " ") + "' -a " + LastWord(below) + " -d '" + FishText(below.help) +
                "'\n";
    if (command.commands.empty() && !ChoicesBehind(command).empty())
        text += "complete -c vw" + condition + " -a '" + Joined(ChoicesBehind(command), " ") + "'\n";
    if (TakesFile(command)) text += "complete -c vw" + condition + " -F\n";
    for (const DescribedOption& option : command.options)
        if (!option.isPositional) text += FishOption(option, condition);
    return text;
}

static std::string FishCompletion(const DescribedProgram& program) {
    std::string text = "# Completion of vw for fish.\ncomplete -c vw -f\n";
    for (const DescribedCommand& command : program.commands)
        text += "complete -c vw -n __fish_use_subcommand -a " + command.name + " -d '" + FishText(command.help) + "'\n";
    for (const DescribedOption& option : program.options) text += FishOption(option, "");
    for (const DescribedCommand& command : AllCommandsOf(program)) text += FishCommand(command);
    return text;
}

// ---- PowerShell -----------------------------------------------------------------------------------------------------

static std::string PowerShellList(std::string_view words) {
    return "@('" + Replaced(std::string(words), " ", "', '") + "')";
}

// For each command what may stand behind it, and the values of options.
static std::string PowerShellTables(const DescribedProgram& program) {
    std::string text = "    $options = @{\n        '' = " + PowerShellList(Joined(LastWords(program.commands), " ")) +
                       " + " + PowerShellList(NamesOf(program.options)) + "\n";
    for (const DescribedCommand& command : AllCommandsOf(program))
        text += "        '" + command.name + "' = " + PowerShellList(WordsBehind(program, command)) + "\n";
    text += "    }\n    $values = @{\n";
    for (const DescribedOption& option : OptionsWithChoices(program))
        if (!option.choices.empty())
            for (const std::string& name : option.names)
                text += "        '" + name + "' = " + PowerShellList(Joined(option.choices, " ")) + "\n";
    return text + "    }\n";
}

// Where nothing is offered, as for an argument that is a file, PowerShell offers files.
static std::string PowerShellCompletion(const DescribedProgram& program) {
    return "# Completion of vw for PowerShell.\n"
           "Register-ArgumentCompleter -Native -CommandName vw, vw.exe -ScriptBlock {\n"
           "    param($wordToComplete, $commandAst, $cursorPosition)\n" +
           PowerShellTables(program) +
           "    $words = @($commandAst.CommandElements | ForEach-Object { $_.ToString() })\n"
           "    $before = @($words | Select-Object -Skip 1 | Where-Object { $_ -ne $wordToComplete })\n"
           "    $command = ''\n"
           "    foreach ($word in $before) {\n"
           "        $longer = \"$command $word\".Trim()\n"
           "        if ($options.ContainsKey($longer)) { $command = $longer }\n"
           "    }\n"
           "    $last = if ($before.Count) { $before[-1] } else { '' }\n"
           "    $offered = if ($values.ContainsKey($last)) { $values[$last] } else { $options[$command] }\n"
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
