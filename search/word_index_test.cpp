#include "search/word_index.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "scripture/scripture.h"
#include "tests/support/hand_made_index.h"
#include "tests/support/native_scripture.h"

static constexpr HandMadeVerse kVerses[] = {{1, 1, 1,
                                             "\xB6"
                                             "Let there be light: and there was [light]."},
                                            {1, 1, 2, "The LORD's day"},
                                            {1, 1, 3, "be"}};

static std::vector<int> VersesOf(const WordIndex& index, int word) {
    std::vector<int> verses;
    const std::span<const unsigned char> entries = EntriesOf(index, word);
    for (std::size_t at = 0; at + 1 < entries.size(); at += 2) verses.push_back(entries[at] | entries[at + 1] << 8);
    return verses;
}

TEST(LoadWordIndex, GivesTheWordsInFileOrder) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    const WordIndex index = IndexOf(files);
    EXPECT_EQ(index.words,
              (std::vector<std::string_view>{"and", "be", "day", "let", "light", "lord's", "the", "there", "was"}));
    EXPECT_EQ(WordCount(index), 9);
    for (const std::string_view word : index.words) EXPECT_EQ(word.data()[word.size()], '\0') << word;
}

TEST(LoadWordIndex, ReportsAMissingFile) {
    static constexpr struct {
        const char* missing;
        IndexLoad load;
        std::size_t words;
    } kRows[] = {
        {"", IndexLoad::kLoaded, 9},
        {kWordsFile, IndexLoad::kFailed, 0},
        {kWordPointersFile, IndexLoad::kFailed, 9},
        {kVerseListsFile, IndexLoad::kNoVerseLists, 9},
    };
    for (const auto& row : kRows) {
        FilesInMemory files = MakeIndexFiles(kVerses);
        files.erase(row.missing);
        WordIndex index;
        EXPECT_EQ(LoadWordIndex(DeviceOver(files), index), row.load) << row.missing;
        EXPECT_EQ(index.words.size(), row.words) << row.missing;
        for (int word = 0; word < WordCount(index); ++word)
            EXPECT_EQ(EntriesOf(index, word).empty(), row.load != IndexLoad::kLoaded) << row.missing << word;
    }
}

TEST(LoadWordIndex, RejectsAnEmptyWordsFile) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    files[kWordsFile].clear();
    WordIndex index;
    EXPECT_EQ(LoadWordIndex(DeviceOver(files), index), IndexLoad::kFailed);
}

TEST(LoadWordIndex, IgnoresAWordThatIsNotTerminated) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    files[kWordsFile].pop_back();
    EXPECT_EQ(IndexOf(files).words.back(), "there");
}

TEST(LoadWordIndex, DiscardsAPreviousIndex) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    WordIndex index = IndexOf(files);
    files.clear();
    EXPECT_EQ(LoadWordIndex(DeviceOver(files), index), IndexLoad::kFailed);
    EXPECT_EQ(WordCount(index), 0);
}

TEST(FindWord, FindsOnlyWholeWords) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    const WordIndex index = IndexOf(files);
    for (int word = 0; word < WordCount(index); ++word)
        EXPECT_EQ(FindWord(index, index.words[static_cast<std::size_t>(word)]), word);
    for (const char* absent : {"", "a", "an", "andy", "lord", "LORD's", "ther", "theref", "zzz", "\xFF"})
        EXPECT_EQ(FindWord(index, absent), -1) << absent;
    EXPECT_EQ(FindWord(index, std::string(500, 'a')), -1);
    EXPECT_EQ(FindWord({}, "and"), -1);
}

TEST(EntriesOf, AreTheVersesOfTheWord) {
    FilesInMemory files = MakeIndexFiles(kVerses);
    const WordIndex index = IndexOf(files);
    static const struct {
        const char* word;
        std::vector<int> verses;
    } kRows[] = {{"and", {0}}, {"be", {0, 2}}, {"light", {0}}, {"the", {1}}, {"was", {0}}, {"were", {}}};
    for (const auto& row : kRows) EXPECT_EQ(VersesOf(index, FindWord(index, row.word)), row.verses) << row.word;
}

// The pointers are not checked when the index is loaded, but with any pointers only existing entries may be returned.
TEST(EntriesOf, StayInsideTheListsForAnyPointers) {
    static const struct {
        const char* why;
        std::vector<unsigned char> pointers;
        std::vector<unsigned char> lists;
        std::vector<int> first, second;
    } kRows[] = {
        {"in order", {0, 0, 0, 0, 1, 0, 0, 0}, {7, 0, 8, 0}, {7}, {8}},
        {"a list of another order", {0, 0, 0, 0, 2, 0, 0, 0}, {9, 1, 8, 0, 3, 0}, {265, 8}, {3}},
        {"no entries", {0, 0, 0, 0, 0, 0, 0, 0}, {}, {}, {}},
        {"back to front", {1, 0, 0, 0, 0, 0, 0, 0}, {7, 0, 8, 0}, {}, {7, 8}},
        {"far outside", {0, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}, {7, 0, 8, 0}, {7, 8}, {}},
        {"outside from the start", {0xFF, 0xFF, 0xFF, 0xFF, 2, 0, 0, 0}, {7, 0, 8, 0}, {}, {}},
        {"more pointers than words", {0, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0}, {7, 0, 8, 0}, {7}, {8}},
        {"fewer pointers than words", {1, 0, 0, 0}, {7, 0, 8, 0}, {}, {7, 8}},
        {"a pointer cut short", {0, 0, 0, 0, 1, 0}, {7, 0, 8, 0}, {}, {7, 8}},
        {"no pointers", {}, {7, 0, 8, 0}, {}, {7, 8}},
        {"half an entry at the end", {0, 0, 0, 0, 1, 0, 0, 0}, {7, 0, 8, 0, 9}, {7}, {8}},
    };
    for (const auto& row : kRows) {
        FilesInMemory files = {
            {kWordsFile, {'a', 0, 'b', 0}}, {kWordPointersFile, row.pointers}, {kVerseListsFile, row.lists}};
        const WordIndex index = IndexOf(files);
        EXPECT_EQ(VersesOf(index, 0), row.first) << row.why;
        EXPECT_EQ(VersesOf(index, 1), row.second) << row.why;
        for (const int word : {-1, 2, 2147483647, -2147483647 - 1})
            EXPECT_TRUE(EntriesOf(index, word).empty()) << row.why << word;
    }
}

TEST(DoesListAscend, IsAskedForEachList) {
    static const struct {
        const char* why;
        std::vector<unsigned char> pointers;
        std::vector<unsigned char> lists;
        bool first, second;
    } kRows[] = {
        {"two lists", {0, 0, 0, 0, 2, 0, 0, 0}, {7, 0, 9, 0, 3, 0, 8, 0}, true, true},
        {"an empty list", {0, 0, 0, 0, 0, 0, 0, 0}, {7, 0, 8, 0}, true, true},
        {"an empty last list", {0, 0, 0, 0, 2, 0, 0, 0}, {7, 0, 8, 0}, true, true},
        {"a verse twice", {0, 0, 0, 0, 1, 0, 0, 0}, {7, 0, 8, 0, 8, 0}, true, false},
        {"the first list falls", {0, 0, 0, 0, 2, 0, 0, 0}, {9, 0, 8, 0, 9, 0}, false, true},
        {"the last list falls", {0, 0, 0, 0, 1, 0, 0, 0}, {9, 0, 1, 1, 0, 1}, true, false},
        {"both fall", {0, 0, 0, 0, 2, 0, 0, 0}, {9, 0, 8, 0, 8, 0, 7, 0}, false, false},
        {"lists that overlap", {1, 0, 0, 0, 0, 0, 0, 0}, {8, 0, 7, 0}, true, false},
        {"a list behind the end", {0, 0, 0, 0, 3, 0, 0, 0}, {7, 0, 8, 0}, true, true},
    };
    for (const auto& row : kRows) {
        FilesInMemory files = {
            {kWordsFile, {'a', 0, 'b', 0}}, {kWordPointersFile, row.pointers}, {kVerseListsFile, row.lists}};
        const WordIndex index = IndexOf(files);
        for (int time = 0; time < 2; ++time) {  // the second one is remembered
            EXPECT_EQ(DoesListAscend(index, 0), row.first) << row.why;
            EXPECT_EQ(DoesListAscend(index, 1), row.second) << row.why;
        }
        for (const int word : {-1, 2}) EXPECT_TRUE(DoesListAscend(index, word)) << row.why;
    }
    const WordIndex& real = TheRealWordIndex();
    for (int word = 0; word < WordCount(real); ++word) ASSERT_TRUE(DoesListAscend(real, word)) << word;
}

TEST(WordsWith, AreTheWordsThatContainThePart) {
    const WordIndex& index = TheRealWordIndex();
    for (const char* const part :
         {"love", "e", "'s", "zz", "zzz", "lord", "a", "aa", "ah", "zuzims", "the", "nosuchpart"}) {
        std::vector<int> wanted;
        for (int word = 0; word < WordCount(index); ++word)
            if (index.words[static_cast<std::size_t>(word)].find(part) != std::string_view::npos)
                wanted.push_back(word);
        EXPECT_EQ(WordsWith(index, part), wanted) << part;
    }
    EXPECT_TRUE(WordsWith({}, "a").empty());
}

// Compares the real index with the text, word by word.
TEST(TheRealWordIndex, ListsTheVersesOfEveryWordOfTheText) {
    std::map<std::string, std::vector<int>> wanted;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        std::set<std::string> words;
        std::string word;
        for (const char c : std::string(VerseText(TheRealScripture(), verse)) + " ") {
            const bool capital = c >= 'A' && c <= 'Z';
            if (capital || (c >= 'a' && c <= 'z') || c == '\'')
                word += static_cast<char>(capital ? c + 32 : c);
            else if (!word.empty())
                words.insert(std::exchange(word, {}));
        }
        for (const std::string& found : words) wanted[found].push_back(verse);
    }
    const WordIndex& index = TheRealWordIndex();
    ASSERT_EQ(WordCount(index), 12729);
    ASSERT_EQ(wanted.size(), 12729u);
    int word = 0;
    for (const auto& [text, verses] : wanted) {  // the map has the same order as the file
        ASSERT_EQ(index.words[static_cast<std::size_t>(word)], text);
        ASSERT_EQ(VersesOf(index, word), verses) << text;
        ++word;
    }
    EXPECT_EQ(index.verseLists.size() / 2, 616931u);
}
