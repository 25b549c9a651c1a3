#include "typeset/html_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

static std::string Marked(std::string_view readable) {
    std::string marked(readable);
    for (char& byte : marked) {
        if (byte == '*') byte = kReferenceFollows;
        if (byte == '/') byte = kSuppliedFollows;
        if (byte == '.') byte = kPlainFollows;
    }
    return marked;
}

TEST(HtmlOfVerses, HasElementsForWhatIsMarked) {
    struct Row {
        const char* marked;
        const char* html;
    };
    static constexpr Row kRows[] = {
        {"", ""},
        {"plain", "plain"},
        {" *Ge 1:1. In", " <b>Ge 1:1</b> In"},
        {"and /was. so", "and <i>was</i> so"},
        {"/it ./was. so", "<i>it was</i> so"},
        {"*Ge./was", "<b>Ge</b><i>was</i>"},
        {"*never ended", "<b>never ended</b>"},
        {"*", ""},
        {"*./.", ""},
    };
    for (const auto& [marked, html] : kRows)
        EXPECT_EQ(HtmlOfVerses(Marked(marked), HtmlBrackets::kShown), html) << marked;
}

TEST(HtmlOfVerses, ShowsSuppliedWordsInItalicsOrBrackets) {
    struct Row {
        const char* text;
        const char* italics;
        const char* brackets;
    };
    static constexpr Row kRows[] = {
        {"and [was] so", "and <i>was</i> so", "and [was] so"},
        {"[it was]", "<i>it was</i>", "[it was]"},
        {"[a] [b]", "<i>a</i> <i>b</i>", "[a] [b]"},
        {"[a][b]", "<i>ab</i>", "[a][b]"},
        {"[[a] b]", "<i>a</i> b", "[[a] b]"},
        {"a] b[", "a b", "a] b["},
        {"[open", "<i>open</i>", "[open"},
    };
    for (const auto& [text, italics, brackets] : kRows) {
        EXPECT_EQ(HtmlOfVerses(text, HtmlBrackets::kAsItalics), italics);
        EXPECT_EQ(HtmlOfVerses(text, HtmlBrackets::kShown), brackets);
    }
}

TEST(HtmlOfVerses, EscapesAndTurnsLettersIntoUtf8) {
    EXPECT_EQ(HtmlOfVerses("\xB6 a<b & \"c\">\xC6\x97", HtmlBrackets::kShown),
              "\u00B6 a&lt;b &amp; &quot;c&quot;&gt;\u00C6\u2014");
}

TEST(HtmlOfVerses, HasLineEnds) {
    EXPECT_EQ(HtmlOfVerses("a\r\nb\r\n\r\nc", HtmlBrackets::kShown), "a<br>b<br><br>c");
    EXPECT_EQ(HtmlOfVerses("a\rb\nc\n\rd\r", HtmlBrackets::kShown), "a<br>b<br>c<br><br>d<br>");
}

TEST(HtmlOfVerses, LeavesOutOtherControlCharacters) {
    EXPECT_EQ(HtmlOfVerses(std::string_view("a\0b\x1F\tc", 6), HtmlBrackets::kShown), "ab\tc");
}

TEST(HtmlOfNote, KeepsEveryLetterAndTheBlanks) {
    static constexpr std::string_view kBegin = "<span style=\"white-space:pre-wrap\">", kEnd = "</span>";
    const auto within = [](std::string_view html) { return std::string(kBegin).append(html).append(kEnd); };
    EXPECT_EQ(HtmlOfNote("  one  two\r\n\r\n[three] <b>"), within("  one  two<br><br>[three] &lt;b&gt;"));
    EXPECT_EQ(HtmlOfNote("\u03BB\u05D0\u2014\U0001D538"), within("\u03BB\u05D0\u2014\U0001D538"));
    EXPECT_EQ(HtmlOfNote("a\x01\x02\x03z"), within("az"));
    EXPECT_EQ(HtmlOfNote(""), within(""));
}

// ---- The clipboard --------------------------------------------------------------------------------------------------

static std::size_t PlaceOf(const std::string& html, const std::string& name) {
    const std::size_t at = html.find("\r\n" + name + ":");
    return at == html.npos ? 0 : std::strtoul(html.c_str() + at + name.size() + 3, nullptr, 10);
}

static std::string Between(const std::string& html, const std::string& start, const std::string& end) {
    return html.substr(PlaceOf(html, start), PlaceOf(html, end) - PlaceOf(html, start));
}

TEST(ClipboardHtml, TellsThePlacesInBytes) {
    for (const std::string& fragment :
         {std::string("<b>Ge 1:1</b> \u00B6 In"), std::string(), std::string(12'345'678, 'x')}) {
        const std::string html = ClipboardHtml(fragment);
        ASSERT_TRUE(html.starts_with("Version:0.9\r\nStartHTML:"));
        EXPECT_EQ(Between(html, "StartFragment", "EndFragment"), fragment);
        EXPECT_EQ(PlaceOf(html, "EndHTML"), html.size());
        const std::string document = Between(html, "StartHTML", "EndHTML");
        EXPECT_TRUE(document.starts_with("<html>") && document.ends_with("</html>"));
        const std::string comments = "<!--StartFragment-->" + fragment + "<!--EndFragment-->";
        EXPECT_NE(document.find(comments), document.npos);
    }
}
