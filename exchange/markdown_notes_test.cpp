#include "exchange/markdown_notes.h"

#include <gmock/gmock.h>

#include "exchange/markdown_text.h"
#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::Pair;

static const int kMarkdownVerse = VerseAt("Romans", 8, 28);

static ExchangedNotes ReadMarkdown(std::string_view file) {
    return ReadMarkdownNotes(TestContext(), file);
}

static std::string MarkdownOf(std::string_view text) {
    std::string file;
    AppendMarkdown(text, file);
    EXPECT_TRUE(file.ends_with("\r\n"));
    return file.substr(0, file.size() - 2);
}

TEST(MarkdownNotes, AreWrittenWithHeadings) {
    ExchangedNotes notes{"My Notes", {{kMarkdownVerse, "two\r\nlines", DigestOf("x")}}};
    EXPECT_EQ(WriteMarkdownNotes(TestContext(), notes, {}),
              "# My Notes <!-- notes, to the end mark -->\r\n\r\n"
              "## Romans 8:28 <!-- imnmbgid -->\r\n\r\ntwo  \r\nlines\r\n\r\n"
              "<!-- end mark -->\r\n");
}

TEST(MarkdownNotes, ShowTextAsItWasTyped) {
    for (const auto& [text, markdown] : std::initializer_list<std::pair<const char*, const char*>>{
             {"plain, [is] (a) 1. x - y + z = #1 | & < > 'q'", "plain, [is] (a) 1. x - y + z = #1 | & < > 'q'"},
             {"# Ge 1:1", "\\# Ge 1:1"},
             {"  ## x", "  \\## x"},
             {"*bold* a_b `c` ~d~", "\\*bold\\* a\\_b \\`c\\` \\~d\\~"},
             {"* item\n- item\n+ item", "* item  \r\n- item  \r\n+ item"},
             {"----\n-\n- \n===\n+x", "\\----  \r\n\\-  \r\n\\-   \r\n\\===  \r\n\\+x"},
             {"> q\n| t", "\\> q  \r\n\\| t"},
             {"<b> </b> <!-- < 3", "\\<b> \\</b> \\<!-- < 3"},
             {"&amp; &#65; & x", "\\&amp; \\&#65; & x"},
             {"[a](b) [c]: d [e]", "[a\\](b) [c\\]: d [e]"},
             {"C:\\dir \\# \\\\ \\", "C:\\dir \\\\# \\\\\\ \\\\"},
             {"a\n\nb\n", "a\r\n\r\nb\r\n"},
         })
        EXPECT_EQ(MarkdownOf(text), markdown);
}

// As files were before there was an end mark.
TEST(MarkdownNotes, NeedNoEndMarkThatIsNotPromised) {
    const ExchangedNotes notes =
        ReadMarkdown("# Mine <!-- notes -->\r\n\r\n## Romans 8:28 <!-- imnmbgid -->\r\n\r\ntext\r\n\r\n");
    EXPECT_EQ(notes.setName, "Mine");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kMarkdownVerse, "text")));
    EXPECT_TRUE(notes.unplaced.empty());
}

TEST(MarkdownNotes, AreReadFromOtherEditors) {
    const ExchangedNotes notes = ReadMarkdown(
        "# Thoughts\n\n### Romans 8:28 ###\nA *star*\\\nnext  \nlast\\!\n\n#### part\nmore\n\n"
        "### Rom 8:29\n\n\ntext\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kMarkdownVerse, "A *star*\r\nnext\r\nlast!\r\n\r\n#### part\r\nmore"),
                                             Pair(kMarkdownVerse + 1, "text")));
    EXPECT_TRUE(notes.unplaced.empty());
    EXPECT_EQ(notes.setName, "");
}

TEST(MarkdownNotes, SayWhatTheyCannotPlace) {
    const ExchangedNotes notes =
        ReadMarkdown("loose\n\n## Romans 8:28\nfirst\n## Summary\nabout\n# Romans 8:99\nno\n#hash\n####### seven\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kMarkdownVerse, "first")));
    std::vector<std::string> lines;
    for (const UnplacedText& text : notes.unplaced)
        lines.push_back(std::to_string(text.line) + '|' + text.where + '|' + text.reason + '|' + text.text);
    EXPECT_THAT(lines,
                ElementsAre("1||This stands before the first verse.|loose", "5|Summary|This names no verse.|about",
                            "7|Romans 8:99|There is no such verse.|no\r\n#hash\r\n####### seven"));
}
