// The house's own rules, as procedures that read a file's text and list what breaks a rule: one line a finding,
// "path:line: what is wrong". Paths are relative to the root of the tree, with "/".
#pragma once

#include <filesystem>
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

// Includes point down: a folder includes itself and the folders below it, by path from the root; only shell files
// include system headers of Windows, win32/, resources/ and headers of the shell.
Findings CheckIncludes(const TreeFile& file);

// A .cpp with a header of its own name beside it includes that header before all others.
Findings CheckOwnHeaderFirst(const TreeFile& file, const std::set<std::string>& paths);

// Files that may be linked together define no two types of one name, not even each for itself: the linker would take
// the procedures of either for both. The core may be in any program; shell, tests and tools are each in one of their
// own.
Findings CheckOneDefinition(const std::vector<TreeFile>& files);

// Core files take what they work on as arguments: only shell files name a global (`thePassage`).
Findings CheckGlobals(const TreeFile& file);

// A source file has at most 600 lines.
Findings CheckLength(const TreeFile& file);

// Work put off, tests that do not run, paths and hosts of one machine, and talk of anything but the program itself.
Findings CheckWords(const TreeFile& file);

// Nothing that a build or a program makes is kept in the tree, and every text file ends its lines alike.
Findings CheckKind(const TreeFile& file);
