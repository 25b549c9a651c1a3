// The part of a long note that is laid out before the rest.
#pragma once

#include <cstddef>
#include <string_view>

// Room for text: full rows, and the most characters that fit into one.
struct TextRoom {
    std::size_t rows = 0;
    std::size_t columns = 0;
};

// The shortest part of `note`, ended by the end of a line, that fills the rows wherever they are broken. All of the
// note if that is not longer than twice such a part, because it is then not worth to lay out a part first.
std::string_view BeginningOfNote(std::string_view note, const TextRoom& room);
