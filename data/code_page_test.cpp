#include "data/code_page.h"

#include <gtest/gtest.h>

static const std::string kMark(kUtf8Mark);

namespace {

struct StoredTextRow {
    std::string utf8;
    std::string stored;
    int blanks = 0;
    int damaged = 0;
};

}  // namespace

TEST(TextForNotes, IsStoredInTheCodePageOrInUtf8) {
    static const StoredTextRow kRows[] = {
        {"Plain text, 1-2: (a)", "Plain text, 1-2: (a)"},
        {"\u201CGod.\u201D \u2014 it\u2019s \u2026", "\x93God.\x94 \x97 it\x92s \x85"},
        {"caf\u00E9 \u20AC \u00FF \u0178", "caf\xE9 \x80 \xFF \x9F"},
        {"Gen.\u00A01", "Gen. 1", 1},
        {"a\u202Fb\u2009c", "a b c", 2},
        {"\u03BB\u03CC\u03B3\u03BF\u03C2", kMark + "\u03BB\u03CC\u03B3\u03BF\u03C2"},
        {"so \u1F00\u03B3\u03AC\u03C0\u03B7\u00A0\u2014 caf\u00E9",
         kMark + "so \u1F00\u03B3\u03AC\u03C0\u03B7 \u2014 caf\u00E9", 1},
        {"\u03C3\u03B7\u03BC\u03B5\u03B9\u0311\u03BF\u03BD",
         kMark + "\u03C3\u03B7\u03BC\u03B5\u03B9\u0311\u03BF\u03BD"},
        {"\u05D2\u05BC\u05DE\u05DC\u05BE", kMark + "\u05D2\u05BC\u05DE\u05DC\u05BE"},
        {"\u0101\u0161\u0141\u017C", kMark + "\u0101\u0161\u0141\u017C"},
        {"\u1E25esed \u02BEel \u2010", kMark + "\u1E25esed \u02BEel \u2010"},
        {"\u0161\u0160", "\x9A\x8A"},
        {"Thom\u0082, K\u0084ndam", "Thom\xE9, K\xE4ndam", 0, 2},
        {"\uFEFFtext\u200B\u200F \u2066end", "text end"},
        {"\uFEFF\u05D0\u200B\u200F!", kMark + "\u05D0\u200F!"},
        {"\u4E2D\U0001F600.", kMark + "\u4E2D\U0001F600."},
        {"caf\xE9 \x93x\x94 \x81", "caf\xE9 \x93x\x94 \x81"},
        {"caf\xE9 \x93x\x94 \u4E2D", kMark + "caf\u00E9 \u201Cx\u201D \u4E2D"},
        {"cut \xE2\x80", "cut \xE2\x80"},
        {"\xC0\x80\xFF", "\xC0\x80\xFF"},
        {"\u00EF\u00BB\u00BFlooks like a mark", kMark + "\u00EF\u00BB\u00BFlooks like a mark"},
        {std::string("a\0b", 3), "ab"},
        {"", ""},
    };
    for (const StoredTextRow& row : kRows) {
        ReplacedCharacters replaced;
        const std::string text = TextForNotes(row.utf8, replaced);
        EXPECT_EQ(NoteOfText(text), row.stored) << row.utf8;
        EXPECT_EQ(replaced.blanks, row.blanks) << row.utf8;
        EXPECT_EQ(replaced.damaged, row.damaged) << row.utf8;
    }
}

TEST(TextForNotes, DoesNotReadBeyondATruncatedText) {
    const std::string text = "\u05D2\U0001F600\u2014";
    for (std::size_t length = 1; length <= text.size(); ++length) {
        ReplacedCharacters replaced;
        const std::string note = kMark + TextForNotes(std::string(text.data(), length), replaced);
        EXPECT_TRUE(IsInUtf8(note)) << length;
    }
}

TEST(Windows1252, HasALetterForEachByte) {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
    const std::u16string letters = LettersOfNote(kWindows1252, bytes);
    EXPECT_EQ(letters.size(), bytes.size());
    EXPECT_EQ(letters.substr(0x7F, 4), u"\u20AC\u0081\u201A\u0192");
    EXPECT_EQ(NoteOfLetters(kWindows1252, letters), bytes);
}
