#include "output/brackets.h"

#include <gtest/gtest.h>

struct BracketRow {
    const char* before;
    const char* after;
};

TEST(Brackets, AreAllRemoved) {
    static constexpr BracketRow kRows[] = {
        {"", ""},         {"no word", "no word"}, {"[it was] good", "it was good"},
        {"[[a]", "a"},    {"a] [b", "a b"},       {"[]", ""},
        {"]]a[[b", "ab"}, {"a[b]c[d]", "abcd"},   {"[a", "a"},
        {"a]", "a"},
    };
    for (const auto& [before, after] : kRows) {
        std::string text = before;
        RemoveBrackets(text);
        EXPECT_EQ(text, after) << before;
    }
}
