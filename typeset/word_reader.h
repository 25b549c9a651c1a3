// The words of a verse, each in pieces of one face, as both panes lay them out.
//
// A word keeps the blank that follows it; the last one gets a blank of its own. A paragraph mark ends a word and gets a
// blank too. Brackets are used up, shown or dropped; the braces round key words (search/key_word_marks.h) are never
// part of a piece, however many a word has and however they are nested.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "typeset/text_measure.h"

enum class BracketUse {
    kItalicFace,         // what they enclose is set in the italic face
    kShown,              // they stand in the text, in the regular face
    kShownRoundItalics,  // they stand in the regular face, what they enclose in the italic one
    kDropped,
};

struct WordPiece {
    Face face = Face::kRegular;
    bool keyWord = false;
    int width = 0;          // set by MeasureWord
    std::string_view text;  // never empty; lies in the reader or is constant
};

struct WordReader {
    BracketUse brackets = BracketUse::kDropped;
    bool italicsFromWordStart = false;  // a mark before an opening bracket, as in "([is]", is set in italics too
    std::string text;                   // the verse and the blank that ends its last word
    std::size_t next = 0;
    bool italic = false;
    int keyDepth = 0;
    std::vector<WordPiece> pieces;  // of the word read last
};

// Begins with the first word of `verse`, of which the reader keeps a copy; an italic run or key word left open before
// does not reach into it.
void OpenVerse(WordReader& reader, std::string_view verse);

// Reads the next word into `pieces`. False when the verse has no more; an empty verse has one word, a blank.
bool ReadWord(WordReader& reader);

// Was the word read last the verse's last?
bool HasVerseEnded(const WordReader& reader);

// Measures every piece of the word and gives their sum.
int MeasureWord(WordReader& reader, const TextMeasure& measure);
