#include "tests/support/hand_made_index.h"

#include <cctype>
#include <set>
#include <utility>

static bool MapInMemory(void* device, const char* name, AccessPattern, std::span<const unsigned char>& bytes) {
    FilesInMemory& files = *static_cast<FilesInMemory*>(device);
    const auto file = files.find(name);
    if (file == files.end()) return false;
    bytes = file->second;
    return true;
}

DataFiles DeviceOver(FilesInMemory& files) {
    return {&files, MapInMemory};
}

static std::set<std::string> WordsOf(std::string_view text) {
    std::set<std::string> words;
    std::string word;
    for (const char c : std::string(text) + " ") {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && (std::isalpha(byte) != 0 || c == '\''))
            word += static_cast<char>(std::tolower(byte));
        else if (!word.empty())
            words.insert(std::exchange(word, {}));
    }
    return words;
}

static void AppendNumber(std::vector<unsigned char>& bytes, std::size_t number, int size) {
    for (int i = 0; i < size; ++i) bytes.push_back(static_cast<unsigned char>(number >> (8 * i) & 0xFF));
}

FilesInMemory MakeIndexFiles(std::span<const HandMadeVerse> verses) {
    std::map<std::string, std::vector<std::size_t>> lists;
    for (std::size_t verse = 0; verse < verses.size(); ++verse)
        for (const std::string& word : WordsOf(verses[verse].text)) lists[word].push_back(verse);
    FilesInMemory files = {{kWordsFile, {}}, {kWordPointersFile, {}}, {kVerseListsFile, {}}};
    for (const auto& [word, list] : lists) {
        files[kWordsFile].insert(files[kWordsFile].end(), word.begin(), word.end());
        files[kWordsFile].push_back(0);
        AppendNumber(files[kWordPointersFile], files[kVerseListsFile].size() / 2, 4);
        for (const std::size_t verse : list) AppendNumber(files[kVerseListsFile], verse, 2);
    }
    return files;
}

WordIndex IndexOf(FilesInMemory& files) {
    WordIndex index;
    LoadWordIndex(DeviceOver(files), index);
    return index;
}
