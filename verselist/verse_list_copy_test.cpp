#include "verselist/verse_list_copy.h"

#include <gtest/gtest.h>

#include <numeric>

#include "tests/support/hand_made_scripture.h"
#include "tests/support/html_reader.h"
#include "tests/support/native_scripture.h"
#include "typeset/html_text.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6In the beginning."},
    {1, 1, 2, "And [it was] so."},
    {9, 3, 4, "That the [LORD]:"},
    {43, 11, 35, "Jesus wept."},
};

struct ListCopyRow {
    bool keepBrackets;
    SelectionPoint anchor, end;
    const char* text;
};

static std::string CopyOf(const Scripture& scripture, const VerseList& list, const ListCopyRow& row) {
    return VerseListCopyText(scripture, list, row.keepBrackets, {kVerseListOwns, row.anchor, row.end});
}

static std::string HtmlOf(const Scripture& scripture, const VerseList& list, const ListCopyRow& row) {
    const Selection selection{kVerseListOwns, row.anchor, row.end};
    return HtmlOfVerses(VerseListCopyText(scripture, list, row.keepBrackets, selection, CopyMarks::kMarked),
                        row.keepBrackets ? HtmlBrackets::kShown : HtmlBrackets::kAsItalics);
}

// Copies from the list 1Sa 3:4, Ge 1:1, Ge 1:2, Joh 11:35, where verse indexes differ from entry numbers.
static void ExpectCopies(std::span<const ListCopyRow> rows) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    VerseList list;
    list.ListEntries = {2, 0, 1, 3};
    for (const ListCopyRow& row : rows) {
        EXPECT_EQ(CopyOf(scripture, list, row), row.text);
        EXPECT_EQ(CopyOf(scripture, list, {row.keepBrackets, row.end, row.anchor, row.text}), row.text)
            << "dragged the other way";
        const ReadHtml read = ReadHtmlText(HtmlOf(scripture, list, row));
        EXPECT_EQ(read.text, Utf8OfLatin(row.text));
        EXPECT_EQ(read.fault, "");
    }
}

TEST(VerseListCopy, WithinOneEntryHasNoLineEnd) {
    static constexpr ListCopyRow kRows[] = {
        {false, {2, 0}, {2, 0}, " Ge 1:2 "},         // the label alone
        {false, {1, 0}, {1, 0}, " Ge 1:1 "},         //
        {false, {2, 0}, {2, 2}, " Ge 1:2 And it "},  //
        {false, {2, 0}, {2, 4}, " Ge 1:2 And it was so. "},
        {false, {2, 3}, {2, 4}, "was so. "},          //
        {false, {2, 4}, {2, 4}, "so. "},              //
        {false, {1, 0}, {1, 2}, " Ge 1:1 \xB6 In "},  // the paragraph mark is a word
        {false, {1, 1}, {1, 1}, "\xB6 "},             //
        {false, {0, 0}, {0, 3}, " 1Sa 3:4 That the LORD: "},
    };
    ExpectCopies(kRows);
}

TEST(VerseListCopy, OnlyTheFirstLineEndsWithABlank) {
    static constexpr ListCopyRow kRows[] = {
        {false, {1, 0}, {2, 1}, " Ge 1:1 \xB6 In the beginning. \r\n Ge 1:2 And "},
        {false, {1, 4}, {2, 0}, "beginning. \r\n Ge 1:2 "},
        {false, {1, 4}, {3, 1}, "beginning. \r\n Ge 1:2 And it was so.\r\n Joh 11:35 Jesus "},
        {false, {0, 2}, {2, 2}, "the LORD: \r\n Ge 1:1 \xB6 In the beginning.\r\n Ge 1:2 And it "},
    };
    ExpectCopies(kRows);
}

// Deliberate: the lines of later entries do not end with a blank, so the line end is not removed.
TEST(VerseListCopy, KeepsTheLineEndAfterTheLastWordOfALaterEntry) {
    static constexpr ListCopyRow kRows[] = {
        {false, {2, 4}, {3, 2}, "so. \r\n Joh 11:35 Jesus wept.\r\n"},
        {false, {2, 4}, {3, 1}, "so. \r\n Joh 11:35 Jesus "},
        {false, {0, 3}, {1, 4}, "LORD: \r\n Ge 1:1 \xB6 In the beginning.\r\n"},
    };
    ExpectCopies(kRows);
}

TEST(VerseListCopy, CanKeepBrackets) {
    static constexpr ListCopyRow kRows[] = {
        {true, {2, 0}, {2, 4}, " Ge 1:2 And [it was] so. "},
        {true, {2, 2}, {3, 1}, "[it was] so. \r\n Joh 11:35 Jesus "},
        {true, {0, 3}, {2, 3}, "[LORD]: \r\n Ge 1:1 \xB6 In the beginning.\r\n Ge 1:2 And [it was] "},
        {false, {2, 2}, {2, 3}, "it was "},
    };
    ExpectCopies(kRows);
}

TEST(VerseListCopy, HasReferencesAndSuppliedWordsInItsHtml) {
    const HandMadeFiles files = MakeFiles(kVerses);
    VerseList list;
    list.ListEntries = {2, 1};
    EXPECT_EQ(HtmlOf(ScriptureOf(files), list, {false, {0, 3}, {1, 4}, ""}),
              "<i>LORD</i>: <br> <b>Ge 1:2</b> And <i>it was</i> so.<br>");
    EXPECT_EQ(HtmlOf(ScriptureOf(files), list, {true, {1, 0}, {1, 4}, ""}), " <b>Ge 1:2</b> And [it was] so. ");
}

// The blank that is taken away is among the supplied words.
TEST(VerseListCopy, HasItsTextInTheHtmlOfAVerseWithAnOpenBracket) {
    const HandMadeVerse verses[] = {{1, 1, 1, "One"}, {1, 1, 2, "two [three"}};
    const HandMadeFiles files = MakeFiles(verses);
    VerseList list;
    list.ListEntries = {0, 1};
    EXPECT_EQ(HtmlOf(ScriptureOf(files), list, {false, {0, 1}, {1, 2}, ""}),
              "One <br> <b>Ge 1:2</b> two <i>three<br></i>");
}

TEST(VerseListCopy, HandlesAnySelection) {
    static constexpr ListCopyRow kRows[] = {
        {true, {-1, -1}, {-1, -1}, ""},       {true, {-1, -1}, {2, 1}, ""}, {true, {7, 0}, {9, 1}, ""},
        {true, {3, 2}, {9, 1}, "wept. \r\n"}, {true, {3, 5}, {3, 9}, ""},
    };
    ExpectCopies(kRows);
    EXPECT_EQ(CopyOf({}, {}, {true, {0, 0}, {3, 1}, ""}), "");
}

TEST(RealVerseListCopy, CopiesAListOfTheWholeBible) {
    VerseList list;
    list.ListEntries.resize(kVerseCount);
    std::iota(list.ListEntries.begin(), list.ListEntries.end(), 0);
    const std::string copy = CopyOf(TheRealScripture(), list, {true, {0, 0}, {kLastVerse, 999}, ""});

    std::string_view rest = copy;
    for (int verse = 0; verse <= kLastVerse; ++verse) {
        std::string line = " " + ReferenceText(TheRealScripture().records, verse, BookForm::kAbbreviation) + " ";
        line += VerseText(TheRealScripture(), verse);
        if (const std::size_t mark = line.find('\xB6'); mark != std::string::npos) line.insert(mark + 1, " ");
        line += verse == 0 ? " \r\n" : "\r\n";
        ASSERT_EQ(rest.substr(0, line.size()), line);
        rest.remove_prefix(line.size());
    }
    EXPECT_EQ(rest, "");
    const ReadHtml read = ReadHtmlText(HtmlOf(TheRealScripture(), list, {true, {0, 0}, {kLastVerse, 999}, ""}));
    EXPECT_EQ(read.fault, "");
    EXPECT_TRUE(read.text == Utf8OfLatin(copy));
}
