#include "data/edition.h"

#include <gtest/gtest.h>

#include "data/corrections.h"
#include "scripture/books.h"

// Mark-up as in the module, where added words are elements; brackets there mean printed brackets.
static std::string Osis(std::string text) {
    const std::size_t opening = text.find('[');
    if (opening == std::string::npos) return text;
    text.replace(text.find(']'), 1, "</transChange>");
    return text.replace(opening, 1, "<transChange type=\"added\">");
}

// Only the verses that have corrections, each with just the text that its correction replaces.
static Verses VersesToCorrect() {
    Verses verses;
    for (const Correction& correction : ModuleCorrections()) {
        const std::string reference = correction.reference;
        const int chapter = std::stoi(reference.substr(reference.find(' ')));
        const int number = std::stoi(reference.substr(reference.find(':') + 1));
        Verse verse{1, chapter, number, Osis(correction.from)};
        while (verse.book < kBookCount && ReferenceOf(verse) != reference) ++verse.book;
        verses.push_back(verse);
    }
    return verses;
}

TEST(Edition, IncompleteTextIsRejected) {
    Verses verses = VersesToCorrect();
    EXPECT_EQ(ConvertEdition(verses), "Ge 41:56 is out of order");
    EXPECT_EQ(verses.front().text, "earth: And Joseph");
}

TEST(Edition, MarksAParagraphAtEachChapter) {
    Verses verses = VersesToCorrect();
    verses.push_back({66, 1, 1, "<w>First</w>"});
    verses.push_back({66, 1, 2, "Second"});
    verses.push_back({66, 2, 1, "\u00b6 Third"});
    verses.push_back({66, 2, 2, "\u00b6 Fourth"});
    ConvertEdition(verses);
    const std::size_t first = verses.size() - 4;
    EXPECT_EQ(verses[first].text,
              "\xB6"
              "First");
    EXPECT_EQ(verses[first + 1].text, "Second");
    EXPECT_EQ(verses[first + 2].text,
              "\xB6"
              "Third");
    EXPECT_EQ(verses[first + 3].text,
              "\xB6"
              "Fourth");
}

TEST(Edition, ComplainsWhenACorrectionDoesNotFit) {
    Verses verses = VersesToCorrect();
    verses[0].text = "Other words.";
    EXPECT_EQ(ConvertEdition(verses), "Ge 41:56 should hold \"earth: and Joseph\" exactly once");
}

// The expected 64-bit FNV-1a hashes were calculated with another program.
TEST(Edition, FingerprintDependsOnEveryByte) {
    EXPECT_EQ(FingerprintOf({}), 0xcbf29ce484222325u);
    EXPECT_EQ(FingerprintOf({{1, 1, 1, "a"}}), 0x089be207b544f1e4u);
    EXPECT_EQ(FingerprintOf({{1, 1, 1, "a"}, {1, 1, 2, "b"}}), 0xab40d7820d408076u);
    EXPECT_NE(FingerprintOf({{1, 1, 1, "ab"}}), FingerprintOf({{1, 1, 1, "a"}, {1, 1, 2, "b"}}));
    EXPECT_EQ(CheckFingerprint({{1, 1, 1, "a"}}), "the texts are not those of the edition");
}
