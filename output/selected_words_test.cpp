#include "output/selected_words.h"

#include <gtest/gtest.h>

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
        WordReader reader = CopyingReader(keepBrackets);
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
