#include "tests/house_rules.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

static constexpr std::array<std::string_view, 13> kFolders = {
    "scripture", "search",  "typeset",   "pane",  "notes", "history", "exchange",
    "output",    "passage", "verselist", "print", "app",   "cli"};
static constexpr std::size_t kMostLines = 500;
static constexpr std::size_t kFewestLines = 40;

std::vector<TreeFile> FilesOfTree(const fs::path& root) {
    std::vector<TreeFile> files;
    for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator(); ++entry) {
        const std::string name = entry->path().filename().string();
        if (entry->is_directory() && (name == ".git" || name == "build")) entry.disable_recursion_pending();
        if (!entry->is_regular_file() || name == ".git") continue;  // a file in a worktree of its own
        std::ifstream in(entry->path(), std::ios::binary);
        files.push_back({fs::relative(entry->path(), root).generic_string(),
                         std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>())});
    }
    return files;
}

// ---- What a path says ---------------------------------------------------------------------------------------------

static std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find('/');
    return slash == std::string::npos ? "" : path.substr(0, slash);
}

static bool IsSource(const std::string& path) {
    return path.ends_with(".cpp") || path.ends_with(".h");
}

static bool IsProgramFolder(const std::string& folder) {
    return std::ranges::find(kFolders, folder) != kFolders.end();
}

static bool IsOfProgram(const std::string& path) {
    return (IsProgramFolder(FolderOf(path)) || path.starts_with("win32/")) && !path.ends_with("_test.cpp");
}

bool IsShell(const std::string& path) {
    const std::string stem = fs::path(path).stem().string();
    for (const std::string_view ending : {"_window", "_dialog", "_win32"})
        if (stem.ends_with(ending)) return true;
    for (const std::string_view folder : {"win32/", "tests/driver/", "tests/windows/"})
        if (path.starts_with(folder)) return true;
    return path == "app/main.cpp";
}

// ---- Reading a file -------------------------------------------------------------------------------------------------

static void EachLine(const TreeFile& file, const std::function<void(const std::string& line, int number)>& visit) {
    std::istringstream lines(file.text);
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) visit(line, number);
}

static std::string At(const TreeFile& file, int line, const std::string& what) {
    return file.path + ":" + std::to_string(line) + ": " + what;
}

struct Include {
    std::string name;
    bool isSystem = false;
    int line = 0;
};

static std::vector<Include> IncludesOf(const TreeFile& file) {
    static const std::regex form(R"re(^\s*#\s*include\s*(["<])([^">]+)[">])re");
    std::vector<Include> includes;
    EachLine(file, [&](const std::string& line, int number) {
        std::smatch match;
        if (std::regex_search(line, match, form)) includes.push_back({match[2], match[1] == "<", number});
    });
    return includes;
}

// The code without its comments and quoted texts; lines stay where they are.
static std::string CodeOf(const std::string& text) {
    static const std::regex unread(R"re(//[^\n]*|"(\\.|[^"\\\n])*")re");
    return std::regex_replace(text, unread, "");
}

// ---- Includes -------------------------------------------------------------------------------------------------------

// Standard headers of C++ have no ending; these have one and are no part of any system.
static bool IsPlainSystemHeader(const std::string& name) {
    static const std::set<std::string> allowed = {"emmintrin.h", "immintrin.h"};
    return name.find('.') == std::string::npos || allowed.contains(name) || name.starts_with("gtest/") ||
           name.starts_with("gmock/");
}

// Those that the program on a command line uses; the one with windows uses none.
static bool IsLibraryOfCli(const std::string& path, const std::string& name) {
    return path.starts_with("cli/") && (name.starts_with("CLI/") || name.starts_with("nlohmann/"));
}

static bool MayIncludeOfSystem(const std::string& path, const std::string& name) {
    return IsShell(path) || fs::path(path).stem().string().ends_with("_posix") || IsPlainSystemHeader(name) ||
           IsLibraryOfCli(path, name);
}

static std::set<std::string> WordsIn(std::string text) {
    std::ranges::replace(text, ',', ' ');
    std::istringstream words(text);
    return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
}

static FolderGraph GraphIn(const std::string& text, const std::regex& row) {
    FolderGraph graph;
    for (auto match = std::sregex_iterator(text.begin(), text.end(), row); match != std::sregex_iterator(); ++match)
        graph[(*match)[1]] = WordsIn((*match)[2]);
    return graph;
}

FolderGraph ReadGraph(const std::string& cmakeText) {
    return GraphIn(cmakeText, std::regex(R"re(set\(STANDS_ON_(\w+)([^)]*)\))re"));
}

FolderGraph ReadGraphOfReadme(const std::string& readme) {
    FolderGraph graph = GraphIn(readme, std::regex(R"re(\| `(\w+)/` \| ([\w, ]*)\|)re"));
    std::erase_if(graph, [](const auto& row) { return !IsProgramFolder(row.first); });
    return graph;
}

static bool StandsOn(const FolderGraph& graph, const std::string& folder, const std::string& other) {
    const auto found = graph.find(folder);
    return found != graph.end() && std::ranges::any_of(found->second, [&](const std::string& below) {
               return below == other || StandsOn(graph, below, other);
           });
}

static std::string WrongAboutInclude(const TreeFile& file, const Include& include, const FolderGraph& graph) {
    const std::string folder = FolderOf(file.path);
    const std::string from = FolderOf(include.name);
    const bool isProgram = IsProgramFolder(folder);
    if (include.isSystem)
        return isProgram && !MayIncludeOfSystem(file.path, include.name) ? "core includes a system's header" : "";
    if (from.empty()) return "includes are by path from the root of the tree";
    if (folder == "win32" && from != "win32") return "win32/ knows nothing of ours";
    if (folder == "resources" && from != "resources") return "resources/ knows nothing of ours";
    if (isProgram && (from == "data" || from == "bench")) return "the program does not include its tools";
    const bool isTest = file.path.ends_with("_test.cpp");
    if (isProgram && from == "tests" && !isTest) return "only tests include tests/";
    if (isProgram && IsProgramFolder(from) && from != folder && !StandsOn(graph, folder, from))
        return "the folder does not stand on that one";
    if (folder == "tests" && IsShell(file.path) && IsShell(include.name) && !include.name.starts_with("tests/"))
        return "a window test looks at the program from outside";
    const bool isOfShell = IsShell(include.name) || from == "resources";
    if (isProgram && isOfShell && !IsShell(file.path) && !isTest) return "core includes a header of the shell";
    return "";
}

Findings CheckIncludes(const TreeFile& file, const FolderGraph& graph) {
    Findings findings;
    if (!IsSource(file.path)) return findings;
    for (const Include& include : IncludesOf(file)) {
        const std::string wrong = WrongAboutInclude(file, include, graph);
        if (!wrong.empty()) findings.push_back(At(file, include.line, wrong + ": " + include.name));
    }
    return findings;
}

static std::string UnitOf(const std::string& path) {
    return path.substr(0, path.rfind('.'));
}

using UnitGraph = std::map<std::string, std::set<std::string>>;

// Walks from `unit` along includes; `trail` is the way there. A unit that stands on the trail already closes a circle.
static void FindCircles(const UnitGraph& graph, const std::string& unit, std::vector<std::string>& trail,
                        std::set<std::string>& done, Findings& findings) {
    const auto start = std::ranges::find(trail, unit);
    if (start != trail.end()) {
        std::string circle;
        for (auto at = start; at != trail.end(); ++at) circle += *at + " -> ";
        findings.push_back(circle + unit);
    }
    if (!done.insert(unit).second) return;
    trail.push_back(unit);
    if (const auto found = graph.find(unit); found != graph.end())
        for (const std::string& next : found->second) FindCircles(graph, next, trail, done, findings);
    trail.pop_back();
}

Findings CheckCircles(const std::vector<TreeFile>& files) {
    UnitGraph graph;
    for (const TreeFile& file : files) {
        if (!IsSource(file.path)) continue;
        for (const Include& include : IncludesOf(file))
            if (!include.isSystem && UnitOf(include.name) != UnitOf(file.path))
                graph[UnitOf(file.path)].insert(UnitOf(include.name));
    }
    Findings findings;
    std::vector<std::string> trail;
    std::set<std::string> done;
    for (const auto& [unit, includes] : graph) FindCircles(graph, unit, trail, done, findings);
    return findings;
}

Findings CheckOwnHeaderFirst(const TreeFile& file, const std::set<std::string>& paths) {
    if (!file.path.ends_with(".cpp")) return {};
    const std::string own = file.path.substr(0, file.path.size() - 4) + ".h";
    if (!paths.contains(own)) return {};
    const std::vector<Include> includes = IncludesOf(file);
    if (!includes.empty() && includes.front().name == own) return {};
    return {At(file, includes.empty() ? 1 : includes.front().line, own + " is to be included first")};
}

// ---- Code -----------------------------------------------------------------------------------------------------------

Findings CheckGlobals(const TreeFile& file) {
    Findings findings;
    if (!IsSource(file.path) || IsShell(file.path) || !IsProgramFolder(FolderOf(file.path))) return findings;
    static const std::regex global(R"re(\bthe[A-Z]\w*)re");
    EachLine({file.path, CodeOf(file.text)}, [&](const std::string& line, int number) {
        std::smatch match;
        if (std::regex_search(line, match, global))
            findings.push_back(At(file, number, "core names the global " + match.str()));
    });
    return findings;
}

// Each first match in a line of the code, behind `what`.
static Findings MatchesIn(const TreeFile& file, const std::regex& form, const char* what) {
    Findings findings;
    EachLine({file.path, CodeOf(file.text)}, [&](const std::string& line, int number) {
        std::smatch match;
        if (std::regex_search(line, match, form)) findings.push_back(At(file, number, what + match.str()));
    });
    return findings;
}

// The dots per inch of a printer (GetDeviceCaps) are none of a screen.
Findings CheckScreenSizes(const TreeFile& file) {
    if (!IsSource(file.path) || !IsOfProgram(file.path) || file.path.starts_with("win32/dpi.")) return {};
    static const std::regex asked(
        R"re(\bGetSystemMetrics\w*|\bGetDpiFor\w+|\w*NONCLIENTMETRICS\w*|\bGetDialogBaseUnits|\b\w*ForDpi\b|\bDEFAULT_GUI_FONT)re");
    return MatchesIn(file, asked, "a size of the system's screen: ");
}

Findings CheckLoading(const TreeFile& file) {
    static const std::set<std::string> places = {
        "win32/system_library.cpp", "win32/help_viewer.cpp", "cli/surroundings_posix.cpp",
        "cli/surroundings_win32.cpp",  // pager and editor that the environment names
    };
    const bool isPlace = places.contains(file.path);
    if (!IsSource(file.path) || !IsOfProgram(file.path) || isPlace) return {};
    static const std::regex named(
        R"re(\b(LoadLibrary(Ex)?|LoadPackagedLibrary|ShellExecute(Ex)?|CreateProcess|WinExec|system|_w?popen|_w?spawn\w+|_w?exec\w+)[AW]?\s*\()re");
    return MatchesIn(file, named, "loads or starts something by itself: ");
}

Findings CheckColors(const TreeFile& file) {
    if (!IsSource(file.path) || !IsOfProgram(file.path) || file.path.starts_with("typeset/pane_colors.")) return {};
    static const std::regex named(
        R"re(\bRGB\s*\(|\bPALETTE(RGB|INDEX)\b|\b(WHITE|BLACK|GRAY|LTGRAY|DKGRAY)_(BRUSH|PEN)\b)re"
        R"re(|\bCOLORREF\s+\w+\s*[={(]+\s*\d|\b(Color|crTextColor|crBackColor|rgbResult)\s*=\s*\d)re"
        R"re(|\b(SetTextColor|SetBkColor|SetDCBrushColor|SetDCPenColor|CreateSolidBrush|CreatePen|FillWithColor)\s*\([^;]*\b0[xX])re");
    return MatchesIn(file, named, "a colour that is not the system's: ");
}

Findings CheckLength(const TreeFile& file) {
    const auto lines = static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n'));
    if (!IsSource(file.path) || lines <= kMostLines) return {};
    return {At(file, static_cast<int>(lines), "more than " + std::to_string(kMostLines) + " lines")};
}

Findings CheckSmallSource(const TreeFile& file) {
    if (!IsOfProgram(file.path) || !file.path.ends_with(".cpp")) return {};
    const auto lines = static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n'));
    if (lines >= kFewestLines || file.text.starts_with("//")) return {};
    return {At(file, 1, "a fragment: fewer than " + std::to_string(kFewestLines) + " lines and no reason why")};
}

// ---- Words ----------------------------------------------------------------------------------------------------------

struct WordRule {
    std::vector<std::string> clues;  // one of them is in each line that breaks the rule
    std::regex form;
    std::string what;
};

// Written in pieces, so that this file keeps its own rules.
static const std::vector<WordRule>& WordRules() {
    static const std::vector<WordRule> rules = {
        {{"TO"
          "DO",
          "FIX"
          "ME",
          "XX"
          "X",
          "HA"
          "CK"},
         std::regex("\\b(TO"
                    "DO|FIX"
                    "ME|XX"
                    "X|HA"
                    "CK)\\b"),
         "work put off"},
        {{"GTEST_"
          "SKIP",
          "DISABLED"
          "_"},
         std::regex("GTEST_"
                    "SKIP|\\bDISABLED"
                    "_"),
         "a test that does not run"},
        {{"pec"},
         std::regex("\\b[Ss]p"
                    "ec(s|ification|ifications)?\\b"),
         "the program speaks of itself alone"},
        {{"Part"},
         std::regex("\\bPart"
                    "s? [1-9](\\.[0-9])?\\b"),
         "a number of another document"},
        {{"ssue", "SSUE"},
         std::regex("\\b[Iss]"
                    "ssue #?[0-9]+\\b",
                    std::regex::icase),
         "a number of another place"},
        {{"/"},
         std::regex("(^|[\\s\"'`(=:])/(?!(usr|tmp|dev|etc|proc|bin|build|data|help|tests|resources)/)[a-z][a-z0-9]*/"
                    "[a-z._][\\w.-]*"),
         "a path of one machine"},
        {{"http"},
         std::regex("https?:/"
                    "/(?!schemas\\.microsoft\\.com|www\\.w3\\.org|spdx\\.org|aka\\.ms/"
                    "winget|example\\.com|localhost)[a-z0-9]"),
         "a host's address"},
    };
    return rules;
}

// The library's regular expressions take 20 seconds for all lines of the tree.
static bool HasClue(const std::string& line, const WordRule& rule) {
    return std::ranges::any_of(rule.clues, [&](const std::string& clue) { return line.find(clue) != line.npos; });
}

Findings CheckWords(const TreeFile& file) {
    Findings findings;
    if (file.text.find('\0') != std::string::npos) return findings;  // a picture
    EachLine(file, [&](const std::string& line, int number) {
        for (const WordRule& rule : WordRules()) {
            std::smatch match;
            if (HasClue(line, rule) && std::regex_search(line, match, rule.form))
                findings.push_back(At(file, number, rule.what + ": " + match.str()));
        }
    });
    return findings;
}

// ---- Kinds of files -----------------------------------------------------------------------------------------------

Findings CheckKind(const TreeFile& file) {
    static constexpr std::string_view kMade[] = {".exe", ".dll", ".o",    ".obj", ".a",   ".dat", ".nmi",
                                                 ".nmd", ".dti", ".hlp",  ".chm", ".pdf", ".zip", ".bmp",
                                                 ".ico", ".log", ".orig", ".rej", "~"};
    for (const std::string_view ending : kMade)
        if (file.path.ends_with(ending)) return {file.path + ": made by a build or a program"};
    Findings findings;
    if (!IsSource(file.path)) return findings;
    if (file.text.find('\r') != std::string::npos) findings.push_back(file.path + ": has carriage returns");
    if (!file.text.empty() && file.text.back() != '\n') findings.push_back(file.path + ": has no end to its last line");
    return findings;
}
