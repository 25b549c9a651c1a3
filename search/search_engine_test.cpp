#include "search/search_engine.h"

#include <gtest/gtest.h>

#include "search/key_word_marks.h"
#include "tests/support/hand_made_index.h"
#include "tests/support/native_scripture.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6In the beginning God created the heaven."},  // 0
    {1, 1, 2, "And the LORD God said."},                        // 1
    {1, 1, 3, "then the end"},                                  // 2
    {1, 1, 4, "The LORD's hand."},                              // 3
    {1, 1, 5, "loved lovely"},                                  // 4
    {1, 1, 6, "She said, Holy, holy, holy."},                   // 5
    {1, 1, 7, "Jehovah-jireh and Beth-el"},                     // 6
    {1, 1, 8, "he said of [the] light; and [he] said"},         // 7
    {1, 1, 9, "Lord."},                                         // 8
    {1, 1, 10, "glove love"},                                   // 9
};

struct SmallBible {
    HandMadeFiles files = MakeFiles(kVerses);
    FilesInMemory indexFiles = MakeIndexFiles(kVerses);
    Scripture scripture = ScriptureOf(files);
    WordIndex index = IndexOf(indexFiles);
};

static SearchResult Find(const SmallBible& bible, const Query& query, const SearchRange& range = {}) {
    HitCounters hits;
    return Search(bible.scripture, bible.index, query, range, hits);
}

using enum QueryKind;
enum Flags { kPlain = 0, kCase = 1, kParts = 2 };
static constexpr int kEveryFlags[] = {kPlain, kCase, kParts, kCase | kParts};

struct SearchRow {
    const char* query;
    QueryKind kind;
    int flags;
    int booleanType;
    std::vector<std::int32_t> verses;
    int occurrences;
};

static Query QueryFor(const std::string& text, QueryKind kind, int flags = kPlain, int booleanType = kAllWords) {
    const SearchOptions options = {
        .BooleanType = booleanType,
        .CaseSensitive = (flags & kCase) != 0 ? 1 : 0,
        .SubString = (flags & kParts) != 0 ? 1 : 0,
    };
    return QueryOf(text, options, kind);
}

static void ExpectRows(std::span<const SearchRow> rows) {
    const SmallBible bible;
    for (const SearchRow& row : rows) {
        const SearchResult result = Find(bible, QueryFor(row.query, row.kind, row.flags, row.booleanType));
        EXPECT_EQ(result.verses, row.verses) << row.query;
        EXPECT_EQ(result.occurrences, row.occurrences) << row.query;
    }
}

TEST(WordSearch, CombinesWords) {
    static const SearchRow kRows[] = {
        {"lord god", kWords, kPlain, kAllWords, {1}, 2},
        {"lord god", kWords, kPlain, kAnyWord, {0, 1, 8}, 4},
        {"lord god", kWords, kPlain, kOneWord, {0, 8}, 2},
        {"lord god", kWords, kPlain, 7, {0, 8}, 2},
        {"lord god", kWords, kPlain, -1, {0, 8}, 2},
        {"LORD", kWords, kPlain, kAllWords, {1, 8}, 2},
        {"lord's", kWords, kPlain, kAllWords, {3}, 1},
        // In the listed verses all whole words are counted, including those next to an apostrophe.
        {"hand lord", kWords, kPlain, kAnyWord, {1, 3, 8}, 4},
        // A word that is typed twice is looked up and marked twice.
        {"the the", kWords, kPlain, kAllWords, {0, 1, 2, 3, 7}, 12},
        {"the the", kWords, kPlain, kAnyWord, {0, 1, 2, 3, 7}, 12},
        {"the the", kWords, kPlain, kOneWord, {}, 0},
        // A word that does not occur.
        {"zeal", kWords, kPlain, kAllWords, {}, 0},
        {"god zeal", kWords, kPlain, kAllWords, {}, 0},
        {"god zeal", kWords, kPlain, kAnyWord, {0, 1}, 2},
        {"god zeal", kWords, kPlain, kOneWord, {0, 1}, 2},
        {"jehovah-jireh", kWords, kPlain, kAllWords, {6}, 2},
        // A query without words.
        {"", kWords, kPlain, kAllWords, {}, 0},
        {" 1:2, ", kWords, kPlain, kAllWords, {}, 0},
        {" 1:2, ", kWords, kPlain, kOneWord, {}, 0},
    };
    ExpectRows(kRows);
}

TEST(WordSearch, CaseSensitiveExaminesOnlyTheFirstPlace) {
    static const SearchRow kRows[] = {
        {"LORD", kWords, kCase, kAllWords, {1}, 1},
        {"Lord", kWords, kCase, kAllWords, {8}, 1},
        {"the", kWords, kCase, kAllWords, {0, 1, 7}, 4},  // not "then the" or "The"
        {"In", kWords, kCase, kAllWords, {}, 0},          // preceded by a paragraph mark
        {"in", kWords, kCase, kAllWords, {}, 0},          // occurs only inside "beginning"
        {"And and", kWords, kCase, kOneWord, {1, 6, 7}, 3},
        {"he", kWords, kCase, kAllWords, {7}, 2},
        {"loveD", kWords, kCase, kAllWords, {}, 0},
    };
    ExpectRows(kRows);
}

TEST(WordSearch, FindsSubstrings) {
    static const SearchRow kRows[] = {
        {"love", kWords, kParts, kAllWords, {4, 9}, 4},
        {"love", kWords, kParts, kOneWord, {4, 9}, 4},      // two words of the index, but one of the query
        {"love loved", kWords, kParts, kAllWords, {4}, 2},  // the marks of "love" split "loved"
        {"loved love", kWords, kParts, kAllWords, {4}, 3},
        {"lov glov", kWords, kParts, kOneWord, {4}, 2},
        {"LORD", kWords, kParts | kCase, kAllWords, {1, 3}, 2},
        {"ORD", kWords, kParts | kCase, kAllWords, {1, 3}, 2},
        {"lord", kWords, kParts | kCase, kAllWords, {}, 0},
        {"he the", kWords, kParts | kCase, kAllWords, {0, 1, 2, 7}, 9},
        {"z", kWords, kParts, kAllWords, {}, 0},
        // Only words of the index are searched, so a match across two words is not found.
        {"hj", kWords, kParts, kAllWords, {}, 0},
    };
    ExpectRows(kRows);
}

TEST(PhraseSearch, FindsConsecutiveWords) {
    static const SearchRow kRows[] = {
        {"the lord", kPhrase, kPlain, kAllWords, {1}, 1},  // "lord" is not a word of "The LORD's hand"
        {"The, LORD'S", kPhrase, kPlain, kAllWords, {3}, 1},
        {"in the beginning", kPhrase, kPlain, kAllWords, {0}, 1},
        {"he said", kPhrase, kPlain, kAllWords, {7}, 2},  // "She said" has no word "he"
        {"and he", kPhrase, kPlain, kAllWords, {7}, 1},
        {"of the light", kPhrase, kPlain, kAllWords, {7}, 1},
        {"holy holy holy", kPhrase, kPlain, kAllWords, {5}, 1},
        {"said holy", kPhrase, kPlain, kAllWords, {5}, 1},
        {"Jehovah-jireh", kPhrase, kPlain, kAllWords, {}, 0},  // the query has two words, but the text has no blank
        {"the zeal", kPhrase, kPlain, kAllWords, {}, 0},
        {"god the", kPhrase, kPlain, kAllWords, {}, 0},
        {"", kPhrase, kPlain, kAllWords, {}, 0},
        {" 1:2 ", kPhrase, kPlain, kAllWords, {}, 0},
        {"And the", kPhrase, kCase, kAllWords, {1}, 1},
        {"and the", kPhrase, kCase, kAllWords, {}, 0},
        {"In the", kPhrase, kCase, kAllWords, {}, 0},    // preceded by a paragraph mark
        {"then the", kPhrase, kCase, kAllWords, {}, 0},  // the first "the" is inside "then"
        {"the LORD", kPhrase, kCase, kAllWords, {1}, 1},
        // The boolean type and the substring flag have no effect.
        {"the lord", kPhrase, kParts, kOneWord, {1}, 1},
        {"the lor", kPhrase, kParts, kAnyWord, {}, 0},
    };
    ExpectRows(kRows);
}

// It is marked and counted like a word of a word search.
TEST(PhraseSearch, TreatsASingleWordAsAWord) {
    static const SearchRow kRows[] = {
        {"he", kPhrase, kPlain, kAllWords, {7}, 2},   {"he", kPhrase, kPlain, kOneWord, {7}, 2},
        {"he", kPhrase, kParts, kAllWords, {7}, 3},  // including "the"
        {"love", kPhrase, kParts, kAllWords, {9}, 2}, {"LORD", kPhrase, kCase, kAnyWord, {1}, 1},
        {"a", kPhrase, kPlain, kAllWords, {}, 0},
    };
    ExpectRows(kRows);
}

// A phrase is searched for in the whole verse, but marked and counted only in its first thousand characters.
TEST(PhraseSearch, ListsAVerseWhosePhraseIsBeyondTheMarkedPart) {
    const std::string text = "holy " + std::string(1000, 'x') + ", he said";
    const HandMadeVerse verses[] = {{1, 1, 1, text}, {1, 1, 2, "he said"}};
    const HandMadeFiles files = MakeFiles(verses);
    FilesInMemory indexFiles = MakeIndexFiles(verses);
    HitCounters hits;
    const SearchResult result = Search(ScriptureOf(files), IndexOf(indexFiles), QueryFor("he said", kPhrase), {}, hits);
    EXPECT_EQ(result.verses, (std::vector<std::int32_t>{0, 1}));
    EXPECT_EQ(result.occurrences, 1);
}

struct PhraseRow {
    const char* query;
    SearchRange range;
    std::vector<std::int32_t> verses;
    int occurrences;
};

static void ExpectPhrases(std::span<const HandMadeVerse> verses, std::span<const PhraseRow> rows) {
    const HandMadeFiles files = MakeFiles(verses);
    FilesInMemory indexFiles = MakeIndexFiles(verses);
    const WordIndex index = IndexOf(indexFiles);
    HitCounters hits;
    for (const PhraseRow& row : rows) {
        const SearchResult result = Search(ScriptureOf(files), index, QueryFor(row.query, kPhrase), row.range, hits);
        EXPECT_EQ(result.verses, row.verses) << row.query;
        EXPECT_EQ(result.occurrences, row.occurrences) << row.query;
    }
}

// The texts of verses with all words are scanned together, but a phrase must be within one verse.
TEST(PhraseSearch, DoesNotMatchAcrossVerses) {
    static constexpr HandMadeVerse kNeighbours[] = {
        {1, 1, 1, "of the end"},                               // 0
        {1, 1, 2, "of the end, of the"},                       // 1
        {1, 1, 3, "the end of"},                               // 2
        {1, 1, 4, "[the] of; end"},                            // 3
        {1, 1, 5, "nothing between"},                          // 4
        {1, 1, 6, "of the end of the end of the, of [the]."},  // 5
        {1, 1, 7, "\xB6the end of the end"},                   // 6
    };
    static const PhraseRow kRows[] = {
        {"of the", {}, {0, 1, 5, 6}, 8},
        {"of the", {0, 0}, {0}, 1},
        {"of the", {1, 1}, {1}, 2},
        {"of the", {1, 5}, {1, 5}, 6},
        {"of the", {2, 4}, {}, 0},
        {"of the", {6, 6}, {6}, 1},
        {"the end", {}, {0, 1, 2, 5, 6}, 7},
        {"the end", {2, 2}, {2}, 1},
        {"end of", {}, {1, 2, 5, 6}, 5},  // not across two verses
        {"end of", {0, 1}, {1}, 1},
        {"the of", {}, {3, 5}, 2},
        {"end the", {}, {}, 0},
    };
    ExpectPhrases(kNeighbours, kRows);
}

TEST(PhraseSearch, CountsOnlyMarkedPlacesOfALongVerse) {
    const std::string end = std::string(1000, 'x') + ", he said";
    const std::string longVerse = "he said " + end;
    const std::string unmarked = "said he " + end;
    const HandMadeVerse verses[] = {
        {1, 1, 1, unmarked}, {1, 1, 2, "he said"},          {1, 1, 3, "he said, he said"}, {1, 1, 4, longVerse},
        {1, 1, 5, unmarked}, {1, 1, 6, "he said; she, he"}, {1, 1, 7, "said he"},          {1, 1, 8, unmarked},
    };
    static const PhraseRow kRows[] = {
        {"he said", {}, {0, 1, 2, 3, 4, 5, 7}, 5},
        {"he said", {0, 0}, {0}, 0},
        {"he said", {2, 3}, {2, 3}, 3},
        {"he said", {4, 6}, {4, 5}, 1},
        {"said he", {}, {0, 2, 4, 6, 7}, 5},
    };
    ExpectPhrases(verses, kRows);
}

TEST(Search, StaysInItsRange) {
    static const struct {
        SearchRange range;
        std::vector<std::int32_t> verses;
    } kRows[] = {
        {{0, 0}, {0}},
        {{1, 2}, {1, 2}},
        {{2, 6}, {2, 3}},
        {{8, kLastVerse}, {}},
        {{7, 7}, {7}},
        {{-5, 1}, {0, 1}},
        {{3, 2}, {}},
        {{3, 99999}, {3, 7}},
        {{-9, -1}, {}},
        {{40000, 50000}, {}},
        {{-2147483647 - 1, 2147483647}, {0, 1, 2, 3, 7}},
    };
    const SmallBible bible;
    for (const auto& row : kRows)
        for (const QueryKind kind : {kWords, kPhrase})
            for (const int flags : {kPlain, kParts})
                EXPECT_EQ(Find(bible, QueryFor("the", kind, flags), row.range).verses, row.verses)
                    << row.range.StartVerse << " " << row.range.EndVerse;
}

// Entries of the index outside the range are not counted, with any flags.
TEST(Search, CountsNothingOutsideItsRange) {
    const SmallBible bible;
    for (const int flags : kEveryFlags)
        for (const QueryKind kind : {kWords, kPhrase}) {
            const SearchResult result = Find(bible, QueryFor("god", kind, flags), {2, 9});
            EXPECT_TRUE(result.verses.empty()) << flags;
            EXPECT_EQ(result.occurrences, 0) << flags;
        }
}

// The counters are passed from search to search; the counts of an earlier one must not affect a later one.
TEST(Search, DiscardsPreviousCounts) {
    const SmallBible bible;
    HitCounters hits;
    const auto find = [&](const char* text, QueryKind kind) {
        return Search(bible.scripture, bible.index, QueryFor(text, kind), {}, hits);
    };
    for (const char* before : {"the lord", "the"})
        for (const char* text : {"zeal", "zeal zeal", ""})
            for (const QueryKind kind : {kWords, kPhrase}) {
                ASSERT_FALSE(find(before, kPhrase).verses.empty());
                const SearchResult result = find(text, kind);
                EXPECT_TRUE(result.verses.empty()) << before << "|" << text;
                EXPECT_EQ(result.occurrences, 0) << before << "|" << text;
            }
    ASSERT_FALSE(find("the", kWords).verses.empty());
    EXPECT_EQ(find("he said", kPhrase).verses, std::vector<std::int32_t>{7});
    EXPECT_EQ(find("light the", kWords).verses, std::vector<std::int32_t>{7});
}

// Damaged records: verse 1 points past the text, though the index names it for both words.
TEST(Search, FindsNoPhraseInAVerseWithoutText) {
    HandMadeFiles files;
    AddVerse(files, {1, 1, 1, "the lord"});
    AddRecord(files, 1, 1, 2, 999);
    AddVerse(files, {1, 1, 3, "the lord"});
    static constexpr HandMadeVerse kIndexed[] = {{1, 1, 1, "the lord"}, {1, 1, 2, "the lord"}, {1, 1, 3, "the lord"}};
    FilesInMemory indexFiles = MakeIndexFiles(kIndexed);
    const Query query = QueryFor("the lord", kPhrase);
    HitCounters hits;
    EXPECT_EQ(Search(ScriptureOf(files), IndexOf(indexFiles), query, {}, hits).verses,
              (std::vector<std::int32_t>{0, 2}));
    EXPECT_TRUE(Search(ScriptureOf(files), IndexOf(indexFiles), query, {1, 1}, hits).verses.empty());
}

TEST(Search, HandlesWordsOfAnyLength) {
    const SmallBible bible;
    for (const std::size_t length : {79u, 80u, 81u, 199u, 5000u})
        for (const int flags : kEveryFlags)
            for (const QueryKind kind : {kWords, kPhrase}) {
                const Query query = QueryFor(std::string(length, 'e'), kind, flags, kAnyWord);
                EXPECT_TRUE(Find(bible, query).verses.empty()) << length;
            }
}

// The order within a list does not matter.
TEST(Search, FindsTheSameWithListsInAnyOrder) {
    SmallBible bible;
    const FilesInMemory whole = MakeIndexFiles(kVerses);
    FilesInMemory turned = whole;
    WordIndex index = IndexOf(turned);
    for (int word = 0; word < WordCount(index); ++word) {
        const auto entries = EntriesOf(index, word);
        const auto from = turned[kVerseListsFile].begin() + (entries.data() - index.verseLists.data());
        for (std::size_t i = 0; i + 2 < entries.size() - i; i += 2) {
            std::swap(from[static_cast<std::ptrdiff_t>(i)], from[static_cast<std::ptrdiff_t>(entries.size() - 2 - i)]);
            std::swap(from[static_cast<std::ptrdiff_t>(i + 1)],
                      from[static_cast<std::ptrdiff_t>(entries.size() - 1 - i)]);
        }
    }
    index = IndexOf(turned);
    ASSERT_FALSE(DoesListAscend(index, FindWord(index, "the")));
    for (const char* text : {"the", "the lord", "e", "and", "lord god", "he said", "the the"})
        for (const int flags : kEveryFlags)
            for (const int type : {kAllWords, kAnyWord, kOneWord})
                for (const QueryKind kind : {kWords, kPhrase}) {
                    const Query query = QueryFor(text, kind, flags, type);
                    const SearchResult wanted = Find(bible, query);
                    HitCounters hits;
                    const SearchResult result = Search(bible.scripture, index, query, {}, hits);
                    EXPECT_EQ(result.verses, wanted.verses) << text << flags;
                    EXPECT_EQ(result.occurrences, wanted.occurrences) << text << flags;
                }
}

// Damaged files may give wrong results, but nothing outside them may be accessed.
TEST(Search, HandlesADamagedIndex) {
    SmallBible bible;
    const FilesInMemory whole = MakeIndexFiles(kVerses);
    std::vector<FilesInMemory> damages;
    for (const char* name : {kWordPointersFile, kVerseListsFile})
        for (const int byte : {0x00, 0x79, 0x7E, 0xFF}) {
            damages.push_back(whole);
            for (unsigned char& each : damages.back()[name]) each = static_cast<unsigned char>(byte);
            damages.push_back(whole);
            damages.back()[name].resize(static_cast<std::size_t>(byte / 2));
        }
    damages.push_back(whole);
    damages.back()[kVerseListsFile] = {0x7D, 0x79, 0x7E, 0x79, 0x7F, 0x79, 0xFF, 0xFF, 0xFF, 0x7F};  // 31101 and above
    for (FilesInMemory& files : damages) {
        bible.index = IndexOf(files);
        for (const char* text : {"the", "the lord", "e", "and"})
            for (const int flags : kEveryFlags)
                for (const QueryKind kind : {kWords, kPhrase})
                    for (const int verse : Find(bible, QueryFor(text, kind, flags, kAnyWord)).verses)
                        EXPECT_TRUE(verse >= 0 && verse <= kLastVerse);
    }
    HitCounters hits;
    for (const QueryKind kind : {kWords, kPhrase})
        EXPECT_TRUE(Search({}, {}, QueryFor("the", kind), {}, hits).verses.empty());
}

TEST(SearchSummary, GivesTheCounts) {
    static constexpr struct {
        std::size_t verses;
        int occurrences;
        const char* summary;
    } kRows[] = {
        {0, 0, "0 verses, 0 occurrences"},
        {1, 1, "1 verse, 1 occurance"},  // (sic)
        {1, 2, "1 verse, 2 occurrences"},
        {2, 1, "2 verses, 1 occurance"},  // (sic)
        {24091, 63919, "24091 verses, 63919 occurrences"},
        {1, 0, "1 verse, 0 occurrences"},
    };
    for (const auto& row : kRows) {
        const SearchResult result{std::vector<std::int32_t>(row.verses), row.occurrences};
        EXPECT_EQ(SearchSummary(result), row.summary);
    }
}

// Numbers for the real text, which were counted with other tools.
TEST(TheRealText, SearchesHaveTheKnownCounts) {
    static constexpr struct {
        const char* query;
        QueryKind kind;
        int flags;
        int booleanType;
        std::size_t verses;
        int occurrences;
    } kRows[] = {
        {"the", kWords, kPlain, kAllWords, 24091, 63919},
        {"grace", kWords, kPlain, kAllWords, 159, 170},
        {"lord", kWords, kPlain, kAllWords, 6667, 7882},
        {"lord's", kWords, kPlain, kAllWords, 131, 134},
        {"lord god", kWords, kPlain, kAllWords, 1593, 3785},
        {"lord god", kWords, kPlain, kAnyWord, 8951, 12344},
        {"lord god", kWords, kPlain, kOneWord, 7358, 8559},
        {"faith hope", kWords, kPlain, kAllWords, 8, 16},
        {"LORD", kWords, kCase, kAllWords, 5485, 6504},
        {"And", kWords, kCase, kAllWords, 10266, 10989},
        {"love", kWords, kParts, kAllWords, 546, 645},
        {"e", kWords, kParts, kAllWords, 31062, 410087},
        {"of the", kPhrase, kPlain, kAllWords, 8863, 12758},
        {"in the beginning", kPhrase, kPlain, kAllWords, 17, 17},
        {"and it came to pass", kPhrase, kPlain, kAllWords, 396, 396},
        {"he said", kPhrase, kPlain, kAllWords, 700, 738},
        {"grace", kPhrase, kPlain, kAllWords, 159, 170},
    };
    HitCounters hits;
    for (const auto& row : kRows) {
        const Query query = QueryFor(row.query, row.kind, row.flags, row.booleanType);
        const SearchResult result = Search(TheRealScripture(), TheRealWordIndex(), query, {}, hits);
        EXPECT_EQ(result.verses.size(), row.verses) << row.query;
        EXPECT_EQ(result.occurrences, row.occurrences) << row.query;
    }
}
