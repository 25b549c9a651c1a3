// The data that the tools of this folder pass from step to step between a module and the scripture files.
#pragma once

#include <string>
#include <vector>

struct Verse {
    int book = 0;  // 1..66
    int chapter = 0;
    int verse = 0;
    std::string
        text;  // first with the source's mark-up (OSIS), finally in the program's format (scripture/scripture.h)
};

using Verses = std::vector<Verse>;

// "Mt 11:6", with the abbreviation of scripture/books.h.
std::string ReferenceOf(const Verse& verse);

// An error message of a step: empty on success, otherwise one sentence for the user of the tool.
using Complaint = std::string;
