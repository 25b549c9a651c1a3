// The words of a verse, split into pieces of one face, as both panes lay them out.
//
// A word includes the space that follows it; a space is added after the last one. A paragraph mark ends a word and also
// gets a space. Brackets are consumed, shown or dropped; the braces around key words (search/key_word_marks.h) are
// never part of a piece, regardless of their number and nesting.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "typeset/text_measure.h"

enum class BracketUse {
    kItalicFace,         // the enclosed text is in italic face
    kShown,              // brackets are part of the text, in regular face
    kShownRoundItalics,  // brackets in regular face, the enclosed text in italic face
    kDropped,
};

struct WordPiece {
    Face face = Face::kRegular;
    bool keyWord = false;
    int width = 0;          // set by MeasureWord
    std::string_view text;  // never empty; points into the reader or to a constant
};

struct WordReader {
    BracketUse brackets = BracketUse::kDropped;
    bool italicsFromWordStart = false;  // punctuation before an opening bracket, as in "([is]", is also in italics
    std::string text;                   // the verse and the space after its last word
    std::size_t next = 0;
    bool italic = false;
    int keyDepth = 0;
    std::vector<WordPiece> pieces;  // of the last word read
};

// Starts reading at the first word of `verse`, which is copied. An italic run or key word left open in the previous
// verse ends.
void OpenVerse(WordReader& reader, std::string_view verse);

// Reads the next word into `pieces`. False at the end of the verse; an empty verse has one word, a space.
bool ReadWord(WordReader& reader);

// Was the last word read the last word of the verse?
bool HasVerseEnded(const WordReader& reader);

// Measures every piece of the word and returns the total width.
int MeasureWord(WordReader& reader, const TextMeasure& measure);
