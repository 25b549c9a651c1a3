#include "tests/fuzz/seeds.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

#include "tests/support/hand_made_index.h"

static constexpr int kVerses = 31102;

static void AddNumber(FuzzBytes& bytes, std::uint64_t number) {
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<unsigned char>(number >> shift & 0xFF));
}

static void AddText(FuzzBytes& bytes, const std::string& text) {
    static const std::map<char, char> kEscapes = {{'r', '\r'}, {'n', '\n'}, {'t', '\t'}, {'0', '\0'}, {'\\', '\\'}};
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '\\' && i + 1 < text.size() && kEscapes.contains(text[i + 1]);
        bytes.push_back(static_cast<unsigned char>(isEscape ? kEscapes.at(text[++i]) : text[i]));
    }
}

static void AddHex(FuzzBytes& bytes, const std::string& digits) {
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes.push_back(static_cast<unsigned char>(std::stoul(digits.substr(i, 2), nullptr, 16)));
}

// The words up to the one that ends in ";".
static std::vector<std::string> WordsToSemicolon(std::istringstream& line) {
    std::vector<std::string> words;
    for (std::string word; line >> word;) {
        const bool isLast = word.ends_with(';');
        if (isLast) word.pop_back();
        if (!word.empty()) words.push_back(word);
        if (isLast) break;
    }
    return words;
}

static void AddSet(FuzzBytes& bytes, const std::vector<std::string>& words, bool isIndex) {
    std::map<int, std::string> notes;
    for (const std::string& word : words) notes[std::stoi(word)] = word.substr(word.find('=') + 1);
    std::uint64_t offset = 0;
    for (int verse = 0; verse < kVerses; ++verse) {
        const auto note = notes.find(verse);
        const std::string text = note == notes.end() ? "" : note->second;
        if (isIndex) AddNumber(bytes, offset);
        if (!isIndex) bytes.insert(bytes.end(), text.begin(), text.end());
        if (!isIndex) bytes.push_back(0);
        offset += text.size() + 1;
    }
}

static void AddFile(FuzzBytes& bytes, std::span<const unsigned char> file, bool isLast) {
    bytes.insert(bytes.end(), file.begin(), file.end());
    if (!isLast) bytes.insert(bytes.end(), std::begin(kFileEnd), std::end(kFileEnd) - 1);
}

// A word "1:1:3=%of_verses" for each verse: its blanks are underscores, paragraph marks are percent signs.
static void AddBible(FuzzBytes& bytes, std::vector<std::string> words) {
    std::vector<HandMadeVerse> verses;
    for (std::string& word : words) {
        std::istringstream numbers(word);
        HandMadeVerse verse;
        char colon = ':';
        numbers >> verse.book >> colon >> verse.chapter >> colon >> verse.verse;
        std::replace(word.begin(), word.end(), '_', ' ');
        std::replace(word.begin(), word.end(), '%', kParagraphMark);
        verse.text = std::string_view(word).substr(word.find('=') + 1);
        verses.push_back(verse);
    }
    const HandMadeFiles files = MakeFiles(verses);
    const FilesInMemory index = MakeIndexFiles(verses);
    AddFile(bytes, files.records, false);
    AddFile(bytes, {reinterpret_cast<const unsigned char*>(files.text.data()), files.text.size()}, false);
    AddFile(bytes, index.at(kWordsFile), false);
    AddFile(bytes, index.at(kWordPointersFile), false);
    AddFile(bytes, index.at(kVerseListsFile), true);
}

static void AddItem(FuzzBytes& bytes, const std::string& kind, std::istringstream& line) {
    std::string word;
    std::uint64_t count = 0, first = 0, step = 0;
    if (kind == "text") {
        std::getline(line >> std::ws, word);
        AddText(bytes, word);
    } else if (kind == "hex") {
        line >> word;
        AddHex(bytes, word);
    } else if (kind == "fill") {
        line >> word >> count;
        bytes.insert(bytes.end(), count, static_cast<unsigned char>(std::stoul(word, nullptr, 16)));
    } else if (kind == "numbers") {
        for (const std::string& number : WordsToSemicolon(line)) AddNumber(bytes, std::stoull(number));
    } else if (kind == "ramp") {
        line >> count >> first >> step;
        for (std::uint64_t i = 0; i < count; ++i) AddNumber(bytes, first + i * step);
    } else if (kind == "notes" || kind == "index") {
        AddSet(bytes, WordsToSemicolon(line), kind == "index");
    } else if (kind == "bible") {
        AddBible(bytes, WordsToSemicolon(line));
    } else if (kind == "end") {
        AddFile(bytes, {}, false);
    } else {
        throw std::runtime_error("no kind of seed: " + kind);
    }
}

FuzzBytes SeedOf(const std::string& line) {
    FuzzBytes bytes;
    std::istringstream items(line);
    for (std::string kind; items >> kind;) AddItem(bytes, kind, items);
    return bytes;
}

std::vector<FuzzBytes> ReadSeeds(const char* path) {
    std::vector<FuzzBytes> seeds;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line[0] != '#') seeds.push_back(SeedOf(line));
    return seeds;
}
