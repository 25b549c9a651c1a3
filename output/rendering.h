// The text of copied and saved verses, one labelled piece for each verse. Each piece begins with a blank, so pieces are
// joined without a separator.
#pragma once

#include <string>

#include "output/format_options.h"
#include "scripture/scripture.h"

// Most bytes that a piece has besides the verse's text: the label " Jude 255:255", a blank after it, a line end, and
// a blank after the paragraph mark.
inline constexpr std::size_t kLongestPieceFrame = 17;

// State kept from one verse of a range to the next. Initialize with {scripture, format}.
struct RangeRenderer {
    const Scripture& scripture;
    const FormatOptions& format;
    bool begun = false;  // the first verse has been labelled
    int previousBook = 0, previousChapter = 0;
};

// Appends the piece of `verse` to `text`, labelled as the first or as a later verse of its range. Brackets are kept.
// A style other than full or partial means no label; a location other than before means after. Appends nothing if there
// is no such verse.
void AppendVerse(RangeRenderer& renderer, int verse, std::string& text);

// Appends the line of `verse` in a copied or saved Verse List, which does not depend on the format options:
// " Ge 1:1 text" and a line end. A paragraph mark at the verse's start is kept, with a blank on each side. Appends
// nothing if there is no such verse.
void AppendListLine(const Scripture& scripture, int verse, std::string& text);

// Removes every "[" and "]", the brackets round supplied words, even unbalanced ones.
void RemoveBrackets(std::string& text);
