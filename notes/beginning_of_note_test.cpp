#include "notes/beginning_of_note.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

static std::string Lines(std::size_t count, std::size_t length) {
    std::string note;
    for (std::size_t line = 0; line < count; ++line) note += std::string(length, 'x') + "\r\n";
    return note;
}

TEST(BeginningOfNote, IsAllOfAShortNote) {
    for (const std::string& note : {std::string(), std::string("a"), std::string("a\r\nb"), Lines(9, 10)})
        EXPECT_EQ(BeginningOfNote(note, {5, 20}), note);
    EXPECT_EQ(BeginningOfNote(Lines(10, 10), {5, 20}), Lines(5, 10)) << "twice as much";
}

TEST(BeginningOfNote, EndsWithALine) {
    EXPECT_EQ(BeginningOfNote(Lines(100, 18), {5, 20}), Lines(5, 18));
    EXPECT_EQ(BeginningOfNote(Lines(100, 38), {5, 20}), Lines(3, 38)) << "two rows each";
    const std::string line(10000, 'x');
    EXPECT_EQ(BeginningOfNote(line, {5, 20}), line);
    EXPECT_EQ(BeginningOfNote(line + "\r\n" + line, {5, 20}), line + "\r\n" + line);
    EXPECT_EQ(BeginningOfNote(line + "\r\n" + line + line, {5, 20}), line + "\r\n");
    EXPECT_EQ(BeginningOfNote(Lines(9, 3), {2, 0}), Lines(1, 3)) << "a row without room takes one letter";
}

static std::size_t RowsOf(std::string_view note, std::size_t columns) {
    std::size_t rows = 0, column = 0;
    for (const char c : note) {
        if (column == 0) ++rows;
        column = c == '\n' || column + 1 == columns ? 0 : column + 1;
    }
    return rows;
}

TEST(BeginningOfNote, FillsTheRows) {
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string note;
        while (note.size() < 5000) note += std::string(random() % (round % 2 ? 300 : 40), 'x') + "\r\n";
        const TextRoom room{1 + random() % 40, 1 + random() % 100};
        const std::string_view part = BeginningOfNote(note, room);
        EXPECT_TRUE(note.starts_with(part));
        EXPECT_TRUE(part.size() == note.size() || part.size() <= note.size() / 2);
        EXPECT_TRUE(part.size() == note.size() || RowsOf(part, room.columns) >= room.rows);
    }
}
