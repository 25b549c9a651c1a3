// A reference to verses in the running text of a note (notes/references_in_text.h).
#pragma once

#include <cstdint>

struct TextReference {
    std::uint32_t begin = 0, size = 0;  // in bytes of the note
    std::int32_t first = 0, last = 0;   // verse indexes
};
