// The text of copied and saved verses, one labelled piece for each verse. Each piece begins with a blank, so pieces are
// joined without a separator.
#pragma once

#include <string>
#include <string_view>

#include "output/format_options.h"
#include "scripture/scripture.h"

// Most bytes that a piece has besides the verse's text: the label " Jude 255:255", a blank after it, a line end, and
// a blank after the paragraph mark.
inline constexpr std::size_t kLongestPieceFrame = 17;

// A text that grows by pieces. Its string is longer than the text, so that a piece is written without clearing room for
// it and checking the size at each of its parts.
struct GrowingText {
    std::string bytes;     // the text and room behind it
    std::size_t size = 0;  // of the text
};

std::string_view TextOf(const GrowingText& text);

// Appends `more`.
void Append(GrowingText& text, std::string_view more);

// The text alone. `text` is empty afterwards.
std::string TakeText(GrowingText& text);

// The brackets round supplied words.
enum class PieceBrackets : bool { kLeftOut, kKept };

// State kept from one verse of a range to the next. Initialize with {scripture, format} and, unless they are kept, what
// is done with brackets.
struct RangeRenderer {
    const Scripture& scripture;
    const FormatOptions& format;
    PieceBrackets brackets = PieceBrackets::kKept;  // `format.Brackets` is not used
    bool begun = false;                             // the first verse has been labelled
    int previousBook = 0, previousChapter = 0;
};

// Appends the piece of `verse` to `text`, labelled as the first or as a later verse of its range. A style other than
// full or partial means no label; a location other than before means after. Appends nothing if there is no such verse.
// Returns the number of brackets left out.
std::size_t AppendVerse(RangeRenderer& renderer, int verse, GrowingText& text);

// Appends the line of `verse` in a copied or saved Verse List, which does not depend on the format options:
// " Ge 1:1 text" and a line end. A paragraph mark at the verse's start is kept, with a blank on each side. Appends
// nothing if there is no such verse. Returns the number of brackets left out.
std::size_t AppendListLine(const Scripture& scripture, int verse, PieceBrackets brackets, GrowingText& text);

// The same pieces with their labels between marks of marked text (typeset/html_text.h). Brackets are kept in the line
// of the list, and as `renderer.brackets` says in the piece of a range.
void AppendMarkedVerse(RangeRenderer& renderer, int verse, GrowingText& text);
void AppendMarkedListLine(const Scripture& scripture, int verse, GrowingText& text);

// `text` without any "[" and "]", even unbalanced ones.
std::string WithoutBrackets(std::string_view text);
