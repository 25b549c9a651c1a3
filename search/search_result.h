// What a search of the scripture finds.
#pragma once

#include <cstdint>
#include <vector>

struct SearchResult {
    std::vector<std::int32_t> verses;  // ascending
    int occurrences = 0;               // number of key words marked in these verses
};
