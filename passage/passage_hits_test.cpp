#include <gtest/gtest.h>

#include "passage/passage_flow.h"
#include "tests/support/even_letters.h"
#include "tests/support/hand_made_scripture.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6One two three."},
    {1, 1, 2, "And [it was] so."},
    {1, 2, 1, "\xB6Thus [all]: end."},
    {1, 2, 2, "Amen so."},
};

struct HitRow {
    int x, y;
    SelectionPoint point;
};

static void ExpectHits(std::span<const HandMadeVerse> verses, bool paragraphs, int width, std::span<const HitRow> rows,
                       const TextMeasure& measure = EvenLetters()) {
    const HandMadeFiles files = MakeFiles(verses);
    const Scripture scripture = ScriptureOf(files);
    PassageFlow flow;
    flow.scripture = &scripture;
    flow.measure = measure;
    flow.options.ParagraphFormat = paragraphs;
    flow.width = width;
    flow.height = 300;
    for (const HitRow& row : rows) {
        const SelectionPoint point = HitTestPassage(flow, row.x, row.y);
        EXPECT_EQ(point.place, row.point.place) << row.x << ", " << row.y;
        EXPECT_EQ(point.word, row.point.word) << row.x << ", " << row.y;
    }
}

TEST(PassageHitTest, FindsLabelsAndWordsInLines) {
    const HitRow rows[] = {
        {0, 0, {0, 0}},                          // the label begins at the very edge
        {81, 19, {0, 0}},                        // the right edge belongs to the box
        {82, 0, {0, 1}},                         // the paragraph mark is a word
        {101, 5, {0, 1}},                        //
        {102, 5, {0, 2}},                        //
        {181, 5, {0, 3}},                        //
        {182, 5, {0, 3}},                        // after the last box of a wrapped line
        {199, 5, {0, 3}},                        //
        {0, 20, {0, 4}},                         // the first word of a line extends to its start
        {71, 39, {0, 4}},                        //
        {72, 39, {0, 4}},                        // right of the last word of a verse
        {199, 20, {0, 4}},                       //
        {31, 40, {1, 0}},                        //
        {32, 40, {1, 1}},                        //
        {101, 40, {1, 2}},                       //
        {102, 40, {1, 3}},                       //
        {141, 40, {1, 3}},                       // the blank belongs to the italic word before it
        {142, 40, {1, 4}},                       //
        {199, 59, {1, 4}},                       //
        {0, 60, {2, 0}},                         // the blank line above a heading belongs to the label below it
        {199, 60, {2, 0}},                       //
        {50, 80, {2, 0}},                        // the heading
        {199, 100, {2, 0}},                      // the blank line below the heading
        {31, 120, {2, 0}},                       //
        {32, 120, {2, 1}},                       //
        {151, 120, {2, 3}},                      // "all: "
        {152, 120, {2, 3}},                      //
        {0, 140, {2, 4}},                        //
        {0, 160, {3, 0}},                        //
        {199, 179, {3, 2}},                      // the last word of the text
        {0, 180, {-1, -1}},                      // below the last line
        {199, 299, {-1, -1}}, {-9, -9, {0, 0}},  // outside: the nearest box at the edge
        {90, -1, {0, 1}},     {5000, 30, {0, 4}}, {5, 5000, {-1, -1}},
    };
    ExpectHits(kVerses, false, 200, rows);
}

TEST(PassageHitTest, FindsLabelsAndWordsInParagraphs) {
    const HitRow rows[] = {
        {0, 0, {0, 0}},      //
        {111, 0, {0, 0}},    //
        {112, 0, {0, 1}},    //
        {192, 0, {0, 2}},    // after the last box of a wrapped line
        {71, 20, {0, 3}},    //
        {72, 20, {1, 0}},    // a label in the middle of a line
        {91, 20, {1, 0}},    //
        {92, 20, {1, 1}},    //
        {162, 20, {1, 2}},   // after the last box of a wrapped line
        {81, 40, {1, 4}},    //
        {82, 40, {2, 0}},    // right of the last word of a verse: the next label
        {10, 60, {2, 0}},    // the blank line
        {10, 90, {2, 0}},    // the heading
        {61, 120, {2, 0}},   //
        {62, 120, {2, 1}},   //
        {52, 140, {3, 0}},   //
        {161, 140, {3, 2}},  //
        {162, 140, {-1, -1}}, {0, 160, {-1, -1}},
    };
    ExpectHits(kVerses, true, 200, rows);
}

TEST(PassageHitTest, RestOfALineBelongsToAWrappedLabel) {
    const HandMadeVerse verses[] = {{1, 1, 1, "One two three."}, {1, 1, 2, "End."}};
    const HitRow rows[] = {{221, 5, {0, 3}}, {222, 5, {1, 0}}, {240, 5, {1, 0}}, {21, 25, {1, 0}}, {22, 25, {1, 1}}};
    ExpectHits(verses, true, 241, rows);
}

TEST(PassageHitTest, LabelCanBeTheLastBoxOfALine) {
    const HandMadeVerse verses[] = {{1, 1, 1, "incomprehensible"}};
    const HitRow rows[] = {{81, 5, {0, 0}}, {82, 5, {0, 0}}, {119, 5, {0, 0}}, {5, 25, {0, 1}}};
    ExpectHits(verses, false, 120, rows);
}

// The lines are those of the paint; on a line, italic words end where they would in the regular face.
TEST(PassageHitTest, LinesBreakWhereNarrowItalicsDo) {
    const HandMadeVerse verses[] = {{1, 1, 1, "a [bbbb, cccc]: dddd"}, {1, 1, 2, "[e] f"}};
    const HitRow rows[] = {
        {101, 0, {0, 1}}, {102, 0, {0, 2}},   // painted from 101 to 137
        {161, 0, {0, 2}}, {162, 0, {0, 3}},   // "cccc: " is painted to 181, and ends at 221 in the regular face
        {221, 0, {0, 3}}, {222, 0, {0, 3}},   //
        {0, 20, {0, 4}},  {199, 20, {0, 4}},  //
        {31, 40, {1, 0}}, {51, 40, {1, 1}},   //
        {52, 40, {1, 2}}, {0, 60, {-1, -1}},
    };
    ExpectHits(verses, false, 200, rows, ItalicLetters<6>());
}

TEST(PassageHitTest, LinesBreakWhereWideItalicsDo) {
    const HandMadeVerse verses[] = {{1, 1, 1, "a [bbbb, cc]: dddd"}, {1, 1, 2, "[e] f"}};
    const HitRow rows[] = {
        {91, 0, {0, 1}},   {92, 0, {0, 2}},    // "bbbb, " is painted to 175, which leaves no room for "cc: "
        {151, 0, {0, 2}},  {152, 0, {0, 2}},   //
        {0, 20, {0, 3}},   {41, 20, {0, 3}},   // painted to 49
        {42, 20, {0, 4}},  {91, 20, {0, 4}},   //
        {92, 20, {1, 0}},  {111, 20, {1, 0}},  // the label of the next verse, painted from 99
        {112, 20, {1, 1}}, {131, 20, {1, 1}},  //
        {132, 20, {1, 2}},
    };
    ExpectHits(verses, true, 200, rows, ItalicLetters<14>());
}

TEST(PassageHitTest, LastLineExtendsToTheEdge) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    PassageFlow flow;
    flow.scripture = &scripture;
    flow.measure = EvenLetters();
    flow.width = 200;
    flow.height = 10;
    EXPECT_EQ(HitTestPassage(flow, 199, 9), (SelectionPoint{0, 3})) << "the line breaks below the pane";
    flow.height = 100;
    EXPECT_EQ(HitTestPassage(flow, 50, 85), (SelectionPoint{2, 0})) << "the label of the heading is below the pane";
    EXPECT_EQ(HitTestPassage(flow, 50, 4000), (SelectionPoint{2, 0})) << "as at the bottom edge";
}
