// Reads the topics and their titles from a WinHelp file (.hlp), and puts the topics in order.
//
// The parts of the format that are read, all numbers little-endian: The file begins with the number 0x00035F3F and the
// offset of its directory. An internal file has nine bytes of header (reserved size, used size, flags), then its
// content. The directory and the two lists used here are B+ trees: 38 bytes of header (magic 0x293B, flags, page size,
// 16 characters that describe the layout of an entry, 0, splits, root page, -1, number of pages, number of levels,
// number of entries), then pages of that size. A leaf page has eight bytes of header (unused, number of entries,
// previous page, next page), an index page six (unused, number of entries, first child page). Entries: in the directory
// a zero-terminated name and its offset; in "|CONTEXT" the hash of a topic's name and the topic's offset; in
// "|TTLBTREE" the offset and a zero-terminated title. Viewers search a tree by its order, which for "|CONTEXT" is that
// of signed numbers.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct WinHelpFile {
    std::map<std::uint32_t, std::uint32_t> topics;  // hash of the topic's name -> offset
    std::map<std::uint32_t, std::string> titles;    // offset -> title
    std::vector<std::uint32_t> hashes;              // of the topics, in the order of the file
};

// Throws when `bytes` is not a WinHelp file.
WinHelpFile ReadWinHelpFile(std::string_view bytes);

std::uint32_t TopicHash(std::string_view name);

// The title of the topic `name`; "" when there is no such topic.
std::string TopicTitle(const WinHelpFile& file, std::string_view name);

// Puts the topics into the order in which viewers search them. Throws when `bytes` is not a WinHelp file or the topics
// do not fit on one page of their tree.
void OrderTopics(std::string& bytes);
