#include "search/near_query.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "search/query.h"
#include "tests/support/hand_made_index.h"
#include "tests/support/native_scripture.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

TEST(NearPatterns, AreRunsOfLettersAndWildcards) {
    EXPECT_THAT(NearPatternsOf("Grace, lov*", false, false), ElementsAre("grace", "lov*"));
    EXPECT_THAT(NearPatternsOf("Grace lov*", true, false), ElementsAre("Grace", "lov*"));
    EXPECT_THAT(NearPatternsOf("Beth-el's  ?? 12", false, false), ElementsAre("beth", "el's", "??"));
    EXPECT_THAT(NearPatternsOf("a**b ***", false, false), ElementsAre("a*b", "*"));
    EXPECT_THAT(NearPatternsOf(" ;", false, false), IsEmpty());
}

TEST(NearPatterns, HaveStarsAroundPartsOfWords) {
    EXPECT_THAT(NearPatternsOf("ove *ove ov?* **", false, true), ElementsAre("*ove*", "*ove*", "*ov?*", "*"));
}

TEST(NearPatterns, MeanWords) {
    static constexpr struct {
        const char *pattern, *word;
        bool isMeant;
    } kRows[] = {
        {"love", "love", true},
        {"love", "loved", false},
        {"love", "lov", false},
        {"lov*", "lov", true},
        {"lov*", "loved", true},
        {"lov*", "glove", false},
        {"*ove", "love", true},
        {"*ove", "loved", false},
        {"l?ve", "live", true},
        {"l?ve", "lve", false},
        {"?ove", "ove", false},
        {"*o*e*", "beloved", true},
        {"*o*e*", "beo", false},
        {"a*a", "a", false},
        {"a*a", "aa", true},
        {"*ab", "aab", true},
        {"*ab?b", "aabab", true},
        {"*ab?b", "abababb", false},
        {"lord*", "lord's", true},
        {"lord?s", "lord's", true},
        {"*", "", true},
        {"?", "", false},
        {"", "", true},
        {"", "a", false},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(DoesPatternMean(row.pattern, row.word, false), row.isMeant) << row.pattern << " " << row.word;
    EXPECT_TRUE(DoesPatternMean("l*d", "LORD", true));
    EXPECT_FALSE(DoesPatternMean("l*d", "LORD", false));
    EXPECT_TRUE(DoesPatternMean("L*D", "LORD", false));
}

static std::vector<std::string> Meant(const char* pattern) {
    const WordIndex& index = TheRealWordIndex();
    std::vector<std::string> words;
    for (const int word : WordsMeant(index, pattern)) words.emplace_back(index.words[static_cast<std::size_t>(word)]);
    return words;
}

TEST(WordsMeant, AreThoseOfTheWordList) {
    EXPECT_THAT(Meant("grace"), ElementsAre("grace"));
    EXPECT_THAT(Meant("GRACE"), ElementsAre("grace"));
    EXPECT_THAT(Meant("xyzzy"), IsEmpty());
    EXPECT_THAT(Meant("grac*"), ElementsAre("grace", "gracious", "graciously"));
    EXPECT_THAT(Meant("*elove*"), ElementsAre("beloved", "beloved's", "wellbeloved"));
    EXPECT_THAT(Meant("l?ve"), ElementsAre("live", "love"));
    EXPECT_THAT(Meant("zz*"), IsEmpty());
}

// However the words are looked up, they are those that the pattern means one by one.
TEST(WordsMeant, AreAllThatThePatternMeans) {
    const WordIndex& index = TheRealWordIndex();
    for (const std::string pattern : {"*e*", "*", "a*", "*z", "??", "*'*", "s?n*", "*th?r*", "*a*e*i*", "zuzims*"}) {
        std::vector<int> wanted;
        for (int word = 0; word < WordCount(index); ++word)
            if (DoesPatternMean(pattern, index.words[static_cast<std::size_t>(word)], false)) wanted.push_back(word);
        EXPECT_EQ(WordsMeant(index, pattern), wanted) << pattern;
    }
}

TEST(NearProblems, OfTheDistanceAreToldInSentences) {
    for (const int distance : {-1, 0, 51, 1000})
        EXPECT_THAT(ProblemOfNearDistance({kNearInWords, distance}, 1),
                    StrEq("For words, type a number from 1 to 50."));
    for (const int distance : {0, 11, 50})
        EXPECT_THAT(ProblemOfNearDistance({kNearInVerses, distance}, 1),
                    StrEq("For verses, type a number from 1 to 10."));
    EXPECT_EQ(ProblemOfNearDistance({kNearInWords, 50}, 10), nullptr);
    EXPECT_EQ(ProblemOfNearDistance({kNearInVerses, 10}, 10), nullptr);
    EXPECT_EQ(ProblemOfNearDistance({kNearInVerse, 0}, 10), nullptr);
    EXPECT_EQ(ProblemOfNearDistance({kNearInWords, 1}, 2), nullptr);
    EXPECT_THAT(ProblemOfNearDistance({kNearInWords, 1}, 3),
                StrEq("So many words cannot stand so near each other. Type a larger number."));
    EXPECT_EQ(ProblemOfNearDistance({kNearInVerses, 1}, 3), nullptr);
}

TEST(NearQuery, IsMadeOfAnyStoredOptions) {
    SearchState search;
    search.searchText = "Faith HOPE";
    search.nearOptions = {7, 90, 3};
    search.range = {5, 9};
    NearQuery query = NearQueryOf(search).nearQuery;
    EXPECT_THAT(query.patterns, ElementsAre("faith", "hope"));
    EXPECT_EQ(query.unit, kNearInWords);
    EXPECT_EQ(query.distance, 50);
    EXPECT_TRUE(query.inOrder);
    EXPECT_FALSE(query.caseSensitive);
    EXPECT_EQ(query.firstVerse, 5);
    EXPECT_EQ(query.lastVerse, 9);
    search.nearOptions = {kNearInVerses, 50, 0};
    search.options = {.CaseSensitive = 1, .SubString = 1};
    query = NearQueryOf(search).nearQuery;
    EXPECT_THAT(query.patterns, ElementsAre("*Faith*", "*HOPE*"));
    EXPECT_EQ(query.distance, 10);
    EXPECT_FALSE(query.inOrder);
    EXPECT_TRUE(query.caseSensitive);
    search.nearOptions = {kNearInVerse, -4, 0};
    EXPECT_EQ(NearQueryOf(search).nearQuery.distance, 0);
    EXPECT_EQ(ShownNearDistance(search.nearOptions), 1);
    EXPECT_EQ(ShownNearDistance({kNearInVerse, 7, 0}), 7);
    EXPECT_EQ(ShownNearDistance({kNearInVerses, 50, 0}), 10);
}
