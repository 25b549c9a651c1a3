#include "data/built_scripture.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

constexpr std::size_t kRecordSize = 7;

static std::uint32_t NumberAt(const std::string& bytes, std::size_t at, int byteCount) {
    std::uint32_t number = 0;
    for (int i = byteCount - 1; i >= 0; --i)
        number = number * 256 + static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
    return number;
}

static void ReadVerses(BuiltScripture& built) {
    const std::string records = BytesOfBuiltFile("_avvidx.dat");
    const std::string texts = BytesOfBuiltFile("_avtext.dat");
    for (std::size_t at = 0; at < records.size(); at += kRecordSize) {
        const auto part = [&records, at](std::size_t i) { return static_cast<int>(NumberAt(records, at + i, 1)); };
        const std::uint32_t offset = NumberAt(records, at + 3, 4);
        const std::size_t end = texts.find('\0', offset);
        if (end == std::string::npos) throw std::runtime_error("a verse's text has no end");
        built.verses.push_back({part(0), part(1), part(2), texts.substr(offset, end - offset)});
        built.offsets.push_back(offset);
        built.verseReferences.push_back(ReferenceOf(built.verses.back()));
    }
}

static void ReadWords(BuiltScripture& built) {
    const std::string words = BytesOfBuiltFile("_avwrds.dat");
    const std::string pointers = BytesOfBuiltFile("_avwptr.dat");
    const std::string entries = BytesOfBuiltFile("_avwidx.dat");
    for (std::size_t at = 0; at < words.size(); at += built.words.back().size() + 1)
        built.words.push_back(words.c_str() + at);
    for (std::size_t at = 0; at < pointers.size(); at += 4) built.pointers.push_back(NumberAt(pointers, at, 4));
    for (std::size_t at = 0; at < entries.size(); at += 2)
        built.entries.push_back(static_cast<std::uint16_t>(NumberAt(entries, at, 2)));
}

std::string BytesOfBuiltFile(const std::string& name) {
    std::ifstream file(std::string(VERSEWELL_DATA_DIR "/") + name, std::ios::binary);
    if (!file) throw std::runtime_error(name + " has not been built");
    return {std::istreambuf_iterator<char>(file), {}};
}

const BuiltScripture& TheBuiltScripture() {
    static const BuiltScripture built = [] {
        BuiltScripture reading;
        ReadVerses(reading);
        ReadWords(reading);
        return reading;
    }();
    return built;
}

int IndexOf(const std::string& reference) {
    const std::vector<std::string>& references = TheBuiltScripture().verseReferences;
    const auto found = std::find(references.begin(), references.end(), reference);
    if (found == references.end()) throw std::out_of_range("no verse " + reference);
    return static_cast<int>(found - references.begin());
}

const std::string& TextOf(const std::string& reference) {
    return TheBuiltScripture().verses[static_cast<std::size_t>(IndexOf(reference))].text;
}

std::string PlainText(const std::string& text) {
    std::string plain;
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain),
                 [](char letter) { return letter != '[' && letter != ']' && letter != '\xB6'; });
    return plain;
}

std::vector<std::string> PrintedWords(const std::string& text) {
    static const char* const kWordCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz'";
    std::vector<std::string> words;
    std::size_t from = text.find_first_of(kWordCharacters);
    while (from != std::string::npos) {
        const std::size_t to = std::min(text.find_first_not_of(kWordCharacters, from), text.size());
        words.push_back(text.substr(from, to - from));
        from = text.find_first_of(kWordCharacters, to);
    }
    return words;
}

std::vector<int> VersesOfWord(std::size_t word) {
    const BuiltScripture& built = TheBuiltScripture();
    const std::size_t end = word + 1 < built.pointers.size() ? built.pointers[word + 1] : built.entries.size();
    std::vector<int> verses;
    for (std::size_t i = built.pointers.at(word); i < end; ++i) verses.push_back(built.entries.at(i));
    return verses;
}
