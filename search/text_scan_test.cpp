// Compares the fast text scans with simple loops, for matches at every position in texts of all lengths around the size
// of a block, and for random texts. The texts are in memory blocks of exactly their size, so that a sanitizer detects
// every access out of bounds.
#include "search/text_scan.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

#include "tests/support/tries.h"

// A copy without a terminating zero byte.
struct ExactText {
    explicit ExactText(const std::string& text) : bytes(new char[text.size()]), size(text.size()) {
        text.copy(bytes.get(), size);
    }
    std::unique_ptr<char[]> bytes;
    std::size_t size;
    std::string_view View() const { return {bytes.get(), size}; }
};

static std::string Lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

static bool StandsAlone(const std::string& text, std::size_t at, std::size_t size) {
    const auto isLetter = [](char c) { return c < 0 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const bool before = at > 0 && isLetter(text[at - 1]) && text[at - 1] != '\xB6';
    return !before && !(at + size < text.size() && isLetter(text[at + size]));
}

static int CountSlowly(const std::string& text, const std::string& word, bool anyCase, bool wholeWords) {
    const std::string searched = anyCase ? Lowered(text) : text;
    int count = 0;
    for (std::size_t at = searched.find(word); at != std::string::npos; at = searched.find(word, at + 1))
        if (!wholeWords || StandsAlone(text, at, word.size())) ++count;
    return count;
}

// Searches a copy of the text without the characters that are ignored. Zero bytes remain and separate the verses.
static std::vector<std::pair<std::size_t, std::size_t>> PhrasesSlowly(const std::string& text,
                                                                      const std::string& phrase, bool anyCase) {
    std::string kept;
    std::vector<std::size_t> places;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (!(c >= 'a' && c <= 'z') && !(c >= 'A' && c <= 'Z') && c != ' ' && c != '\'' && c != '\0') continue;
        kept += c;
        places.push_back(at);
    }
    if (anyCase) kept = Lowered(kept);
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (std::size_t at = kept.find(phrase); at != std::string::npos; at = kept.find(phrase, at + phrase.size()))
        found.emplace_back(places[at], places[at + phrase.size() - 1]);
    return found;
}

static void ExpectSameWords(const std::string& text, const std::string& word, bool anyCase) {
    const ExactText exact(text);
    const std::string searched = anyCase ? Lowered(text) : text;
    for (std::size_t from = 0; from <= text.size(); ++from)
        ASSERT_EQ(FindInText(exact.View(), word, anyCase, from), searched.find(word, from)) << text << "|" << word;
    for (const bool wholeWords : {false, true})
        ASSERT_EQ(CountInText(exact.View(), word, anyCase, wholeWords), CountSlowly(text, word, anyCase, wholeWords))
            << text << "|" << word;
}

static void ExpectSamePhrases(const std::string& text, const std::string& phrase, bool anyCase) {
    const ExactText exact(text);
    const PhrasePattern pattern = PatternOf(phrase, anyCase);
    std::vector<std::pair<std::size_t, std::size_t>> found;
    for (const PhrasePlace& place : PhrasesInText(exact.View(), pattern)) found.emplace_back(place.first, place.last);
    ASSERT_EQ(found, PhrasesSlowly(text, phrase, anyCase)) << text << "|" << phrase;
    ASSERT_EQ(CountPhrasesInText(exact.View(), pattern), static_cast<int>(found.size())) << text << "|" << phrase;
}

TEST(TextScan, FindsAWordAtEveryPosition) {
    int tried = 0;
    for (const std::string word : {"a", "of", "the", "o'er", "deliverance", "wordsoftwentyletters"})
        for (std::size_t size = 0; size < 60; ++size)
            for (std::size_t at = 0; at + word.size() <= size; ++at)
                for (const char filler : {' ', 'x', '\xB6', '\xE9'}) {
                    if (tried++ % Tried(1, 5) != 0) continue;
                    std::string text(size, filler);
                    ExpectSameWords(text.replace(at, word.size(), word), word, false);
                    text[at] = static_cast<char>(text[at] - 32);  // a capital
                    ExpectSameWords(text, word, true);
                    ExpectSameWords(text, word, false);
                }
}

TEST(TextScan, FindsAPhraseAtEveryPosition) {
    for (const std::string phrase : {"a", "of", "a b", "of the", "i am that i am"})
        for (const std::string between : {"", "-", ", ["})
            for (std::size_t size = 0; size < 50; ++size)
                for (std::size_t at = 0; at + phrase.size() <= size; ++at) {
                    std::string text(size, '.');
                    text.replace(at, phrase.size(), phrase);
                    for (std::size_t cut = at + phrase.size() - 1; cut > at; cut -= 2) {
                        text.insert(cut, between);
                        if (cut < at + 2) break;
                    }
                    ExpectSamePhrases(text, phrase, false);
                }
}

// A long text is scanned in sections of about a thousand bytes, and a phrase may extend across two sections.
TEST(TextScan, FindsAPhraseAtEveryPositionOfALongText) {
    for (const std::string phrase : {"a b", "of the", "i am that i am of old"})
        for (const std::string between : {"", ", [", "--------------------"})
            for (const std::size_t size : {1027u, 1040u, 3000u})
                for (std::size_t at = 980; at + phrase.size() <= std::min<std::size_t>(size, 1060); ++at) {
                    std::string text(size, '.');
                    text.replace(at, phrase.size(), phrase).insert(at + 2, between);
                    ExpectSamePhrases(text, phrase, false);
                    ExpectSamePhrases(std::string(size, 'o') + text + phrase, phrase, true);
                }
}

TEST(TextScan, DoesNotFindAPhraseAcrossAZeroByte) {
    static const struct {
        std::string text;
        int count;
    } kRows[] = {
        {std::string("and the\0and the", 15), 2}, {std::string("and the and\0the and the", 23), 2},
        {std::string("and \0the", 8), 0},         {std::string("and\0 the", 8), 0},
        {std::string("an\0d the", 8), 0},         {std::string("and t\0he", 8), 0},
        {std::string("and, \0[the", 10), 0},
    };
    for (const auto& row : kRows)
        for (const std::size_t before : {0u, 7u, 40u, 1020u}) {
            const std::string text = std::string(before, '.') + row.text + std::string(before, '.');
            EXPECT_EQ(CountPhrasesInText(ExactText(text).View(), PatternOf("and the", true)), row.count) << row.text;
        }
}

// Bytes that differ from a letter or an apostrophe only in bit 5, like a capital, must not match it unless they are
// letters.
TEST(TextScan, FoldsOnlyLetters) {
    for (const auto& [word, text] :
         {std::pair("o'er", std::string("xxxxxxxxxxxxxxxxxxxx o\x07"
                                        "er")),
          std::pair("a", std::string("\x01\x21\xC1\xE1[{@`]}\x01\x21\xC1\xE1[{@`]}\x01\x21"))})
        ExpectSameWords(text, word, true);
    ExpectSamePhrases(
        "xxxxxxxxxxxxxxxx o\x07"
        "er the [\x01] A",
        "o'er the", true);
}

TEST(TextScan, CountsBytesFrom0x80AsLetters) {
    for (const char beside : {'\x7F', '\x80', '\xFF', '@', 'A', 'Z', '[', '`', 'a', 'z', '{', '\xB6'})
        for (const std::size_t blanks : {0u, 20u})
            for (const std::string& text : {std::string("and") + beside, beside + std::string("and")})
                ExpectSameWords(std::string(blanks, ' ') + text + std::string(blanks, ' '), "and", true);
}

TEST(TextScan, CountsMoreThan255Matches) {
    for (const std::size_t times : {254u, 255u, 256u, 4079u, 4080u, 4081u, 10000u}) {
        EXPECT_EQ(CountInText(ExactText(std::string(times, 'e')).View(), "e", true, false), static_cast<int>(times));
        std::string words;
        for (std::size_t i = 0; i < times; ++i) words += "E ";
        EXPECT_EQ(CountInText(ExactText(words).View(), "e", true, true), static_cast<int>(times));
    }
}

// Matches of a phrase must not overlap.
TEST(TextScan, ContinuesAfterTheEndOfAPhrase) {
    ExpectSamePhrases("holy, holy, holy, holy, holy", "holy holy", false);
    ExpectSamePhrases("a a a a a a a a a a a a a a a a a a a a a", "a a a", false);
    EXPECT_EQ(CountPhrasesInText("holy, holy, holy, holy, holy", PatternOf("holy holy", true)), 2);
}

// The result does not depend on the anchor, but scanning for a common one takes many times as long.
TEST(PatternOf, AnchorsWhereThreeCharactersAreRareTogether) {
    static const std::pair<const char*, const char*> kRows[] = {
        {"the valley of jezreel", " jezreel"}, {"in the beginning", " beginning"},
        {"and it came to pass", "pass"},       {"he hath zeal", "zeal"},
        {"quick to hear", "quick to hear"},    {"a b", "a b"},
    };
    for (const auto& [phrase, fromAnchor] : kRows)
        EXPECT_EQ(std::string(phrase).substr(PatternOf(phrase, true).anchor), fromAnchor) << phrase;
}

TEST(TextScan, DoesNotFindAnEmptyPhrase) {
    EXPECT_EQ(CountPhrasesInText("some text that is longer than a block", PatternOf("", true)), 0);
    EXPECT_EQ(CountPhrasesInText("", PatternOf("a b", true)), 0);
}

static std::string RandomPhrase(std::mt19937& random) {
    const auto pick = [&random](std::string_view from) { return from[random() % from.size()]; };
    std::string phrase;
    for (std::size_t size = 1 + random() % 6; size > 0; --size)
        phrase += phrase.empty() || phrase.back() == ' ' || size == 1 ? pick("abe'") : pick("abe ");
    return phrase;
}

TEST(TextScan, AgreesWithSlowLoopsOnRandomTexts) {
    std::mt19937 random(1611);
    const auto pick = [&random](std::string_view from) { return from[random() % from.size()]; };
    for (int round = 0; round < Tried(20000, 4000); ++round) {
        std::string text;
        for (std::size_t size = random() % 120; size > 0; --size) text += pick("aaabbABe  '.-[\xB6\xE9");
        std::string word;
        for (std::size_t size = 1 + random() % 4; size > 0; --size) word += pick("abe'");
        const bool anyCase = random() % 2 == 0;
        if (!word.ends_with(word.front()) && word != "abab") ExpectSameWords(text, word, anyCase);
        ExpectSamePhrases(text, RandomPhrase(random), anyCase);
        if (HasFatalFailure()) return;
    }
}

TEST(TextScan, AgreesWithSlowLoopsOnRandomTextsOfManyVerses) {
    static constexpr std::string_view kBytes("aaabbABe  '.-[\xB6\xE9\0", 17);
    std::mt19937 random(1769);
    for (int round = 0; round < Tried(2000, 400); ++round) {
        std::string text;
        for (std::size_t size = random() % 2600; size > 0; --size) text += kBytes[random() % kBytes.size()];
        const std::string phrase = RandomPhrase(random);
        for (const bool anyCase : {false, true}) ExpectSamePhrases(text, phrase, anyCase);
        if (HasFatalFailure()) return;
    }
}
