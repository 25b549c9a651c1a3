#include "data/code_page.h"

#include <gtest/gtest.h>

namespace {

struct CodePageRow {
    const char* utf8;
    const char* bytes;
    int transliterated, replaced, dropped;
};

}  // namespace

TEST(CodePage, ConvertsWhatItCan) {
    static constexpr CodePageRow kRows[] = {
        {"Plain text, 1-2: (a)", "Plain text, 1-2: (a)", 0, 0, 0},
        {"\u201CGod.\u201D \u2014 it\u2019s \u2026", "\x93God.\x94 \x97 it\x92s \x85", 0, 0, 0},
        {"caf\u00E9 \u20AC \u00FF \u0178", "caf\xE9 \x80 \xFF \x9F", 0, 0, 0},
        {"Gen.\u00A01", "Gen. 1", 0, 1, 0},
        {"a\u202Fb\u2009c", "a b c", 0, 2, 0},
        {"\u03BB\u03CC\u03B3\u03BF\u03C2", "logos", 5, 0, 0},
        {"\u1F00\u03B3\u03AC\u03C0\u03B7 \u1F08\u03B4", "agape Ad", 7, 0, 0},
        {"\u1F85 \u1FE5 \u1FF6 \u1F51 \u1FFC \u1F7D", "a r o u O o", 6, 0, 0},
        {"\u03C3\u03B7\u03BC\u03B5\u03B9\u0311\u03BF\u03BD", "semeion", 7, 0, 1},
        {"\u05D2\u05BC\u05DE\u05DC", "gml", 3, 0, 1},
        {"\u0101\u0161\u0141\u017C", "a\x9ALz", 0, 3, 0},
        {"\u1E25esed \u02BEel", "hesed 'el", 0, 2, 0},
        {"Thom\u0082, K\u0084ndam", "Thom\xE9, K\xE4ndam", 0, 2, 0},
        {"\uFEFFtext\u200B\u200Fend", "textend", 0, 0, 0},
        {"\u4E2D\U0001F600.", "??.", 0, 0, 2},
        {"caf\xE9 \x93x\x94", "caf\xE9 \x93x\x94", 0, 0, 0},
        {"cut \xE2\x80", "cut \xE2\x80", 0, 0, 0},
        {"\xC0\x80\xFF", "\xC0\x80\xFF", 0, 0, 0},
        {"", "", 0, 0, 0},
    };
    for (const CodePageRow& row : kRows) {
        LostCharacters lost;
        EXPECT_EQ(InCodePage(row.utf8, lost), row.bytes) << row.utf8;
        EXPECT_EQ(lost.transliterated, row.transliterated) << row.utf8;
        EXPECT_EQ(lost.replaced, row.replaced) << row.utf8;
        EXPECT_EQ(lost.dropped, row.dropped) << row.utf8;
    }
}

TEST(CodePage, RemovesZeroBytes) {
    LostCharacters lost;
    EXPECT_EQ(InCodePage(std::string("a\0b", 3), lost), "ab");
}

TEST(CodePage, DoesNotReadBeyondATruncatedText) {
    const std::string text = "\u05D2\U0001F600\u2014";
    for (std::size_t length = 0; length <= text.size(); ++length) {
        LostCharacters lost;
        EXPECT_LE(InCodePage(std::string(text.data(), length), lost).size(), length);
    }
}
