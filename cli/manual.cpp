#include "cli/manual.h"

#include <algorithm>

#include "cli/schema.h"

// A line that begins with a point or an apostrophe is a request, a backslash an escape, and a hyphen may be broken at.
static std::string Escaped(std::string_view text) {
    std::string escaped;
    if (text.starts_with('.') || text.starts_with('\'')) escaped = "\\&";
    for (const char c : text) {
        if (c == '\\')
            escaped += "\\e";
        else if (c == '-')
            escaped += "\\-";
        else if (c == '\n')
            escaped += "\n.br\n";
        else
            escaped += c;
    }
    return escaped;
}

static std::string Bold(std::string_view text) {
    return "\\fB" + Escaped(text) + "\\fR";
}

static std::string Italic(std::string_view text) {
    return "\\fI" + Escaped(text) + "\\fR";
}

static std::string Capitals(std::string_view text) {
    std::string capitals(text);
    for (char& c : capitals) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return capitals;
}

// "--near N", "--lines, --no-lines", "REF..."
static std::string Heading(const DescribedOption& option) {
    if (option.isPositional) return Italic(option.value) + (option.mayRepeat ? "..." : "");
    std::string heading;
    for (const std::string& name : option.names) heading += (heading.empty() ? "" : ", ") + Bold(name);
    return option.value.empty() ? heading : heading + ' ' + Italic(option.value);
}

static std::string OptionsText(const std::vector<DescribedOption>& options) {
    std::string text;
    for (const DescribedOption& option : options)
        text += ".TP\n" + Heading(option) + "\n" + Escaped(Capitals(option.help.substr(0, 1)) + option.help.substr(1)) +
                ".\n";
    return text;
}

static std::string Synopsis(const DescribedCommand& command) {
    std::string line = Bold("vw " + command.name) + " [" + Italic("options") + ']';
    for (const DescribedOption& option : command.options) {
        if (!option.isPositional) continue;
        const std::string name = Heading(option);
        line += option.isRequired ? ' ' + name : " [" + name + ']';
    }
    return line;
}

static std::string SynopsisOfAll(const DescribedProgram& program) {
    std::string text = ".SH SYNOPSIS\n";
    for (const DescribedCommand& command : RunCommandsOf(program))
        text += (text.ends_with("SYNOPSIS\n") ? "" : ".br\n") + Synopsis(command) + "\n";
    return text;
}

static std::string CommandsText(const DescribedProgram& program) {
    std::string text = ".SH COMMANDS\n";
    for (const DescribedCommand& command : RunCommandsOf(program)) {
        text += ".SS " + Escaped(command.name) + "\n" + Synopsis(command) + "\n.PP\n";
        text += Escaped(Capitals(command.help.substr(0, 1)) + command.help.substr(1)) + ".\n";
        if (!command.details.empty()) text += Escaped(command.details) + "\n";
        text += OptionsText(command.options);
    }
    return text;
}

static std::string FieldsText(std::span<const SchemaField> fields) {
    std::string text;
    for (const SchemaField& field : fields)
        text += ".TP\n" + Bold(field.name) + " (" + Escaped(NameOfType(field.type)) + ")\n" + Escaped(field.meaning) +
                ".\n";
    return text;
}

static std::string SchemaText() {
    std::string text = ".SH JSON\nWith " + Bold("--json") +
                       " each line is one object in UTF\\-8. Its field \\(dqkind\\(dq tells which of these it is.\n";
    for (const SchemaKind& kind : TheSchema()) {
        text += ".SS \\(dq" + Escaped(kind.kind) + "\\(dq: " + Escaped(kind.meaning) + "\n";
        text += FieldsText(kind.fields) + FieldsText(kind.more);
    }
    return text;
}

static constexpr char kAfterJson[] =
    ".SH EXIT STATUS\n"
    ".TP\n0\nSomething was found.\n"
    ".TP\n1\nNothing was found or, of \\fBvw doctor\\fR, something is wrong.\n"
    ".TP\n2\nBad use: an argument means nothing. The message names it.\n"
    ".TP\n3\nA file or a folder cannot be read or written. The message names it.\n"
    ".SH ENVIRONMENT\n"
    ".TP\n\\fBVISUAL\\fR, \\fBEDITOR\\fR\nThe editor of \\fBvw notes edit\\fR, the first of them that is set; without "
    "them, editor, nano or vi, on Windows notepad.\n"
    ".TP\n\\fBTMPDIR\\fR\nThe folder for the files that are edited; without it, /tmp.\n"
    ".TP\n\\fBPAGER\\fR\nThe program that shows long texts on a terminal; without it, less if it is "
    "installed, on Windows none. None is used if it is empty, is not there, or if \\fBTERM\\fR is dumb.\n"
    ".TP\n\\fBNO_COLOR\\fR\nIf it is set and not empty, there are no colours unless \\fB\\-\\-color always\\fR is "
    "given.\n"
    ".TP\n\\fBVERSEWELL_DATA\\fR\nThe folder with the scripture files.\n"
    ".TP\n\\fBVERSEWELL_FOLDER\\fR\nThe folder with the window's settings and notes.\n"
    ".SH FILES\n"
    ".TP\n\\fB_av*.dat\\fR\nThe scripture files: beside the program, in ../share/versewell or in "
    "/usr/share/versewell.\n"
    ".TP\n\\fBVersewell.INI\\fR\nThe settings of the window, where it was left off.\n"
    ".SH EXAMPLES\n"
    ".nf\nvw read \\(dqRom 8:1\\-11\\(dq\n"
    "vw find grace mercy \\-\\-any \\-\\-range \\(dqRo \\- Re\\(dq\n"
    "vw find faith hope charity \\-\\-near 12\n"
    "vw words \\(dqlov*\\(dq \\-\\-by\\-count\n"
    "vw notes search grace \\-\\-range Ro\n"
    "vw notes edit \\(dqRom 8:28\\(dq \\-\\-set \\(dqMy Notes\\(dq\n.fi\n";

std::string ManualPage(const DescribedProgram& program, std::string_view version) {
    std::string page = ".TH VW 1 \"\" \"vw " + std::string(version) + "\" \"User Commands\"\n";
    page += ".SH NAME\nvw \\- read and search the Authorized Version of the Bible\n" + SynopsisOfAll(program);
    page += ".SH DESCRIPTION\n" + Escaped(program.help) +
            " The texts, searches and notes are those of the window program Versewell.\n";
    page += CommandsText(program) + ".SH COMMON OPTIONS\nThey may stand before or behind the command.\n" +
            OptionsText(program.options);
    return page + SchemaText() + kAfterJson;
}
