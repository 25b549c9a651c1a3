// Which verses hold which word, as search/word_index.h lays it down.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "data/verses.h"

// Lower-cased words in byte order, each with its verse indexes ascending and without repeats.
using WordLists = std::map<std::string, std::vector<std::uint16_t>>;

// A word is the longest run of letters and apostrophes: a hyphen parts two words.
WordLists ListWords(const Verses& verses);
