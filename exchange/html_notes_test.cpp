#include "exchange/html_notes.h"

#include <gmock/gmock.h>

#include "exchange/html_reading.h"
#include "exchange/html_tokens.h"
#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

static const int kHtmlVerse = VerseAt("Romans", 8, 28);

static std::string PageWith(const std::vector<ExchangedNote>& notes, const ExportOptions& options = {}) {
    return WriteHtmlNotes(TestContext(), {"My & Notes", notes}, options);
}

TEST(HtmlNotes, AreAPageWithAnchorsAndContents) {
    const std::string page =
        PageWith({{0, "a < b & \"c\"", 1}, {1, "x", 1}, {kHtmlVerse, "\r\ntwo\r\nlines", DigestOf("x")}});
    EXPECT_TRUE(page.starts_with("<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"));
    EXPECT_THAT(page, HasSubstr("<title>My &amp; Notes</title>"));
    EXPECT_THAT(page, HasSubstr("<p>3 notes</p>"));
    EXPECT_THAT(page, HasSubstr("<li><a href=\"#Gen\">Genesis</a> 2</li>\n<li><a href=\"#Rom\">Romans</a> 1</li>"));
    EXPECT_THAT(page, HasSubstr("<pre class=\"note\">a &lt; b &amp; &quot;c&quot;</pre>"));
    EXPECT_THAT(page,
                HasSubstr("<section id=\"Rom\">\n<h2>Romans</h2>\n"
                          "<article id=\"Rom.8.28\" data-verse=\"Romans 8:28\" data-mark=\"imnmbgid\">\n"
                          "<h3><a href=\"#Rom.8.28\">Romans 8:28</a></h3>\n"
                          "<pre class=\"note\">\n\ntwo\nlines</pre>\n</article>\n</section>\n</body>\n</html>\n"));
}

TEST(HtmlNotes, HaveTheTextsOfVersesIfWishedFor) {
    EXPECT_THAT(PageWith({{1, "x", {}}}, {.hasVerseTexts = true}),
                HasSubstr("<p class=\"verse\">And the earth was without form, and void; and darkness <i>was</i> upon"));
    EXPECT_THAT(PageWith({{1, "x", {}}}), Not(HasSubstr("class=\"verse\"")));
}

TEST(HtmlNotes, LinkReferencesToNotesOnThePage) {
    const std::string page = PageWith({{0, "# Ge 1:2, 9\r\nno # here", {}}, {1, "x", {}}});
    EXPECT_THAT(page, HasSubstr("# <a href=\"#Gen.1.2\">Ge 1:2</a>, <span title=\"Genesis 1:9 And God said, Let the "));
    EXPECT_THAT(page, HasSubstr("\">9</span>\nno # here</pre>"));
}

TEST(HtmlNotes, LinkReferencesInRunningText) {
    const std::string page =
        PageWith({{0, "\xE9 see Rom 8:28-30, v. 2 & <b>.\r\n# Ex 2:4", {}}, {kHtmlVerse + 1, "x", {}}});
    EXPECT_THAT(page, HasSubstr("<pre class=\"note\">\xC3\xA9 see <a href=\"#Rom.8.29\">Rom 8:28-30</a>, <span "
                                "title=\"Genesis 1:2 And the earth was without form, and void"))
        << "the first verse of a range that has a note";
    EXPECT_THAT(page, HasSubstr("\">v. 2</span> &amp; &lt;b&gt;.\n# <span title=\"Exodus 2:4 And his sister"));
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static ExchangedNotes ReadHtml(std::string_view page) {
    return ReadHtmlNotes(TestContext(), page);
}

TEST(HtmlNotes, AreReadWhateverAnEditorDoesToTags) {
    for (const char* page : {
             "<ARTICLE class=x data-mark='imnmbgid' DATA-VERSE = \"Romans 8:28\"><H3>Romans 8:28</H3>"
             "<PRE id=y class='a note'>two\nlines</PRE></ARTICLE>",
             "<div data-verse=Rom.8.28 data-mark=imnmbgid><pre class=note>\ntwo<br>lines</pre></div>",
             "<article data-verse=\"Romans 8:28\" data-mark=\"IMNMBGID\">\n<div "
             "class=\"note\">two<div>l<b>in</b>e&#115;"
             "</div></div><p>other</p></article>",
             "<article data-verse=\"Romans 8:28\" data-mark=\"imnmbgid\"><pre class=\"note\">two\nlines</article><p>x",
             "<article data-verse=\"Romans 8:28\" data-mark=\"imnmbgid\"><h3>Romans 8:28</h3><p class=\"verse\">And "
             "<p>x</p></p><p>two\n <p> lines </p></article>",
         }) {
        const ExchangedNotes notes = ReadHtml(page);
        EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kHtmlVerse, "two\r\nlines"))) << page;
        EXPECT_THAT(notes.unplaced, IsEmpty());
        ASSERT_FALSE(notes.notes.empty());
        EXPECT_EQ(notes.notes[0].digest, DigestOf("x"));
    }
}

TEST(HtmlNotes, MayBeMadeByHand) {
    const ExchangedNotes notes = ReadHtml(
        "<html><head><title>Romans 1:1</title><style>p { x: y }</style></head><body><h1>Thoughts</h1>\n<p>about</p>"
        "<h2>Rom 8:28</h2>\n<p>All   things\n work.<br/>Amen.</p>\n<ul><li>one<li>two</ul><!-- <h2>Romans 9:1</h2> -->"
        "<h2>Rom 8:29</h2>caf&eacute;&nbsp;&mdash; &nosuch; a&b<script>if (a<b) x</script></body></html>");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kHtmlVerse, "All things work.\r\nAmen.\r\none\r\ntwo"),
                                             Pair(kHtmlVerse + 1,
                                                  "\xEF\xBB\xBF"
                                                  "caf\xC3\xA9\xC2\xA0\xE2\x80\x94 &nosuch; a&b")));
}

TEST(HtmlNotes, SayWhatTheyCannotPlace) {
    const ExchangedNotes notes = ReadHtml(
        "<body data-set=\"x\">\n<article data-verse=\"Romans 8:99\"><pre class=\"note\">a</pre></article>\n"
        "<article data-verse=\"Romans 8:28\"><h3>Romans 8:29</h3><pre class=\"note\">b</pre></article>\n"
        "<article data-verse=\"\"><pre class=\"note\">c</pre></article>");
    EXPECT_EQ(notes.setName, "x");
    EXPECT_THAT(notes.notes, IsEmpty());
    std::vector<std::string> lines;
    for (const UnplacedText& text : notes.unplaced)
        lines.push_back(std::to_string(text.line) + '|' + text.where + '|' + text.reason + '|' + text.text);
    EXPECT_THAT(lines, ElementsAre("2|Romans 8:99|There is no such verse.|a",
                                   "3|Romans 8:28|The heading names another verse than the page does.|b",
                                   "4||This names no verse.|c"));
}

// Rather than replace a note by half of one.
TEST(HtmlNotes, SayThatAPageIsCut) {
    const ExchangedNotes notes = ReadHtml(
        "<article data-verse=\"Romans 8:28\"><pre class=\"note\">a</pre></article>\n"
        "<article data-verse=\"Romans 8:29\"><pre class=\"note\">b");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kHtmlVerse, "a")));
    ASSERT_EQ(notes.unplaced.size(), 1u);
    EXPECT_EQ(notes.unplaced[0].reason, "The page ends before this note does.");
    EXPECT_EQ(notes.unplaced[0].text, "b");
}

// ---- Tokens ---------------------------------------------------------------------------------------------------------

static std::vector<std::string> TokensOf(std::string_view page) {
    std::vector<std::string> tokens;
    HtmlToken token;
    while (TakeToken(page, token)) {
        std::string line = token.isTag ? (token.tag.isEnd ? "/" : "<") + token.tag.name : '"' + token.text;
        if (token.isTag)
            for (const auto& [name, value] : token.tag.attributes) line += ' ' + name + '=' + value;
        tokens.push_back(line);
    }
    return tokens;
}

TEST(HtmlTokens, AreTagsAndText) {
    EXPECT_THAT(TokensOf(""), IsEmpty());
    EXPECT_THAT(TokensOf("a<b>c</b >d"), ElementsAre("\"a", "<b", "\"c", "/b", "\"d"));
    EXPECT_THAT(TokensOf("<!DOCTYPE x><?y?><!-- <b> --><i>"), ElementsAre("<i"));
    EXPECT_THAT(TokensOf("<br/><x a b=c d='e>' f = \"&lt;\"/>"), ElementsAre("<br", "<x a= b=c d=e> f=<"));
    EXPECT_THAT(TokensOf("a < b <3 </ x"), ElementsAre("\"a ", "\"< b ", "\"<3 ", "\"</ x"));
    EXPECT_THAT(TokensOf("a<b c"), ElementsAre("\"a", "\"<b c"));
    EXPECT_THAT(TokensOf("a<b c='<i>"), ElementsAre("\"a", "\"<b c='<i>"));
    EXPECT_THAT(TokensOf("<a it's>x"), ElementsAre("<a it's=", "\"x"));
    EXPECT_THAT(TokensOf("<STYLE>x</b></Style>y<script>z"), ElementsAre("<style", "/style", "\"y", "<script"));
}

TEST(HtmlTokens, HaveNoEntities) {
    EXPECT_EQ(WithoutEntities("&amp;&lt;&gt;&quot;&apos;"), "&<>\"'");
    EXPECT_EQ(WithoutEntities("&eacute;&yuml;&nbsp;&mdash;"), "\xC3\xA9\xC3\xBF\xC2\xA0\xE2\x80\x94");
    EXPECT_EQ(WithoutEntities("&#65;&#x41;&#X3b1;"), "AA\xCE\xB1");
    EXPECT_EQ(WithoutEntities("& &; &# &#; &#x; &#0; &#xD800; &#1114112; &#12a; &x &verylongname;"),
              "& &; &# &#; &#x; &#0; &#xD800; &#1114112; &#12a; &x &verylongname;");
}
