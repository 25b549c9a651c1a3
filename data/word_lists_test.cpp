#include "data/word_lists.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::Pair;

static Verses VersesOf(std::initializer_list<const char*> texts) {
    Verses verses;
    for (const char* text : texts) verses.push_back({1, 1, static_cast<int>(verses.size()) + 1, text});
    return verses;
}

namespace {

struct WordRow {
    const char* text;
    std::vector<std::string> words;  // ascending
};

}  // namespace

static const WordRow kRows[] = {
    {"\xB6"
     "And God said",
     {"and", "god", "said"}},
    {"the LORD'S house", {"house", "lord's", "the"}},
    {"his sons', and", {"and", "his", "sons'"}},
    {"Beth-el", {"beth", "el"}},
    {"their sin--; and", {"and", "sin", "their"}},
    {"[it was] good: (so)", {"good", "it", "so", "was"}},
    {"[a]b", {"a", "b"}},
    {"A a A", {"a"}},
    {"Zz, Az", {"az", "zz"}},
};

TEST(WordLists, SeparateWordsAtOtherCharacters) {
    for (const WordRow& row : kRows) {
        std::vector<std::string> words;
        for (const auto& [word, verses] : ListWords(VersesOf({row.text}))) words.push_back(word);
        EXPECT_EQ(words, row.words) << row.text;
    }
}

TEST(WordLists, ListEachVerseOnce) {
    const WordLists lists = ListWords(VersesOf({"Holy, holy, holy", "the end", "Holy is the end of the end"}));
    EXPECT_THAT(lists,
                ElementsAre(Pair("end", ElementsAre(1, 2)), Pair("holy", ElementsAre(0, 2)), Pair("is", ElementsAre(2)),
                            Pair("of", ElementsAre(2)), Pair("the", ElementsAre(1, 2))));
}

// An apostrophe sorts before all letters, so "lord's" comes before "lords", as a binary search by bytes expects.
TEST(WordLists, AreInByteOrder) {
    const WordLists lists = ListWords(VersesOf({"lords lord's lord lordly"}));
    EXPECT_THAT(lists, ElementsAre(Pair("lord", ElementsAre(0)), Pair("lord's", ElementsAre(0)),
                                   Pair("lordly", ElementsAre(0)), Pair("lords", ElementsAre(0))));
}
