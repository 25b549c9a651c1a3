// Lists the verses of each word for the index described in search/word_index.h.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "data/verses.h"

// Lower-case words in byte order, each with its verse indexes, ascending and unique.
using WordLists = std::map<std::string, std::vector<std::uint16_t>>;

// A word is a maximal run of letters and apostrophes; a hyphen separates two words.
WordLists ListWords(const Verses& verses);
