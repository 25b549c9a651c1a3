#include "exchange/portable_text.h"

#include <gmock/gmock.h>

#include "tests/support/exchange_samples.h"

static PortableText PortableOf(const std::string& note, const CodePage& page = {}) {
    const PortableText text = PortableTextOf(page, note);
    EXPECT_EQ(StoredNoteOf(page, text), note);
    return text;
}

static PortableText Plain(const std::string& text) {
    return {text, false};
}

static PortableText Escaped(const std::string& text) {
    return {text, true};
}

TEST(PortableText, IsTheNoteIfItIsOrdinary) {
    EXPECT_EQ(PortableOf(""), Plain(""));
    EXPECT_EQ(PortableOf("two\r\nlines\t."), Plain("two\nlines\t."));
    EXPECT_EQ(PortableOf("\\8 C:\\x41\\r"), Plain("\\8 C:\\x41\\r"));
    EXPECT_EQ(PortableOf("caf\xE9\r\n"), Plain("caf\xC3\xA9\n"));
    EXPECT_EQ(PortableOf("\xEF\xBB\xBF\xCE\xB1\r\n"), Plain("\xCE\xB1\n"));
    EXPECT_EQ(PortableOf("\x81\x40", kOddPage), Plain("\xE3\x81\x82"));
}

TEST(PortableText, IsEscapedIfTheNoteIsOdd) {
    EXPECT_EQ(PortableOf("lone\nLF"), Escaped("lone\\\nLF"));
    EXPECT_EQ(PortableOf("lone\rCR\\"), Escaped("lone\\rCR\\\\"));
    EXPECT_EQ(PortableOf("\r\r\n\x01"), Escaped("\\r\n\\x01"));
    EXPECT_EQ(PortableOf("caf\xE9\x7F\x85"), Escaped("caf\xC3\xA9\\x7F\\x85"));
    EXPECT_EQ(PortableOf("a\x9D\x81\x40\x81", kOddPage), Escaped("a\\x9D\xE3\x81\x82\\x81"));
    EXPECT_EQ(PortableOf("\xEF\xBB\xBF"
                         "a"),
              Escaped("\\8a"));
    EXPECT_EQ(PortableOf("\xEF\xBB\xBF\xCE\xB1\xC2\x85"), Escaped("\\8\xCE\xB1\\xC2\\x85"));
}

// A note that another system has written, of which this one's code page lacks letters.
TEST(PortableText, BecomesUtf8WhereTheCodePageLacksLetters) {
    EXPECT_EQ(StoredNoteOf({}, Plain("\xCE\xB1\n")), "\xEF\xBB\xBF\xCE\xB1\r\n");
    EXPECT_EQ(StoredNoteOf({}, Escaped("\xCE\xB1\\x01\\")), "\xEF\xBB\xBF\xCE\xB1\x01\\");
}

TEST(PortableText, KeepsBackslashesThatEscapeNothing) {
    EXPECT_EQ(StoredNoteOf({}, Escaped("\\q \\x \\x4 \\xG0 \\x00 a\\8 \\")), "\\q \\x \\x4 \\xG0 \\x00 a\\8 \\");
    EXPECT_EQ(StoredNoteOf({}, Escaped("\\x4a\\x4A")), "JJ");
}

TEST(PortableText, HasNoZeros) {
    EXPECT_EQ(StoredNoteOf({}, Plain(std::string("a\0b", 3))),
              "\xEF\xBB\xBF"
              "a\xEF\xBF\xBD"
              "b");
}

TEST(NoteMarks, AreWordsOfLetters) {
    EXPECT_EQ(MarkText({0, false}), "aaaaaaaa");
    EXPECT_EQ(MarkText({0x12345EF0, true}), "bcdefopa escaped");
    EXPECT_EQ(MarkText({std::nullopt, true}), "escaped");
    EXPECT_EQ(MarkText({}), "");
    for (const std::uint32_t digest : {0u, 1u, 0x89ABCDEFu, 0xFFFFFFFFu})
        for (const bool isEscaped : {false, true})
            EXPECT_EQ(MarkOf(MarkText({digest, isEscaped})), (NoteMark{digest, isEscaped}));
}

TEST(NoteMarks, AreReadInAnyOrder) {
    EXPECT_EQ(MarkOf("  ESCAPED  other BCDEFOPA "), (NoteMark{0x12345EF0, true}));
    EXPECT_EQ(MarkOf("bcdefop bcdefopaa bcdefopq"), NoteMark());
}
