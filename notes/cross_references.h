// Cross-reference lines: text in a note that names verses, such as "# Ge 1:1; Ex 2:4, 6-8".
//
// A list of references starts after a "#", anywhere in a line, and ends with the line. It is a sequence of items:
//   - an item is a book ("Ge", "1John", "Song of Solomon") and a number, a book alone or a number alone. A book is the
//     beginning of a full name; if none matches, it begins with an abbreviation or is the beginning of one; case is
//     ignored. A digit belongs to the book only without a space between them: "1 John" is verse 1, then John;
//   - a number is "3:16" or "3.16", a chapter and a verse, or a verse alone, even after a book: in a note on
//     Genesis 3:2 "Ex 5" is Exodus 3:5. Parts that an item omits are taken from the item before it, or for the first
//     item from the note's own verse;
//   - the one character that ends an item is skipped, with the spaces around it. A "-" before a number makes a range;
//     one that ends beyond its chapter ends with it.
// The list ends with the line, or at the first item that neither begins with a digit nor names a book.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "notes/text_reference.h"
#include "scripture/verse_records.h"

// The verses named by the list that contains `caret`, an offset into `note`: in the written order, with repeats, at
// most kVerseCount. The list's "#" is the nearest one at or before the caret in the same line. Empty if there is no "#"
// or no reference after it. `noteVerse` is the verse that the note belongs to.
std::vector<std::int32_t> CrossReferences(const VerseRecords& records, std::string_view note, std::size_t caret,
                                          int noteVerse);

// The items of all lists of the note, in order. Each "#" begins a list, which ends before the next one. An item that
// begins a range has the verses of the range.
std::vector<TextReference> ListedReferences(const VerseRecords& records, std::string_view note, int noteVerse);
