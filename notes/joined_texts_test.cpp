#include "notes/joined_texts.h"

#include <gtest/gtest.h>

static const std::string kLines = "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n";

TEST(JoinedTexts, HaveEachPartOnce) {
    const std::string joined = "one" + kLines + "two";
    const struct {
        std::string mine, other, expected;
    } kRows[] = {
        {"one", "two", joined},
        {"one", "one", "one"},
        {"", "", ""},
        {"one", "", "one"},
        {"", "two", "two"},
        {"", joined, joined},
        {"one two", "one", "one two" + kLines + "one"},  // only a whole part counts
        {"one\r\n", "two\r\n", "one\r\n" + kLines + "two\r\n"},
        // What is joined already
        {joined, "two", joined},
        {joined, "one", joined},
        {joined, joined, joined},
        {"one", joined, joined},
        {"two", joined, "two" + kLines + "one"},
        {joined, "two" + kLines + "one", joined},
        {joined, "three", joined + kLines + "three"},
        {joined, "two" + kLines + "three" + kLines + "one", joined + kLines + "three"},
        {"three", joined, "three" + kLines + "one" + kLines + "two"},
        {"one", "two" + kLines + "two", joined},
        {"one", kLines + "two", joined},
    };
    for (const auto& [mine, other, expected] : kRows) EXPECT_EQ(JoinedTexts(mine, other), expected) << mine << other;
}

TEST(JoinedTexts, DoNotChangeWhenTheyAreJoinedAgain) {
    for (const std::string& mine : {std::string("a"), "a" + kLines, "a" + kLines + "b"})
        for (const std::string& other : {std::string("b"), std::string("b\r\n"), "c" + kLines + "b"}) {
            const std::string joined = JoinedTexts(mine, other);
            EXPECT_EQ(JoinedTexts(joined, other), joined);
            EXPECT_EQ(JoinedTexts(joined, mine), joined);
            EXPECT_EQ(JoinedTexts(joined, joined), joined);
        }
}
