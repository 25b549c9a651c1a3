// What the tools of this folder hand from step to step on the way from a module to the scripture files.
#pragma once

#include <string>
#include <vector>

struct Verse {
    int book = 0;  // 1..66
    int chapter = 0;
    int verse = 0;
    std::string text;  // as the source marks it up (OSIS) at first, as the program does (scripture/scripture.h) at last
};

using Verses = std::vector<Verse>;

// "Mt 11:6", the abbreviation of scripture/books.h.
std::string ReferenceOf(const Verse& verse);

// "A step's complaint": empty when all went well, else one sentence for the user of the tool.
using Complaint = std::string;
