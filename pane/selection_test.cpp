#include "pane/selection.h"

#include <gtest/gtest.h>

static Selection PassageSelection(SelectionPoint anchor, SelectionPoint end) {
    return {kPassageOwns, anchor, end};
}

TEST(Ordered, PutsTheEarlierPointFirst) {
    struct Row {
        SelectionPoint anchor, end, first, last;
    };
    const Row rows[] = {
        {{3, 4}, {5, 1}, {3, 4}, {5, 1}},  // dragged forward
        {{5, 1}, {3, 4}, {3, 4}, {5, 1}},  // and back
        {{3, 7}, {3, 2}, {3, 2}, {3, 7}},  // in one verse
        {{3, 2}, {3, 2}, {3, 2}, {3, 2}},     {{5, 0}, {4, 9}, {4, 9}, {5, 0}},
        {{4, 1}, {-1, -1}, {-1, -1}, {4, 1}},  // the mouse is not over text
    };
    for (const Row& row : rows) {
        const OrderedSelection ordered = Ordered(PassageSelection(row.anchor, row.end));
        EXPECT_EQ(ordered.start, row.first);
        EXPECT_EQ(ordered.end, row.last);
    }
}

TEST(IsSelected, IncludesBothEnds) {
    struct Row {
        SelectionPoint point;
        bool selected;
    };
    const OrderedSelection selection = {{3, 4}, {5, 1}};
    const Row rows[] = {
        {{3, 3}, false}, {{3, 4}, true},  {{3, 99}, true}, {{4, 0}, true},  {{5, 0}, true},
        {{5, 1}, true},  {{5, 2}, false}, {{2, 9}, false}, {{6, 0}, false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(IsSelected(selection, row.point), row.selected) << row.point.place << ", " << row.point.word;
}

TEST(IsSelected, LabelAloneCanBeSelected) {
    const OrderedSelection label = {{7, 0}, {7, 0}};
    EXPECT_TRUE(IsSelected(label, {7, 0}));
    EXPECT_FALSE(IsSelected(label, {7, 1}));
    EXPECT_FALSE(IsSelected({}, {0, 0})) << "nothing is in an empty selection";
}

struct PlaceRow {
    SelectionPoint anchor, end;
    int firstSelected, anchorPlace;
};

// The pane shows 10 to 20. Different commands use different rules, whose results differ after dragging upward.
static constexpr PlaceRow kPlaceRows[] = {
    {{12, 1}, {14, 1}, 12, 12},   //
    {{14, 1}, {12, 1}, 12, 14},   //
    {{10, 0}, {20, 9}, 10, 10},   // the whole pane
    {{9, 5}, {12, 1}, 10, 10},    // begins above the pane
    {{12, 1}, {9, 5}, 10, 12},    // ends above the pane
    {{12, 1}, {21, 0}, 10, 10},   // ends below the pane
    {{21, 0}, {12, 1}, 10, 21},   // begins below the pane
    {{30, 1}, {31, 1}, 10, 10},   // scrolled out of view
    {{12, 1}, {-1, -1}, 10, 12},  // the mouse is not over text
};

TEST(FirstSelectedPlace, IgnoresASelectionThatIsNotFullyVisible) {
    for (const PlaceRow& row : kPlaceRows) {
        const Selection selection = PassageSelection(row.anchor, row.end);
        EXPECT_EQ(FirstSelectedPlace(selection, kPassageOwns, 10, 20), row.firstSelected) << row.anchor.place;
        EXPECT_EQ(FirstSelectedPlace(selection, kVerseListOwns, 10, 20), 10) << "another pane's selection";
    }
}

TEST(AnchorPlace, DependsOnTheVisibilityOfTheEnds) {
    for (const PlaceRow& row : kPlaceRows) {
        const Selection selection = PassageSelection(row.anchor, row.end);
        EXPECT_EQ(AnchorPlace(selection, kPassageOwns, 10, 20), row.anchorPlace) << row.anchor.place;
        EXPECT_EQ(AnchorPlace(selection, kVerseListOwns, 10, 20), 10) << "another pane's selection";
    }
}

static constexpr int kAll = 1 << 20;

struct WordsRow {
    const char* verse;
    bool keepBrackets;
    WordSpan span;
    const char* text;
    bool ended;
};

TEST(AppendWords, CountsWordsLikeThePanes) {
    static constexpr WordsRow kRows[] = {
        {"One two three.", true, {0, kAll}, "One two three. ", true},
        {"One two three.", true, {1, 3}, "One two three. ", true},
        {"One two three.", true, {2, 2}, "two ", false},
        {"One two three.", true, {3, 3}, "three. ", true},
        {"One two three.", true, {0, 0}, "", false},
        {"One two three.", true, {4, kAll}, "", true},
        {"\xB6One two.", true, {1, 1}, "\xB6 ", false},  // a paragraph mark is a word
        {"\xB6One two.", true, {2, 2}, "One ", false},
        {"And ([is] it): so.", true, {2, 3}, "([is] it): ", false},
        {"And ([is] it): so.", false, {2, 3}, "(is it): ", false},
        {"And [it was] so.", true, {3, 3}, "was] ", false},
        {"", true, {0, kAll}, " ", true},
    };
    for (const auto& [verse, keepBrackets, span, expected, ended] : kRows) {
        WordReader reader = CopyingReader(keepBrackets, CopyMarks::kNone);
        std::string text = "...";
        EXPECT_EQ(AppendWords(text, reader, verse, span), ended) << verse << span.first;
        EXPECT_EQ(text, std::string("...") + expected) << verse << span.first;
    }
}

TEST(SelectedWords, AreWholeVersesBetweenFirstAndLast) {
    struct Row {
        SelectionPoint start, end;
        int place, first;
        int last;  // -1: all
    };
    static constexpr Row kRows[] = {
        {{3, 4}, {5, 1}, 3, 4, -1},
        {{3, 4}, {5, 1}, 4, 0, -1},
        {{3, 4}, {5, 1}, 5, 0, 1},
        {{3, 4}, {3, 9}, 3, 4, 9},
    };
    for (const Row& row : kRows) {
        const WordSpan words = SelectedWords({row.start, row.end}, row.place);
        EXPECT_EQ(words.first, row.first);
        if (row.last < 0) {
            EXPECT_GT(words.last, 4000) << "more than any verse has";
        } else {
            EXPECT_EQ(words.last, row.last);
        }
    }
}

struct SearchTextRow {
    std::string copy;
    int limit;
    std::string text;
};

TEST(SearchText, KeepsOnlyBlanksAndLetters) {
    const auto letters = [](std::size_t count) { return std::string(count, 'a'); };
    const SearchTextRow rows[] = {
        {"", kWordSearchScan, ""},
        {"In the beginning ", kWordSearchScan, "In the beginning "},
        {" Ge 1:2 And [it was] so: God's. \r\n 3 Amen ", kWordSearchScan, " Ge  And it was so Gods   Amen "},
        {"\r\n\r\nGenesis chapter 2\r\n", kWordSearchScan, "Genesis chapter "},  // headings are included
        {"\xB6 Thus \xC4 @[`{ aZ", kWordSearchScan, " Thus   aZ"},
        {letters(199), kWordSearchScan, letters(199)},
        {letters(200), kWordSearchScan, letters(199)},
        {letters(5000), kWordSearchScan, letters(199)},
        {letters(148), kNoteSearchScan, letters(148)},
        {letters(150), kNoteSearchScan, letters(149)},
        {"1:1" + letters(300), kWordSearchScan, letters(197)},  // removed characters count as scanned
        {"1:1" + letters(300), kNoteSearchScan, letters(146)},
        {std::string(200, ' '), kWordSearchScan, std::string(199, ' ')},
    };
    for (const auto& [copy, limit, text] : rows) EXPECT_EQ(SearchTextOf(copy, limit), text) << copy;
}
