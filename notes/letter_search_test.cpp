#include "notes/letter_search.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>
#include <set>

#include "notes/note_letters.h"

// ---- Letters --------------------------------------------------------------------------------------------------------

// The C library's small letters, which come from the Unicode tables.
TEST(SmallLetter, IsThatOfTheSystem) {
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    static constexpr char32_t kScripts[][2] = {{0, 0x52F}, {0x1E00, 0x1FFF}};
    int count = 0;
    for (const auto& [first, last] : kScripts)
        for (char32_t letter = first; letter <= last; ++letter) {
            const auto small = static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(letter)));
            if (small == letter) continue;
            EXPECT_EQ(SmallLetter(letter), SmallLetter(small)) << std::hex << static_cast<unsigned>(letter);
            EXPECT_NE(SmallLetter(letter), letter);
            ++count;
        }
    std::setlocale(LC_CTYPE, before.c_str());
    EXPECT_GT(count, 600);
}

TEST(SmallLetter, DiffersForDifferentLetters) {
    const std::string before = std::setlocale(LC_CTYPE, nullptr);
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    for (char32_t letter = 0; letter < 0x2000; ++letter) {
        const char32_t small = SmallLetter(letter);
        if (small == letter) continue;
        const auto capital = std::towupper(static_cast<std::wint_t>(letter));
        // The system's capital of both is the same, or the two are one letter twice.
        const bool isOneCapital = capital == std::towupper(static_cast<std::wint_t>(small));
        static const std::set<char32_t> kOneByMeaning = {0x130,  0x1E9E, 0x3F4,  0x1F71, 0x1F73, 0x1F75, 0x1F77,
                                                         0x1F79, 0x1F7B, 0x1F7D, 0x1FD3, 0x1FE3, 0x1FBB, 0x1FC9,
                                                         0x1FCB, 0x1FDB, 0x1FEB, 0x1FF9, 0x1FFB};
        EXPECT_TRUE(isOneCapital || kOneByMeaning.contains(letter)) << std::hex << static_cast<unsigned>(letter);
    }
    std::setlocale(LC_CTYPE, before.c_str());
}

TEST(IsInWordLetter, TellsWordsFromWhatIsBetweenThem) {
    for (const char32_t letter : std::u32string(U"azAZ09\u00AA\u00E9\u00D6\u00D8\u0101\u03B1\u1F00\u05D0\u05B0\u05BC"
                                                U"\u0430\u4E00\u3042\u3005\uAC00\uFB2A\uFF21\U00020000"))
        EXPECT_TRUE(IsInWordLetter(letter)) << std::hex << static_cast<unsigned>(letter);
    for (const char32_t letter : std::u32string(U" \r\n._-[@`{~\u00A0\u00AB\u00B6\u00B7\u00D7\u00F7\u037E\u0387\u05BE"
                                                U"\u05C3\u05F3\u2014\u2019\u20AC\u3000\u3001\u3002\uFF0C\U0001F600"))
        EXPECT_FALSE(IsInWordLetter(letter)) << std::hex << static_cast<unsigned>(letter);
}

// ---- The search -----------------------------------------------------------------------------------------------------

// "place+size" in letters of UTF-16, so that rows can be read; "-" if there is none.
static std::string Found(std::u16string_view note, std::u16string_view text, bool isCaseSensitive, bool isSubstring,
                         std::size_t from = 0) {
    FoldedText memory;
    const std::string bytes = Utf8Of(note);
    const auto match = FindLetters(LetterTargetOf(Utf8Of(text), isCaseSensitive, isSubstring), bytes, from, memory);
    if (!match) return "-";
    const auto letters = [&](std::size_t place, std::size_t size) {
        return std::to_string(LettersOfUtf8(std::string_view(bytes).substr(place, size)).size());
    };
    return letters(0, match->place) + "+" + letters(match->place, match->size);
}

TEST(FindLetters, IgnoresCaseUnlessItMatters) {
    static constexpr struct {
        const char16_t* note;
        const char16_t* text;
        const char* anyCase;
        const char* thisCase;
    } kRows[] = {
        {u"\u0391\u03B3\u03AC\u03C0\u03B7", u"\u03B1\u03B3\u03AC\u03C0\u03B7", "0+5", "-"},
        {u"\u03B1\u03B3\u03AC\u03C0\u03B7", u"\u0391\u0393\u0386\u03A0\u0397", "0+5", "-"},
        {u"\u039B\u039F\u0393\u039F\u03A3", u"\u03BB\u03BF\u03B3\u03BF\u03C2", "0+5", "-"},  // the sigma at the end
        {u"\u03BB\u03BF\u03B3\u03BF\u03C2", u"\u03BB\u03BF\u03B3\u03BF\u03C3", "0+5", "-"},
        {u"\u03B1\u03B3\u03AC\u03C0\u03B7", u"\u03B1\u03B3\u1F71\u03C0\u03B7", "0+5", "0+5"},  // twice in Unicode
        {u"\u1F10\u03BD \u1F08\u03C1\u03C7\u1FC7", u"\u1F00\u03C1\u03C7\u1FC7", "3+4", "-"},
        {u"x \u00C9t\u00E9 \u03B1", u"\u00E9T\u00C9", "2+3", "-"},
        {u"\u0160koda \u2014", u"\u0161KODA", "0+5", "-"},
        {u"\u0420\u0443\u0441\u044C", u"\u0440\u0443\u0441\u044C", "0+4", "-"},
        {u"love \u03B1", u"LOVE", "0+4", "-"},
        {u"\u4E2D\u6587", u"\u6587", "-", "-"},  // inside a word
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Found(row.note, row.text, false, false), row.anyCase) << Utf8Of(row.note) << " " << Utf8Of(row.text);
        EXPECT_EQ(Found(row.note, row.text, true, false), row.thisCase) << Utf8Of(row.note) << " " << Utf8Of(row.text);
    }
}

static constexpr char16_t kPlainHebrew[] = u"\u05D1\u05E8\u05D0";                      // in letters alone
static constexpr char16_t kPointedHebrew[] = u"\u05D1\u05BC\u05B8\u05E8\u05B8\u05D0";  // with its points
static constexpr char16_t kOtherPoints[] = u"\u05D1\u05B0\u05E8\u05B9\u05D0";          // with others
static constexpr char16_t kInPieces[] = u"\uFB31\u05B8\u05E8\u05B8\u05D0";             // a letter with its point
static constexpr char16_t kAccented[] = u"\u05D1\u05BC\u05B8\u05E8\u05B8\u0596\u05D0\u05BE\u05DB";  // and a hyphen

TEST(FindLetters, FindsHebrewWithAndWithoutPoints) {
    for (const auto* text : {kPlainHebrew, kPointedHebrew, kOtherPoints, kInPieces}) {
        EXPECT_EQ(Found(kPlainHebrew, text, false, false), "0+3") << Utf8Of(text);
        EXPECT_EQ(Found(kPointedHebrew, text, false, false), "0+6") << Utf8Of(text);
        EXPECT_EQ(Found(kInPieces, text, false, false), "0+5") << Utf8Of(text);
        EXPECT_EQ(Found(kAccented, text, false, false), "0+7") << Utf8Of(text);
    }
    EXPECT_EQ(Found(std::u16string(u"x ") + kPointedHebrew + u"\u05B0!", kPlainHebrew, false, false), "2+7")
        << "the points of the last letter belong to it";
}

TEST(FindLetters, ComparesPointsIfCaseMatters) {
    EXPECT_EQ(Found(kPointedHebrew, kPointedHebrew, true, false), "0+6");
    EXPECT_EQ(Found(kPlainHebrew, kPointedHebrew, true, false), "-");
    EXPECT_EQ(Found(kOtherPoints, kPointedHebrew, true, false), "-");
    EXPECT_EQ(Found(kPointedHebrew, kPlainHebrew, true, false), "0+6") << "none were asked for";
    EXPECT_EQ(Found(kPointedHebrew, u"\u05B8", false, true), "2+1") << "nothing but a point";
}

TEST(FindLetters, DistinguishesWordsFromSubstrings) {
    static constexpr struct {
        const char16_t* note;
        const char16_t* text;
        const char* asWord;
        const char* anywhere;
    } kRows[] = {
        {u"\u03B1\u03B2\u03B3", u"\u03B2", "-", "1+1"},
        {u"\u03B1\u03B2 \u03B2", u"\u03B2", "3+1", "1+1"},
        {u"(\u03B2)\u2014", u"\u03B2", "1+1", "1+1"},
        {u"\u03B22 \u03B2", u"\u03B2", "3+1", "0+1"},
        {u"aaaa aa \u03B1", u"aa", "5+2", "0+2"},
        {u"xa a a \u03B1", u"a a", "-", "1+3"},  // the search goes on behind a whole match
        {u"\u03B1", u"\u03B1\u03B2", "-", "-"},
        {u"", u"\u03B1", "-", "-"},
        {u"\xD83D\xDE00 \u03B1", u"\xD83D\xDE00", "0+2", "0+2"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(Found(row.note, row.text, false, false), row.asWord) << Utf8Of(row.note);
        EXPECT_EQ(Found(row.note, row.text, false, true), row.anywhere) << Utf8Of(row.note);
    }
}

TEST(FindLetters, BeginsWhereItIsTold) {
    for (const auto& [from, found] : {std::pair(0, "0+1"), {1, "2+1"}, {2, "2+1"}, {3, "2+1"}, {4, "-"}, {99, "-"}})
        EXPECT_EQ(Found(u"\u03B1 \u03B1", u"\u03B1", false, false, static_cast<std::size_t>(from)), found) << from;
}
