#include "passage/passage_flow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/even_letters.h"
#include "tests/support/hand_made_scripture.h"

// A small Bible: two chapters of one book, and the beginning of the next.
static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6One two three."}, {1, 1, 2, "And [it was] so."}, {1, 2, 1, "\xB6Thus [all]: end."},
    {1, 2, 2, "Amen so."},           {2, 1, 1, "Now these."},
};

// A flow and the data it refers to.
struct Pane {
    HandMadeFiles files;
    Scripture scripture;
    NoteFiles noteFiles{};
    NoteSets notes{};
    PassageFlow flow{};
};

// 200 by 1000 pixels, starting at the first verse, each verse on a new line, italics in the italic face.
static void OpenPane(Pane& pane, std::span<const HandMadeVerse> verses) {
    pane.files = MakeFiles(verses);
    pane.scripture = ScriptureOf(pane.files);
    pane.flow.scripture = &pane.scripture;
    pane.flow.measure = EvenLetters();
    pane.flow.width = 200;
    pane.flow.height = 1000;
}

struct PassageFlowTest : testing::Test {
    Pane pane;
    PassageFlow& flow = pane.flow;
    void SetUp() override { OpenPane(pane, kVerses); }
};

static std::vector<std::string> Boxes(const PassageFlow& flow) {
    std::vector<std::string> boxes;
    WalkPassage(flow, [&boxes, &flow](const FlowBox& box) {
        std::string text = std::to_string(box.x) + "," + std::to_string(box.y);
        boxes.push_back(text.append(box.face == Face::kItalic ? "/" : " ").append(box.text));
        EXPECT_EQ(box.face == Face::kBold, box.kind != BoxKind::kWord);
        EXPECT_EQ(box.width, flow.measure.width(flow.measure.device, box.face, box.text));
        return true;
    });
    return boxes;
}

using Strings = std::vector<std::string>;

TEST_F(PassageFlowTest, LinesHaveOneVerseEach) {
    EXPECT_EQ(Boxes(flow), (Strings{"1,0  Ge 1:1 ",
                                    "81,0 \xB6 ",  // the paragraph mark is the first word
                                    "101,0 One ",
                                    "141,0 two ",
                                    "1,20 three. ",
                                    "1,40  2 ",
                                    "31,40 And ",
                                    "71,40/it ",
                                    "101,40/was",
                                    "131,40  ",
                                    "141,40 so. ",
                                    "1,80 Genesis chapter 2",  // with an empty line above and below
                                    "1,120  1 ",
                                    "31,120 \xB6 ",
                                    "51,120 Thus ",
                                    "101,120/all",
                                    "131,120 : ",
                                    "1,140 end. ",
                                    "1,160  2 ",
                                    "31,160 Amen ",
                                    "81,160 so. ",
                                    "1,200 Exodus chapter 1",
                                    "1,240  1 ",
                                    "31,240 Now ",
                                    "71,240 these. "}));
}

TEST_F(PassageFlowTest, ParagraphsJoinVersesAndIndentInsteadOfMarks) {
    flow.options.ParagraphFormat = 1;
    EXPECT_EQ(Boxes(flow), (Strings{"1,0     Ge 1:1 ",
                                    "111,0 One ",
                                    "151,0 two ",
                                    "1,20 three. ",
                                    "71,20 2 ",
                                    "91,20 And ",
                                    "131,20/it ",
                                    "1,40/was",
                                    "31,40  ",
                                    "41,40 so. ",
                                    "1,80 Genesis chapter 2",
                                    "1,120     1 ",
                                    "61,120 Thus ",
                                    "111,120/all",
                                    "141,120 : ",
                                    "1,140 end. ",
                                    "51,140 2 ",
                                    "71,140 Amen ",
                                    "121,140 so. ",
                                    "1,180 Exodus chapter 1",
                                    "1,200 1 ",  // without a paragraph mark, directly below the heading
                                    "21,200 Now ",
                                    "61,200 these. "}));
}

TEST_F(PassageFlowTest, TopVerseHasNoHeading) {
    for (const int paragraphs : {0, 1}) {
        flow.options.ParagraphFormat = static_cast<std::int8_t>(paragraphs);
        flow.topVerse = 4;
        EXPECT_EQ(Boxes(flow)[0], paragraphs ? "1,0 Ex 1:1 " : "1,0  Ex 1:1 ");
    }
}

TEST(PassageLabels, DependOnPositionNoteAndParagraph) {
    struct Row {
        bool note, paragraphs, mark;
        const char *top, *other;
    };
    const Row rows[] = {
        {true, true, true, "    *Ge 1:1 ", "    *2 "}, {true, true, false, "*Ge 1:1 ", "*2 "},
        {true, false, true, " *Ge 1:1 ", " *2 "},      {true, false, false, " *Ge 1:1 ", " *2 "},
        {false, true, true, "    Ge 1:1 ", "    2 "},  {false, true, false, "Ge 1:1 ", "2 "},
        {false, false, true, " Ge 1:1 ", " 2 "},       {false, false, false, " Ge 1:1 ", " 2 "},
    };
    for (const Row& row : rows) {
        const char* text = row.mark ? "\xB6Word." : "Word.";
        const HandMadeVerse verses[] = {{1, 1, 1, text}, {1, 1, 2, text}};
        Pane pane;
        OpenPane(pane, verses);
        const std::uint32_t length = row.note ? 2 : 1;  // of each stored note, including its zero byte
        pane.notes.sets = {{"My Notes.nmd", {0, length, 2 * length, 3 * length}}};
        pane.flow.notes = &pane.notes;
        pane.flow.noteFiles = &pane.noteFiles;
        pane.flow.options.ParagraphFormat = row.paragraphs;
        Strings labels;
        WalkPassage(pane.flow, [&labels](const FlowBox& box) {
            if (box.kind == BoxKind::kLabel) labels.emplace_back(box.text);
            return true;
        });
        EXPECT_EQ(labels, (Strings{row.top, row.other}));
    }
}

TEST(PassageWrapping, WrapsAWordThatReachesTheRightEdge) {
    const HandMadeVerse verses[] = {{1, 1, 1, "ab cd"}};
    Pane pane;
    OpenPane(pane, verses);
    struct Row {
        int width;
        const char* second;
    };
    const Row rows[] = {{142, "111,0 cd "}, {141, "1,20 cd "}, {140, "1,20 cd "}};  // it ends at 141
    for (const Row& row : rows) {
        pane.flow.width = row.width;
        EXPECT_EQ(Boxes(pane.flow)[2], row.second) << row.width;
    }
}

TEST(PassageWrapping, WordWiderThanThePaneHasItsOwnLine) {
    const HandMadeVerse verses[] = {{1, 1, 1, "ab incomprehensible cd"}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.width = 120;
    EXPECT_EQ(Boxes(pane.flow), (Strings{"1,0  Ge 1:1 ", "81,0 ab ", "1,20 incomprehensible ", "1,40 cd "}));
}

TEST(PassageWrapping, WrapsALabelThatReachesTheRightEdge) {
    const HandMadeVerse verses[] = {{1, 1, 1, "One two three."}, {1, 1, 2, "End."}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.options.ParagraphFormat = 1;
    pane.flow.width = 241;  // the first verse ends at 221
    EXPECT_EQ(Boxes(pane.flow)[4], "1,20 2 ");
    pane.flow.width = 242;
    EXPECT_EQ(Boxes(pane.flow)[4], "221,0 2 ");
}

TEST(PassageWrapping, TopLabelIsNeverWrapped) {
    const HandMadeVerse verses[] = {{1, 1, 1, "One"}, {1, 1, 2, "Two"}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.width = 20;  // too narrow for any label
    EXPECT_EQ(Boxes(pane.flow), (Strings{"1,0  Ge 1:1 ", "1,20 One ", "1,60  2 ", "1,80 Two "}));
}

TEST(PassageWrapping, WordIsNotSeparatedFromItsPunctuation) {
    const HandMadeVerse verses[] = {{1, 1, 1, "One [two]; so"}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.width = 171;  // "two" would end at 151, its semicolon at 161, the blank at 171
    EXPECT_EQ(Boxes(pane.flow), (Strings{"1,0  Ge 1:1 ", "81,0 One ", "1,20/two", "31,20 ; ", "51,20 so "}));
}

struct ItalicsRow {
    int italics;
    Strings words;
};

TEST(PassageItalics, FollowTheirMode) {
    const HandMadeVerse verses[] = {{1, 1, 1, "([is] [of]: [it]"}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.width = 1000;
    const Strings dropped = {"81,0 (", "91,0 is", "111,0  ", "121,0 of", "141,0 : ", "161,0 it", "181,0  "};
    const Strings shown = {"81,0 ([is] ", "141,0 [of]: ", "201,0 [it] "};
    const ItalicsRow rows[] = {
        {0, {"81,0/(", "91,0/is", "111,0  ", "121,0/of", "141,0 : ", "161,0/it", "181,0  "}},
        {1, shown},
        {2, dropped},
        {3, dropped},  // invalid settings
        {-1, dropped},
    };
    for (const ItalicsRow& row : rows) {
        pane.flow.options.Italics = static_cast<std::int8_t>(row.italics);
        Strings words = Boxes(pane.flow);
        words.erase(words.begin());  // the label
        EXPECT_EQ(words, row.words) << "italics " << row.italics;
    }
}

static std::vector<SelectionPoint> Points(const PassageFlow& flow) {
    std::vector<SelectionPoint> points;
    WalkPassage(flow, [&points](const FlowBox& box) {
        if (points.empty() || points.back() != box.point) points.push_back(box.point);
        return true;
    });
    return points;
}

struct ItalicWidthRow {
    TextMeasure measure;
    Strings boxes;
};

TEST(PassageItalics, BreakLinesByTheWidthsOfTheirFace) {
    const HandMadeVerse verses[] = {{1, 1, 1, "a [bbbb, cccc]: dddd"}};
    const ItalicWidthRow rows[] = {
        {ItalicLetters<6>(), {"1,0  Ge 1:1 ", "81,0 a ", "101,0/bbbb, ", "137,0/cccc", "161,0 : ", "1,20 dddd "}},
        {ItalicLetters<14>(), {"1,0  Ge 1:1 ", "81,0 a ", "101,0/bbbb, ", "1,20/cccc", "57,20 : ", "77,20 dddd "}},
    };
    for (const ItalicWidthRow& row : rows) {
        Pane pane;
        OpenPane(pane, verses);
        pane.flow.measure = row.measure;
        EXPECT_EQ(Boxes(pane.flow), row.boxes);
    }
}

TEST(PassageVerses, RecordWithTheSameVerseNumberContinuesTheVerse) {
    const HandMadeVerse verses[] = {{1, 1, 1, "one two"}, {1, 1, 1, "three"}, {1, 1, 2, "four"}};
    Pane pane;
    OpenPane(pane, verses);
    EXPECT_EQ(Boxes(pane.flow),
              (Strings{"1,0  Ge 1:1 ", "81,0 one ", "121,0 two ", "1,20 three ", "1,40  2 ", "31,40 four "}));
    EXPECT_EQ(Points(pane.flow), (std::vector<SelectionPoint>{{0, 0}, {0, 1}, {0, 2}, {1, 3}, {2, 0}, {2, 1}}));
}

TEST_F(PassageFlowTest, HeadingsBelongToTheLabelBelowThem) {
    SelectionPoint heading;
    WalkPassage(flow, [&heading](const FlowBox& box) {
        if (box.kind != BoxKind::kHeading) return true;
        heading = box.point;
        return false;
    });
    EXPECT_EQ(heading, (SelectionPoint{2, 0}));
}

TEST_F(PassageFlowTest, OnlyTheLastBoxEndsItsVerse) {
    Strings last;
    WalkPassage(flow, [&last](const FlowBox& box) {
        if (box.endsItem) last.emplace_back(box.text);
        return true;
    });
    EXPECT_EQ(last, (Strings{"three. ", "so. ", "end. ", "so. ", "these. "}));
}

TEST_F(PassageFlowTest, VisitorCanStopTheWalk) {
    for (const char* where : {" Ge 1:1 ", "One ", "was", "Genesis chapter 2", " 1 "}) {
        Strings seen;
        WalkPassage(flow, [&](const FlowBox& box) {
            seen.emplace_back(box.text);
            return box.text != where;
        });
        EXPECT_EQ(seen.back(), where);
    }
}

TEST_F(PassageFlowTest, LastVisibleVerseHasABoxInThePane) {
    struct Row {
        int height, last;
    };
    const Row rows[] = {
        {0, 0},   {1, 0},   {20, 0},  {40, 0},  // the next label would be at 40
        {41, 1},  {80, 1},                      //
        {120, 1},                               // the heading is visible, its label is not
        {121, 2}, {160, 2}, {161, 3}, {240, 3}, {241, 4}, {1000, 4},
    };
    for (const Row& row : rows) {
        flow.height = row.height;
        EXPECT_EQ(WalkPassage(flow, nullptr), row.last) << row.height;
    }
}

TEST(PassageView, LastVisibleVerseIsCorrected) {
    struct Row {
        int top, last, corrected;
    };
    const Row rows[] = {{10, 12, 12}, {10, 10, 11}, {31100, 31100, 31101}, {31101, 31101, 31101}};
    for (const Row& row : rows) {
        PassageView view = {row.top, row.last};
        CorrectLastVisible(view);
        EXPECT_EQ(view.LastVisibleVerse, row.corrected) << row.top;
    }
}

TEST(PassageView, TargetIsTheFirstSelectedVerseOnlyWithTheFocus) {
    const PassageView view = {10, 20};
    const Selection selection = {kPassageOwns, {14, 2}, {12, 3}};
    EXPECT_EQ(TargetVerse(view, selection, true), 12);
    EXPECT_EQ(TargetVerse(view, selection, false), 10);
    EXPECT_EQ(TargetVerse({13, 20}, selection, true), 13);
    EXPECT_EQ(TargetVerse(view, {kVerseListOwns, {14, 2}, {12, 3}}, true), 10);
}

TEST(PassageFailures, EmptyScriptureHasNoBoxes) {
    Pane pane;
    OpenPane(pane, {});
    for (const int top : {0, 5000, 31101}) {
        pane.flow.topVerse = top;
        EXPECT_TRUE(Boxes(pane.flow).empty());
        EXPECT_EQ(HitTestPassage(pane.flow, 5, 5), SelectionPoint{});
        EXPECT_EQ(WalkPassage(pane.flow, nullptr), top);
        PassageView view = {top, top};
        CorrectLastVisible(view);
        EXPECT_EQ(ScrolledTop(pane.flow, view, ScrollCode::kPageUp, 0), std::max(0, top - 1));
    }
}

TEST(PassageFailures, DamagedTextsAreLaidOut) {
    const std::string longWord(3000, 'x');
    const HandMadeVerse verses[] = {
        {1, 1, 1, ""}, {1, 1, 2, longWord}, {1, 1, 3, "][ [] ]x[ ]"}, {1, 1, 4, "[a\xB6]"}, {255, 255, 255, "so"}};
    std::vector<SelectionPoint> points;
    for (const int italics : {2, 1, 0}) {
        Pane pane;
        OpenPane(pane, verses);
        pane.flow.options.Italics = static_cast<std::int8_t>(italics);
        if (points.empty()) points = Points(pane.flow);
        EXPECT_EQ(Points(pane.flow), points) << "words count the same in every mode";
        EXPECT_EQ(WalkPassage(pane.flow, nullptr), 4);
    }
}

TEST(PassageFailures, ZeroLineHeightDoesNotHang) {
    Pane pane;
    OpenPane(pane, kVerses);
    pane.flow.measure.lineHeight = [](void*) { return 0; };
    pane.flow.height = 3;
    EXPECT_GT(WalkPassage(pane.flow, nullptr), 0);
    EXPECT_EQ(HitTestPassage(pane.flow, 5, 0), (SelectionPoint{0, 0}));
}

// Two records point at the same text: the first verse ends with its own zero byte, the second with that before the
// next.
TEST(PassageFailures, AVerseThatStartsLikeAnotherIsMeasuredByItself) {
    HandMadeFiles files;
    for (const HandMadeVerse& verse :
         {HandMadeVerse{1, 1, 1, "the lamp"}, {1, 1, 2, "of forty letters in words of this kind"}})
        AddVerse(files, verse);
    const auto end = static_cast<std::uint32_t>(files.text.size());
    AddVerse(files, {1, 1, 3, "end"});
    files.records.clear();
    AddRecord(files, 1, 1, 1, 0);
    AddRecord(files, 1, 1, 2, 0);
    AddRecord(files, 1, 1, 3, end);
    Pane pane;
    OpenPane(pane, {});
    pane.scripture = ScriptureOf(files);
    pane.flow.height = 100;
    ASSERT_EQ(WalkPassage(pane.flow, nullptr), 2);  // a line, three lines, a line
    pane.flow.topVerse = 2;
    EXPECT_EQ(ScrolledTop(pane.flow, {2, 2}, ScrollCode::kPageUp, 0), 0);
}
