// Checks the word index from the build against the texts, and both against known facts.
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "data/built_scripture.h"

using testing::ElementsAre;

static std::string LowerCased(std::string word) {
    for (char& letter : word) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    return word;
}

TEST(BuiltWords, AreSortedAndUnique) {
    const std::vector<std::string>& words = TheBuiltScripture().words;
    const auto isSmaller = [](const std::string& a, const std::string& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
            return static_cast<unsigned char>(x) < static_cast<unsigned char>(y);
        });
    };
    for (std::size_t i = 1; i < words.size(); ++i) EXPECT_TRUE(isSmaller(words[i - 1], words[i])) << words[i];
}

TEST(BuiltWords, HaveTheKnownCounts) {
    const BuiltScripture& built = TheBuiltScripture();
    EXPECT_EQ(built.words.size(), 12729u);  // the program's tables have room for 12,842
    EXPECT_EQ(built.pointers.size(), built.words.size());
    EXPECT_EQ(built.pointers.front(), 0u);
    EXPECT_TRUE(std::is_sorted(built.pointers.begin(), built.pointers.end()));
    EXPECT_EQ(built.entries.size(), 616931u);
    EXPECT_EQ(BytesOfBuiltFile("_avwrds.dat").back(), '\0');
}

// Each word's list must contain exactly the verses that have the word, each once. The expected lists are calculated
// here from the texts.
TEST(BuiltWords, ListsMatchTheTexts) {
    const BuiltScripture& built = TheBuiltScripture();
    std::map<std::string, std::set<int>> expected;
    for (std::size_t i = 0; i < built.verses.size(); ++i)
        for (const std::string& word : PrintedWords(built.verses[i].text))
            expected[LowerCased(word)].insert(static_cast<int>(i));

    ASSERT_EQ(built.words.size(), expected.size());
    for (std::size_t word = 0; word < built.words.size(); ++word) {
        std::vector<int> verses = VersesOfWord(word);
        std::sort(verses.begin(), verses.end());
        const std::set<int>& wanted = expected[built.words[word]];
        ASSERT_EQ(verses, std::vector(wanted.begin(), wanted.end())) << built.words[word];
    }
}

TEST(BuiltWords, HaveTheKnownSpelling) {
    const std::vector<std::string>& words = TheBuiltScripture().words;
    const auto count = [&words](auto test) { return std::count_if(words.begin(), words.end(), test); };
    EXPECT_EQ(count([](const std::string& word) { return word.ends_with('\''); }), 69);
    EXPECT_EQ(count([](const std::string& word) { return word.starts_with('\''); }), 0);
    EXPECT_EQ(count([](const std::string& word) { return word.size() > 16; }), 0);
    EXPECT_GT(count([](const std::string& word) { return word.size() == 16; }), 0);
    for (const std::string& word : words)
        EXPECT_EQ(word.find_first_not_of("abcdefghijklmnopqrstuvwxyz'"), std::string::npos) << word;
}

static std::vector<std::string> ReferencesOfWord(const std::string& word) {
    const BuiltScripture& built = TheBuiltScripture();
    const auto found = std::find(built.words.begin(), built.words.end(), word);
    std::vector<std::string> references;
    if (found == built.words.end()) return references;
    for (const int verse : VersesOfWord(static_cast<std::size_t>(found - built.words.begin())))
        references.push_back(built.verseReferences.at(static_cast<std::size_t>(verse)));
    return references;
}

namespace {

struct OnlyPlaceRow {
    const char* word;
    const char* reference;
};

}  // namespace

static constexpr OnlyPlaceRow kOnlyPlaces[] = {
    {"reverend", "Ps 111:9"}, {"eternity", "Isa 57:15"}, {"grandmother", "2Ti 1:5"},
    {"girl", "Joe 3:3"},      {"girls", "Zec 8:5"},      {"easter", "Ac 12:4"},
};

TEST(BuiltWords, UniqueWordsAreInTheirVerses) {
    for (const OnlyPlaceRow& row : kOnlyPlaces) EXPECT_THAT(ReferencesOfWord(row.word), ElementsAre(row.reference));
}

TEST(BuiltWords, ListsHaveTheKnownLengths) {
    const BuiltScripture& built = TheBuiltScripture();
    std::size_t longest = 0;
    int single = 0;
    for (std::size_t word = 0; word < built.words.size(); ++word) {
        const std::size_t length = VersesOfWord(word).size();
        longest = std::max(longest, length);
        if (length == 1) ++single;
    }
    EXPECT_EQ(longest, 24091u);
    EXPECT_EQ(ReferencesOfWord("the").size(), longest);
    EXPECT_EQ(single, 4047);
}

static std::map<std::string, int> CountPrintedWords() {
    std::map<std::string, int> counts;
    for (const Verse& verse : TheBuiltScripture().verses)
        for (const std::string& word : PrintedWords(verse.text)) ++counts[word];
    return counts;
}

namespace {

struct PrintedRow {
    const char* word;  // as printed
    int count;
};

}  // namespace

static constexpr PrintedRow kPrinted[] = {
    {"LORD", 6466}, {"LORD'S", 108}, {"GOD", 310}, {"JEHOVAH", 4}, {"Jehovah", 3}, {"JAH", 1},
};

TEST(BuiltWords, CapitalizedWordsHaveTheKnownCounts) {
    std::map<std::string, int> counts = CountPrintedWords();
    for (const PrintedRow& row : kPrinted) EXPECT_EQ(counts[row.word], row.count) << row.word;
}

TEST(BuiltWords, HaveTheKnownNumbersOfOccurrences) {
    std::map<std::string, int> counts;
    int total = 0;
    for (const auto& [word, count] : CountPrintedWords()) {
        counts[LowerCased(word)] += count;
        total += count;
    }
    EXPECT_EQ(total, 790428);
    EXPECT_EQ(counts["the"], 63919);
    EXPECT_EQ(counts["and"], 51696);
    EXPECT_EQ(counts["unicorn"] + counts["unicorns"], 9);
}

TEST(BuiltWords, HaveTheKnownCountsPerTestament) {
    std::ptrdiff_t oldTestament = 0, newTestament = 0;
    for (const Verse& verse : TheBuiltScripture().verses)
        (verse.book <= 39 ? oldTestament : newTestament) += std::count(verse.text.begin(), verse.text.end(), ' ') + 1;
    EXPECT_EQ(oldTestament, 609248);
    EXPECT_EQ(newTestament, 180382);
}

TEST(BuiltWords, EstherDoesNotNameGod) {
    for (const Verse& verse : TheBuiltScripture().verses) {
        if (verse.book != 17) continue;
        for (const std::string& word : PrintedWords(verse.text))
            EXPECT_TRUE(word != "God" && word != "GOD" && !word.starts_with("LORD")) << ReferenceOf(verse);
    }
}
