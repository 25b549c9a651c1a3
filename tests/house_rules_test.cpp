// The tree keeps the house's rules, and the checks of them see a rule broken.

#include <cstdlib>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/house_rules.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// ---- The tree -------------------------------------------------------------------------------------------------------

static const std::vector<TreeFile>& Tree() {
    static const std::vector<TreeFile> tree = FilesOfTree(VERSEWELL_SOURCE_DIR);
    return tree;
}

static Findings CheckTree(Findings (*check)(const TreeFile&)) {
    Findings all;
    for (const TreeFile& file : Tree())
        for (const std::string& finding : check(file)) all.push_back(finding);
    return all;
}

// One a line, for a list on one line cannot be read.
static std::string Lines(const Findings& findings) {
    std::string text;
    for (const std::string& finding : findings) text += finding + "\n";
    return text;
}

struct TreeRule {
    const char* name;
    Findings (*check)(const TreeFile&);
};

// Names the row in reports.
static void PrintTo(const TreeRule& rule, std::ostream* out) {
    *out << rule.name;
}

struct TreeKeeps : testing::TestWithParam<TreeRule> {};

TEST_P(TreeKeeps, Rule) {
    EXPECT_EQ(Lines(CheckTree(GetParam().check)), "");
}

INSTANTIATE_TEST_SUITE_P(House, TreeKeeps,
                         testing::Values(TreeRule{"SmallSource", CheckSmallSource}, TreeRule{"Globals", CheckGlobals},
                                         TreeRule{"ScreenSizes", CheckScreenSizes}, TreeRule{"Colors", CheckColors},
                                         TreeRule{"Loading", CheckLoading}, TreeRule{"Length", CheckLength},
                                         TreeRule{"Words", CheckWords}, TreeRule{"Kind", CheckKind}),
                         [](const auto& row) { return row.param.name; });

TEST(TreeKeeps, OwnHeaderFirst) {
    std::set<std::string> paths;
    for (const TreeFile& file : Tree()) paths.insert(file.path);
    Findings all;
    for (const TreeFile& file : Tree())
        for (const std::string& finding : CheckOwnHeaderFirst(file, paths)) all.push_back(finding);
    EXPECT_EQ(Lines(all), "");
}

static std::string TextOf(const std::string& path) {
    for (const TreeFile& file : Tree())
        if (file.path == path) return file.text;
    return "";
}

static FolderGraph Graph() {
    return ReadGraph(TextOf("cmake/graph.cmake"));
}

TEST(TreeKeeps, Includes) {
    Findings all;
    for (const TreeFile& file : Tree())
        for (const std::string& finding : CheckIncludes(file, Graph())) all.push_back(finding);
    EXPECT_EQ(Lines(all), "");
}

TEST(TreeKeeps, UnitsOutOfCircles) {
    EXPECT_EQ(Lines(CheckCircles(Tree())), "");
}

TEST(TreeKeeps, OneGraphInBuildAndReadme) {
    EXPECT_EQ(Graph().size(), 13u);
    EXPECT_EQ(Graph(), ReadGraphOfReadme(TextOf("README.md")));
}

TEST(TreeKeeps, HasFilesToCheck) {
    EXPECT_GT(Tree().size(), 100u);
    for (const TreeFile& file : Tree()) EXPECT_NE(file.path.substr(0, 5), ".git/");
}

// ---- The checks -----------------------------------------------------------------------------------------------------

struct Sample {
    const char* path;
    const char* text;
    bool isGood;
};

static void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.path << ": " << sample.text;
}

struct IncludeSample : testing::TestWithParam<Sample> {};

TEST_P(IncludeSample, IsJudged) {
    const Sample& sample = GetParam();
    const FolderGraph graph = {{"search", {"scripture"}}, {"pane", {"search"}}, {"notes", {"pane"}}};
    EXPECT_THAT(CheckIncludes({sample.path, sample.text}, graph), SizeIs(sample.isGood ? 0 : 1)) << sample.path;
}

static constexpr Sample kIncludeSamples[] = {
    {"search/a.cpp", "#include \"scripture/books.h\"\n", true},
    {"search/a.cpp", "#include <vector>\n", true},
    {"search/a.cpp", "#include <emmintrin.h>\n", true},
    {"search/a.cpp", "// #include \"app/settings.h\"\n", true},
    {"search/a_dialog.cpp", "#include <windows.h>\n", true},
    {"search/a_dialog.cpp", "#include \"win32/text.h\"\n", true},
    {"search/a_dialog.cpp", "#include \"resources/ids.h\"\n", true},
    {"search/a_test.cpp", "#include \"tests/support/fake.h\"\n", true},
    {"tests/windows/a_test.cpp", "#include \"scripture/books.h\"\n", true},
    {"tests/windows/a_test.cpp", "#include \"tests/driver/driver.h\"\n", true},
    {"win32/a.cpp", "#include \"win32/b.h\"\n", true},
    {"scripture/a.cpp", "#include \"search/word_index.h\"\n", false},
    {"notes/a.h", "#include \"scripture/books.h\"\n", true},
    {"notes/a.h", "#include \"passage/passage_flow.h\"\n", false},
    {"print/a.cpp", "#include \"app/settings.h\"\n", false},
    {"search/a_dialog.cpp", "#include \"app/settings.h\"\n", false},
    {"cli/a.cpp", "#include <CLI/CLI.hpp>\n", true},
    {"cli/a.cpp", "#include <nlohmann/json.hpp>\n", true},
    {"app/a.cpp", "#include <nlohmann/json.hpp>\n", false},
    {"cli/a.cpp", "#include <unistd.h>\n", false},
    {"cli/a_posix.cpp", "#include <unistd.h>\n", true},
    {"app/a.cpp", "#include \"cli/vw.h\"\n", false},
    {"search/a.cpp", "#include <windows.h>\n", false},
    {"search/a.cpp", "#  include <unistd.h>\n", false},
    {"search/a.h", "#include \"search/a_dialog.h\"\n", false},
    {"search/a.h", "#include \"win32/text.h\"\n", false},
    {"search/a.h", "#include \"resources/ids.h\"\n", false},
    {"search/a.cpp", "#include \"word_index.h\"\n", false},
    {"search/a.cpp", "#include \"tests/support/fake.h\"\n", false},
    {"search/a.cpp", "#include \"data/verses.h\"\n", false},
    {"win32/a.cpp", "#include \"scripture/books.h\"\n", false},
    {"resources/a.h", "#include \"app/settings.h\"\n", false},
    {"tests/windows/a_test.cpp", "#include \"passage/passage_window.h\"\n", false},
};
INSTANTIATE_TEST_SUITE_P(House, IncludeSample, testing::ValuesIn(kIncludeSamples));

TEST(HouseCheck, SeesAnotherHeaderFirst) {
    const std::set<std::string> paths = {"search/a.cpp", "search/a.h"};
    EXPECT_THAT(CheckOwnHeaderFirst({"search/a.cpp", "#include \"search/a.h\"\n#include <vector>\n"}, paths),
                IsEmpty());
    EXPECT_THAT(CheckOwnHeaderFirst({"search/b.cpp", "#include <vector>\n"}, paths), IsEmpty());
    EXPECT_THAT(CheckOwnHeaderFirst({"search/a.cpp", "#include <vector>\n#include \"search/a.h\"\n"}, paths),
                SizeIs(1));
    EXPECT_THAT(CheckOwnHeaderFirst({"search/a.cpp", "int a;\n"}, paths), SizeIs(1));
}

TEST(HouseCheck, SeesUnitsThatIncludeEachOther) {
    const TreeFile a{"notes/a.cpp", "#include \"notes/a.h\"\n#include \"notes/b.h\"\n"};
    const TreeFile b{"notes/b.cpp", "#include \"notes/b.h\"\n#include \"notes/c.h\"\n"};
    const TreeFile c{"notes/c.h", "#include \"notes/a.h\"\n"};
    EXPECT_THAT(CheckCircles({a, b}), IsEmpty());
    EXPECT_THAT(CheckCircles({a, b, c}), ElementsAre("notes/a -> notes/b -> notes/c -> notes/a"));
}

TEST(HouseCheck, SeesAFragment) {
    EXPECT_THAT(CheckSmallSource({"notes/a.cpp", std::string(39, '\n')}), SizeIs(1));
    EXPECT_THAT(CheckSmallSource({"notes/a.cpp", std::string(40, '\n')}), IsEmpty());
    EXPECT_THAT(CheckSmallSource({"notes/a.cpp", "// Apart, because the tools need it.\nint a;\n"}), IsEmpty());
    EXPECT_THAT(CheckSmallSource({"notes/a_test.cpp", "int a;\n"}), IsEmpty());
}

TEST(HouseCheck, ReadsTheGraph) {
    const FolderGraph graph = {{"scripture", {}}, {"pane", {"search", "typeset"}}};
    EXPECT_EQ(ReadGraph("set(STANDS_ON_scripture)\nset(STANDS_ON_pane search typeset)\n"), graph);
    EXPECT_EQ(ReadGraphOfReadme("| `scripture/` | | books |\n| `pane/` | search, typeset | panes |\n| `data/` | | |\n"),
              graph);
}

TEST(HouseCheck, SeesAGlobalInTheCore) {
    EXPECT_THAT(CheckGlobals({"notes/a.cpp", "theNotes.current = 1;\n"}), SizeIs(1));
    EXPECT_THAT(CheckGlobals({"notes/a_window.cpp", "theNotes.current = 1;\n"}), IsEmpty());
    EXPECT_THAT(CheckGlobals({"notes/a.cpp", "Say(\"theNotes\");  // theNotes\nint other = breatheOut;\n"}), IsEmpty());
}

TEST(HouseCheck, SeesASizeAskedOfTheSystem) {
    EXPECT_THAT(CheckScreenSizes({"app/a_window.cpp", "x = GetSystemMetrics(SM_CXICON);\n"}), SizeIs(1));
    EXPECT_THAT(CheckScreenSizes({"win32/a.cpp", "y = GetDpiForWindow(window);\n"}), SizeIs(1));
    EXPECT_THAT(CheckScreenSizes({"win32/dpi.cpp", "x = GetSystemMetrics(SM_CXICON);\n"}), IsEmpty());
    EXPECT_THAT(CheckScreenSizes({"tests/driver/a.cpp", "x = GetSystemMetrics(SM_CXICON);\n"}), IsEmpty());
    EXPECT_THAT(CheckScreenSizes({"app/a_window.cpp", "x = SystemMetric(window, SM_CXICON);  // GetSystemMetrics\n"}),
                IsEmpty());
}

TEST(HouseCheck, SeesAColorThatIsNotTheSystems) {
    for (const char* line :
         {"x = RGB(1, 2, 3);", "COLORREF red = 0x0000FF;", "COLORREF none{0};", "format.crTextColor = 255;",
          "SetTextColor(dc, 0xFFFFFF);", "FillWithColor(dc, area, 0x202020);", "GetStockObject(WHITE_BRUSH)"}) {
        EXPECT_THAT(CheckColors({"app/a_window.cpp", line + std::string("\n")}), SizeIs(1)) << line;
        EXPECT_THAT(CheckColors({"tests/driver/a.cpp", line + std::string("\n")}), IsEmpty());
        EXPECT_THAT(CheckColors({"typeset/pane_colors.cpp", line + std::string("\n")}), IsEmpty());
    }
    for (const char* line : {"COLORREF paper = GetSysColor(COLOR_WINDOW);", "SetTextColor(dc, colors.text);",
                             "format.crTextColor = colors.text;  // not RGB(0, 0, 0)", "SetBkMode(dc, OPAQUE);"})
        EXPECT_THAT(CheckColors({"app/a_window.cpp", line + std::string("\n")}), IsEmpty()) << line;
}

TEST(HouseCheck, SeesWhatIsLoadedOrStartedElsewhere) {
    for (const char* line : {"x = LoadLibraryA(name);", "LoadLibraryExW (name, nullptr, 0);",
                             "ShellExecuteW(owner, verb, file);", "CreateProcessA(0);", "std::system(line);"}) {
        EXPECT_THAT(CheckLoading({"app/a_win32.cpp", line + std::string("\n")}), SizeIs(1)) << line;
        EXPECT_THAT(CheckLoading({"win32/system_library.cpp", line + std::string("\n")}), IsEmpty());
        EXPECT_THAT(CheckLoading({"tests/driver/a.cpp", line + std::string("\n")}), IsEmpty());
    }
    EXPECT_THAT(CheckLoading({"app/a_win32.cpp", "x = SystemLibrary(name);  // not LoadLibrary()\n"}), IsEmpty());
}

TEST(HouseCheck, SeesALongFile) {
    EXPECT_THAT(CheckLength({"notes/a.cpp", std::string(500, '\n')}), IsEmpty());
    EXPECT_THAT(CheckLength({"notes/a.cpp", std::string(501, '\n')}), SizeIs(1));
    EXPECT_THAT(CheckLength({"resources/menu.rc", std::string(501, '\n')}), IsEmpty());
}

struct WordSample : testing::TestWithParam<Sample> {};

TEST_P(WordSample, IsJudged) {
    const Sample& sample = GetParam();
    EXPECT_THAT(CheckWords({sample.path, sample.text}), SizeIs(sample.isGood ? 0 : 1)) << sample.text;
}

static constexpr Sample kWordSamples[] = {
    {"a.cpp", "// A special part of the issue: specific words.\n", true},
    {"a.cpp", "target_compile_options(/W4 /WX /utf-8)\n", true},
    {"run", "PATH=/usr/bin/env; cd /tmp/versewell\n", true},
    {"a.md", "the ratio 3/4, and/or such\n", true},
    {"a.manifest",
     "xmlns=\"http:/"
     "/schemas.microsoft.com/SMI\"\n",
     true},
    {"a.cpp",
     "// TO"
     "DO: the rest\n",
     false},
    {"a.cpp",
     "// FIX"
     "ME\n",
     false},
    {"a_test.cpp",
     "    GTEST_"
     "SKIP();\n",
     false},
    {"a_test.cpp",
     "TEST(Notes, DISABLED"
     "_Save) {}\n",
     false},
    {"a.cpp",
     "// As the sp"
     "ecification has it.\n",
     false},
    {"a.cpp",
     "// See Part"
     " 4.2.\n",
     false},
    {"a.md",
     "closes issue"
     " #12\n",
     false},
    {"run",
     "cd /ho"
     "me/someone/versewell\n",
     false},
    {"a.cpp",
     "Open(\"/wo"
     "rk/main/data\");\n",
     false},
    {"package-lock.json",
     "\"resolved\": \"https:/"
     "/registry.example/kjv.tgz\"\n",
     false},
};
INSTANTIATE_TEST_SUITE_P(House, WordSample, testing::ValuesIn(kWordSamples));

TEST(HouseCheck, SeesWhatShouldBeMade) {
    EXPECT_THAT(CheckKind({"resources/title.svg", "<svg/>"}), IsEmpty());
    EXPECT_THAT(CheckKind({"resources/title.bmp", "BM"}), SizeIs(1));
    EXPECT_THAT(CheckKind({"data/_avtext.dat", "In"}), SizeIs(1));
    EXPECT_THAT(CheckKind({"app/a.cpp", "int a;\n"}), IsEmpty());
    EXPECT_THAT(CheckKind({"app/a.cpp", "int a;\r\n"}), SizeIs(1));
    EXPECT_THAT(CheckKind({"app/a.cpp", "int a;"}), SizeIs(1));
}

// ---- Headers compile alone ------------------------------------------------------------------------------------------

static int CompileHeadersOf(const std::filesystem::path& root) {
    const std::string script = std::string(VERSEWELL_SOURCE_DIR) + "/tests/headers_compile";
    return std::system((script + " " + root.string() + " >/dev/null 2>&1").c_str());
}

TEST(HouseCheck, SeesAHeaderThatNeedsAnother) {
    const std::filesystem::path root = std::filesystem::temp_directory_path() / "versewell-headers";
    std::filesystem::create_directories(root / "search");
    const auto write = [&root](const char* name, const char* text) { std::ofstream(root / name) << text; };
    write("search/good.h", "#pragma once\n#include <string>\nstd::string Good();\n");
    write("search/good_window.h", "#pragma once\n#include <windows.h>\nHWND Good();\n");
    EXPECT_EQ(CompileHeadersOf(root), 0);
    write("search/bad.h", "#pragma once\nstd::string Bad();\n");
    EXPECT_NE(CompileHeadersOf(root), 0);
    std::filesystem::remove(root / "search/bad.h");
    write("search/bad_window.h", "#pragma once\nHWND Bad();\n");
    EXPECT_NE(CompileHeadersOf(root), 0);
    std::filesystem::remove_all(root);
}
