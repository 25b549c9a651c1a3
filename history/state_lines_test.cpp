#include "history/state_lines.h"

#include <gtest/gtest.h>

#include "notes/note_letters.h"

#include <set>

TEST(StateLines, NameEveryReasonDifferently) {
    std::set<std::string> texts;
    for (std::uint32_t reason = 1; reason <= 9; ++reason) texts.insert(ReasonText(static_cast<KeptReason>(reason)));
    EXPECT_EQ(texts.size(), 9u);
    EXPECT_FALSE(texts.contains(""));
    EXPECT_STREQ(ReasonText(KeptReason::kReplaced), "replaced by a save");
    EXPECT_STREQ(ReasonText(static_cast<KeptReason>(10)), "");  // of a newer version
}

TEST(StateLines, ShowTheFirstWords) {
    const struct {
        const char16_t* note;
        const char16_t* words;
    } kRows[] = {
        {u"", u"(empty)"},
        {u" \r\n", u"(empty)"},
        {u"short", u"short"},
        {u"  two\r\n\r\n\tlines ", u"two lines"},
        {u"exactly twenty chars", u"exactly twenty chars"},
        {u"exactly twenty chars ", u"exactly twenty chars"},
        {u"exactly twenty chars\r\n.", u"exactly twenty..."},
        {u"exactly twenty-123 chars", u"exactly..."},
        {u"one-word-that-is-too-long", u"one-word-that-is-..."},
    };
    for (const auto& row : kRows) EXPECT_EQ(FirstWords(row.note, 20), row.words) << Utf8Of(row.note);
}

TEST(StateLines, CountTheNotesThatDiffer) {
    EXPECT_EQ(DifferenceText(0), "as today");
    EXPECT_EQ(DifferenceText(1), "1 note differs from today");
    EXPECT_EQ(DifferenceText(31102), "31102 notes differ from today");
}
