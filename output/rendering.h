// Verses as they leave the program as text, piece by piece, each with its label. Pieces are joined with nothing between
// them, and each begins with a blank.
#pragma once

#include <string>

#include "output/format_options.h"
#include "scripture/scripture.h"

// Longest piece of a verse beyond its text: the label " Jude 255:255", the blank behind it and the line end; a verse
// that begins a paragraph has a blank behind its mark too.
inline constexpr std::size_t kLongestPieceFrame = 17;

// What a range needs to know from one verse to the next. Starts as {scripture, format}.
struct RangeRenderer {
    const Scripture& scripture;
    const FormatOptions& format;
    bool begun = false;  // the first verse was rendered
    int previousBook = 0, previousChapter = 0;
};

// Adds the piece of `verse`, labelled as the first or as a later verse of its range, to `text`, with the brackets of
// its words. Styles other than full and partial are none; locations other than before are after. Where there is no such
// verse, nothing is added.
void AppendVerse(RangeRenderer& renderer, int verse, std::string& text);

// Adds the line of `verse` as the Verse List is copied and saved, whatever the format options: " Ge 1:1 text" and a
// line end. A paragraph mark at the verse's start stays, with blanks round it. Where there is no such verse, nothing is
// added.
void AppendListLine(const Scripture& scripture, int verse, std::string& text);

// Takes out every "[" and "]", the brackets round supplied words, whatever stands between them.
void RemoveBrackets(std::string& text);
