#include "search/near_text.h"

#include <gtest/gtest.h>

#include "tests/support/native_scripture.h"

static std::u16string Counts(std::u16string_view text, bool parts = false) {
    return NearCounts({TheRealWordIndex()}, text, parts);
}

TEST(NearCounts, AreToldForEachWord) {
    EXPECT_EQ(Counts(u""), u"");
    EXPECT_EQ(Counts(u"Grace; grac* xyzzy"), u"Grace: 1 word; grac*: 3 words; xyzzy: no word");
    EXPECT_EQ(Counts(u"elove", true), u"elove: 3 words");
    EXPECT_EQ(Counts(u"elove"), u"elove: no word");
    EXPECT_EQ(Counts(std::u16string(24, u'x')), std::u16string(24, u'x') + u": no word");
    EXPECT_EQ(Counts(std::u16string(25, u'x')), std::u16string(21, u'x') + u"...: no word");
    EXPECT_EQ(Counts(u"a a a a a a a a a a xyzzy"),
              u"a: 1 word; a: 1 word; a: 1 word; a: 1 word; a: 1 word; a: 1 word; a: 1 word; a: 1 word; a: 1 word; "
              u"a: 1 word");
}

// The page of 8-bit text has some of these letters, others none; no word of the text has any.
TEST(NearCounts, TakeForeignLettersAsLetters) {
    EXPECT_EQ(Counts(u"\u00C6non god"), u"\u00C6non: no word; god: 1 word");
    EXPECT_EQ(Counts(u"\u03C2 \u03BB\u03CC\u03B3\u03BF"), u"\u03C2: no word; \u03BB\u03CC\u03B3\u03BF: no word");
    EXPECT_EQ(Counts(u"\u05D0* *\u0416", true), u"\u05D0*: no word; *\u0416: no word");
    for (const std::u16string sign : {u"\u00AB", u"\u00D7", u"\u2019", u"\u2014", u"\u00A0", u"\u3000", u"-"})
        EXPECT_EQ(Counts(u"god" + sign + u"lord"), u"god: 1 word; lord: 1 word");
}

TEST(NearCounts, MindTheCase) {
    const std::vector<std::string> spellings = SpellingsOf(TheRealScripture());
    const KnownWords known{TheRealWordIndex(), &spellings};
    EXPECT_EQ(NearCounts(known, u"gOd God god GOD", false), u"gOd: no word; God: 1 word; god: 1 word; GOD: 1 word");
    EXPECT_EQ(NearCounts(known, u"LOR* lor*", false), u"LOR*: 3 words; lor*: 5 words");
    EXPECT_EQ(NearCounts(known, u"ZZ zZ", true), u"ZZ: no word; zZ: no word");
}

TEST(NearProblems, OfTheTextAreToldInSentences) {
    EXPECT_EQ(ProblemOfNearText(u""), u"Type the words to search for.");
    EXPECT_EQ(ProblemOfNearText(u"12 ;"), u"Type the words to search for.");
    EXPECT_EQ(ProblemOfNearText(u"faith *"), u"Type at least one letter beside each * and ?.");
    EXPECT_EQ(ProblemOfNearText(u"?*?"), u"Type at least one letter beside each * and ?.");
    EXPECT_EQ(ProblemOfNearText(u"a b c d e f g h i j"), u"");
    EXPECT_EQ(ProblemOfNearText(u"a b c d e f g h i j k"), u"Type at most 10 words.");
    EXPECT_EQ(ProblemOfNearText(u"lov*"), u"");
    EXPECT_EQ(ProblemOfNearText(u"'s"), u"");
    EXPECT_EQ(ProblemOfNearText(u"god \u03BBord"), u"\"\u03BB\" is in no word of the text.");
    EXPECT_EQ(ProblemOfNearText(u"\u00C6non"), u"\"\u00C6\" is in no word of the text.");
    EXPECT_EQ(ProblemOfNearText(u"a\xD835\xDC00"), u"\"\xD835\xDC00\" is in no word of the text.");
    EXPECT_EQ(ProblemOfNearText(u"\xD835"), u"\"\xD835\" is in no word of the text.");
    EXPECT_EQ(CountNearWords(u"\u00C6non, near-by"), 3u);
}
