// Painting of the Passage: labels, headings, line breaks, italics, marks of notes.

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"

static constexpr auto kRegular = Style::kRegular;
static constexpr auto kBold = Style::kBold;
static constexpr auto kItalic = Style::kItalic;

static PaintedLine Empty() {
    return {{}, false};
}

namespace {

struct Painting {
    const char* name;
    int topVerse;
    bool inParagraphs;
    int italics;
    std::vector<PaintedLine> lines;
};

void PrintTo(const Painting& painting, std::ostream* out) {
    *out << painting.name;
}

struct PassagePaintingCase : testing::TestWithParam<Painting> {};

}  // namespace

TEST_P(PassagePaintingCase, ShowsTheExpectedLines) {
    const ScratchFolder folder = FolderOnlyPassage(GetParam().topVerse);
    WriteSetting(folder, "OPTIONS", "Paragraph Format", GetParam().inParagraphs ? "1" : "0");
    WriteSetting(folder, "OPTIONS", "Italics", std::to_string(GetParam().italics));
    Program program = StartProgram(folder);
    EXPECT_EQ(WrongLines(PassageOf(program), GetParam().lines), "");
    SavePicture(PictureOfWindow(program.frame), std::string("passage-") + GetParam().name);
}

static const Painting kLabels[] = {
    {"OneVerseALine",
     0,
     false,
     0,
     {{{{kBold, " Ge 1:1 "}, {kRegular, "\xB6 In the beginning God created"}}},
      {{{kBold, " 2 "}, {kRegular, "And the earth was without form, and void; and darkness "}, {kItalic, "was "}}},
      {{{kBold, " 3 "}, {kRegular, "And God said, Let there be light: "}}}}},
    {"ParagraphIndent",
     0,
     true,
     0,
     {{{{kBold, "    Ge 1:1 "},
        {kRegular, "In the beginning God created the heaven and the earth. "},
        {kBold, "2 "},
        {kRegular, "And the earth"}}}}},
    {"ParagraphRunsOn",
     26558,
     true,
     0,
     {{{{kBold, "Joh 11:35 "}, {kRegular, "Jesus wept. "}, {kBold, "36 "}, {kRegular, "Then said the Jews, "}}}}},
    {"LineEndsWithVerse",
     26558,
     false,
     0,
     {{{{kBold, " Joh 11:35 "}, {kRegular, "Jesus wept. "}}, false},
      {{{kBold, " 36 "}, {kRegular, "Then said the Jews, "}}}}},
};
INSTANTIATE_TEST_SUITE_P(Labels, PassagePaintingCase, testing::ValuesIn(kLabels),
                         [](const auto& row) { return row.param.name; });

static const Painting kHeadings[] = {
    {"NoHeadingAtTop", 31, false, 0, {{{{kBold, " Ge 2:1 "}, {kRegular, "\xB6 Thus the heavens"}}}}},
    {"ChapterInLines",
     30,
     false,
     0,
     {{{{kBold, " Ge 1:31 "}, {kRegular, "And God saw every thing "}}},
      Empty(),
      {{{kBold, "Genesis chapter 2"}}, false},
      Empty(),
      {{{kBold, " 1 "}, {kRegular, "\xB6 Thus the heavens"}}}}},
    {"ChapterInParagraphs",
     30,
     true,
     0,
     {{{{kBold, "Ge 1:31 "}, {kRegular, "And God saw every thing "}}},
      Empty(),
      {{{kBold, "Genesis chapter 2"}}, false},
      Empty(),
      {{{kBold, "    1 "}, {kRegular, "Thus the heavens"}}}}},
    {"NextBook",
     22531,
     false,
     0,
     {{{{kBold, " Ob 1:21 "}, {kRegular, "And saviours shall "}}},
      Empty(),
      {{{kBold, "Jonah chapter 1"}}, false},
      Empty(),
      {{{kBold, " 1 "}, {kRegular, "\xB6 Now the word"}}}}},
    {"EndOfTheBible",
     31101,
     false,
     0,
     {{{{kBold, " Re 22:21 "}, {kRegular, "The grace of our Lord Jesus Christ "}}}, Empty(), Empty(), Empty()}},
};
INSTANTIATE_TEST_SUITE_P(Headings, PassagePaintingCase, testing::ValuesIn(kHeadings),
                         [](const auto& row) { return row.param.name; });

static const Painting kItalics[] = {
    {"ItalicText",
     1104,
     false,
     0,
     {{{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard "}, {kItalic, "it"}, {kRegular, ", and he delivered "}}}}},
    {"ItalicBrackets",
     1104,
     false,
     1,
     {{{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard [it], and he delivered "}}}}},
    {"ItalicNormal", 1104, false, 2, {{{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard it, and he delivered "}}}}},
};
INSTANTIATE_TEST_SUITE_P(Italics, PassagePaintingCase, testing::ValuesIn(kItalics),
                         [](const auto& row) { return row.param.name; });

TEST(PassagePainting, MarksVersesThatHaveANote) {
    const std::vector<PaintedLine> inLines = {{{{kBold, " *Ps 117:1 "}, {kRegular, "\xB6 O praise "}}},
                                              {{{kBold, " *2 "}, {kRegular, "For his merciful "}}},
                                              Empty(),
                                              {{{kBold, "Psalms chapter 118"}}, false},
                                              Empty(),
                                              {{{kBold, " *1 "}, {kRegular, "\xB6 O give thanks "}}},
                                              {{{kBold, " 2 "}, {kRegular, "Let Israel now say, "}}}};
    const std::vector<PaintedLine> inParagraphs = {
        {{{kBold, "    *Ps 117:1 "},
          {kRegular, "O praise the LORD, all ye nations: praise him, all ye people. "},
          {kBold, "*2 "},
          {kRegular, "For his merciful "}}}};
    const ScratchFolder folder = FolderOnlyPassage(15868);
    WriteNoteSet(folder, "Mine", {{15868, "One."}, {15869, "Two."}, {15870, "Three."}});
    Program program = StartProgram(folder);
    EXPECT_EQ(WrongLines(PassageOf(program), inLines), "");
    Command(program, IDM_PARAGRAPH_FORMAT);
    EXPECT_EQ(WrongLines(PassageOf(program), inParagraphs), "");
    SavePicture(PictureOfWindow(program.frame), "passage-notes");
    ScrollPassage(program, SB_LINEDOWN);
    EXPECT_EQ(WrongLines(PassageOf(program), {{{{kBold, "*Ps 117:2 "}, {kRegular, "For his merciful "}}}}), "");
}

TEST(PassagePainting, WrapsBeforeAWordThatDoesNotFit) {
    const PaintedFont large{"Times New Roman", 300, 400};
    const ScratchFolder folder = FolderOnlyPassage(1);
    WriteSetting(folder, "MISC", "Height", "1000");
    WriteSetting(folder, "OPTIONS", "ReadWindowFontHeight", "300");
    Program program = StartProgram(folder);
    const std::vector<PaintedLine> lines = {{{{kBold, " Ge 1:2 "}}, false}, {{{kRegular, "And the "}}, false}};
    EXPECT_EQ(WrongLines(PassageOf(program), lines, large), "");
    SavePicture(PictureOfWindow(program.frame), "passage-large-letters");
}

// A word must end at least one pixel before the right edge, or it goes to the next line.
TEST(PassagePainting, WrapsBeforeAWordThatEndsAtTheEdge) {
    Program program = StartProgram(FolderOnlyPassage(26558));
    const HWND pane = PassageOf(program);
    const int whole = WidthOf({{kBold, " Joh 11:35 "}, {kRegular, "Jesus wept. "}});
    RECT frame = RectOnScreen(program.frame);
    const LONG others = frame.right - frame.left - ClientRectOf(pane).right;

    frame.right = frame.left + others + whole + 1;
    PlaceFrame(program, frame);
    ASSERT_EQ(ClientRectOf(pane).right, whole + 1);
    EXPECT_EQ(WrongLines(pane, {{{{kBold, " Joh 11:35 "}, {kRegular, "Jesus wept. "}}, false}}), "");

    frame.right -= 1;
    PlaceFrame(program, frame);
    EXPECT_EQ(
        WrongLines(pane, {{{{kBold, " Joh 11:35 "}, {kRegular, "Jesus "}}, false}, {{{kRegular, "wept. "}}, false}}),
        "");
    SavePicture(PictureOfWindow(program.frame), "passage-narrow");
}

TEST(PassagePainting, ClipsAWordWiderThanThePane) {
    const PaintedFont large{"Times New Roman", 120, 400};
    const ScratchFolder folder = FolderOnlyPassage(26558);
    WriteSetting(folder, "OPTIONS", "ReadWindowFontHeight", "120");
    Program program = StartProgram(folder);
    PlaceFrame(program, {20, 20, 250, 620});
    const std::vector<PaintedLine> lines = {
        {{{kBold, " Joh 11:35 "}}}, {{{kRegular, "Jesus "}}}, {{{kRegular, "wept. "}}}};
    EXPECT_EQ(WrongLines(PassageOf(program), lines, large), "");
}

TEST(PassagePainting, FollowsTheFormatAndItalicsOptions) {
    const PaintedLine inLines{{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard "}}};
    Program program = StartProgram(FolderOnlyPassage(1104));
    const struct {
        int command;
        PaintedLine first;
    } kSteps[] = {
        {IDM_ITALIC_BRACKETS, {{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard [it], "}}}},
        {IDM_ITALIC_NORMAL, {{{kBold, " Ge 37:21 "}, {kRegular, "And Reuben heard it, "}}}},
        {IDM_PARAGRAPH_FORMAT, {{{kBold, "Ge 37:21 "}, {kRegular, "And Reuben heard it, "}}}},
        {IDM_ITALIC_TEXT, {{{kBold, "Ge 37:21 "}, {kRegular, "And Reuben heard "}, {kItalic, "it"}}}},
        {IDM_PARAGRAPH_FORMAT, inLines},
    };
    for (const auto& [command, first] : kSteps) {
        Command(program, command);
        EXPECT_EQ(WrongLines(PassageOf(program), {first}), "") << command;
        EXPECT_EQ(Top(program), "Genesis 37:21");
    }
}

TEST(PassagePainting, DoesNotRepaintWhenNothingMoves) {
    Program program = StartProgram(FolderOnlyPassage(0));
    const HWND pane = PassageOf(program);
    DropSpot(pane);
    ASSERT_TRUE(HasSpot(pane));
    for (const UINT code : {SB_LINEUP, SB_PAGEUP, SB_THUMBPOSITION, SB_TOP, SB_BOTTOM, SB_ENDSCROLL}) {
        ScrollPassage(program, code);
        EXPECT_TRUE(HasSpot(pane)) << code;
    }
    ScrollPassage(program, SB_LINEDOWN);
    EXPECT_FALSE(HasSpot(pane));

    ScrollPassage(program, SB_THUMBPOSITION, 31101);
    DropSpot(pane);
    for (const UINT code : {SB_LINEDOWN, SB_PAGEDOWN}) {
        ScrollPassage(program, code);
        EXPECT_TRUE(HasSpot(pane)) << code;
    }
    ScrollPassage(program, SB_LINEUP);
    EXPECT_FALSE(HasSpot(pane));
}
