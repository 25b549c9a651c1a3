// make_seeds DESCRIPTIONS FOLDER: makes the seeds that are described in a file (seeds.h), each a file of the folder,
// named by its number. What the folder held before is gone.
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>

#include "tests/fuzz/seeds.h"

static void WriteSeed(const std::filesystem::path& path, const FuzzBytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

static void MakeSeeds(const char* descriptions, const std::filesystem::path& folder) {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    int number = 0;
    for (const FuzzBytes& seed : ReadSeeds(descriptions)) WriteSeed(folder / std::to_string(number++), seed);
    if (number == 0) throw std::runtime_error("no seeds");
}

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("make_seeds DESCRIPTIONS FOLDER\n", stderr);
        return 2;
    }
    try {
        MakeSeeds(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
