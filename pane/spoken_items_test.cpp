#include "pane/spoken_items.h"

#include <gtest/gtest.h>

// Boxes of two items in a pane of 100 x 60 pixels with lines 20 high: the second one begins on the line where the first
// one ends, and both reach beyond an edge.
static constexpr FlowBox kBoxes[] = {
    {.kind = BoxKind::kLabel, .point = {4, 0}, .x = 1, .y = 0, .width = 29},
    {.point = {4, 1}, .x = 30, .y = 0, .width = 60},
    {.point = {4, 2}, .x = 1, .y = 20, .width = 39, .endsItem = true},
    {.kind = BoxKind::kHeading, .point = {5, 0}, .x = 0, .y = 20, .width = 100},
    {.kind = BoxKind::kLabel, .point = {5, 0}, .x = 60, .y = 20, .width = 10},
    {.point = {5, 1}, .x = 70, .y = 20, .width = 40},
    {.point = {5, 2}, .x = 11, .y = 40, .width = 50},
    {.point = {5, 3}, .x = 1, .y = 60, .width = 50},
};

static SpokenItems ShownOf(int height) {
    SpokenItems shown{100, height, 20, {}};
    const FlowVisitor visit = ItemsVisitor(shown);
    for (const FlowBox& box : kBoxes)
        if (!visit(box)) break;
    return shown;
}

TEST(SpokenItems, HaveTheirLinesInsideThePane) {
    const SpokenItems shown = ShownOf(50);
    ASSERT_EQ(shown.items.size(), 2u);
    EXPECT_EQ(shown.items[0].item, 4);
    EXPECT_EQ(shown.items[0].lines, (std::vector<SpokenPlace>{{1, 0, 90, 20}, {1, 20, 40, 40}}));
    EXPECT_EQ(shown.items[1].item, 5);
    EXPECT_EQ(shown.items[1].lines, (std::vector<SpokenPlace>{{60, 20, 100, 40}, {11, 40, 61, 50}}));
    EXPECT_EQ(FindItem(shown, 5), &shown.items[1]);
    EXPECT_EQ(FindItem(shown, 6), nullptr);
}

TEST(SpokenItems, BelowThePaneAreNotThere) {
    const SpokenItems shown = ShownOf(20);
    ASSERT_EQ(shown.items.size(), 1u);
    EXPECT_EQ(shown.items[0].lines.size(), 1u);
}

TEST(SpokenItems, OwnTheRestOfTheirLines) {
    const SpokenItems shown = ShownOf(60);
    struct Row {
        int x, y, item;
    };
    const Row rows[] = {{0, 0, 4},  {99, 19, 4}, {45, 25, 4},  {59, 39, 4}, {60, 20, 5}, {99, 39, 5},
                        {0, 40, 5}, {99, 59, 5}, {100, 5, -1}, {-1, 5, -1}, {5, -1, -1}, {5, 60, -1}};
    for (const auto& [x, y, item] : rows) EXPECT_EQ(ItemAt(shown, x, y), item) << x << ", " << y;
    const SpokenItems gap{100, 60, 20, {{7, {{1, 40, 50, 60}}}}};
    EXPECT_EQ(ItemAt(gap, 5, 39), -1) << "a line without a verse";
}

TEST(SpokenItems, AreWhereTheirMiddleIs) {
    const SpokenItems shown = ShownOf(60);
    EXPECT_EQ(PlaceOf(shown, shown.items[0]), (SpokenPlace{1, 0, 90, 40})) << "both lines";
    EXPECT_EQ(PlaceOf(shown, shown.items[1]), (SpokenPlace{11, 20, 100, 60}));
    const SpokenItems tail{
        100, 60, 20, {{1, {{1, 0, 90, 20}}}, {2, {{90, 0, 99, 20}, {1, 20, 9, 40}}}, {3, {{9, 20, 99, 40}}}}};
    EXPECT_EQ(PlaceOf(tail, tail.items[1]), (SpokenPlace{90, 0, 99, 20}))
        << "the middle of both lines is that of the next";
}

static SpokenWords WordsOf(std::initializer_list<FlowBox> boxes) {
    SpokenWords words;
    const FlowVisitor visit = WordsVisitor(words);
    for (const FlowBox& box : boxes)
        if (!visit(box)) break;
    return words;
}

TEST(SpokenWords, EndWithTheirItem) {
    const SpokenWords words = WordsOf({{.kind = BoxKind::kLabel, .text = "Ge 1:1 "},
                                       {.text = "One "},
                                       {.endsItem = true, .text = "two. "},
                                       {.text = "Three "}});
    EXPECT_EQ(words.text, "One two. ");
    EXPECT_EQ(SpokenName("Genesis 1:1", words), "Genesis 1:1 One two.");
    EXPECT_EQ(SpokenName("Genesis 1:1", {}), "Genesis 1:1");
    EXPECT_EQ(SpokenDescription(words), "");
}

TEST(SpokenWords, TellWhatWasFoundOnce) {
    const SpokenWords words = WordsOf({{.keyWord = true, .text = "Lo"},
                                       {.face = Face::kItalic, .keyWord = true, .text = "ve "},
                                       {.text = "of "},
                                       {.keyWord = true, .text = "God"},
                                       {.text = ", "},
                                       {.keyWord = true, .text = "Love"},
                                       {.endsItem = true, .text = ". "}});
    EXPECT_EQ(SpokenDescription(words), "Found: Love, God.");
}

TEST(SpokenWords, TellOfANote) {
    const FlowBox label{.kind = BoxKind::kLabel, .text = " *Ge 1:1 "}, text{.endsItem = true, .text = "One. "};
    EXPECT_EQ(SpokenDescription(WordsOf({label, text})), "Has a note.");
    const FlowBox found{.keyWord = true, .endsItem = true, .text = "One "};
    EXPECT_EQ(SpokenDescription(WordsOf({label, found})), "Found: One. Has a note.");
}
