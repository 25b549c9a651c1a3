#include "print/print_flow.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"
#include "tests/support/paper_tape.h"

// ---- Labels ---------------------------------------------------------------------------------------------------------

// The texts in the bold face, in order.
static std::vector<std::string> LabelsIn(const std::string& tape) {
    std::vector<std::string> labels;
    for (std::size_t at = tape.find_first_of("b"); at != std::string::npos; at = tape.find("b", at + 1)) {
        const std::size_t text = tape.find(':', at) + 1;
        labels.push_back(tape.substr(text, tape.find('|', text) - text));
    }
    return labels;
}

TEST(PrintedLabels, FollowTheFormat) {
    const std::vector<HandMadeVerse> verses = {{1, 50, 25, "x"}, {1, 50, 26, "x"}, {2, 1, 1, "x"}, {2, 1, 2, "x"}};
    using Labels = std::vector<std::string>;
    const struct {
        int first, later;
        Labels labels;
    } rows[] = {
        {0, 0, {" Genesis 50:25 ", " Genesis 50:26 ", " Exodus 1:1 ", " Exodus 1:2 "}},
        {0, 1, {" Genesis 50:25 ", " 50:26 ", " Exodus 1:1 ", " 1:2 "}},
        {1, 2, {" 50:25 ", " Exodus 1:1 "}},  // a new book has a full label in any style
        {2, 1, {" 50:26 ", " Exodus 1:1 ", " 1:2 "}},
        {2, 2, {" Exodus 1:1 "}},
        {-1, 7, {" Exodus 1:1 "}},  // invalid settings
    };
    for (const auto& [first, later, labels] : rows)
        EXPECT_EQ(LabelsIn(Printed(RangeJob(verses, LabelStyles(first, later)))), labels) << first << later;
}

TEST(PrintedLabels, AlwaysPrecedeTheVerse) {
    FormatOptions format;
    format.Location = 1;
    EXPECT_EQ(Printed(RangeJob({{1, 1, 1, "In"}}, format)), "(b100,1000: Genesis 1:1 |r230,1000:In|)");
}

TEST(PrintedLabels, OfAListAreFullWithoutALeadingBlank) {
    PrintJob list = RangeJob({{1, 1, 1, "In"}, {66, 22, 21, "Amen"}, {66, 22, 20, "Even"}}, LabelStyles(2, 2));
    list.asList = true;
    EXPECT_EQ(Printed(list),
              "(b100,1000:Genesis 1:1 |r220,1000:In|b100,1020:Revelation 22:21 |r270,1020:Amen|"
              "b100,1040:Revelation 22:20 |r270,1040:Even|)");
}

// ---- Words ----------------------------------------------------------------------------------------------------------

TEST(PrintedWords, HaveABlankAfterAllButTheLast) {
    EXPECT_EQ(Printed(RangeJob({{1, 1, 1, "And God said"}}, LabelStyles(2, 2))),
              "(r100,1000:And |r140,1000:God |r180,1000:said|)");
    EXPECT_EQ(Printed(RangeJob({{1, 1, 1, ""}, {1, 1, 2, "x"}}, LabelStyles(2, 2))), "(r100,1020:x|)");
}

TEST(PrintedWords, WrapWhenTheyAndTheirBlankDoNotFit) {
    const struct {
        int right;
        const char* tape;
    } rows[] = {
        {180, "(r100,1000:And |r140,1000:God |r100,1020:said|)"},  // ends at the limit, so it stays in the line
        {179, "(r100,1000:And |r100,1020:God |r100,1040:said|)"},  // would fit only without its blank
        {220, "(r100,1000:And |r140,1000:God |r180,1000:said|)"},
        {219, "(r100,1000:And |r140,1000:God |r100,1020:said|)"},
        {120, "(r100,1020:And |r100,1040:God |r100,1060:said|)"},  // wider than the page: one per line, from the second
    };
    for (const auto& [right, tape] : rows) {
        PrintJob job = RangeJob({{1, 1, 1, "And God said"}}, LabelStyles(2, 2));
        job.box.right = right;
        EXPECT_EQ(Printed(job), tape) << right;
    }
}

TEST(PrintedWords, OfALabelWrapTogether) {
    PrintJob job = RangeJob({{1, 1, 1, "In"}, {1, 1, 2, "And"}});
    job.format.LineBreaks = 0;
    job.box.right = 300;
    EXPECT_EQ(Printed(job), "(b100,1000: Genesis 1:1 |r230,1000:In|b250,1000: 1:2 |r100,1020:And|)");
    job.box.right = 299;
    EXPECT_EQ(Printed(job), "(b100,1000: Genesis 1:1 |r230,1000:In|b100,1020: 1:2 |r150,1020:And|)");
}

TEST(PrintedWords, ContinueTheLineWithoutLineBreaks) {
    PrintJob job = RangeJob({{1, 1, 1, "In"}, {1, 1, 2, "And"}}, LabelStyles(2, 2));
    EXPECT_EQ(Printed(job), "(r100,1000:In|r100,1020:And|)");
    job.format.LineBreaks = 0;
    EXPECT_EQ(Printed(job), "(r100,1000:In|r130,1000:And|)") << "separated by a blank if there is no label";
}

TEST(PrintedWords, FollowTheFormatForParagraphMarks) {
    const std::vector<HandMadeVerse> verses = {{1, 1, 1,
                                                "\xB6In it\xB6"
                                                "And \xB6So"}};
    FormatOptions format = LabelStyles(2, 2);
    EXPECT_EQ(
        Printed(RangeJob(verses, format)),
        "(r100,1000:\xB6 |r120,1000:In |r150,1000:it|r170,1000:\xB6 |r190,1000:And |r230,1000:\xB6 |r250,1000:So|)");
    format.ParagraphMarks = 0;  // only removes the mark at the start
    EXPECT_EQ(Printed(RangeJob(verses, format)),
              "(r100,1000:In |r130,1000:it|r150,1000:\xB6 |r170,1000:And |r210,1000:\xB6 |r230,1000:So|)");
    PrintJob list = RangeJob({{1, 1, 1, "\xB6In"}}, format);
    list.asList = true;
    EXPECT_EQ(Printed(list), "(b100,1000:Genesis 1:1 |r220,1000:\xB6 |r240,1000:In|)");
}

TEST(PrintedWords, IncludeParagraphMarksInsideTheText) {
    PrintJob job = RangeJob({{1, 1, 1,
                              "it\xB6"
                              "And"}},
                            LabelStyles(2, 2));
    job.box.right = 130;
    EXPECT_EQ(Printed(job), "(r100,1000:it|r100,1020:\xB6 |r100,1040:And|)");
}

TEST(PrintedBrackets, FollowTheItalicsMode) {
    const struct {
        int mode;
        const char* tape;
    } rows[] = {
        {0, "(r100,1000:a |r120,1000:[|i130,1000:was |i170,1000:on|r190,1000:]|r200,1000: |r210,1000:b|)"},
        {1, "(r100,1000:a |r120,1000:[was |r170,1000:on] |r210,1000:b|)"},
        {2, "(r100,1000:a |r120,1000:was |r160,1000:on|r180,1000: |r190,1000:b|)"},
        {9, "(r100,1000:a |r120,1000:was |r160,1000:on|r180,1000: |r190,1000:b|)"},
    };
    for (const auto& [mode, tape] : rows) {
        PrintJob job = RangeJob({{1, 1, 1, "a [was on] b"}}, LabelStyles(2, 2));
        job.reading.Italics = static_cast<std::int8_t>(mode);
        job.format.Brackets = 0;
        EXPECT_EQ(Printed(job), tape) << mode;
        job.format.Brackets = 1;  // only applies to copied text
        EXPECT_EQ(Printed(job), tape) << mode;
        job.asList = true;
        EXPECT_NE(Printed(job).find(mode == 0 ? ":[|i" : mode == 1 ? ":[was |" : ":was |"), std::string::npos) << mode;
    }
}

TEST(PrintedBrackets, StayWithTheirWord) {
    PrintJob job = RangeJob({{1, 1, 1, "a [was]"}}, LabelStyles(2, 2));
    job.box.right = 169;
    EXPECT_EQ(Printed(job), "(r100,1000:a |r100,1020:[|i110,1020:was|r140,1020:]|)");
}

// ---- Pages ----------------------------------------------------------------------------------------------------------

TEST(PrintedPages, BreakBeforeALineThatDoesNotFit) {
    const std::vector<HandMadeVerse> verses = {{1, 1, 1, "a"}, {1, 1, 2, "b"}, {1, 1, 3, "c"}, {1, 1, 4, "d"}};
    const struct {
        int bottom;
        const char* tape;
    } rows[] = {
        {1080, "(r100,1000:a|r100,1020:b|r100,1040:c|r100,1060:d|)"},
        {1079, "(r100,1000:a|r100,1020:b|r100,1040:c|)(r100,1000:d|)"},
        {1040, "(r100,1000:a|r100,1020:b|)(r100,1000:c|r100,1020:d|)"},
        {1020, "(r100,1000:a|)(r100,1000:b|)(r100,1000:c|)(r100,1000:d|)"},
    };
    for (const auto& [bottom, tape] : rows) {
        PrintJob job = RangeJob(verses, LabelStyles(2, 2));
        job.box.bottom = bottom;
        EXPECT_EQ(Printed(job), tape) << bottom;
    }
}

TEST(PrintedPages, BreakForTheHighestFaceOfAWord) {
    PrintJob job = RangeJob({{1, 1, 1, "a"}, {1, 1, 2, "x[b]"}}, LabelStyles(2, 2));
    job.box.bottom = 1045;
    PaperTape tape;
    tape.italicHeight = 26;
    EXPECT_EQ(Print(job, tape), PrintResult::kPrinted);
    EXPECT_EQ(tape.tape, "(r100,1000:a|)(r100,1000:x|r110,1000:[|i120,1000:b|r130,1000:]|)");
}

TEST(PrintedPages, StopTheJobWhenAPageCannotBeStarted) {
    PrintJob job = RangeJob({{1, 1, 1, "a"}, {1, 1, 2, "b"}, {1, 1, 3, "c"}}, LabelStyles(2, 2));
    job.box.bottom = 1020;
    const char* const tapes[] = {"", "(r100,1000:a|)", "(r100,1000:a|)(r100,1000:b|)"};
    for (int page = 1; page <= 3; ++page) {
        PaperTape tape;
        tape.failingPage = page;
        EXPECT_EQ(Print(job, tape), PrintResult::kCannotStartPage);
        EXPECT_EQ(tape.tape, tapes[page - 1]);
        EXPECT_EQ(tape.pages, page);
    }
}

TEST(PrintedPages, StopAfterTheVerseWhereTheUserCancels) {
    const PrintJob job = RangeJob({{1, 1, 1, "a b"}, {1, 1, 2, "c d"}, {1, 1, 3, "e"}}, LabelStyles(2, 2));
    const char* const tapes[] = {"()", "(r100,1000:a |r120,1000:b|)",
                                 "(r100,1000:a |r120,1000:b|r100,1020:c |r120,1020:d|)"};
    for (int verses = 0; verses <= 2; ++verses) {
        PaperTape tape;
        tape.patience = verses;
        EXPECT_EQ(Print(job, tape), PrintResult::kPrinted);
        EXPECT_EQ(tape.tape, tapes[verses]);
    }
}

// ---- The whole Bible ------------------------------------------------------------------------------------------------

// Every character of the text except brackets and blanks, in order.
static std::string LettersOf(std::string_view text) {
    std::string letters;
    for (const char letter : text) {
        if (letter != ' ' && letter != '[' && letter != ']') letters += letter;
    }
    return letters;
}

TEST(PrintedBible, HasEveryWordInOrderInsideThePages) {
    struct Paper {
        std::string letters;
        PageBox box{600, 600, 4200, 5400};
        int pages = 0;
    } paper;
    const PrinterPage page{&paper,
                           [](void*, PrintFace, std::string_view text) { return 50 * static_cast<int>(text.size()); },
                           [](void*, PrintFace) { return 115; },
                           [](void* device, PrintFace, int x, int y, int width, std::string_view text) {
                               Paper& printed = *static_cast<Paper*>(device);
                               printed.letters += LettersOf(text);
                               ASSERT_TRUE(x >= printed.box.left && x + width <= printed.box.right) << text;
                               ASSERT_TRUE(y >= printed.box.top && y + 115 <= printed.box.bottom) << text;
                           },
                           [](void* device) { return ++static_cast<Paper*>(device)->pages > 0; },
                           [](void*) { return true; },
                           [](void*) { return true; }};
    std::vector<std::int32_t> verses(kVerseCount);
    std::iota(verses.begin(), verses.end(), 0);
    const Scripture& bible = TheRealScripture();
    std::string expected;
    for (const int verse : verses) {
        expected += LettersOf(ReferenceText(bible.records, verse, BookForm::kName));
        expected += LettersOf(VerseText(bible, verse));
    }
    EXPECT_EQ(PrintVerses(bible, verses, ListPrinting(paper.box, {}), page), PrintResult::kPrinted);
    EXPECT_TRUE(paper.letters == expected);
    EXPECT_GT(paper.pages, 1000);
}

// A damaged list may contain invalid verses.
TEST(PrintedBible, IgnoresInvalidVerses) {
    PaperTape tape;
    const std::int32_t verses[] = {-1, 50000000, kVerseCount + 1};
    EXPECT_EQ(PrintVerses(TheRealScripture(), verses, ListPrinting({0, 0, 100, 100}, {}), PageOver(tape)),
              PrintResult::kPrinted);
    EXPECT_EQ(tape.tape, "()");
}

// ---- The page set-up ------------------------------------------------------------------------------------------------

static void PrintTo(const PageBox& box, std::ostream* out) {
    *out << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom;
}

TEST(PageBox, RoundsMarginsDownToWholeInches) {
    const PrinterResolution printer{4800, 6000, 600, 300};
    const struct {
        PageMargins margins;
        PageBox box;
    } rows[] = {
        {{1000, 1000, 1000, 1000}, {600, 300, 4200, 5700}},
        {{500, 500, 500, 500}, {0, 0, 4800, 6000}},
        {{750, 999, 750, 999}, {0, 0, 4800, 6000}},
        {{1900, 1900, 1900, 1900}, {600, 300, 4200, 5700}},
        {{1500, 2000, 0, 3999}, {600, 600, 4800, 5100}},
        // 2.54 cm in a metric locale; the unit differs, but is divided in the same way
        {{2540, 2540, 2540, 2540}, {1200, 600, 3600, 5400}},
        {{1000, 2000, 3000, 4000}, {600, 600, 3000, 4800}},
    };
    for (const auto& [margins, box] : rows) EXPECT_EQ(PageBoxFor(printer, margins), box) << margins.left;
}

TEST(TabDistance, IsHalfAnInch) {
    EXPECT_EQ(TabDistanceFor({4800, 6000, 600, 300}), 300);
    EXPECT_EQ(TabDistanceFor({100, 100, 1, 1}), 1);
}

TEST(PrinterFontHeight, RoundsPointsAndThenPixels) {
    const struct {
        int screen, screenDots, printerDots, height;
    } rows[] = {
        {-16, 96, 600, -100},                         // 12 points
        {16, 96, 600, -100},   {-17, 96, 600, -100},  // 12.75 points are rounded to 12
        {-15, 96, 600, -91},                          // 11 points, 91.67 pixels
        {-13, 96, 300, -37},                          // 9 points, 37.5 pixels
        {-24, 144, 600, -100}, {-1, 96, 600, 0},     {-32767, 96, 2400, -819166},
    };
    for (const auto& [screen, screenDots, printerDots, height] : rows)
        EXPECT_EQ(PrinterFontHeight(screen, screenDots, printerDots), height) << screen;
}

TEST(PrintedBible, ContinuesAfterAVerseOutOfRange) {
    const std::vector<HandMadeVerse> verses = {{1, 1, 1, "One."}};
    const HandMadeFiles files = MakeFiles(verses);
    PaperTape tape;
    const std::int32_t listed[] = {7, 0};
    EXPECT_EQ(PrintVerses(ScriptureOf(files), listed, ListPrinting({0, 0, 1000, 100}, {}), PageOver(tape)),
              PrintResult::kPrinted);
    EXPECT_EQ(tape.tape, "(b0,0:Genesis 1:1 |r120,0:One.|)");
}
