#include "win32/long_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr std::size_t kPiece = kPieceOfLongStretch;
static_assert(kLongStretch == 2 * kPiece, "the numbers below");

static std::string Letters(std::size_t count) {
    std::string letters;
    while (letters.size() < count) letters += "aZ \xE9";
    return letters.substr(0, count);
}

TEST(LongStretches, EndAtOtherCharacters) {
    const std::string longest = Letters(kLongStretch);
    EXPECT_THAT(EndsInLongStretches(""), IsEmpty());
    EXPECT_THAT(EndsInLongStretches(longest), IsEmpty());
    for (const char* end : {"\r\n", "\r", "\n", "\t", "0", "9", ",", "-", "@", "[", "`", "{", "\x7F"})
        EXPECT_THAT(EndsInLongStretches(longest + end + longest + end), IsEmpty()) << end;
    EXPECT_THAT(EndsInLongStretches(longest + Letters(1)), ElementsAre(kPiece, 2 * kPiece));
}

TEST(LongStretches, AreDividedIntoPieces) {
    const std::string note = "a\r\n" + Letters(3 * kPiece) + ".b\n" + Letters(kPiece) + '1' + Letters(3 * kPiece + 1);
    const std::size_t first = 3, second = first + 3 * kPiece + 3 + kPiece + 1;
    EXPECT_THAT(EndsInLongStretches(note), ElementsAre(first + kPiece, first + 2 * kPiece, second + kPiece,
                                                       second + 2 * kPiece, second + 3 * kPiece));
    EXPECT_EQ(EndsInLongStretches(Letters(65000)).size(), 43u);
}
