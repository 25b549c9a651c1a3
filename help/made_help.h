// Reads the built help pages, for the tests.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct HelpPageText {
    std::string title;                   // without its number
    std::string html;                    // the whole file
    std::string text;                    // without tags, white space unchanged
    std::vector<std::string> links;      // unchanged, e.g. "ID_Keys.html#ID_Keys"
    std::vector<std::string> linkTexts;  // of the same links
    std::set<std::string> anchors;
    std::vector<std::string> emphasized;  // names of commands and controls
    std::vector<std::string> examples;    // text in code font: what a user types, and displayed blocks
};

// Keyed by file name without extension: "ID_Preface", "index". Read once.
const std::map<std::string, HelpPageText>& HelpPages();

// Runs a command and returns its output; throws when it fails.
std::string OutputOf(const std::string& command);

std::string FileBytes(const std::string& path);  // throws when the file cannot be read
