#include "typeset/text_runs.h"

#include <gtest/gtest.h>

static constexpr int kLineHeight = 10;

// A line of each text; "" is an empty line. The first letter tells the face and the colour: "b" bold, "s" selected.
static TextRuns LinesWith(const std::vector<std::string>& lines) {
    TextRuns text;
    for (std::size_t line = 0; line < lines.size(); ++line) {
        if (lines[line].empty()) continue;
        const Face face = lines[line][0] == 'b' ? Face::kBold : Face::kRegular;
        const TextColor color = lines[line][0] == 's' ? TextColor::kSelected : TextColor::kNormal;
        AddPiece(text, true, face, color, 1, static_cast<int>(line) * kLineHeight, 50, lines[line]);
    }
    return text;
}

static TextRuns Joined(bool joins, Face face, TextColor color, int x, int y) {
    TextRuns text;
    AddPiece(text, joins, Face::kBold, TextColor::kNormal, 1, 0, 30, "In ");
    AddPiece(text, joins, face, color, x, y, 40, "the ");
    return text;
}

TEST(TextRuns, JoinPiecesThatContinueTheLast) {
    const TextRuns joined = Joined(true, Face::kBold, TextColor::kNormal, 31, 0);
    ASSERT_EQ(joined.runs.size(), 1u);
    EXPECT_EQ(joined.runs[0].end, 71);
    EXPECT_EQ(TextOf(joined, joined.runs[0]), "In the ");
    for (const TextRuns& text :
         {Joined(false, Face::kBold, TextColor::kNormal, 31, 0),
          Joined(true, Face::kRegular, TextColor::kNormal, 31, 0),
          Joined(true, Face::kBold, TextColor::kKeyWord, 31, 0), Joined(true, Face::kBold, TextColor::kNormal, 32, 0),
          Joined(true, Face::kBold, TextColor::kNormal, 31, 10)}) {
        ASSERT_EQ(text.runs.size(), 2u);
        EXPECT_EQ(TextOf(text, text.runs[1]), "the ");
    }
}

TEST(TextRuns, AreFoundByTheirLines) {
    const TextRuns text = LinesWith({"a", "", "c", "d"});
    struct Row {
        int top, bottom;
        std::size_t first, end;
    };
    for (const Row& row : {Row{0, 10, 0, 1}, Row{-10, 0, 0, 0}, Row{1, 20, 1, 1}, Row{10, 21, 1, 2}, Row{0, 1000, 0, 3},
                           Row{31, 1000, 3, 3}}) {
        const RunSpan span = RunsBetween(text, row.top, row.bottom);
        EXPECT_EQ(span.first, row.first) << row.top;
        EXPECT_EQ(span.end, row.end) << row.top;
    }
}

TEST(MovedLines, AreThoseBetweenSameLines) {
    struct Row {
        std::vector<std::string> before, after;
        MovedLines moved;
    };
    const Row rows[] = {
        {{"1", "2", "3", "4", "5", "6"}, {"2", "3", "4", "5", "6", "7"}, {2, 1, 3}},
        {{"2", "3", "4", "5", "6", "7"}, {"1", "2", "3", "4", "5", "6"}, {1, 2, 3}},
        {{"1", "2", "3", "4", "5", "6"}, {"9", "2", "3", "4", "5", "6"}, {}},          // nothing moves
        {{"1", "2", "3", "4", "5", "6"}, {"x2", "3", "4", "5", "6", "7"}, {3, 2, 2}},  // another label at the top
        {{"1", "2", "3", "4", "5", "6"}, {"2", "3", "b4", "5", "6", "7"}, {}},         // too little is left
        {{"1", "2", "s3", "4", "5", "6"}, {"2", "3", "4", "5", "6", "7"}, {4, 3, 1}},  // selected before
        {{"1", "", "3", "", "", "6"}, {"", "3", "", "", "6", "7"}, {2, 1, 3}},
        {{"", "", "", "", "", "6"}, {"", "", "", "", "", "7"}, {}},  // no text
        {{}, {"1", "2", "3"}, {}},
    };
    for (const Row& row : rows) {
        const MovedLines moved = LinesMoved(LinesWith(row.before), LinesWith(row.after), kLineHeight, 55);
        EXPECT_EQ(moved.count, row.moved.count) << row.after[0];
        if (row.moved.count == 0) continue;
        EXPECT_EQ(moved.from, row.moved.from) << row.after[0];
        EXPECT_EQ(moved.to, row.moved.to) << row.after[0];
    }
}
