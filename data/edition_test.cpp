#include "data/edition.h"

#include <gtest/gtest.h>

#include "data/conformed_readings.h"
#include "scripture/books.h"

// Mark-up as in the module, where added words are elements; brackets there mean printed brackets.
static std::string Osis(const std::string& text) {
    std::string osis;
    for (const char letter : text)
        osis += letter == '['   ? "<transChange type=\"added\">"
                : letter == ']' ? "</transChange>"
                                : std::string(1, letter);
    return osis;
}

static void AddPlace(const Correction& correction, Verses& verses) {
    const std::string reference = correction.reference;
    const int chapter = std::stoi(reference.substr(reference.find(' ')));
    const int number = std::stoi(reference.substr(reference.find(':') + 1));
    Verse verse{1, chapter, number, Osis(correction.from)};
    while (verse.book < kBookCount && ReferenceOf(verse) != reference) ++verse.book;
    const bool isSameVerse = !verses.empty() && ReferenceOf(verses.back()) == reference;
    if (isSameVerse) verses.back().text += " and " + verse.text;
    if (!isSameVerse) verses.push_back(verse);
}

// Only the verses that are changed, each with just the texts that are replaced.
static Verses VersesToCorrect() {
    Verses verses;
    for (const Correction& correction : ModuleCorrections()) AddPlace(correction, verses);
    for (const Correction& change : ConformingChanges()) AddPlace(change, verses);
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

TEST(Edition, ComplainsWhenAConformingChangeDoesNotFit) {
    Verses verses = VersesToCorrect();
    verses.back().text = "Other words.";
    EXPECT_EQ(ConvertEdition(verses), "Re 1:18 should hold \"I [am] he\" exactly once");
}

// The expected 64-bit FNV-1a hashes were calculated with another program.
TEST(Edition, FingerprintDependsOnEveryByte) {
    EXPECT_EQ(FingerprintOf({}), 0xcbf29ce484222325u);
    EXPECT_EQ(FingerprintOf({{1, 1, 1, "a"}}), 0x089be207b544f1e4u);
    EXPECT_EQ(FingerprintOf({{1, 1, 1, "a"}, {1, 1, 2, "b"}}), 0xab40d7820d408076u);
    EXPECT_NE(FingerprintOf({{1, 1, 1, "ab"}}), FingerprintOf({{1, 1, 1, "a"}, {1, 1, 2, "b"}}));
    EXPECT_EQ(CheckFingerprint({{1, 1, 1, "a"}}), "the texts are not those of the edition");
}
