// Cross-reference lines: text in a note that names verses, such as "# Ge 1:1; Ex 2:4, 6-8".
//
// A list of references stands between a "#", anywhere in a line, and that line's end. It is a row of items:
//   - a book ("Ge", "1John", "Song of Solomon") and a number, a book alone or a number alone. A book is a full name's
//     beginning, or failing that begins with an abbreviation or is an abbreviation's beginning; capitals do not matter.
//     A figure belongs to the book only where no blank parts them: "1 John" is verse 1, then John;
//   - a number is "3:16" or "3.16", a chapter and a verse, or a verse alone, also behind a book: in a note on
//     Genesis 3:2 "Ex 5" is Exodus 3:5. What an item leaves out is as in the item before, at first as in the note's
//     own verse;
//   - the one character that ends an item is skipped, with the blanks round it. A "-" before a number makes a range;
//   one
//     that ends beyond its chapter ends with it.
// The list ends with the line, or with the first item that neither begins with a figure nor names a book.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "scripture/verse_records.h"

// The verses named by the list that `caret`, an offset into `note`, stands in: as written, repeats included, at most
// kVerseCount. Its "#" is the nearest one at or before the caret in the caret's line. Empty where there is no "#" or no
// reference behind it. `noteVerse` is the verse that the note is on.
std::vector<std::int32_t> CrossReferences(const VerseRecords& records, std::string_view note, std::size_t caret,
                                          int noteVerse);
