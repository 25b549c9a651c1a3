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

// ---- Notes in UTF-8 -------------------------------------------------------------------------------------------------

static const std::string kBetween = "\r\n----------------------------------------\r\nAlso written elsewhere:\r\n";

TEST(JoinedNotes, HaveAllLettersOfBoth) {
    static const std::string kMark(kUtf8Mark);
    static const std::string kGreek = kMark + "\xCE\xB1";
    static const struct {
        std::string mine, other, expected;
    } kRows[] = {
        {"caf\xE9", "other", "caf\xE9" + kBetween + "other"},
        {kGreek, "caf\xE9", kGreek + kBetween + "caf\xC3\xA9"},
        {"caf\xE9", kGreek, kMark + "caf\xC3\xA9" + kBetween + "\xCE\xB1"},
        {kGreek, kMark + "\xD7\x90", kGreek + kBetween + "\xD7\x90"},
        {kGreek, "", kGreek},
        {"", kGreek, kGreek},
        {"caf\xE9", kMark + "caf\xC3\xA9", "caf\xE9"},  // the same letters
        {kMark + "caf\xC3\xA9", "caf\xE9", kMark + "caf\xC3\xA9"},
        {kMark + "plain", "other", "plain" + kBetween + "other"},  // the code page has them
    };
    for (const auto& [mine, other, expected] : kRows) {
        const auto joined = JoinedNotes({}, mine, other);
        ASSERT_TRUE(joined.has_value());
        EXPECT_EQ(*joined, expected);
        EXPECT_EQ(JoinedNotes({}, *joined, other), joined) << "joining again changes nothing";
        EXPECT_EQ(JoinedNotes({}, *joined, mine), joined);
    }
}

static std::u16string LettersOfAscii(void*, std::string_view bytes) {
    std::u16string letters;
    for (const char byte : bytes)
        letters += static_cast<unsigned char>(byte) < 0x80 ? static_cast<char16_t>(byte) : u'?';
    return letters;
}

TEST(JoinedNotes, AreNoneIfAByteOfOneIsNoLetter) {
    static const std::string kGreek = std::string(kUtf8Mark) + "\xCE\xB1";
    const CodePage ascii{nullptr, LettersOfAscii, LatinBytes};
    EXPECT_FALSE(JoinedNotes(ascii, kGreek, "caf\xE9").has_value());
    EXPECT_FALSE(JoinedNotes(ascii, "caf\xE9", kGreek).has_value());
    EXPECT_EQ(JoinedNotes(ascii, "caf\xE9", "other"), "caf\xE9" + kBetween + "other") << "bytes stay with bytes";
}
