#include "history/state_lines.h"

#include <gtest/gtest.h>

#include <set>

TEST(StateLines, NameEveryReasonDifferently) {
    std::set<std::string> texts;
    for (std::uint32_t reason = 1; reason <= 8; ++reason) texts.insert(ReasonText(static_cast<KeptReason>(reason)));
    EXPECT_EQ(texts.size(), 8u);
    EXPECT_FALSE(texts.contains(""));
    EXPECT_STREQ(ReasonText(KeptReason::kReplaced), "replaced by a save");
    EXPECT_STREQ(ReasonText(static_cast<KeptReason>(9)), "");  // of a newer version
}

TEST(StateLines, ShowTheFirstWords) {
    const struct {
        const char* note;
        const char* words;
    } kRows[] = {
        {"", "(empty)"},
        {" \r\n", "(empty)"},
        {"short", "short"},
        {"  two\r\n\r\n\tlines ", "two lines"},
        {"exactly twenty chars", "exactly twenty chars"},
        {"exactly twenty chars ", "exactly twenty chars"},
        {"exactly twenty chars\r\n.", "exactly twenty..."},
        {"exactly twenty-123 chars", "exactly..."},
        {"one-word-that-is-too-long", "one-word-that-is-..."},
    };
    for (const auto& row : kRows) EXPECT_EQ(FirstWords(row.note, 20), row.words) << row.note;
}

TEST(StateLines, CountTheNotesThatDiffer) {
    EXPECT_EQ(DifferenceText(0), "as today");
    EXPECT_EQ(DifferenceText(1), "1 note differs from today");
    EXPECT_EQ(DifferenceText(31102), "31102 notes differ from today");
}
