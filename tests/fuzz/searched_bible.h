// A small Bible of any words, for the fuzz targets that search.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/hand_made_index.h"

struct SearchedBible {
    std::vector<std::string> texts;
    HandMadeFiles files;
    FilesInMemory indexFiles;
    Scripture scripture;
    WordIndex index;
};

// Makes each of `lines` a verse, between two long ones; chapters have so many verses.
void OpenBible(SearchedBible& bible, std::string_view lines, int versesOfChapter);
