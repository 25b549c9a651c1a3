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

// Lowest first: a folder may include itself and what stands before it.
static constexpr std::array<std::string_view, 8> kFolders = {"scripture", "search",    "output", "notes",
                                                             "passage",   "verselist", "print",  "app"};
static constexpr std::size_t kMostLines = 600;

std::vector<TreeFile> FilesOfTree(const fs::path& root) {
    std::vector<TreeFile> files;
    for (auto entry = fs::recursive_directory_iterator(root); entry != fs::recursive_directory_iterator(); ++entry) {
        const std::string name = entry->path().filename().string();
        if (entry->is_directory() && (name == ".git" || name == "build")) entry.disable_recursion_pending();
        if (!entry->is_regular_file()) continue;
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

// Place among kFolders, or their number for every other folder.
static std::size_t HeightOf(const std::string& folder) {
    return static_cast<std::size_t>(std::find(kFolders.begin(), kFolders.end(), folder) - kFolders.begin());
}

static bool IsProgramFolder(const std::string& folder) {
    return HeightOf(folder) < kFolders.size();
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

static std::string WrongAboutInclude(const TreeFile& file, const Include& include) {
    const std::string folder = FolderOf(file.path);
    const std::string from = FolderOf(include.name);
    const bool isProgram = IsProgramFolder(folder);
    if (include.isSystem)
        return isProgram && !IsShell(file.path) && !IsPlainSystemHeader(include.name)
                   ? "core includes a system's header"
                   : "";
    if (from.empty()) return "includes are by path from the root of the tree";
    if (folder == "win32" && from != "win32") return "win32/ knows nothing of ours";
    if (folder == "resources" && from != "resources") return "resources/ knows nothing of ours";
    if (isProgram && (from == "data" || from == "bench")) return "the program does not include its tools";
    const bool isTest = file.path.ends_with("_test.cpp");
    if (isProgram && from == "tests" && !isTest) return "only tests include tests/";
    if (isProgram && HeightOf(from) > HeightOf(folder) && IsProgramFolder(from)) return "points up the tree";
    if (folder == "tests" && IsShell(file.path) && IsShell(include.name) && !include.name.starts_with("tests/"))
        return "a window test looks at the program from outside";
    const bool isOfShell = IsShell(include.name) || from == "resources";
    if (isProgram && isOfShell && !IsShell(file.path) && !isTest) return "core includes a header of the shell";
    return "";
}

Findings CheckIncludes(const TreeFile& file) {
    Findings findings;
    if (!IsSource(file.path)) return findings;
    for (const Include& include : IncludesOf(file)) {
        const std::string wrong = WrongAboutInclude(file, include);
        if (!wrong.empty()) findings.push_back(At(file, include.line, wrong + ": " + include.name));
    }
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

// ---- Types ---------------------------------------------------------------------------------------------------------

// What a file is linked into: "" for the core, which is in everything, else the shell or the folder of tests or tools.
static std::string ProgramOf(const std::string& path) {
    const bool isTest = path.ends_with("_test.cpp");
    if (!isTest && (IsProgramFolder(FolderOf(path)) || path.starts_with("win32/"))) return IsShell(path) ? "shell" : "";
    return fs::path(path).parent_path().generic_string();
}

Findings CheckOneDefinition(const std::vector<TreeFile>& files) {
    static const std::regex definition(R"re(^(struct|enum class|enum) (\w+)[^;()]*\{)re");
    std::map<std::string, std::vector<std::pair<std::string, std::string>>> places;  // of a name: program and where
    for (const TreeFile& file : files) {
        if (!IsSource(file.path)) continue;
        EachLine(file, [&](const std::string& line, int number) {
            std::smatch match;
            if (std::regex_search(line, match, definition))
                places[match[2]].push_back({ProgramOf(file.path), At(file, number, "")});
        });
    }
    Findings findings;
    for (const auto& [name, where] : places)
        for (std::size_t one = 0; one < where.size(); ++one)
            for (std::size_t other = one + 1; other < where.size(); ++other)
                if (where[one].first == where[other].first || where[one].first.empty() || where[other].first.empty())
                    findings.push_back(where[one].second + name + " is also defined at " + where[other].second);
    return findings;
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

Findings CheckLength(const TreeFile& file) {
    const auto lines = static_cast<std::size_t>(std::count(file.text.begin(), file.text.end(), '\n'));
    if (!IsSource(file.path) || lines <= kMostLines) return {};
    return {At(file, static_cast<int>(lines), "more than " + std::to_string(kMostLines) + " lines")};
}

// ---- Words ----------------------------------------------------------------------------------------------------------

struct WordRule {
    std::regex form;
    std::string what;
};

// Written in pieces, so that this file keeps its own rules.
static const std::vector<WordRule>& WordRules() {
    static const std::vector<WordRule> rules = {
        {std::regex("\\b(TO"
                    "DO|FIX"
                    "ME|XX"
                    "X|HA"
                    "CK)\\b"),
         "work put off"},
        {std::regex("GTEST_"
                    "SKIP|\\bDISABLED"
                    "_"),
         "a test that does not run"},
        {std::regex("\\b[Ss]p"
                    "ec(s|ification|ifications)?\\b"),
         "the program speaks of itself alone"},
        {std::regex("\\bPart"
                    "s? [1-9](\\.[0-9])?\\b"),
         "a number of another document"},
        {std::regex("\\b[Iss]"
                    "ssue #?[0-9]+\\b",
                    std::regex::icase),
         "a number of another place"},
        {std::regex("(^|[\\s\"'`(=:])/(?!(usr|tmp|dev|etc|proc|bin|build|data|help|tests|resources)/)[a-z][a-z0-9]*/"
                    "[a-z._][\\w.-]*"),
         "a path of one machine"},
        {std::regex("https?:/"
                    "/(?!schemas\\.microsoft\\.com|www\\.w3\\.org|localhost)[a-z0-9]"),
         "a host's address"},
    };
    return rules;
}

Findings CheckWords(const TreeFile& file) {
    Findings findings;
    if (file.text.find('\0') != std::string::npos) return findings;  // a picture
    EachLine(file, [&](const std::string& line, int number) {
        for (const WordRule& rule : WordRules()) {
            std::smatch match;
            if (std::regex_search(line, match, rule.form))
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
