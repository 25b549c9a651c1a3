#include "scripture/scripture_files.h"

bool LoadScripture(const DataFiles& files, Scripture& scripture) {
    std::span<const unsigned char> records;
    if (!files.map(files.device, kVerseIndexFile, AccessPattern::kSequential, records)) return false;
    std::span<const unsigned char> text;
    if (!files.map(files.device, kVerseTextFile, AccessPattern::kRandom, text) || text.empty()) return false;
    scripture.records.bytes = records;
    scripture.text = {reinterpret_cast<const char*>(text.data()), text.size()};
    return true;
}
