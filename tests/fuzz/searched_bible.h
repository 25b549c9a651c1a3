// A small Bible of any words, for the fuzz targets that search.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "search/query.h"
#include "tests/support/hand_made_index.h"

struct SearchedBible {
    std::vector<std::string> texts;
    HandMadeFiles files;
    FilesInMemory indexFiles;
    Scripture scripture;
    WordIndex index;
};

// Takes what every search has: case, parts of words, first and last verse from `options`, the rest of a line, and its
// text, which is the first line of `input`.
void TakeSearch(std::string_view options, std::string_view& input, SearchState& search);

// Makes each of `lines` a verse, between two long ones; chapters have so many verses.
void OpenBible(SearchedBible& bible, std::string_view lines, int versesOfChapter);
