#include "resources/resource_script.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

// One statement: its first word, and the rest split at commas. Quoted texts are without their quotes.
struct Statement {
    std::string verb;
    std::vector<std::string> fields;
};

// State of the parser.
struct ScriptParser {
    const IdTable& ids;
    std::string madeFolder;
    ResourceScript& script;
    std::string block;                // MENU, ACCELERATORS or DIALOGEX
    std::vector<std::string> popups;  // open popups
    int depth = 0;                    // nesting of BEGIN
};

}  // namespace

std::string FileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

static std::string Trimmed(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front()))) text.remove_prefix(1);
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.back()))) text.remove_suffix(1);
    return std::string(text);
}

static std::string Unquoted(std::string text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') text = text.substr(1, text.size() - 2);
    for (std::size_t at = text.find("\\t"); at != std::string::npos; at = text.find("\\t", at))
        text.replace(at, 2, "\t");
    return text;
}

static std::vector<std::string> FieldsOf(std::string_view text) {
    std::vector<std::string> fields;
    std::string field;
    bool quoted = false;
    for (char letter : text) {
        if (letter == '"') quoted = !quoted;
        if (letter == ',' && !quoted) {
            fields.push_back(Unquoted(Trimmed(field)));
            field.clear();
        } else {
            field += letter;
        }
    }
    fields.push_back(Unquoted(Trimmed(field)));
    return fields;
}

static Statement StatementOf(const std::string& line) {
    const std::size_t end = line.find_first_of(" ,");
    if (end == std::string::npos) return {.verb = line, .fields = {}};
    if (line[end] == ',') {  // an accelerator, which has no verb and starts with the key
        return {.verb = "", .fields = FieldsOf(line)};
    }
    return {.verb = line.substr(0, end), .fields = FieldsOf(line.substr(end))};
}

static int Number(const IdTable& ids, const std::string& text) {
    const std::size_t plus = text.find(" + ");
    if (plus != std::string::npos) return Number(ids, text.substr(0, plus)) + Number(ids, text.substr(plus + 3));
    const auto known = ids.find(text);
    if (known != ids.end()) return known->second;
    return std::stoi(text);
}

IdTable ReadIds(const std::string& path) {
    IdTable ids = {{"IDOK", 1}, {"IDCANCEL", 2}, {"IDC_STATIC", -1}};
    std::istringstream lines(FileText(path));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string define, name;
        int number = 0;
        if (words >> define >> name >> number && define == "#define") ids[name] = number;
    }
    return ids;
}

static std::string KeyName(const std::string& key) {
    static const std::map<std::string, std::string> kNames = {
        {"VK_PRIOR", "PgUp"},    {"VK_NEXT", "PgDn"},      {"VK_HOME", "Home"}, {"VK_END", "End"},
        {"VK_UP", "Up"},         {"VK_DOWN", "Down"},      {"VK_LEFT", "Left"}, {"VK_RIGHT", "Right"},
        {"VK_OEM_PLUS", "Plus"}, {"VK_OEM_MINUS", "Minus"}};
    const auto named = kNames.find(key);
    if (named != kNames.end()) return named->second;
    return key.starts_with("VK_") ? key.substr(3) : key;
}

static void ReadAccelerator(ScriptParser& parser, const Statement& statement) {
    std::string key;
    for (const auto& [style, shown] :
         {std::pair("CONTROL", "Ctrl+"), std::pair("ALT", "Alt+"), std::pair("SHIFT", "Shift+")})
        for (std::size_t i = 2; i < statement.fields.size(); ++i)
            if (statement.fields[i] == style) key += shown;
    parser.script.accelerators.push_back(
        {.key = key + KeyName(statement.fields[0]), .command = Number(parser.ids, statement.fields[1])});
}

static void OpenPopup(ScriptParser& parser, const std::string& text) {
    if (parser.popups.empty()) parser.script.bar.push_back(text);
    parser.popups.push_back(text);
    std::string path;
    for (const std::string& popup : parser.popups) path += (path.empty() ? "" : "/") + popup;
    parser.script.popups.push_back(path);
}

static void ReadMenuLine(ScriptParser& parser, const Statement& statement) {
    if (statement.verb == "POPUP") {
        OpenPopup(parser, statement.fields.at(0));
    } else if (statement.verb == "MENUITEM") {
        if (statement.fields.at(0) == "SEPARATOR") return;
        parser.script.menu.push_back({.popups = parser.popups,
                                      .text = statement.fields[0],
                                      .command = Number(parser.ids, statement.fields.at(1)),
                                      .newColumn = statement.fields.size() > 2});
    } else {
        throw std::runtime_error("not a line of a menu: " + statement.verb);
    }
}

// CONTROL "text", id, "class", styles, x, y, w, h; others: ["text",] id, x, y, w, h [, styles].
static DialogControl ControlOf(const IdTable& ids, const Statement& statement) {
    const std::vector<std::string>& fields = statement.fields;
    DialogControl control;
    control.kind = statement.verb;
    std::size_t at = 0;
    if (statement.verb != "COMBOBOX" && statement.verb != "EDITTEXT" && statement.verb != "LISTBOX")
        control.text = fields.at(at++);
    control.id = Number(ids, fields.at(at++));
    if (statement.verb == "CONTROL") {
        control.styles = fields.at(at + 1);
        control.kind = control.styles.substr(0, control.styles.find(' '));
        at += 2;
    }
    for (int* place : {&control.x, &control.y, &control.width, &control.height}) *place = std::stoi(fields.at(at++));
    if (at < fields.size()) control.styles = fields[at];
    return control;
}

static void ReadDialogLine(ScriptParser& parser, const Statement& statement, const std::string& line) {
    DialogScript& dialog = parser.script.dialogs.back();
    if (statement.verb == "STYLE")
        dialog.styles = line.substr(6);
    else if (statement.verb == "CAPTION")
        dialog.title = statement.fields.at(0);
    else if (statement.verb != "EXSTYLE" && statement.verb != "FONT")
        dialog.controls.push_back(ControlOf(parser.ids, statement));
}

// NAME MENU, NAME ACCELERATORS, NAME DIALOGEX 0, 0, w, h
static void OpenBlock(ScriptParser& parser, const Statement& statement) {
    std::istringstream words(statement.fields.at(0));
    words >> parser.block;
    if (parser.block == "DIALOGEX")
        parser.script.dialogs.push_back({.name = statement.verb,
                                         .title = "",
                                         .width = std::stoi(statement.fields.at(2)),
                                         .height = std::stoi(statement.fields.at(3)),
                                         .styles = "",
                                         .controls = {}});
}

static void Close(ScriptParser& parser) {
    --parser.depth;
    if (!parser.popups.empty()) parser.popups.pop_back();
    if (parser.depth == 0) parser.block.clear();
}

static void ReadLines(ScriptParser& parser, const std::string& path);

static void Follow(ScriptParser& parser, const std::string& path, const std::string& line) {
    const std::size_t start = line.find('"');
    if (start == std::string::npos) return;
    const std::string name = line.substr(start + 1, line.rfind('"') - start - 1);
    for (const std::string& folder : {std::filesystem::path(path).parent_path().string(), parser.madeFolder})
        if (std::filesystem::exists(folder + "/" + name)) return ReadLines(parser, folder + "/" + name);
}

static void ReadLine(ScriptParser& parser, const std::string& path, const std::string& line) {
    if (line.empty() || line.starts_with("//")) return;
    if (line.starts_with("#include")) return Follow(parser, path, line);
    if (line == "BEGIN") {
        ++parser.depth;
        return;
    }
    if (line == "END") return Close(parser);

    const Statement statement = StatementOf(line);
    if (parser.block.empty())
        OpenBlock(parser, statement);
    else if (parser.block == "MENU")
        ReadMenuLine(parser, statement);
    else if (parser.block == "ACCELERATORS")
        ReadAccelerator(parser, statement);
    else
        ReadDialogLine(parser, statement, line);
}

static void ReadLines(ScriptParser& parser, const std::string& path) {
    std::istringstream lines(FileText(path));
    for (std::string line; std::getline(lines, line);) ReadLine(parser, path, Trimmed(line));
}

void ReadScript(const std::string& path, const std::string& madeFolder, const IdTable& ids, ResourceScript& script) {
    ScriptParser parser = {
        .ids = ids, .madeFolder = madeFolder, .script = script, .block = "", .popups = {}, .depth = 0};
    ReadLines(parser, path);
}

char AccessKey(std::string_view text) {
    const std::size_t at = text.find('&');
    if (at == std::string_view::npos || at + 1 >= text.size()) return 0;
    return static_cast<char>(std::tolower(static_cast<unsigned char>(text[at + 1])));
}
