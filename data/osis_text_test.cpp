#include "data/osis_text.h"

#include <gtest/gtest.h>

#include "data/text_checks.h"

namespace {

struct OsisRow {
    const char* what;
    const char* osis;
    const char* text;
};

}  // namespace

static constexpr OsisRow kRows[] = {
    {"plain words", "Two words.", "Two words."},
    {"nothing", "", ""},
    {"tagged words", R"(<w lemma="strong:H1" morph="x">In the</w> <w lemma="strong:H2">end</w>.)", "In the end."},
    {"no blank for a tag", "Beth<w>-el</w>, sons<w>'</w>", "Beth-el, sons'"},
    {"a verse of its own", R"(<div type="x-p" sID="a"/><chapter osisID="X"/>Yea<lb type="x-p"/>, <l>Nay</l>)",
     "Yea, Nay"},
    {"words of Jesus", R"(<q who="Jesus" marker="">I am</q>, he said)", "I am, he said"},

    {"added words", R"(that <transChange type="added">it was</transChange> good)", "that [it was] good"},
    {"added words tagged inside", R"(a <transChange type="added"><w>b</w> <seg>c</seg></transChange> d)", "a [b c] d"},
    {"stop inside the added word", R"(<transChange type="added">of:</transChange> and)", "[of]: and"},
    {"every stop",
     "<transChange>a.</transChange> <transChange>b;</transChange> <transChange>c?</transChange> "
     "<transChange>d!</transChange>",
     "[a]. [b]; [c]? [d]!"},
    {"two stops at once", "<transChange>a.:</transChange>b", "[a].:b"},
    {"a comma stays inside", "<transChange>are, am</transChange>", "[are, am]"},
    {"a stop in mid run stays inside", "<transChange>a: b</transChange>", "[a: b]"},
    {"a stop before the bracket stays", "a: <transChange>b</transChange>", "a: [b]"},
    {"printed brackets", "<transChange>[but] he</transChange>", "[(but) he]"},

    {"the name in capitals", "the <divineName>Lord</divineName> said", "the LORD said"},
    {"its genitive", "the <divineName>Lord\u2019s</divineName> house", "the LORD'S house"},
    {"the name in added words",
     R"(<transChange>the <seg type="x-nested"><divineName>Lord</divineName></seg></transChange>)", "[the LORD]"},
    {"capitals end with the name", "<divineName>God</divineName> spake", "GOD spake"},
    {"a start tag left over", R"(by my name \nd Jehovah</divineName> was)", "by my name JEHOVAH was"},

    {"a note", R"(one<note type="x"><reference>Ge 1</reference>other</note> two)", "one two"},
    {"two notes", "a<note>x</note> b<note n=\"1\">y</note> c", "a b c"},
    {"a note that is not well formed", "a<note><i>x</note> b", "a b"},
    {"rests of old mark-up in a note", R"(the <divineName>Lord</divineName><note>Heb. LORD\+nd*, \nd Lord</note> is)",
     "the LORD is"},
    {"a psalm title", R"(<title canonical="true" type="psalm">A Song of <w>David</w>.</title> Blessed)", "Blessed"},
    {"a title with a note and added words", "<title>To<note>x</note> <transChange>the</transChange></title>Blessed",
     "Blessed"},
    {"a colophon", "Amen.<title>Written from Corinthus.</title>", "Amen."},

    {"letters beyond ASCII", "Cæsar\u2019s, Ænon\u2014", "Caesar's, Aenon--"},
    {"a paragraph mark", "<w>\u00b6 And</w> he",
     "\xB6"
     "And he"},
    {"a paragraph mark before added words", "<q>\u00b6 <transChange>There is</transChange></q> one",
     "\xB6[There is] one"},
    {"blanks", "  a \n<div/> b\t</div>  ", "a b"},
};

TEST(OsisText, ConvertsToTheProgramsText) {
    for (const OsisRow& row : kRows) EXPECT_EQ(TextOfOsis(row.osis), row.text) << row.what;
}

// Unknown mark-up must not disappear before the checks can find it.
TEST(OsisText, KeepsUnknownMarkupForTheChecks) {
    const char* const unknown[] = {
        "a <note>never closed",
        "a </note> b",
        "a <title>never closed",
        "a </title> b",
        "a < b",
        "a <w",
        "a &amp; b",
        "a \\wj b",
        "na\u00efve",
        "7 days",
        "\"quoted\"",
        "<transChange>a <transChange>b</transChange></transChange>",
        "<transChange>never closed",
        "<transChange></transChange>",
        "<transChange>.</transChange>",
        "a\u00b6 b",
    };
    for (const char* osis : unknown) EXPECT_NE(CheckVerseText(TextOfOsis(osis)), "") << osis;
}
