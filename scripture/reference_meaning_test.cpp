#include "scripture/reference_meaning.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/native_scripture.h"
#include "tests/support/typed_references.h"

static std::string Meaning(const std::string& typed, Asked asked) {
    return ReferenceMeaning(TheRealScripture().records, typed, asked);
}

namespace {

struct Row {
    const char* typed;
    const char* verse;  // what it means in a field that asks for a verse
    const char* range;
};

}  // namespace

TEST(ReferenceMeaning, NamesTheVerses) {
    static constexpr Row kRows[] = {
        {"Ge 1:9", "Genesis 1:9", "Genesis 1:9, 1 verse"},
        {"1 John 1:9", "1 John 1:9", "1 John 1:9, 1 verse"},
        {"Ps 23", "Psalms 23:1", "Psalms 23:1 to 23:6, 6 verses"},
        {"jude", "Jude 1:1", "Jude 1:1 to 1:25, 25 verses"},
        {"Ge 1:1 - ", "Genesis 1:1", "Genesis 1:1, 1 verse"},
        {"Ge 1:1-2:3", "Genesis 1:1", "Genesis 1:1 to 2:3, 34 verses"},
        {"Ge 50:26 - Ex 1:1", "Genesis 50:26", "Genesis 50:26 to Exodus 1:1, 2 verses"},
        {"Ge - Re", "Genesis 1:1", "Genesis 1:1 to Revelation 22:21, 31102 verses"},
        {"Re 22 - Ge 1", "Revelation 22:1", "Genesis 1:31 to Revelation 22:1, 31052 verses"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Meaning(row.typed, Asked::kVerse), row.verse) << row.typed;
        EXPECT_EQ(Meaning(row.typed, Asked::kRange), row.range) << row.typed;
    }
}

// What is understood otherwise than it was meant.
TEST(ReferenceMeaning, ShowsAnotherPlaceThanWasMeant) {
    static constexpr Row kRows[] = {
        {"1 Jn 1:9", "Genesis 1:9", "Ge 1:9 (not used: \"Jn 1\")"},
        {"Ro 8:1-17", "Romans 8:1", "Romans 8:1 to 16:27, 247 verses"},
        {"Song of Solomon 2:1", "Song of Solomon 1:1", "not understood"},
        {"Ge 1 - Ex 2:3", "Genesis 1:3", "Ge 1:3 (not used: \"- Ex 2\")"},
        {"Ge 1:1 - 1:3; Ex 2:1", "Genesis 1:1", "Ge 1:1 - Ge 1:3 (not used: \"; Ex 2:1\")"},
        {"Ge 1:1-3; Ex 2:1", "Genesis 1:1", "Ge 1:1 - Ge 3:1 (not used: \"; Ex 2\")"},
        {"Ge 1-2; Ex 3 or Le", "Genesis 1:1", "Ge 1:1 - Ge 2:25 (not used: \"; Ex 3or Le\")"},
        {"Ge 1-2; Ex 4 or Le 6-8", "Genesis 1:1", "Ge 1:1 - Ge 2:25 (not used: \"; Ex 4 or Le 6-8\")"},
        {"Ge 1-2; Ex 4 or Le 56-8", "Genesis 1:1", "Ge 1:1 - Ge 2:25 (not used: \"; Ex 4 or Le 56-...\")"},
        {"John 3 : 16", "John 3:16", "John 3:16 to 16:33, 624 verses"},
        {"Ge 1:1; Ex 2:3", "Genesis 1:1", "Genesis 1:1 to Exodus 2:3, 1558 verses"},
        {"Ge 99", "Genesis 50:26", "Genesis 50:26, 1 verse"},
        {" ", "Genesis 1:1", "Genesis 1:1 to 50:26, 1533 verses"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Meaning(row.typed, Asked::kVerse), row.verse) << row.typed;
        EXPECT_EQ(Meaning(row.typed, Asked::kRange), row.range) << row.typed;
    }
}

TEST(ReferenceMeaning, SaysWhatIsNotUnderstood) {
    for (const char* typed : {"Xyz 1:1", "Ge 0:1", "Ge 1:0"})
        for (const Asked asked : {Asked::kVerse, Asked::kRange})
            EXPECT_EQ(Meaning(typed, asked), "not understood") << typed;
    EXPECT_EQ(Meaning("Ge 1:1 - Xyz", Asked::kVerse), "Genesis 1:1");
    EXPECT_EQ(Meaning("Ge 1:1 - Xyz", Asked::kRange), "not understood");
    EXPECT_EQ(ReferenceMeaning({}, "Ge 1:1", Asked::kVerse), "not understood");
}

TEST(ReferenceMeaning, IsEmptyForAnEmptyField) {
    EXPECT_EQ(Meaning("", Asked::kVerse), "");
    EXPECT_EQ(Meaning("", Asked::kRange), "");
}

// ---- What OK takes --------------------------------------------------------------------------------------------------

static std::string LineOf(const std::string& typed, Asked asked) {
    const VerseRecords& records = TheRealScripture().records;
    const ParsedRange taken = ParseAsked(records, typed, asked);
    if (!taken.ok) return "not understood";
    return asked == Asked::kVerse ? LineOfVerse(records, taken.first) : LineOfRange(records, taken.first, taken.last);
}

// The beginning of the line, if it also tells what is not used.
static std::string RangeIn(const std::string& meaning) {
    return meaning.substr(0, meaning.find(" (not used: "));
}

TEST(ReferenceMeaning, IsWhatOkTakes) {
    int understood = 0, refused = 0, parts = 0;
    for (const std::string& typed : TypedReferences(20, 5000))
        for (const Asked asked : {Asked::kVerse, Asked::kRange}) {
            const std::string meaning = Meaning(typed, asked);
            const ParsedRange taken = ParseAsked(TheRealScripture().records, typed, asked);
            const bool isPart = taken.ok && !taken.unused.empty();
            EXPECT_EQ(RangeIn(meaning) != meaning, isPart) << typed;
            EXPECT_EQ(isPart ? LineOf(RangeIn(meaning), asked) : meaning, LineOf(typed, asked)) << typed;
            parts += isPart;
            ++(meaning == "not understood" ? refused : understood);
        }
    EXPECT_GT(understood, 4000) << "the texts are of all kinds";
    EXPECT_GT(refused, 1000);
    EXPECT_GT(parts, 100);
}

TEST(ParseAsked, TakesAVerseAsARangeOfOne) {
    const VerseRecords& records = TheRealScripture().records;
    const ParsedRange verse = ParseAsked(records, "Ge 1:1 - 3", Asked::kVerse);
    EXPECT_TRUE(verse.ok);
    EXPECT_EQ(verse.first, 0);
    EXPECT_EQ(verse.last, 0);
    const ParsedRange range = ParseAsked(records, "Ge 1:1 - 3", Asked::kRange);
    EXPECT_EQ(range.first, 0);
    EXPECT_EQ(range.last, 79);
    EXPECT_EQ(range.text, "Ge 1:1- 3");
    EXPECT_FALSE(ParseAsked(records, "Xyz", Asked::kVerse).ok);
}
