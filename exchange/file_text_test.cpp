#include "exchange/file_text.h"

#include <gmock/gmock.h>

#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

TEST(FileText, IsInUtf8) {
    EXPECT_EQ(TextOfFile({}, ""), "");
    EXPECT_EQ(TextOfFile({}, "caf\xC3\xA9"), "caf\xC3\xA9");
    EXPECT_EQ(TextOfFile({},
                         "\xEF\xBB\xBF"
                         "a"),
              "a");
}

TEST(FileText, MayBeInUtf16) {
    EXPECT_EQ(TextOfFile({},
                         "\xFF\xFE"
                         "a\0\xB1\x03"s),
              "a\xCE\xB1");
    EXPECT_EQ(TextOfFile({}, "\xFE\xFF\0a\x03\xB1x"s), "a\xCE\xB1");  // half a letter is dropped
}

TEST(FileText, MayBeInTheCodePage) {
    EXPECT_EQ(TextOfFile({}, "caf\xE9"), "caf\xC3\xA9");
    EXPECT_EQ(TextOfFile(kOddPage, "\x81\x40"), "\xE3\x81\x82");
}

// A damaged byte does not turn all other letters into something else.
TEST(FileText, MayHaveDamagedBytes) {
    EXPECT_EQ(TextOfFile({}, "\xC3\xA9\xC3\xA9 \xE9"), "\xC3\xA9\xC3\xA9 \xC3\xA9");
    EXPECT_EQ(TextOfFile({}, "\xEF\xBB\xBF\xE9"), "\xC3\xA9");
}

TEST(FileText, HasLinesThatEndInLf) {
    EXPECT_EQ(TextOfFile({}, "a\r\nb\rc\nd\r\r\n\r"), "a\nb\nc\nd\n\n\n");
    EXPECT_EQ(WithCrLf("a\nb\n"), "a\r\nb\r\n");
}

TEST(FileText, IsTakenApart) {
    EXPECT_THAT(LinesOf(""), IsEmpty());
    EXPECT_THAT(LinesOf("\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("a\n\nb"), ElementsAre("a", "", "b"));
    EXPECT_THAT(LinesOf("a\n"), ElementsAre("a"));
    EXPECT_EQ(Trimmed(" \t a b\n"), "a b");
    EXPECT_EQ(Trimmed(" \n"), "");
}
