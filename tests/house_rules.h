// The house's own rules, as procedures that read a file's text and list what breaks a rule: one line a finding,
// "path:line: what is wrong". Paths are relative to the root of the tree, with "/".
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

struct TreeFile {
    std::string path;
    std::string text;
};

using Findings = std::vector<std::string>;

// Every file of the tree but the build's own folder and git's.
std::vector<TreeFile> FilesOfTree(const std::filesystem::path& root);

// Is the file one that may speak to Windows? Its ending or its folder says so.
bool IsShell(const std::string& path);

// The folders of the program, each with those that it stands on directly, as cmake/graph.cmake names them:
// "set(STANDS_ON_pane search typeset)".
using FolderGraph = std::map<std::string, std::set<std::string>>;
FolderGraph ReadGraph(const std::string& cmakeText);

// The graph as the README's table of folders has it, whose rows begin "| `pane/` | search, typeset |".
FolderGraph ReadGraphOfReadme(const std::string& readme);

// Includes point down: a folder includes itself, the folders that it stands on and those below them, by path from the
// root; only shell files include system headers of Windows, win32/, resources/ and headers of the shell.
Findings CheckIncludes(const TreeFile& file, const FolderGraph& graph);

// No units include each other in a circle, inside a folder either. A unit is a header and the source of its name.
Findings CheckCircles(const std::vector<TreeFile>& files);

// A source of the program has at least 40 lines, or a first line that says why it stands alone.
Findings CheckSmallSource(const TreeFile& file);

// A .cpp with a header of its own name beside it includes that header before all others.
Findings CheckOwnHeaderFirst(const TreeFile& file, const std::set<std::string>& paths);

// Core files take what they work on as arguments: only shell files name a global (`thePassage`).
Findings CheckGlobals(const TreeFile& file);

// Sizes that depend on the scaling of a screen come from win32/dpi.h alone, which asks for those of a window's screen:
// nothing else asks the system.
Findings CheckScreenSizes(const TreeFile& file);

// Colours come from the system or are derived from its colours, in typeset/pane_colors.cpp: nothing else names one by
// its parts.
Findings CheckColors(const TreeFile& file);

// Libraries are loaded, and programs and files started, in one place each: only there is it decided from which folder.
Findings CheckLoading(const TreeFile& file);

// A source file has at most 500 lines.
Findings CheckLength(const TreeFile& file);

// Work put off, tests that do not run, paths and hosts of one machine, and talk of anything but the program itself.
Findings CheckWords(const TreeFile& file);

// Nothing that a build or a program makes is kept in the tree, and every text file ends its lines alike.
Findings CheckKind(const TreeFile& file);
