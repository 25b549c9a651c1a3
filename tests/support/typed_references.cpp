#include "tests/support/typed_references.h"

#include <random>
#include <string_view>

#include "scripture/books.h"

namespace {

struct Chance {
    std::mt19937 numbers;
};

}  // namespace

// 0 to `count` - 1. Not std::uniform_int_distribution, which differs between libraries.
static int Below(Chance& chance, int count) {
    return static_cast<int>(chance.numbers() % static_cast<unsigned>(count));
}

template <std::size_t N>
static std::string OneOf(Chance& chance, const char* const (&texts)[N]) {
    return texts[Below(chance, static_cast<int>(N))];
}

static std::string InOtherCase(Chance& chance, std::string text) {
    const int way = Below(chance, 4);
    for (char& letter : text) {
        if (way == 1 && letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
        if (way == 2 && letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return text;
}

static std::string BeginningOf(Chance& chance, const std::string& name) {
    return name.substr(0, 1 + static_cast<std::size_t>(Below(chance, static_cast<int>(name.size()))));
}

static std::string Book(Chance& chance) {
    static constexpr const char* kOddBooks[] = {
        "Song of Songs",
        "Canticles",
        "1 Jn",
        "Jn",
        "Jdg",
        "I John",
        "First John",
        "1st John",
        "Mk",
        "Revelations",
        "Acts of the Apostles",
        "the Psalm",
        "Psalm",
        "Apoc",
        "Xyz",
        "1  Samuel",
        "St. John",
        "2nd Peter",
        "Wisdom",
    };
    const int book = 1 + Below(chance, kBookCount);
    switch (Below(chance, 8)) {
        case 0:
        case 1: return BookAbbreviation(book);
        case 2:
        case 3: return BookName(book);
        case 4:
        case 5: return BeginningOf(chance, BookName(book));
        case 6: return OneOf(chance, kOddBooks);
        default: return "";
    }
}

static std::string Number(Chance& chance) {
    switch (Below(chance, 10)) {
        case 0: return "0";
        case 1: return std::to_string(100 + Below(chance, 100));  // beyond most chapters
        case 2: return std::to_string(Below(chance, 2000000000)) + "00";
        case 3: return "-" + std::to_string(Below(chance, 30));
        default: return std::to_string(1 + Below(chance, 40));
    }
}

static std::string Half(Chance& chance) {
    static constexpr const char* kBeforeNumber[] = {" ", " ", " ", "", ", ", "  ", " chapter ", "-", " verse "};
    static constexpr const char* kBeforeVerse[] = {":", ":", ":", ".", " : ", " ", ":v", ","};
    std::string half = InOtherCase(chance, Book(chance));
    if (Below(chance, 6) == 0) return half;
    half += OneOf(chance, kBeforeNumber) + Number(chance);
    if (Below(chance, 4) == 0) return half;
    return half + OneOf(chance, kBeforeVerse) + Number(chance);
}

// The en dash is that of code page 1252.
static std::string Reference(Chance& chance) {
    static constexpr const char* kBetween[] = {" - ", "-", " to ", "; ", ", ", " \x96 ", " -", "--"};
    static constexpr const char* kBehind[] = {" ", " -", ".", " (AV)", "ff", ";", " \xB6", " a"};
    std::string text = Half(chance);
    if (Below(chance, 2) == 0) text += OneOf(chance, kBetween) + Half(chance);
    if (Below(chance, 12) == 0) text.insert(0, 1, ' ');
    if (Below(chance, 8) == 0) text += OneOf(chance, kBehind);
    return text;
}

static std::string OtherCharacters(Chance& chance) {
    std::string text;
    for (int length = 1 + Below(chance, 12); length > 0; --length) text += static_cast<char>(' ' + Below(chance, 95));
    return text;
}

// More than the 99 characters of a field. The number may be the last that is read, be cut, or be too late.
static std::string LongText(Chance& chance) {
    return Book(chance) + std::string(80 + static_cast<std::size_t>(Below(chance, 20)), ' ') + Number(chance) + ":" +
           Number(chance) + " - " + Half(chance);
}

std::vector<std::string> TypedReferences(unsigned seed, int count) {
    Chance chance{std::mt19937(seed)};
    std::vector<std::string> texts;
    while (texts.size() < static_cast<std::size_t>(count)) {
        const int kind = Below(chance, 20);
        const std::string text = kind == 0 ? OtherCharacters(chance) : kind == 1 ? LongText(chance) : Reference(chance);
        if (!text.empty()) texts.push_back(text);
    }
    return texts;
}

std::string LineOfVerse(const VerseRecords& records, int verse) {
    return ReferenceText(records, verse, BookForm::kName);
}

std::string LineOfRange(const VerseRecords& records, int first, int last) {
    const std::string from = LineOfVerse(records, first);
    if (first == last) return from + ", 1 verse";
    std::string to = LineOfVerse(records, last);
    if (RecordOf(records, first).book == RecordOf(records, last).book) to.erase(0, to.rfind(' ') + 1);
    return from + " to " + to + ", " + std::to_string(last - first + 1) + " verses";
}
