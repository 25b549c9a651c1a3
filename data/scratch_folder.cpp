#include "data/scratch_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

void ScratchFolder::SetUp() {
    std::string name = testing::TempDir() + "versewell-XXXXXX";
    ASSERT_NE(mkdtemp(name.data()), nullptr) << name;
    folder = name;
}

void ScratchFolder::TearDown() {
    fs::remove_all(folder);
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    if (!fs::exists(folder)) return names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}
