#include "data/devotional_table.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "tests/support/native_scripture.h"

using testing::AllOf;
using testing::EndsWith;
using testing::StartsWith;

static std::string TheRows() {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/resources/devotional.csv", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Readings, AreReadInOrder) {
    std::vector<DailyReading> readings;
    ASSERT_EQ(ReadReadings(TheRows(), readings), "");
    ASSERT_EQ(readings.size(), 732u);
    const DailyReading& leapDay = readings[59 * 2 + 1];
    EXPECT_EQ(leapDay.month, 2);
    EXPECT_EQ(leapDay.day, 29);
    EXPECT_TRUE(leapDay.isEvening);
    EXPECT_EQ(readings.back().verse, 19173);
}

namespace {

struct BadRow {
    const char* from;
    const char* to;
    const char* complaint;
};

}  // namespace

TEST(Readings, RejectInvalidRows) {
    static constexpr BadRow kRows[] = {
        {"\n1,1,evening", "\n1,1,night", "line 3 should be \"1,1,evening,reference,verse index\""},
        {"\n1,2,morning", "\n1,3,morning", "line 4 should be"},
        {"\n2,29,morning,", "\n2,30,morning,", "line 120 should be"},
        {",5946\n", ",31102\n", "line 2 should be"},
        {",5946\n", ",\n", "line 2 should be"},
        {",5946\n", ",-1\n", "line 2 should be"},
        {",5946\n", ",5946000000000000000000\n", "line 2 should be"},
        {",19173\n", ",19173\n1,1,morning,Ge 1:1,0\n", "line 734 is one too many"},
    };
    for (const BadRow& row : kRows) {
        std::string rows = TheRows();
        const std::size_t at = rows.rfind(row.from);
        ASSERT_NE(at, std::string::npos) << row.from;
        std::vector<DailyReading> readings;
        EXPECT_THAT(ReadReadings(rows.replace(at, std::string(row.from).size(), row.to), readings),
                    StartsWith(row.complaint))
            << row.to;
    }
    std::vector<DailyReading> readings;
    EXPECT_THAT(ReadReadings("", readings), StartsWith("line 2 should be"));
}

static std::string Lines(std::initializer_list<std::string> lines) {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : "\r\n") + line;
    return text;
}

static constexpr int kFirstJohn = 30541;  // 1 John 1:1, a book whose name begins with a number

TEST(Readings, BecomeNotesWithLinks) {
    const std::vector<DailyReading> readings = {
        {1, 1, false, 2}, {1, 1, true, kFirstJohn}, {1, 5, false, 3},
        {1, 5, true, 3},  {7, 9, false, 0},         {7, 9, true, 2},
    };
    NoteTexts notes = NotesOf(readings, TheRealScripture());
    ASSERT_EQ(notes.size(), 4u);
    EXPECT_EQ(notes[2], Lines({"January 1, Morning", "July 9, Evening", "",
                               "And God said, Let there be light: and there was light.", "Genesis 1:3", "",
                               "The evening's reading of January 1:", "# 1Jo 1:1",
                               "The morning's reading of July 9:", "# Ge 1:1"}));
    EXPECT_THAT(notes[kFirstJohn], AllOf(StartsWith("January 1, Evening\r\n\r\nThat which was from the beginning,"),
                                         EndsWith("\r\n1 John 1:1\r\n\r\nThe morning's reading:\r\n# Ge 1:3")));
    EXPECT_THAT(notes[3],
                AllOf(StartsWith("January 5, Morning and Evening\r\n\r\nAnd God saw the light, that it was good:"),
                      EndsWith("\r\nGenesis 1:4\r\n\r\nThe same verse, morning and evening:\r\n# Ge 1:4")));
    EXPECT_THAT(notes[0], StartsWith("July 9, Morning\r\n\r\nIn the beginning")) << "without its paragraph mark";
}
