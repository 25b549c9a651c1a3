// The help as the build made it, for the tests.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct HelpPageText {
    std::string title;               // without its number
    std::string html;                // whole
    std::string text;                // what a reader reads, white space as it comes
    std::vector<std::string> links;  // "ID_Keys.html#ID_Keys", as they stand
    std::set<std::string> anchors;
    std::vector<std::string> emphasized;  // names of commands and controls
    std::vector<std::string> examples;    // what a user types, and displays
};

// By the name of the file without its ending: "ID_Preface", "index". Read once.
const std::map<std::string, HelpPageText>& HelpPages();

// Runs a tool and gives what it printed; an exception when it fails.
std::string OutputOf(const std::string& command);

std::string FileBytes(const std::string& path);  // an exception when it cannot be read
