// Checks the scripture files from the build against known facts about the Authorized Version.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <map>
#include <numeric>
#include <set>

#include "data/built_scripture.h"
#include "data/text_checks.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::Le;
using testing::Not;

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

namespace {

struct FileRow {
    const char* name;
    std::size_t size;
    const char* sha256;
};

}  // namespace

// Every build makes the same bytes, on every machine.
static constexpr FileRow kFiles[] = {
    {"_avvidx.dat", 217714, "b3d00aba806a293ce62df274db083b83ef503324b5dbac3d287a3ef4fe8b6c9d"},
    {"_avtext.dat", 4185725, "a361db592720b7e9d79e7855e63b13c36336ff545dc40613b5f8c8d1c621206d"},
    {"_avwrds.dat", 102411, "e71facca3fe22bbfdd13a363adfa8b561da3f36a4c76d07087f4d3f319156f80"},
    {"_avwptr.dat", 50916, "ce2970564a3f18f90d46f2598fb965bd0f0187a6e47e0345ff34d1b99d684bbd"},
    {"_avwidx.dat", 1233862, "b3a36403fad0adb566f6966947ac7118576b2976208cd57c9dc0e242664eac02"},
};

// By sha256sum. The text has no file name.
static std::string DigestOfBuiltFile(const std::string& name) {
    std::FILE* const pipe = popen(("sha256sum < " VERSEWELL_DATA_DIR "/" + name).c_str(), "r");
    std::array<char, 65> digest{};
    const bool isRead = pipe != nullptr && std::fgets(digest.data(), digest.size(), pipe) != nullptr;
    if (pipe == nullptr || pclose(pipe) != 0 || !isRead) return "";
    return digest.data();
}

TEST(BuiltText, FilesHaveTheKnownBytes) {
    std::string listed;
    for (const FileRow& row : kFiles) {
        EXPECT_EQ(BytesOfBuiltFile(row.name).size(), row.size) << row.name;
        EXPECT_EQ(DigestOfBuiltFile(row.name), row.sha256) << row.name;
        listed += std::string(row.sha256) + "  " + row.name + "\n";
    }
    EXPECT_EQ(BytesOfBuiltFile("scripture.sha256"), listed);  // which becomes part of the program
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
    EXPECT_EQ(CountVerses([](const Verse& verse) { return verse.verse > 1 && HasMark(verse); }), 2970);  // printed
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

// One place for each rule of the conversion, and places where the module was conformed.
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
    {"Ex 38:28", "five [shekels] he"},
    {"Ro 4:18", "nations; according"},
    {"1Sa 6:9", "smote us; it"},
    {"Ex 23:23", "[and] the Hivites"},
    {"1Sa 28:7", "En-dor"},
    {"Isa 9:6", "Wonderful, Counseller,"},
    {"Isa 38:18", "death can [not] celebrate"},
    {"1Co 4:17", "my ways which be in Christ"},
};

TEST(BuiltText, HasKnownPhrases) {
    for (const PhraseRow& row : kPhrases)
        EXPECT_NE(TextOf(row.reference).find(row.phrase), std::string::npos)
            << row.reference << ": " << TextOf(row.reference);
}

// Twelve places by which the Pure Cambridge Edition is told from others, with what those have there.
static constexpr struct {
    const char* reference;
    const char* phrase;
    const char* other;
} kMarksOfTheEdition[] = {
    {"Jos 19:2", "or Sheba", "and Sheba"},
    {"2Ch 33:19", "all his sin, and", "sins"},
    {"Job 33:4", "The Spirit of God", "spirit"},
    {"Jer 34:16", "whom ye had set", "whom he"},
    {"Eze 11:24", "by the Spirit of God", "spirit of God"},
    {"Na 3:16", "flieth away", "fleeth"},
    {"Mt 4:1", "led up of the Spirit", "spirit"},
    {"Mt 26:39", "went a little further", "farther"},
    {"Mt 26:73", "thy speech bewrayeth thee", "betrayeth"},
    {"Mr 1:12", "the Spirit driveth him", "spirit"},
    {"Ac 11:28", "signified by the spirit", "Spirit"},
    {"1Jo 5:8", "the spirit, and the water", "Spirit"},
};

TEST(BuiltText, HasTheTwelveMarksOfThePureCambridgeEdition) {
    for (const auto& [reference, phrase, other] : kMarksOfTheEdition) {
        EXPECT_THAT(TextOf(reference), HasSubstr(phrase)) << reference;
        EXPECT_THAT(TextOf(reference), Not(HasSubstr(other))) << reference;
    }
}

TEST(BuiltText, HasTheKnownNumberOfItalics) {
    std::ptrdiff_t runs = 0;
    for (const Verse& verse : TheVerses()) runs += std::count(verse.text.begin(), verse.text.end(), '[');
    EXPECT_EQ(runs, 21489);
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
