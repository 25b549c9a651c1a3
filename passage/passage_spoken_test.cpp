// What a screen reader is told of the verses of the Passage.
#include <gtest/gtest.h>

#include <random>

#include "pane/spoken_items.h"
#include "passage/passage_flow.h"
#include "tests/support/even_letters.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6One two three."},
    {1, 1, 2, "And [it was] so."},
    {1, 2, 1, "\xB6Thus ([all]): end."},
    {1, 2, 2, "Amen so."},
};

static PassageFlow FlowOf(const Scripture& scripture, int top, bool paragraphs, int width, int height) {
    PassageFlow flow;
    flow.scripture = &scripture;
    flow.measure = EvenLetters();
    flow.options.ParagraphFormat = paragraphs;
    flow.topVerse = top;
    flow.width = width;
    flow.height = height;
    return flow;
}

static SpokenItems ShownBy(const PassageFlow& flow) {
    SpokenItems shown{flow.width, flow.height, LineHeightOf(flow.measure), {}};
    WalkPassage(flow, ItemsVisitor(shown));
    return shown;
}

static std::string TextOf(const Scripture& scripture, int verse, bool paragraphs, int italics) {
    PassageFlow flow = FlowOf(scripture, verse, paragraphs, 100, kEndlessHeight);
    flow.options.Italics = static_cast<std::int8_t>(italics);
    SpokenWords words;
    WalkPassage(flow, WordsVisitor(words));
    return SpokenName("", words);
}

TEST(PassageSpoken, VersesHaveTheirPlaces) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    const SpokenItems shown = ShownBy(FlowOf(scripture, 0, false, 200, 170));
    ASSERT_EQ(shown.items.size(), 4u);
    EXPECT_EQ(PlaceOf(shown, shown.items[0]), (SpokenPlace{1, 0, 181, 40}));
    EXPECT_EQ(PlaceOf(shown, shown.items[1]), (SpokenPlace{1, 40, 181, 60}));
    EXPECT_EQ(PlaceOf(shown, shown.items[2]), (SpokenPlace{1, 120, 171, 160})) << "without the heading";
    EXPECT_EQ(PlaceOf(shown, shown.items[3]), (SpokenPlace{1, 160, 121, 170})) << "cut off by the pane";
    EXPECT_EQ(ItemAt(shown, 50, 85), -1) << "the heading";
}

TEST(PassageSpoken, TextIsThatOfThePane) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    struct Row {
        int verse, italics;
        bool paragraphs;
        const char* text;
    };
    const Row rows[] = {
        {0, kItalicType, false, " \xB6 One two three."}, {0, kItalicType, true, " One two three."},
        {1, kItalicType, false, " And it was so."},      {1, kBracketed, false, " And [it was] so."},
        {1, kPlainType, true, " And it was so."},        {2, kBracketed, true, " Thus ([all]): end."},
        {2, kItalicType, true, " Thus (all): end."},     {3, kPlainType, false, " Amen so."},
    };
    for (const auto& [verse, italics, paragraphs, text] : rows)
        EXPECT_EQ(TextOf(scripture, verse, paragraphs, italics), text) << verse << ", " << italics;
}

static int CountOfVisible(const PassageFlow& flow) {
    int lastVisible = flow.topVerse - 1;
    WalkPassage(flow, [&](const FlowBox& box) {
        if (box.kind != BoxKind::kHeading && box.y < flow.height) lastVisible = box.point.place;
        return true;
    });
    return lastVisible - flow.topVerse + 1;
}

// The middle of each verse's place is the verse, in whatever pane, and its lines are those that are painted.
TEST(PassageSpoken, MiddleOfEachPlaceIsItsVerse) {
    const Scripture& scripture = TheRealScripture();
    std::mt19937 random(5);
    for (int turn = 0; turn < 400; ++turn) {
        const auto any = [&random](int from, int to) { return std::uniform_int_distribution(from, to)(random); };
        const PassageFlow flow = FlowOf(scripture, any(0, kLastVerse), any(0, 1) == 1, any(150, 1500), any(1, 900));
        const SpokenItems shown = ShownBy(flow);
        EXPECT_EQ(static_cast<int>(shown.items.size()), CountOfVisible(flow));
        for (const SpokenItem& item : shown.items) {
            const SpokenPlace place = PlaceOf(shown, item);
            EXPECT_EQ(ItemAt(shown, (place.left + place.right) / 2, (place.top + place.bottom) / 2), item.item);
            EXPECT_LE(place.bottom, flow.height);
            EXPECT_LE(place.right, flow.width);
        }
    }
}

TEST(PassageSpoken, VerseCutOffIsReadToItsEnd) {
    const Scripture& scripture = TheRealScripture();
    for (int verse = 0; verse <= kLastVerse; verse += 97) {
        std::string text(VerseText(scripture, verse));
        if (text.front() == kParagraphMark) text.erase(0, 1);
        EXPECT_EQ(TextOf(scripture, verse, true, kBracketed), " " + text);
    }
}
