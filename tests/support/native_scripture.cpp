#include "tests/support/native_scripture.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "search/text_kinds.h"

static bool MapOpened(int file, AccessPattern pattern, std::span<const unsigned char>& bytes) {
    struct stat facts = {};
    if (fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    bytes = {};
    if (facts.st_size == 0) return true;  // an empty file cannot be mapped
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* view = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (view == MAP_FAILED) return false;
    madvise(view, size, pattern == AccessPattern::kSequential ? MADV_SEQUENTIAL : MADV_RANDOM);
    bytes = {static_cast<const unsigned char*>(view), size};
    return true;
}

static bool MapFile(void* device, const char* name, AccessPattern pattern, std::span<const unsigned char>& bytes) {
    const std::string path = std::string(static_cast<const char*>(device)) + "/" + name;
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool mapped = MapOpened(file, pattern, bytes);
    close(file);  // the mapping keeps the bytes
    return mapped;
}

DataFiles FilesOfFolder(const char* folder) {
    return {const_cast<char*>(folder), MapFile};
}

const Scripture& TheRealScripture() {
    static const Scripture scripture = [] {
        Scripture loaded;
        if (!LoadScripture(FilesOfFolder(VERSEWELL_DATA_DIR), loaded))
            throw std::runtime_error("no verse records and texts in " VERSEWELL_DATA_DIR);
        return loaded;
    }();
    return scripture;
}

const WordIndex& TheRealWordIndex() {
    static const WordIndex index = [] {
        WordIndex loaded;
        if (LoadWordIndex(FilesOfFolder(VERSEWELL_DATA_DIR), loaded) != IndexLoad::kLoaded)
            throw std::runtime_error("no word index in " VERSEWELL_DATA_DIR);
        return loaded;
    }();
    return index;
}

const Scripture& TheScriptureWithKinds() {
    static const Scripture scripture = [] {
        Scripture made = TheRealScripture();
        made.textKinds = FindTextKinds(made);
        return made;
    }();
    return scripture;
}
