#include "search/text_kinds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

// Puts the text between verses that keep it away from the ends of the file.
static HandMadeFiles FilesAround(std::string_view text) {
    static const std::string kFar(kAround, 'x');
    const HandMadeVerse verses[] = {{1, 1, 1, kFar}, {1, 1, 2, text}, {1, 1, 3, kFar}};
    return MakeFiles(verses);
}

static int KindOf(std::string_view text) {
    const HandMadeFiles files = FilesAround(text);
    const std::vector<unsigned char> kinds = FindTextKinds(ScriptureOf(files));
    return kinds.size() == 3 ? kinds[1] : -1;
}

static constexpr int kBoth = kPlainText | kPlainWords;

TEST(TextKinds, TellDividedWords) {
    for (const char* const text :
         {"", "x", "In the", "\xB6[And] God's, said: (it)", "sin--;", "a - b", "-a", "a-", "'"})
        EXPECT_EQ(KindOf(text), kBoth) << text;
    for (const char* const text : {"Beth-el", "to Beth-el", "a[b", "a--;b", "'-'",
                                   "\xB6"
                                   "a.b, and"})
        EXPECT_EQ(KindOf(text), kPlainText) << text;
}

TEST(TextKinds, TellHighBytesFromParagraphMarks) {
    EXPECT_EQ(KindOf("\xB6\xB6"), 0);
    for (const char* const text : {"a\xB6", "a \xB6", "\xC9", "a-b\x80", " \xFF "}) EXPECT_EQ(KindOf(text), 0) << text;
}

TEST(TextKinds, KnowNothingOfLongTexts) {
    EXPECT_EQ(KindOf(std::string(kLongestSwept - 1, 'x')), kBoth);
    EXPECT_EQ(KindOf(std::string(kLongestSwept, 'x')), 0);
}

TEST(TextKinds, KnowNothingOfTextsNearTheEnds) {
    const HandMadeFiles files = FilesAround("some words");
    const std::vector<unsigned char> kinds = FindTextKinds(ScriptureOf(files));
    EXPECT_EQ(kinds, (std::vector<unsigned char>{0, kBoth, 0}));
    EXPECT_TRUE(FindTextKinds({}).empty());
}

TEST(TextKinds, KnowNothingOfTextsOutOfOrder) {
    HandMadeFiles files = FilesAround("some words");
    AddRecord(files, 1, 1, 4, kAround + 1);  // before the verse in front of it
    AddRecord(files, 1, 1, 5, kAround + 3);  // no zero byte in front of it
    AddRecord(files, 0, 0, 0, kAround + 5);
    AddRecord(files, 1, 1, 6, 0xFFFFFFFF);
    const std::vector<unsigned char> kinds = FindTextKinds(ScriptureOf(files));
    EXPECT_EQ(kinds, (std::vector<unsigned char>{0, kBoth, 0, 0, 0, 0, 0}));
}

TEST(TextKinds, AreThoseOfTheRealText) {
    const std::vector<unsigned char> kinds = FindTextKinds(TheRealScripture());
    const auto count = [&](int kind) { return std::count(kinds.begin(), kinds.end(), kind); };
    EXPECT_EQ(kinds.size(), static_cast<std::size_t>(kVerseCount));
    EXPECT_EQ(count(0), 6);  // at the ends of the file
    EXPECT_EQ(count(kPlainText), 667);
}
