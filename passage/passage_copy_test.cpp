#include "passage/passage_copy.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "output/rendering.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/html_reader.h"
#include "tests/support/native_scripture.h"
#include "typeset/html_text.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6In the beginning."},  // 0
    {1, 1, 2, "And [it was] so."},       // 1
    {1, 1, 3, "\xB6Then light."},        // 2
    {1, 2, 1, "\xB6Thus [all]: end."},   // 3
    {1, 2, 2, "Amen so."},               // 4
    {9, 1, 1, "Now these."},             // 5
};

enum Layout { kLines, kParagraphs };
enum Marks { kWithout, kWith };

static std::string CopyOf(const Scripture& scripture, Layout layout, Marks brackets, SelectionPoint anchor,
                          SelectionPoint end) {
    ReadingOptions options;
    options.ParagraphFormat = layout == kParagraphs;
    return PassageCopyText(scripture, options, brackets == kWith, {kPassageOwns, anchor, end});
}

static std::string HtmlOf(const Scripture& scripture, Layout layout, Marks brackets, SelectionPoint anchor,
                          SelectionPoint end) {
    ReadingOptions options;
    options.ParagraphFormat = layout == kParagraphs;
    const bool keepBrackets = brackets == kWith;
    const Selection selection{kPassageOwns, anchor, end};
    return HtmlOfVerses(PassageCopyText(scripture, options, keepBrackets, selection, CopyMarks::kMarked),
                        keepBrackets ? HtmlBrackets::kShown : HtmlBrackets::kAsItalics);
}

struct CopyRow {
    Layout layout;
    Marks brackets;
    SelectionPoint anchor, end;
    const char* text;
};

static void ExpectCopies(std::span<const CopyRow> rows) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    for (const auto& [layout, brackets, anchor, end, text] : rows) {
        EXPECT_EQ(CopyOf(scripture, layout, brackets, anchor, end), text);
        EXPECT_EQ(CopyOf(scripture, layout, brackets, end, anchor), text) << "dragged the other way";
        const ReadHtml read = ReadHtmlText(HtmlOf(scripture, layout, brackets, anchor, end));
        EXPECT_EQ(read.text, Utf8OfLatin(text));
        EXPECT_EQ(read.fault, "");
    }
}

TEST(PassageCopy, StartsWithTheLabelOfTheLayout) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWithout, {0, 0}, {0, 4}, " Ge 1:1 \xB6 In the beginning. "},
        {kParagraphs, kWithout, {0, 0}, {0, 3}, "    Ge 1:1 In the beginning. "},
        {kLines, kWithout, {1, 0}, {1, 4}, " Ge 1:2 And it was so. "},
        {kParagraphs, kWithout, {1, 0}, {1, 4}, "Ge 1:2 And it was so. "},
        {kLines, kWithout, {5, 0}, {5, 2}, " 1Sa 1:1 Now these. "},
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, CopiesALabelAloneWithItsBlanks) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWithout, {0, 0}, {0, 0}, " Ge 1:1 "},
        {kParagraphs, kWithout, {0, 0}, {0, 0}, "    Ge 1:1 "},
        {kLines, kWithout, {1, 0}, {1, 0}, " Ge 1:2 "},
        {kParagraphs, kWithout, {1, 0}, {1, 0}, "Ge 1:2 "},
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, CountsTheParagraphMarkAsAWordOnlyInLines) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWithout, {0, 1}, {0, 1}, "\xB6 "},
        {kLines, kWithout, {0, 2}, {0, 2}, "In "},
        {kParagraphs, kWithout, {0, 1}, {0, 1}, "In "},
        {kLines, kWithout, {0, 3}, {0, 4}, "the beginning. "},
        {kParagraphs, kWithout, {0, 2}, {0, 3}, "the beginning. "},
        {kLines, kWithout, {1, 4}, {1, 4}, "so. "},
        {kLines, kWithout, {1, 1}, {1, 3}, "And it was "},
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, CanKeepBrackets) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWith, {1, 0}, {1, 4}, " Ge 1:2 And [it was] so. "},
        {kLines, kWith, {1, 2}, {1, 2}, "[it "},
        {kLines, kWith, {1, 3}, {1, 3}, "was] "},
        {kLines, kWithout, {1, 2}, {1, 3}, "it was "},
        {kParagraphs, kWith, {3, 2}, {3, 2}, "[all]: "},
        {kParagraphs, kWithout, {3, 2}, {3, 2}, "all: "},
        {kLines,
         kWith,
         {1, 3},
         {3, 3},
         "was] so. \r\n 3 \xB6 Then light. \r\n\r\nGenesis chapter 2\r\n\r\n 1 \xB6 Thus [all]: "},
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, ContinuesAcrossVerses) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWithout, {0, 4}, {1, 1}, "beginning. \r\n 2 And "},
        {kParagraphs, kWithout, {0, 3}, {1, 1}, "beginning. 2 And "},
        {kLines, kWithout, {1, 4}, {2, 2}, "so. \r\n 3 \xB6 Then "},
        {kParagraphs, kWithout, {1, 4}, {2, 1}, "so. \r\n    3 Then "},
        {kLines, kWithout, {0, 4}, {1, 0}, "beginning. \r\n 2 "},  // up to a label
        {kParagraphs, kWithout, {0, 3}, {1, 0}, "beginning. 2 "},
        {kParagraphs, kWithout, {1, 4}, {2, 0}, "so. \r\n    3 "},
        {kLines, kWithout, {1, 4}, {2, 0}, "so. \r\n 3 "},
        {kLines,
         kWithout,
         {0, 0},
         {2, 3},
         " Ge 1:1 \xB6 In the beginning. \r\n 2 And it was so. \r\n 3 \xB6 Then light. "},
        {kParagraphs, kWithout, {0, 0}, {2, 2}, "    Ge 1:1 In the beginning. 2 And it was so. \r\n    3 Then light. "},
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, AddsAHeadingForEachNewChapter) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWithout, {2, 3}, {3, 2}, "light. \r\n\r\nGenesis chapter 2\r\n\r\n 1 \xB6 Thus "},
        {kParagraphs, kWithout, {2, 2}, {3, 1}, "light. \r\n\r\nGenesis chapter 2\r\n\r\n    1 Thus "},
        {kLines, kWithout, {4, 2}, {5, 1}, "so. \r\n\r\n1 Samuel chapter 1\r\n\r\n 1 Now "},
        {kParagraphs,
         kWithout,
         {4, 2},
         {5, 1},
         "so. \r\n\r\n1 Samuel chapter 1\r\n1 Now "},  // not the beginning of a paragraph
        {kLines, kWithout, {2, 3}, {3, 0}, "light. \r\n\r\nGenesis chapter 2\r\n\r\n 1 "},
        {kParagraphs, kWithout, {4, 2}, {5, 0}, "so. \r\n\r\n1 Samuel chapter 1\r\n1 "},
        {kLines, kWithout, {3, 0}, {3, 2}, " Ge 2:1 \xB6 Thus "},  // no heading at the beginning of the selection
    };
    ExpectCopies(kRows);
}

TEST(PassageCopy, AddsAHeadingForTheSameChapterNumberOfAnotherBook) {
    const HandMadeVerse verses[] = {{31, 1, 21, "End."}, {32, 1, 1, "\xB6Now."}};
    const HandMadeFiles files = MakeFiles(verses);
    EXPECT_EQ(CopyOf(ScriptureOf(files), kParagraphs, kWithout, {0, 1}, {1, 1}),
              "End. \r\n\r\nJonah chapter 1\r\n\r\n    1 Now. ");
}

TEST(PassageCopy, HasReferencesAndSuppliedWordsInItsHtml) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    const auto html = [&](Layout layout, Marks brackets, SelectionPoint anchor, SelectionPoint end) {
        return HtmlOf(scripture, layout, brackets, anchor, end);
    };
    EXPECT_EQ(html(kLines, kWithout, {1, 0}, {2, 2}),
              " <b>Ge 1:2</b> And <i>it was</i> so. <br> <b>3</b> \u00B6 Then ");
    EXPECT_EQ(html(kLines, kWith, {1, 0}, {1, 4}), " <b>Ge 1:2</b> And [it was] so. ");
    EXPECT_EQ(html(kLines, kWithout, {1, 3}, {1, 4}), "<i>was</i> so. ") << "from within supplied words";
    EXPECT_EQ(html(kLines, kWithout, {1, 2}, {1, 2}), "<i>it </i>") << "only the first of them";
    EXPECT_EQ(html(kParagraphs, kWithout, {2, 2}, {3, 2}),
              "light. <br><br><b>Genesis chapter 2</b><br><br>    <b>1</b> Thus <i>all</i>: ");
}

TEST(PassageCopy, HandlesAnySelection) {
    static constexpr CopyRow kRows[] = {
        {kLines, kWith, {-1, -1}, {-1, -1}, ""},     // no word was hit
        {kLines, kWith, {-1, -1}, {1, 2}, ""},       //
        {kLines, kWith, {5, 2}, {9, 1}, "these. "},  // past the end
        {kLines, kWith, {40, 0}, {50, 1}, ""},       //
        {kLines, kWith, {1, 9}, {1, 12}, ""},        // words that the verse does not have
        {kLines, kWith, {1, 9}, {2, 1}, "\r\n 3 \xB6 "},
        {kLines, kWith, {5, 2}, {5, 99}, "these. "},
    };
    ExpectCopies(kRows);
    EXPECT_EQ(CopyOf({}, kLines, kWith, {0, 0}, {3, 1}), "");
}

// The real text.

static int VerseAt(int book, int chapter, int verse) {
    return VerseLookup(TheRealScripture().records, book, chapter, verse);
}

TEST(RealPassageCopy, MatchesThePane) {
    const Scripture& scripture = TheRealScripture();
    const int wept = VerseAt(43, 11, 35);
    const int praise = VerseAt(19, 117, 2);
    EXPECT_EQ(CopyOf(scripture, kLines, kWithout, {wept, 0}, {wept + 1, 4}),
              " Joh 11:35 Jesus wept. \r\n 36 Then said the Jews, ");
    EXPECT_EQ(CopyOf(scripture, kParagraphs, kWithout, {wept, 0}, {wept + 1, 4}),
              "Joh 11:35 Jesus wept. 36 Then said the Jews, ");
    EXPECT_EQ(CopyOf(scripture, kLines, kWithout, {praise, 1}, {praise, 3}), "For his merciful ");
    const std::string overChapters = CopyOf(scripture, kLines, kWith, {praise, 0}, {praise + 1, 4});
    EXPECT_EQ(overChapters.substr(0, 10), " Ps 117:2 ");
    EXPECT_TRUE(overChapters.ends_with(" \r\n\r\nPsalms chapter 118\r\n\r\n 1 \xB6 O give thanks ")) << overChapters;
}

// The expected copy of the whole Bible, calculated independently.
static std::string WholeText(Layout layout, Marks brackets) {
    const Scripture& scripture = TheRealScripture();
    const bool lines = layout == kLines;
    std::string text;
    VerseRecord before = RecordOf(scripture.records, 0);
    for (int verse = 0; verse <= kLastVerse; ++verse) {
        const VerseRecord record = RecordOf(scripture.records, verse);
        std::string words(VerseText(scripture, verse));
        const bool paragraph = BeginsParagraph(words);
        if (paragraph) words.replace(0, 1, lines ? "\xB6 " : "");
        if (record.book != before.book || record.chapter != before.chapter) {
            std::string heading = ReferenceText(scripture.records, verse, BookForm::kName);
            heading.replace(heading.rfind(' '), std::string::npos, " chapter " + std::to_string(record.chapter));
            text += "\r\n\r\n" + heading + "\r\n";
        }
        if (verse > 0 && (lines || paragraph)) text += "\r\n";
        text += lines ? " " : paragraph ? "    " : "";
        text += verse == 0 ? "Ge 1:1" : std::to_string(record.verse);
        text += " " + words + " ";
        before = record;
    }
    return brackets == kWithout ? WithoutBrackets(text) : text;
}

static std::size_t FirstDifference(const std::string& one, const std::string& other) {
    const std::size_t common = std::min(one.size(), other.size());
    return static_cast<std::size_t>(
        std::mismatch(one.begin(), one.begin() + static_cast<std::ptrdiff_t>(common), other.begin()).first -
        one.begin());
}

TEST(RealPassageCopy, CopiesTheWholeBible) {
    const SelectionPoint end = {kLastVerse, 999};
    for (const Layout layout : {kLines, kParagraphs}) {
        for (const Marks brackets : {kWithout, kWith}) {
            const std::string copy = CopyOf(TheRealScripture(), layout, brackets, end, {0, 0});
            const std::string expected = WholeText(layout, brackets);
            EXPECT_TRUE(copy == expected) << copy.substr(FirstDifference(copy, expected), 80);
            const ReadHtml read = ReadHtmlText(HtmlOf(TheRealScripture(), layout, brackets, end, {0, 0}));
            EXPECT_EQ(read.fault, "");
            EXPECT_TRUE(read.text == Utf8OfLatin(expected));
            EXPECT_EQ(read.bold.size(), std::size_t{kVerseCount} + 1189 - 1) << "a label for each verse, and headings";
            EXPECT_EQ(read.italics.empty(), brackets == kWith);
        }
    }
}
