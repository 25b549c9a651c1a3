#include "help/winhelp_file.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <stdexcept>

static std::uint32_t Number(std::string_view bytes, size_t at, size_t size) {
    if (at + size > bytes.size()) throw std::runtime_error("the file ends too early");
    std::uint32_t number = 0;
    for (size_t i = size; i > 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
    return number;
}

// Reads a zero-terminated text and moves `at` behind its zero.
static std::string TakeText(std::string_view bytes, size_t& at) {
    const size_t end = bytes.find('\0', at);
    if (end == std::string_view::npos) throw std::runtime_error("a text is not terminated");
    const std::string text(bytes.substr(at, end - at));
    at = end + 1;
    return text;
}

static std::uint32_t TakeNumber(std::string_view bytes, size_t& at) {
    at += 4;
    return Number(bytes, at - 4, 4);
}

static std::string_view InternalFile(std::string_view bytes, std::uint32_t place) {
    const std::uint32_t size = Number(bytes, place + 4, 4);
    if (place + 9 + size > bytes.size()) throw std::runtime_error("an internal file ends too early");
    return bytes.substr(place + 9, size);
}

// Reads one entry at `at` and moves `at` behind it.
using EntryReader = std::function<void(std::string_view tree, size_t& at)>;

static constexpr size_t kTreeHeader = 38;
static constexpr size_t kLeafHeader = 8;
static constexpr std::uint32_t kNoPage = 0xFFFF;

static void ReadTree(std::string_view tree, const EntryReader& readEntry) {
    if (Number(tree, 0, 2) != 0x293B) throw std::runtime_error("not a tree");
    const std::uint32_t pageSize = Number(tree, 4, 2), levels = Number(tree, 32, 2), pages = Number(tree, 30, 2);
    const auto placeOf = [&](std::uint32_t page) { return kTreeHeader + page * pageSize; };
    std::uint32_t page = Number(tree, 26, 2);
    for (std::uint32_t level = 1; level < levels; ++level) page = Number(tree, placeOf(page) + 4, 2);
    for (std::uint32_t read = 0; page != kNoPage && read < pages; ++read) {
        const std::uint32_t entries = Number(tree, placeOf(page) + 2, 2);
        size_t at = placeOf(page) + kLeafHeader;
        for (std::uint32_t i = 0; i < entries; ++i) readEntry(tree, at);
        page = Number(tree, placeOf(page) + 6, 2);
    }
}

static std::map<std::string, std::uint32_t> ReadDirectory(std::string_view bytes) {
    std::map<std::string, std::uint32_t> places;
    ReadTree(InternalFile(bytes, Number(bytes, 4, 4)), [&](std::string_view tree, size_t& at) {
        const std::string name = TakeText(tree, at);
        places[name] = TakeNumber(tree, at);
    });
    return places;
}

WinHelpFile ReadWinHelpFile(std::string_view bytes) {
    if (Number(bytes, 0, 4) != 0x00035F3F) throw std::runtime_error("not a help file");
    const std::map<std::string, std::uint32_t> places = ReadDirectory(bytes);
    WinHelpFile file;
    ReadTree(InternalFile(bytes, places.at("|CONTEXT")), [&](std::string_view tree, size_t& at) {
        const std::uint32_t hash = TakeNumber(tree, at);
        file.topics[hash] = TakeNumber(tree, at);
        file.hashes.push_back(hash);
    });
    ReadTree(InternalFile(bytes, places.at("|TTLBTREE")), [&](std::string_view tree, size_t& at) {
        const std::uint32_t offset = TakeNumber(tree, at);
        file.titles[offset] = TakeText(tree, at);
    });
    return file;
}

void OrderTopics(std::string& bytes) {
    struct Entry {
        std::int32_t hash, offset;
    };
    const std::uint32_t place = ReadDirectory(bytes).at("|CONTEXT");
    const std::string_view tree = InternalFile(bytes, place);
    if (Number(tree, 30, 2) != 1) throw std::runtime_error("the topics are on several pages");
    std::vector<Entry> entries(Number(tree, kTreeHeader + 2, 2));
    const size_t start = kTreeHeader + kLeafHeader, size = entries.size() * sizeof(Entry);
    if (start + size > tree.size()) throw std::runtime_error("a page ends too early");
    std::memcpy(entries.data(), tree.data() + start, size);
    std::ranges::sort(entries, {}, &Entry::hash);
    std::memcpy(bytes.data() + (tree.data() - bytes.data()) + start, entries.data(), size);
}

static std::uint32_t HashValue(char c) {
    if (c >= '1' && c <= '9') return static_cast<std::uint32_t>(c - '0');
    if (c >= 'A' && c <= 'Z') return static_cast<std::uint32_t>(c - 'A' + 17);
    if (c >= 'a' && c <= 'z') return static_cast<std::uint32_t>(c - 'a' + 17);
    if (c == '0') return 10;
    return c == '.' ? 12 : c == '_' ? 13 : 0;
}

std::uint32_t TopicHash(std::string_view name) {
    std::uint32_t hash = 0;
    for (const char c : name) hash = hash * 43 + HashValue(c);
    return hash;
}

std::string TopicTitle(const WinHelpFile& file, std::string_view name) {
    const auto topic = file.topics.find(TopicHash(name));
    if (topic == file.topics.end()) return "";
    const auto title = file.titles.find(topic->second);
    return title == file.titles.end() ? "" : title->second;
}
