// Tests that the pages about searches are true: their examples are searched for in the real text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "help/made_help.h"
#include "scripture/reference_parser.h"
#include "search/search_engine.h"
#include "tests/support/native_scripture.h"

using testing::HasSubstr;

static std::string Sentences(const std::string& page) {
    const std::string text = std::regex_replace(HelpPages().at(page).text, std::regex("\\s+"), " ");
    return std::regex_replace(text, std::regex("\xE2\x80[\x9C\x9D]"), "\"");
}

namespace {

// A search in a verse of the real text, and whether it finds the verse.
struct Row {
    const char* verse;
    const char* text;
    bool finds;
    SearchOptions options{};
    QueryKind kind = QueryKind::kWords;
};

}  // namespace

static bool Finds(const Row& row) {
    const int verse = ParseReference(TheRealScripture().records, row.verse).verse;
    HitCounters hits;
    const Query query = QueryOf(row.text, row.options, row.kind);
    return !Search(TheRealScripture(), TheRealWordIndex(), query, {verse, verse}, hits).verses.empty();
}

static constexpr SearchOptions kCaseSensitive{kAllWords, 1, 0, 0};
static constexpr SearchOptions kSubstrings{kAllWords, 0, 1, 0};

// Joh 3:16: "For God so loved the world ..."; De 6:5: "And thou shalt love the LORD ..."
TEST(HelpOnWords, TellsWhatIsFound) {
    const std::string page = Sentences("ID_Search_Word");
    const struct {
        const char* sentence;
        Row row;
    } rows[] = {
        {"the verse must contain every word", {"Joh 3:16", "god world", true}},
        {"the verse must contain every word", {"Joh 3:16", "god grace", false}},
        {"the verse must contain one or more of the words", {"Joh 3:16", "god grace", true, {kAnyWord, 0, 0, 0}}},
        {"the verse must contain exactly one of the words", {"Joh 3:16", "god grace", true, {kOneWord, 0, 0, 0}}},
        {"the verse must contain exactly one of the words", {"Joh 3:16", "god world", false, {kOneWord, 0, 0, 0}}},
        {"capitals must match: Lord does not find LORD", {"De 6:5", "Lord", false, kCaseSensitive}},
        {"capitals must match: Lord does not find LORD", {"De 6:5", "Lord", true}},
        {"love finds \"beloved\"", {"Mt 3:17", "love", true, kSubstrings}},
        {"Otherwise only whole words are found.", {"Mt 3:17", "love", false}},
        {"A word can contain letters and apostrophes", {"Joh 10:3", "sheep's", false}},
        {"A word can contain letters and apostrophes", {"Mt 7:15", "sheep's", true}},
        {"other characters separate words", {"Joh 3:16", "god,world;", true}},
        // "In the beginning God created the heaven and the earth."
        {"does not find a verse where \"the\" comes before the first \"he\"", {"Ge 1:1", "he", false, kCaseSensitive}},
        // "... the lesser light to rule the night: [he made] the stars also."
        {"does not find a verse where \"the\" comes before the first \"he\"", {"Ge 1:16", "he", false, kCaseSensitive}},
        {"does not find a verse where \"the\" comes before the first \"he\"", {"Ge 1:16", "he", true}},
        // Joh 3:1 begins a chapter, and so a paragraph, with "There was a man".
        {"right behind the pilcrow", {"Joh 3:1", "There", false, kCaseSensitive}},
        {"right behind the pilcrow", {"Joh 3:1", "There", true}},
        {"unless Substring matches is on", {"Joh 3:1", "There", true, {kAllWords, 1, 1, 0}}},
    };
    for (const auto& [sentence, row] : rows) {
        EXPECT_THAT(page, HasSubstr(sentence));
        EXPECT_EQ(Finds(row), row.finds) << row.text << " in " << row.verse;
    }
}

TEST(HelpOnPhrases, TellsWhatIsFound) {
    const std::string page = Sentences("ID_Search_Phrase");
    const struct {
        const char* sentence;
        Row row;
    } rows[] = {
        {"finds words that follow one another", {"Mt 8:20", "son of man", true}},
        {"finds words that follow one another", {"Mt 8:20", "man of son", false}},
        // "foxes have holes, and the birds of the air [have] nests"
        {"Punctuation and brackets between them are ignored", {"Mt 8:20", "holes and", true}},
        {"Punctuation and brackets between them are ignored", {"Mt 8:20", "air have nests", true}},
        {"but a phrase does not go across a hyphen", {"Ge 12:8", "beth el", false}},
        {"not found if it continues into the next verse", {"Ge 1:1", "the earth and the earth", false}},
        // "for she said unto her husband ... that he may appear"; the other verse has no "he"
        {"he said is also found in \"she said\", if the verse contains the word \"he\" as well",
         {"1 Sa 1:22", "he said", true}},
        {"he said is also found in \"she said\", if the verse contains the word \"he\" as well",
         {"Ru 2:13", "he said", false}},
        {"With Case sensitive, capitals must match", {"Mt 8:20", "son of man", false, kCaseSensitive}},
        {"With Case sensitive, capitals must match", {"Mt 8:20", "Son of man", true, kCaseSensitive}},
        {"a phrase at the beginning of a paragraph, right behind the pilcrow, is not found",
         {"Joh 3:1", "There was a man", false, kCaseSensitive}},
        {"a phrase at the beginning of a paragraph, right behind the pilcrow, is not found",
         {"Joh 3:1", "There was a man", true}},
        {"a phrase at the beginning of a paragraph, right behind the pilcrow, is not found",
         {"Joh 3:1", "of the Pharisees", true, kCaseSensitive}},
    };
    for (auto [sentence, row] : rows) {
        row.kind = QueryKind::kPhrase;
        EXPECT_THAT(page, HasSubstr(sentence));
        EXPECT_EQ(Finds(row), row.finds) << row.text << " in " << row.verse;
    }
}

namespace {

// A search for words near each other from one verse of the real text to another, and whether it finds the first one.
struct NearRow {
    const char *first, *last, *text;
    bool finds;
    NearOptions nearOptions{};
    SearchOptions options{};
};

}  // namespace

static bool Finds(const NearRow& row) {
    SearchState search;
    search.searchText = row.text;
    search.nearOptions = row.nearOptions;
    search.options = row.options;
    search.range = {ParseReference(TheRealScripture().records, row.first).verse,
                    ParseReference(TheRealScripture().records, row.last).verse};
    HitCounters hits;
    const Query query = NearQueryOf(search);
    const auto verses = Search(TheRealScripture(), TheRealWordIndex(), query, search.range, hits).verses;
    return !verses.empty() && verses.front() == search.range.StartVerse;
}

// Joh 3:16: "For God so loved the world ..."; Ge 1:31 and Ge 2:1 are in two chapters.
TEST(HelpOnNearWords, TellsWhatIsFound) {
    const std::string page = Sentences("ID_Search_Near");
    const struct {
        const char* sentence;
        NearRow row;
    } rows[] = {
        {"lov* finds \"love\", \"loved\" and \"loving\"", {"Joh 3:16", "Joh 3:16", "lov*", true}},
        {"m?n finds \"man\" and \"men\"", {"Joh 3:19", "Joh 3:19", "m?n", true}},
        {"m?n finds \"man\" and \"men\"", {"Joh 3:1", "Joh 3:1", "m?n", true}},
        {"Words that stand side by side are one word from each other",
         {"Joh 3:16", "Joh 3:16", "so loved", true, {kNearInWords, 1}}},
        {"Words that stand side by side are one word from each other",
         {"Joh 3:16", "Joh 3:16", "god loved", false, {kNearInWords, 1}}},
        {"the words stand in one verse, and", {"Joh 3:16", "Joh 3:17", "life for", false, {kNearInWords, 1}}},
        {"Verses that follow one another are one verse from each other",
         {"Joh 3:16", "Joh 3:17", "begotten condemn", true, {kNearInVerses, 1}}},
        {"the words stand in one verse.", {"Joh 3:16", "Joh 3:17", "begotten condemn", false, {kNearInVerse}}},
        {"in verses of one chapter", {"Ge 1:31", "Ge 2:1", "sixth finished", false, {kNearInVerses, 10}}},
        {"in the order in which you typed them", {"Joh 3:16", "Joh 3:16", "loved so", false, {kNearInWords, 1, 1}}},
        {"capitals must match", {"De 6:5", "De 6:5", "Lord thy", false, {}, {.CaseSensitive = 1}}},
        {"capitals must match", {"De 6:5", "De 6:5", "LORD thy", true, {}, {.CaseSensitive = 1}}},
        {"can also be part of a word", {"Joh 3:16", "Joh 3:16", "gotte", true, {}, {.SubString = 1}}},
        {"A word that you type twice has to be there twice", {"Joh 3:16", "Joh 3:16", "his his", false}},
        {"lord does not find \"LORD'S\", but lord* does", {"Ps 24:1", "Ps 24:1", "lord", false}},
        {"lord does not find \"LORD'S\", but lord* does", {"Ps 24:1", "Ps 24:1", "lord*", true}},
        {"\"Beth-el\" is two words", {"Ge 12:8", "Ge 12:8", "beth el", true, {kNearInWords, 1}}},
    };
    for (const auto& [sentence, row] : rows) {
        EXPECT_THAT(page, HasSubstr(sentence));
        EXPECT_EQ(Finds(row), row.finds) << row.text << " from " << row.first;
    }
}

TEST(HelpOnWordList, TellsHowManyWordsThereAre) {
    std::string count = std::to_string(WordCount(TheRealWordIndex()));
    count.insert(count.size() - 3, ",");
    EXPECT_THAT(Sentences("ID_Search_WordList"), HasSubstr("all " + count + " words of the Bible"));
}
