#include "tests/windows/real_scripture.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "scripture/reference_parser.h"
#include "scripture/scripture.h"
#include "tests/driver/driver.h"

static bool ReadDataFile(void*, const char* name, AccessPattern, std::span<const unsigned char>& bytes) {
    static std::vector<std::vector<unsigned char>> read;  // the scripture keeps views of these
    std::ifstream file(std::filesystem::path(Surroundings().data) / name, std::ios::binary);
    if (!file) return false;
    read.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    bytes = read.back();
    return true;
}

const Scripture& RealScripture() {
    static const Scripture scripture = [] {
        Scripture loaded;
        if (!LoadScripture({nullptr, ReadDataFile}, loaded)) throw std::runtime_error("no scripture to compare with");
        return loaded;
    }();
    return scripture;
}

std::string TextAt(std::string_view reference) {
    const ParsedReference parsed = ParseReference(RealScripture().records, std::string(reference));
    if (!parsed.ok) throw std::runtime_error("no verse " + std::string(reference));
    return std::string(VerseText(RealScripture(), parsed.verse));
}

std::string WithBlankAfterMark(const std::string& text) {
    return BeginsParagraph(text) ? text.substr(0, 1) + " " + text.substr(1) : text;
}

std::string WithoutBrackets(std::string text) {
    std::erase_if(text, [](char letter) { return letter == '[' || letter == ']'; });
    return text;
}
