#include "tests/support/hand_made_scripture.h"

void AddRecord(HandMadeFiles& files, int book, int chapter, int verse, std::uint32_t textOffset) {
    for (const int number : {book, chapter, verse}) files.records.push_back(static_cast<unsigned char>(number));
    for (int shift = 0; shift < 32; shift += 8)
        files.records.push_back(static_cast<unsigned char>(textOffset >> shift & 0xFF));
}

void AddVerse(HandMadeFiles& files, const HandMadeVerse& verse) {
    AddRecord(files, verse.book, verse.chapter, verse.verse, static_cast<std::uint32_t>(files.text.size()));
    files.text.insert(files.text.end(), verse.text.begin(), verse.text.end());
    files.text.push_back('\0');
}

HandMadeFiles MakeFiles(std::span<const HandMadeVerse> verses) {
    HandMadeFiles files;
    for (const HandMadeVerse& verse : verses) AddVerse(files, verse);
    return files;
}

Scripture ScriptureOf(const HandMadeFiles& files) {
    return {{files.records}, files.text};
}
