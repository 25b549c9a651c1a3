#include "data/marked_text.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

// Puts "T:" before titles, "R:" before rows, "*bold*" before a paragraph that begins with bold text, and "@reference"
// after a paragraph for each of its references.
static std::vector<std::string> Shown(const std::string& entry) {
    std::vector<std::string> shown;
    for (const Paragraph& paragraph : ParagraphsOf(entry)) {
        std::string text = paragraph.isTitle ? "T:" : paragraph.isRow ? "R:" : "";
        if (!paragraph.boldStart.empty()) text += "*" + paragraph.boldStart + "* ";
        text += paragraph.text;
        for (const std::string& reference : paragraph.references) text += " @" + reference;
        shown.push_back(text);
    }
    return shown;
}

namespace {

struct MarkedRow {
    const char* entry;
    std::vector<std::string> paragraphs;
};

}  // namespace

TEST(MarkedText, BecomesParagraphsOfPlainText) {
    const MarkedRow rows[] = {
        {"", {}},
        {" <div sID=\"g1\" type=\"x-p\"/> <div eID=\"g1\" type=\"x-p\"/> ", {}},
        {"just   words\n in\ta row", {"just words in a row"}},
        {"<div sID=\"1\" type=\"x-p\"/> One. <div eID=\"1\" type=\"x-p\"/> <div sID=\"2\"/>Two.", {"One.", "Two."}},
        {"<p>One.</p><p>Two.</p>", {"One.", "Two."}},
        {"<title type=\"x-s\">Head</title> text", {"T:Head", "text"}},
        {"<title/>text", {"text"}},
        {"<h2>Head</h2>text", {"T:Head", "text"}},
        {"<div type=\"x-milestone\" subType=\"x-preverse\" sID=\"p\"/>one<div type=\"x-milestone\" eID=\"p\"/>two",
         {"onetwo"}},
        {"a<lb/>b <l>c</l> <l>d</l>", {"a\nb\nc\nd"}},
        {"<list> <item>(1) a.</item> <item>(2) b.</item> </list>after", {"(1) a.\n(2) b.", "after"}},
        {"<table> <row><cell>Light.</cell><cell>(3-5)</cell></row> </table>", {"R:Light. (3-5)"}},
        {"<hi type=\"bold\">Verse 1.</hi> <hi type=\"italic\">\"Blessed\"</hi>", {"*Verse 1.* Verse 1. \"Blessed\""}},
        {"<b>Verse 2</b> x <b>y</b>", {"*Verse 2* Verse 2 x y"}},
        {"<hi type=\"italic\">a</hi> <hi type=\"bold\">b</hi>", {"a b"}},
        {"see <reference osisRef=\"Matt.15.13\">Mat 15:13</reference>.", {"see Mat 15:13. @Matt.15.13"}},
        {"see <scripRef passage=\"Joh 3:16\" version=\"KJV\">this</scripRef> too", {"see this too @Joh 3:16"}},
        {"see <scripRef>Joh 3:16</scripRef> too", {"see Joh 3:16 too @Joh 3:16"}},
        {"<reference>Joh 3:16</reference>", {"Joh 3:16 @Joh 3:16"}},
        {"word<note type=\"x\">a note</note> goes on", {"word (a note) goes on"}},
        {"<w lemma=\"strong:G1\">Alpha</w> <foo>bar</foo>", {"Alpha bar"}},
        {"a &amp; b &lt;c&gt; &quot;d&quot; &#233; &#x2014;", {"a & b <c> \"d\" \u00E9 \u2014"}},
        {"&#65; &#0; &#x110000; &nothing; & &#x;", {"A &#0; &#x110000; &nothing; & &#x;"}},
        {"3 < 4 and <broken", {"3 < 4 and <broken"}},
        {"&amp", {"&amp"}},
    };
    for (const MarkedRow& row : rows) EXPECT_EQ(Shown(row.entry), row.paragraphs) << row.entry;
}

TEST(MarkedText, AnyPartOfAnEntryCanBeRead) {
    static constexpr char kEntry[] =
        "<title>T</title><hi type=\"bold\">b</hi><note>n</note><reference>r</reference>&#233;<scripRef passage=\"x\">y";
    const std::string entry = kEntry;
    for (std::size_t from = 0; from < entry.size(); ++from)
        for (std::size_t length = 0; from + length <= entry.size(); ++length)
            for (const Paragraph& paragraph : ParagraphsOf(std::string(entry, from, length)))
                EXPECT_FALSE(paragraph.text.empty());
}
