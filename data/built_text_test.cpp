// Checks the scripture files from the build against known facts about the Authorized Version.
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <numeric>
#include <set>

#include "data/built_scripture.h"
#include "data/text_checks.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;

static const Verses& TheVerses() {
    return TheBuiltScripture().verses;
}

static bool IsOldTestament(const Verse& verse) {
    return verse.book <= 39;
}

static bool HasMark(const Verse& verse) {
    return verse.text.front() == '\xB6';
}

template <typename Test>
static auto CountVerses(Test test) {
    return std::count_if(TheVerses().begin(), TheVerses().end(), test);
}

TEST(BuiltText, FilesHaveTheKnownSizes) {
    EXPECT_EQ(BytesOfBuiltFile("_avvidx.dat").size(), 217714u);
    EXPECT_EQ(BytesOfBuiltFile("_avtext.dat").size(), 4185693u);
    EXPECT_EQ(BytesOfBuiltFile("_avwrds.dat").size(), 102418u);
    EXPECT_EQ(BytesOfBuiltFile("_avwptr.dat").size(), 50920u);
    EXPECT_EQ(BytesOfBuiltFile("_avwidx.dat").size(), 1233860u);
}

TEST(BuiltText, HasAllVersesAndChapters) {
    EXPECT_EQ(TheVerses().size(), 31102u);
    EXPECT_EQ(CountVerses(IsOldTestament), 23145);
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.verse == 1; }), 1189);
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.verse == 1 && IsOldTestament(verse); }), 929);
}

namespace {

struct IndexRow {
    const char* reference;
    int index;
};

}  // namespace

static constexpr IndexRow kIndexes[] = {
    {"Ge 1:1", 0},       {"Ge 1:4", 3},       {"Jos 5:12", 5946},  {"Ps 103:1", 15550}, {"Ps 103:2", 15551},
    {"So 1:4", 17541},   {"Isa 41:1", 18452}, {"Jer 8:20", 19173}, {"Mal 4:6", 23144},  {"Mt 1:1", 23145},
    {"Joh 7:37", 26365}, {"Col 4:2", 29544},  {"Re 22:21", 31101},
};

TEST(BuiltText, HasKnownVersesAtTheirIndexes) {
    for (const IndexRow& row : kIndexes) EXPECT_EQ(IndexOf(row.reference), row.index) << row.reference;
}

TEST(BuiltText, HasNoGapsBetweenVerses) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < TheVerses().size(); ++i) {
        ASSERT_EQ(TheBuiltScripture().offsets[i], end) << TheBuiltScripture().verseReferences[i];
        end += TheVerses()[i].text.size() + 1;
    }
    EXPECT_EQ(end, BytesOfBuiltFile("_avtext.dat").size());
}

TEST(BuiltText, IsWellFormed) {
    EXPECT_EQ(CheckVerses(TheVerses()), "");
}

// No blank before a stop, no letter right after one, and no letter directly outside a bracket.
TEST(BuiltText, HasCorrectBlanksAroundStopsAndBrackets) {
    const std::string stops = ",.:;?!";
    const auto isLetter = [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
    };
    for (const Verse& verse : TheVerses()) {
        for (std::size_t i = 1; i < verse.text.size(); ++i) {
            const char left = verse.text[i - 1], right = verse.text[i];
            const bool isLeftStop = stops.find(left) != std::string::npos,
                       isRightStop = stops.find(right) != std::string::npos;
            EXPECT_FALSE(left == ' ' && isRightStop) << ReferenceOf(verse);
            EXPECT_FALSE(isLeftStop && isLetter(right)) << ReferenceOf(verse);
            EXPECT_FALSE((isLetter(left) && right == '[') || (left == ']' && isLetter(right))) << ReferenceOf(verse);
            EXPECT_FALSE(right == ']' && isLeftStop) << ReferenceOf(verse);
        }
    }
}

static int ParenthesesOpenAfter(const Verse& verse, int open) {
    for (const char letter : verse.text) {
        if (letter != '(' && letter != ')') continue;
        open += letter == '(' ? 1 : -1;
        EXPECT_THAT(open, AllOf(Ge(0), Le(1))) << ReferenceOf(verse);
    }
    return open;
}

TEST(BuiltText, HasBalancedParentheses) {
    int open = 0, openedForLater = 0;
    std::ptrdiff_t pairs = 0;
    for (const Verse& verse : TheVerses()) {
        const std::ptrdiff_t opened = std::count(verse.text.begin(), verse.text.end(), '(');
        open = ParenthesesOpenAfter(verse, open);
        pairs += opened;
        if (open > 0 && opened > 0) ++openedForLater;
    }
    EXPECT_EQ(open, 0);
    EXPECT_EQ(pairs, 223);
    EXPECT_EQ(openedForLater, 24);
}

TEST(BuiltText, AllButSevenVersesEndWithAStop) {
    std::vector<std::string> without;
    for (const Verse& verse : TheVerses())
        if (std::string(",.:;?!)-").find(PlainText(verse.text).back()) == std::string::npos)
            without.push_back(ReferenceOf(verse));
    EXPECT_THAT(without,
                ElementsAre("Ge 23:17", "1Ch 21:11", "2Ch 30:18", "Ps 96:12", "Ps 98:8", "Ro 11:7", "Col 1:21"));
}

TEST(BuiltText, HasParagraphMarks) {
    EXPECT_EQ(CountVerses(HasMark), 4159);
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.verse == 1 && HasMark(verse); }), 1189);
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.text.starts_with("\xB6["); }), 39);
    // Within chapters the printed book has no marks in the Psalms and none after Acts 20:36.
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.book == 19 && verse.verse > 1 && HasMark(verse); }), 0);
    EXPECT_TRUE(TextOf("Ac 20:36").starts_with("\xB6"));
    const auto later = TheVerses().begin() + IndexOf("Ac 20:37");
    EXPECT_FALSE(
        std::any_of(later, TheVerses().end(), [](const Verse& verse) { return verse.verse > 1 && HasMark(verse); }));
}

// Titles of psalms, the letters of Psalm 119 and the colophons of epistles are not part of verses.
TEST(BuiltText, LeavesOutTitlesAndColophons) {
    EXPECT_TRUE(TextOf("Ps 3:1").starts_with("\xB6LORD, how are they increased")) << TextOf("Ps 3:1");
    EXPECT_TRUE(TextOf("Ps 119:9").starts_with("Wherewithal shall")) << TextOf("Ps 119:9");
    EXPECT_TRUE(TextOf("Ro 16:27").ends_with("for ever. Amen.")) << TextOf("Ro 16:27");
    EXPECT_TRUE(TextOf("Hab 3:19").ends_with("To the chief singer on my stringed instruments.")) << TextOf("Hab 3:19");
    EXPECT_TRUE(TextOf("Ps 9:16").ends_with("Higgaion. Selah.")) << TextOf("Ps 9:16");
}

namespace {

struct PhraseRow {
    const char* reference;
    const char* phrase;
};

}  // namespace

// One place for each rule of the conversion, and places where other editions differ.
static constexpr PhraseRow kPhrases[] = {
    {"Ge 1:1", "\xB6In the beginning"},
    {"Ge 1:4", "that [it was] good:"},
    {"Ex 6:3", "but by my name JEHOVAH"},
    {"Nu 23:15", "[the LORD]"},
    {"Ps 68:4", "by his name JAH,"},
    {"Ex 32:32", "forgive their sin--;"},
    {"Mt 22:21", "unto Caesar the things which are Caesar's"},
    {"1Jo 2:23", "[(but) he that acknowledgeth the Son hath the Father also]."},
    {"Nu 30:7", "heard [it], and"},
    {"Mt 26:17", "the [feast of] unleavened"},
    {"Ex 38:28", "five shekels he"},
    {"Ro 4:18", "nations, according"},
    {"Isa 38:18", "death can [not] celebrate"},
    {"1Co 4:17", "my ways which be in Christ"},
    {"Jos 19:2", "or Sheba"},
    {"2Ch 33:19", "his sin, and"},
    {"Job 33:4", "Spirit of God"},
    {"Jer 34:16", "whom ye had set"},
    {"Na 3:16", "flieth away"},
    {"Mt 26:39", "went a little further"},
};

TEST(BuiltText, HasKnownPhrases) {
    for (const PhraseRow& row : kPhrases)
        EXPECT_NE(TextOf(row.reference).find(row.phrase), std::string::npos)
            << row.reference << ": " << TextOf(row.reference);
}

static std::vector<std::string> ByLength() {
    std::vector<std::string> references = TheBuiltScripture().verseReferences;
    std::vector<std::size_t> lengths;
    std::vector<std::size_t> order(references.size());
    std::iota(order.begin(), order.end(), 0u);
    for (const Verse& verse : TheVerses()) lengths.push_back(PlainText(verse.text).size());
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return lengths[a] < lengths[b]; });
    std::transform(order.begin(), order.end(), references.begin(),
                   [](std::size_t i) { return TheBuiltScripture().verseReferences[i]; });
    return references;
}

TEST(BuiltText, HasTheKnownLongestAndShortestVerses) {
    const std::vector<std::string> order = ByLength();
    EXPECT_EQ(order.back(), "Es 8:9");
    EXPECT_EQ(PlainText(TextOf("Es 8:9")).size(), 528u);
    EXPECT_EQ(TextOf("Es 8:9").size(), 534u);
    EXPECT_EQ(order[0], "Joh 11:35");
    EXPECT_EQ(PlainText(TextOf("Joh 11:35")).size(), 11u);
    EXPECT_EQ(order[1], "1Ch 1:25");
    EXPECT_EQ(order[2], "1Th 5:16");
    EXPECT_EQ(PlainText(TextOf("1Ch 1:25")).size(), 17u);
    EXPECT_EQ(PlainText(TextOf("1Th 5:16")).size(), 17u);
    EXPECT_GT(PlainText(TextOf(order[3])).size(), 17u);
    EXPECT_LT(PlainText(TextOf(order[order.size() - 2])).size(), 528u);
    EXPECT_EQ(std::count(TextOf("Es 8:9").begin(), TextOf("Es 8:9").end(), ' ') + 1, 90);
}

TEST(BuiltText, HasTheKnownLongestAndShortestChapters) {
    std::map<std::pair<int, int>, int> lengths;
    for (const Verse& verse : TheVerses()) ++lengths[{verse.book, verse.chapter}];
    const auto shorter = [](const auto& a, const auto& b) { return a.second < b.second; };
    const auto longest = std::max_element(lengths.begin(), lengths.end(), shorter);
    const auto shortest = std::min_element(lengths.begin(), lengths.end(), shorter);
    EXPECT_EQ(longest->first, std::pair(19, 119));
    EXPECT_EQ(longest->second, 176);
    EXPECT_EQ(shortest->first, std::pair(19, 117));
    EXPECT_EQ(shortest->second, 2);
    lengths.erase(shortest);
    EXPECT_GT(std::min_element(lengths.begin(), lengths.end(), shorter)->second, 2);
}

TEST(BuiltText, HasTheRefrainOfPsalm107) {
    for (const char* reference : {"Ps 107:15", "Ps 107:21", "Ps 107:31"})
        EXPECT_EQ(TextOf(reference), TextOf("Ps 107:8"));
}

TEST(BuiltText, HasEveryLetterExceptJInEzra721) {
    std::set<char> letters;
    for (const std::string& word : PrintedWords(TextOf("Ezr 7:21")))
        for (const char letter : word)
            letters.insert(static_cast<char>(std::tolower(static_cast<unsigned char>(letter))));
    EXPECT_EQ(letters.size(), 25u);
    EXPECT_FALSE(letters.contains('j'));
}
