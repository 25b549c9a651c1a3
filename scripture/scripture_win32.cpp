// Separate from the dialogs so that the benchmarks can load the scripture without them.
#include "scripture/scripture_win32.h"

#include <algorithm>
#include <string>
#include <vector>

#include "win32/files.h"

Scripture theScripture;

static std::vector<MappedFile> mappedFiles;

static bool MapDataFile(void*, const char* name, AccessPattern pattern, std::span<const unsigned char>& bytes) {
    const DWORD access = pattern == AccessPattern::kRandom ? FILE_FLAG_RANDOM_ACCESS : FILE_FLAG_SEQUENTIAL_SCAN;
    MappedFile file;
    if (!MapWholeFile(ProgramFilePath(name), access, file)) return false;
    bytes = file.bytes;
    mappedFiles.push_back(std::move(file));
    return true;
}

DataFiles ScriptureDataFiles() {
    return {nullptr, MapDataFile};
}

void MapAnew(std::span<const unsigned char>& bytes) {
    const auto file = std::ranges::find_if(
        mappedFiles, [&](const MappedFile& each) { return !bytes.empty() && each.bytes.data() == bytes.data(); });
    if (file == mappedFiles.end()) return;
    MapAnew(*file);
    bytes = file->bytes;
}

void MapAnew(Scripture& scripture) {
    std::span text(reinterpret_cast<const unsigned char*>(scripture.text.data()), scripture.text.size());
    MapAnew(text);
    scripture.text = {reinterpret_cast<const char*>(text.data()), text.size()};
    MapAnew(scripture.records.bytes);
}

void ReleaseDataFiles() {
    theScripture = {};
    mappedFiles.clear();
}
