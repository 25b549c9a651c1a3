#include "notes/note_saving.h"

#include <gtest/gtest.h>

TEST(TextForNote, HasWindowsLineEnds) {
    static constexpr std::size_t kRoom = 100;
    static const struct {
        std::string text;
        std::string expected;
    } kRows[] = {
        {"", ""},
        {"one", "one"},
        {"one\r\ntwo\r\n", "one\r\ntwo\r\n"},
        {"one\ntwo\n", "one\r\ntwo\r\n"},
        {"one\rtwo\r", "one\r\ntwo\r\n"},
        {"\n\r\n\r\r\n", "\r\n\r\n\r\n\r\n"},
        {"a\tb \xB6 \xFF", "a\tb \xB6 \xFF"},
        {std::string("one\0two", 7), "one"},
        {"{\\rtf1 \\b bold}", "{\\rtf1 \\b bold}"},
    };
    for (const auto& [text, expected] : kRows) EXPECT_EQ(TextForNote(text, kRoom), expected) << text;
}

TEST(TextForNote, IsTruncatedToTheRoom) {
    static constexpr struct {
        const char* text;
        std::size_t room;
        const char* expected;
    } kRows[] = {
        {"four", 4, "four"}, {"four", 3, "fou"},    {"four", 0, ""},          {"ab\r\ncd", 4, "ab\r\n"},
        {"ab\ncd", 3, "ab"}, {"ab\r\ncd", 3, "ab"}, {"ab\ncd", 5, "ab\r\nc"},
    };
    for (const auto& [text, room, expected] : kRows) EXPECT_EQ(TextForNote(text, room), expected) << text << room;
}
