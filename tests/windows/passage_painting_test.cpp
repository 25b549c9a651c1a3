// What the Passage paints: labels, headings, line breaks, italics, marks of notes.

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

// A folder whose program shows the Passage alone, at a verse index, as wide as the frame.
static ScratchFolder FolderOnlyPassage(int verse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "VerseListWindow", "0");
    WriteSetting(folder, "VIEW", "NotesWindow", "0");
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(verse));
    for (const auto& [key, value] : {std::pair{"XPos", "20"}, {"YPos", "20"}, {"Width", "1200"}, {"Height", "600"}})
        WriteSetting(folder, "MISC", key, value);
    return folder;
}

struct Painting {
    const char* name;
    int topVerse;
    bool inParagraphs;
    int italics;
    std::vector<PaintedLine> lines;
};

static void PrintTo(const Painting& painting, std::ostream* out) {
    *out << painting.name;
}

struct PassagePaints : testing::TestWithParam<Painting> {};

TEST_P(PassagePaints, TheseLines) {
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
INSTANTIATE_TEST_SUITE_P(Labels, PassagePaints, testing::ValuesIn(kLabels),
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
INSTANTIATE_TEST_SUITE_P(Headings, PassagePaints, testing::ValuesIn(kHeadings),
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
INSTANTIATE_TEST_SUITE_P(Italics, PassagePaints, testing::ValuesIn(kItalics),
                         [](const auto& row) { return row.param.name; });

struct Starred {
    const char* name;
    bool inParagraphs;
    std::vector<PaintedLine> lines;
};

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
