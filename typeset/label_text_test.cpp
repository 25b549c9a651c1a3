#include "typeset/label_text.h"

#include <gtest/gtest.h>

#include <string>

TEST(LabelText, IsBuiltFromPieces) {
    LabelText label;
    EXPECT_EQ(TextOf(label), "");
    AppendText(label, " *");
    AppendReference(label, {9, 17, 4, 0});
    AppendText(label, " ");
    AppendNumber(label, 176);
    EXPECT_EQ(TextOf(label), " *1Sa 17:4 176");
}

TEST(LabelText, UsesTheAbbreviationByDefault) {
    struct Row {
        VerseRecord record;
        const char* text;
    };
    const Row rows[] = {
        {{1, 1, 1, 0}, "Ge 1:1"},       {{65, 1, 25, 0}, "Jude 1:25"},
        {{18, 42, 17, 0}, "Job 42:17"}, {{66, 255, 255, 0}, "Re 255:255"},  // the largest numbers in a record
        {{0, 0, 0, 0}, " 0:0"},
    };
    for (const Row& row : rows) {
        LabelText label;
        AppendReference(label, row.record);
        EXPECT_EQ(TextOf(label), row.text);
    }
}

TEST(LabelText, CanUseTheFullNameOfTheBook) {
    LabelText label;
    AppendReference(label, {52, 5, 16, 0}, BookForm::kName);
    EXPECT_EQ(TextOf(label), "1 Thessalonians 5:16");
}

TEST(LabelText, IsTruncatedWhenFull) {
    LabelText label;
    AppendText(label, std::string(60, 'a'));
    AppendNumber(label, -123456);
    EXPECT_EQ(TextOf(label), std::string(60, 'a') + "-123");
    AppendText(label, "more");
    EXPECT_EQ(TextOf(label).size(), label.bytes.size());
}
