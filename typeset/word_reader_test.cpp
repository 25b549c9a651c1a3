#include "typeset/word_reader.h"

#include <gtest/gtest.h>

#include "tests/support/even_letters.h"

// Pieces as "r:text", where the letter is the face: r, b, i or z (bold italic), in upper case for a key word; "/"
// between words.
static std::string Pieces(BracketUse brackets, bool italicsFromWordStart, std::string_view verse) {
    WordReader reader;
    reader.brackets = brackets;
    reader.italicsFromWordStart = italicsFromWordStart;
    OpenVerse(reader, verse);
    std::string all;
    while (ReadWord(reader)) {
        if (!all.empty()) all += '/';
        for (const WordPiece& piece : reader.pieces) {
            const auto face = static_cast<std::size_t>(piece.face);
            all += std::string{(piece.keyWord ? "RBIZ" : "rbiz")[face], ':'}.append(piece.text).append("|");
        }
    }
    return all;
}

struct PieceRow {
    const char* verse;
    const char* pieces;
};

TEST(WordPieces, WordsIncludeTheBlankAfterThem) {
    const PieceRow rows[] = {
        {"And God said,", "r:And |/r:God |/r:said, |"},
        {"Amen", "r:Amen |"},
        {"", "r: |"},
        {"a  b", "r:a |/r: |/r:b |"},
        {"a ", "r:a |/r: |"},
        {"\xB6In the", "r:\xB6 |/r:In |/r:the |"},
        {"end\xB6"
         "And",
         "r:end|r:\xB6 |/r:And |"},  // a mark inside a verse ends the word before it
        {"\xB6", "r:\xB6 |/r: |"},
    };
    for (const PieceRow& row : rows) EXPECT_EQ(Pieces(BracketUse::kDropped, true, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, BracketsAreShownAroundItalics) {
    const PieceRow rows[] = {
        {"[it was] good", "r:[|i:it |/i:was|r:]|r: |/r:good |"},
        {"([is] it", "r:(|r:[|i:is|r:]|r: |/r:it |"},
        {"un[to]", "r:un|r:[|i:to|r:]|r: |"},
        {"[] x]", "r:[|r:]|r: |/r:x|r:]|r: |"},
        {"[a", "r:[|i:a |"},
    };
    for (const PieceRow& row : rows)
        EXPECT_EQ(Pieces(BracketUse::kShownRoundItalics, false, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, BracketsAreRemoved) {
    const PieceRow rows[] = {
        {"[it was] good", "r:it |/r:was|r: |/r:good |"},
        {"([is] it", "r:(|r:is|r: |/r:it |"},
        {"un[to]", "r:un|r:to|r: |"},
        {"[[]] x", "r: |/r:x |"},
    };
    for (const PieceRow& row : rows) EXPECT_EQ(Pieces(BracketUse::kDropped, true, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, BracketsAreShownInTheRegularFace) {
    const PieceRow rows[] = {
        {"[it was], good", "r:[it |/r:was], |/r:good |"},
        {"{[it]} was", "r:[|B:it|r:]|r: |/r:was |"},
        {"[{it}]", "r:[|B:it|r:] |"},
        {"{un[to]}", "B:un|r:[|B:to|r:]|r: |"},
    };
    for (const PieceRow& row : rows) EXPECT_EQ(Pieces(BracketUse::kShown, false, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, BracketsTurnItalicsOnAndOff) {
    const PieceRow rows[] = {
        {"the [light was] good", "r:the |/i:light |/i:was|r: |/r:good |"},
        {"[of]: and", "i:of|r:: |/r:and |"},    // the punctuation after it is upright
        {"[of]), and", "i:of|r:), |/r:and |"},  //
        {"saw [it]", "r:saw |/i:it|r: |"},      // a verse that ends in a bracket
        {"[it]", "i:it|r: |"},                  //
        {"[un]to him", "i:un|r:to |/r:him |"},  // a letter directly after the bracket
        {"a ] b", "r:a |/r: |/r:b |"},          // a closing bracket without an opening one
        {"[] a", "r: |/r:a |"},                 //
        {"[a][b] c", "i:a|i:b|r: |/r:c |"},     //
        {"\xB6[Then] he", "r:\xB6 |/i:Then|r: |/r:he |"},
        {"[a b", "i:a |/i:b |"},  // an opening bracket without a closing one
    };
    for (const PieceRow& row : rows)
        EXPECT_EQ(Pieces(BracketUse::kItalicFace, true, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, PunctuationBeforeABracketFollowsTheOption) {
    EXPECT_EQ(Pieces(BracketUse::kItalicFace, true, "([is] it"), "i:(|i:is|r: |/r:it |");
    EXPECT_EQ(Pieces(BracketUse::kItalicFace, false, "([is] it"), "r:(|i:is|r: |/r:it |");
}

TEST(WordPieces, KeyWordsAreBoldWithoutTheirBraces) {
    const PieceRow rows[] = {
        {"the {LORD}, he", "r:the |/B:LORD|r:, |/r:he |"},
        {"{{end}} of", "B:end|r: |/r:of |"},                      // a word typed twice
        {"J{e}hov{a}h", "r:J|B:e|r:hov|B:a|r:h |"},               // parts of a word
        {"{{e}{n}d}", "B:e|B:n|B:d|r: |"},                        //
        {"[the {light}]: and", "i:the |/Z:light|r:: |/r:and |"},  // inside italics
        {"[{it}] is", "Z:it|r: |/r:is |"},                        //
        {"([{is}] it", "r:(|Z:is|r: |/r:it |"},                   //
        {"{un[to]}", "B:un|Z:to|r: |"},                           //
        {"}a{ b} c", "r:a|B: |/B:b|r: |/r:c |"},                  // unbalanced braces
    };
    for (const PieceRow& row : rows)
        EXPECT_EQ(Pieces(BracketUse::kItalicFace, false, row.verse), row.pieces) << row.verse;
}

TEST(WordPieces, StateIsResetForTheNextVerse) {
    WordReader reader;
    reader.brackets = BracketUse::kItalicFace;
    OpenVerse(reader, "[{a");
    ASSERT_TRUE(ReadWord(reader));
    OpenVerse(reader, "b");
    ASSERT_TRUE(ReadWord(reader));
    EXPECT_EQ(reader.pieces[0].face, Face::kRegular);
    EXPECT_FALSE(reader.pieces[0].keyWord);
}

TEST(WordPieces, RecognizesTheLastWord) {
    WordReader reader;
    OpenVerse(reader, "Jesus wept.");
    ASSERT_TRUE(ReadWord(reader));
    EXPECT_FALSE(HasVerseEnded(reader));
    ASSERT_TRUE(ReadWord(reader));
    EXPECT_TRUE(HasVerseEnded(reader));
    EXPECT_FALSE(ReadWord(reader));
    EXPECT_TRUE(reader.pieces.empty());
}

TEST(WordPieces, WordsCanHaveAnyLength) {
    const std::string longWord(5000, 'x');
    EXPECT_EQ(Pieces(BracketUse::kItalicFace, true, longWord), "r:" + longWord + " |");
}

TEST(WordPieces, WordWidthIsTheSumOfItsPieces) {
    WordReader reader;
    reader.brackets = BracketUse::kItalicFace;
    OpenVerse(reader, "[of]: x");
    ASSERT_TRUE(ReadWord(reader));
    EXPECT_EQ(MeasureWord(reader, EvenLetters()), 40);
    EXPECT_EQ(reader.pieces[0].width, 20);
    EXPECT_EQ(reader.pieces[1].width, 20);
}
