// What a WinHelp file (.hlp) says of its topics, for the tests.
//
// The format as far as it is read, all numbers little-endian. The file begins with the number 0x00035F3F and the place
// of its directory. An internal file is nine bytes of header (reserved size, used size, flags) and its content. The
// directory and the two lists used here are trees: 38 bytes of header (magic 0x293B, flags, page size, 16 characters
// that name the shape of an entry, 0, splits, root page, -1, number of pages, number of levels, number of entries),
// then pages of that size. A page of the lowest level has eight bytes of header (unused, number of entries, page
// before, page after), one above it six (unused, number of entries, first page below). Entries: in the directory a name
// that ends with zero and its place; in "|CONTEXT" the hash of a topic's name and the topic's offset; in "|TTLBTREE"
// the offset and a title that ends with zero.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

struct WinHelpFile {
    std::map<std::uint32_t, std::uint32_t> topics;  // offset by the hash of the name
    std::map<std::uint32_t, std::string> titles;    // by offset
};

// An exception when `bytes` is no such file.
WinHelpFile ReadWinHelpFile(std::string_view bytes);

std::uint32_t TopicHash(std::string_view name);

// The title of the topic `name`; "" when there is none.
std::string TopicTitle(const WinHelpFile& file, std::string_view name);
