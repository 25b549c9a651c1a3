// Puts the topics of a WinHelp file in order: order_topics FILE. halibut sorts their hashes as unsigned numbers, so
// that a viewer does not find those from 0x80000000 on.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "help/winhelp_file.h"

static void OrderTopicsOf(const char* path) {
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    OrderTopics(bytes);
    file.clear();
    file.seekp(0);
    if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
        throw std::runtime_error("cannot be written");
}

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "order_topics FILE\n");
        return 2;
    }
    try {
        OrderTopicsOf(argv[1]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "order_topics: %s: %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
