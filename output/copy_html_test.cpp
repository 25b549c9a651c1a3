// The HTML of what the copy commands put on the clipboard.

#include <gtest/gtest.h>

#include <numeric>

#include "output/copy_text.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/html_reader.h"
#include "tests/support/native_scripture.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6In the beginning."},  // 0
    {1, 1, 2, "And [it was] so."},       // 1
    {1, 2, 1, "\xB6Thus [all]: end."},   // 2
    {9, 1, 1, "Now [never closed"},      // 3
    {9, 1, 2, "as well. & <\"so\">"},    // 4
};

static std::string HtmlOf(const FormatOptions& format, int first, int count) {
    const HandMadeFiles files = MakeFiles(kVerses);
    return RangeHtml(ScriptureOf(files), format, first, count);
}

TEST(RangeHtml, HasReferencesInBoldAndSuppliedWordsInItalics) {
    EXPECT_EQ(HtmlOf({}, 0, 3),
              " <b>Ge 1:1</b> \u00B6 In the beginning.<br>"
              " <b>2</b> And <i>it was</i> so.<br>"
              " <b>2:1</b> \u00B6 Thus <i>all</i>: end.<br>");
    EXPECT_EQ(HtmlOf({.ParagraphMarks = 0}, 0, 1), " <b>Ge 1:1</b> In the beginning.<br>");
}

TEST(RangeHtml, FollowsTheFormat) {
    EXPECT_EQ(HtmlOf({.Brackets = 1}, 1, 1), " <b>Ge 1:2</b> And [it was] so.<br>");
    EXPECT_EQ(HtmlOf({.Location = 1, .LineBreaks = 0}, 1, 2),
              " And <i>it was</i> so. <b>Ge 1:2</b> \u00B6 Thus <i>all</i>: end. <b>2:1</b>");
    EXPECT_EQ(HtmlOf({.FirstVerseStyle = 2, .SubsequentVerseStyle = 2}, 1, 2),
              " And <i>it was</i> so.<br> \u00B6 Thus <i>all</i>: end.<br>");
}

TEST(RangeHtml, EndsItalicsWithTheVerse) {
    EXPECT_EQ(HtmlOf({.SubsequentVerseStyle = 2, .LineBreaks = 0}, 3, 2),
              " <b>1Sa 1:1</b> Now <i>never closed</i> as well. &amp; &lt;&quot;so&quot;&gt;");
}

TEST(RangeHtml, OfNoVersesIsEmpty) {
    EXPECT_EQ(HtmlOf({}, 0, 0), "");
}

TEST(ListHtml, HasALineForEachVerse) {
    static constexpr std::int32_t kList[] = {2, 0};
    const HandMadeFiles files = MakeFiles(kVerses);
    EXPECT_EQ(ListHtml(ScriptureOf(files), {}, kList),
              " <b>Ge 2:1</b> \u00B6 Thus <i>all</i>: end.<br> <b>Ge 1:1</b> \u00B6 In the beginning.<br>");
    EXPECT_EQ(ListHtml(ScriptureOf(files), {.Brackets = 1}, std::span(kList).first(1)),
              " <b>Ge 2:1</b> \u00B6 Thus [all]: end.<br>");
    EXPECT_EQ(ListHtml(ScriptureOf(files), {}, {}), "");
}

TEST(ReferencesHtml, IsBoldBehindTheSign) {
    EXPECT_EQ(ReferencesHtml("# Ge 1:1,3 Ex 2:4"), "# <b>Ge 1:1,3 Ex 2:4</b>");
    EXPECT_EQ(ReferencesHtml("#"), "#");
}

// ---- The whole Bible ------------------------------------------------------------------------------------------------

// What is between brackets in the text.
static std::vector<std::string> SuppliedWords() {
    std::vector<std::string> supplied;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        std::string_view text = VerseText(TheRealScripture(), verse);
        for (std::size_t open; (open = text.find('[')) != text.npos;) {
            text.remove_prefix(open + 1);
            supplied.push_back(Utf8OfLatin(text.substr(0, text.find(']'))));
        }
    }
    return supplied;
}

static std::vector<std::string> References() {
    std::vector<std::string> references;
    for (int verse = 0; verse < kVerseCount; ++verse)
        references.push_back(ReferenceText(TheRealScripture().records, verse, BookForm::kAbbreviation));
    return references;
}

TEST(CopiedHtml, OfTheWholeBibleHasItsText) {
    const Scripture& scripture = TheRealScripture();
    for (const int brackets : {0, 1}) {
        for (const std::int8_t style : {kFullLabel, kPartialLabel}) {
            const FormatOptions format{.SubsequentVerseStyle = style, .Brackets = brackets};
            const CopyText copy = CopyRangeText(scripture, format, 0, kLastVerse, RangeCopyBudget(0, kLastVerse));
            ASSERT_EQ(copy.count, kVerseCount);
            const ReadHtml read = ReadHtmlText(RangeHtml(scripture, format, 0, copy.count));
            EXPECT_EQ(read.fault, "");
            EXPECT_TRUE(read.text == Utf8OfLatin(copy.text));
            EXPECT_TRUE(read.italics == (brackets ? std::vector<std::string>{} : SuppliedWords()));
            EXPECT_TRUE(style != kFullLabel || read.bold == References());
            EXPECT_EQ(read.bold.size(), std::size_t{kVerseCount});
        }
    }
}

TEST(CopiedHtml, OfAListOfAllVersesHasItsText) {
    const Scripture& scripture = TheRealScripture();
    std::vector<std::int32_t> all(kVerseCount);
    std::iota(all.begin(), all.end(), 0);
    const CopyText copy = CopyListText(scripture, {}, all, ListCopyBudget(scripture, all));
    const ReadHtml read =
        ReadHtmlText(ListHtml(scripture, {}, std::span(all).first(static_cast<std::size_t>(copy.count))));
    EXPECT_EQ(read.fault, "");
    EXPECT_TRUE(read.text == Utf8OfLatin(copy.text));
    EXPECT_TRUE(read.italics == SuppliedWords());
    EXPECT_TRUE(read.bold == References());
}

// Only the verses that fit are in the text.
TEST(CopiedHtml, OfAnIncompleteCopyHasWhatIsCopied) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    for (std::size_t budget = 0; budget < 120; ++budget) {
        const CopyText copy = CopyRangeText(scripture, {}, 0, 3, budget);
        EXPECT_EQ(ReadHtmlText(RangeHtml(scripture, {}, 0, copy.count)).text, Utf8OfLatin(copy.text));
        static constexpr std::int32_t kList[] = {3, 1, 2};
        const CopyText list = CopyListText(scripture, {}, kList, budget);
        const auto fitted = std::span(kList).first(static_cast<std::size_t>(list.count));
        EXPECT_EQ(ReadHtmlText(ListHtml(scripture, {}, fitted)).text, Utf8OfLatin(list.text));
    }
}
