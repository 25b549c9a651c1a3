// What a person probably means by a reference. The parser of the fields (reference_parser.h) takes "1 Jn 1:9" for
// Genesis 1:9 and "Ro 8:1-11" for Romans 8:1 to 11:36; users of the window see that before they say OK. Where nobody
// looks, as in a script, this reading is put beside it.
//
// It knows the usual abbreviations, Roman numerals before a book, names of books with a letter or two wrong, and that
// "8:1-11" stays in its chapter. What it does not understand as a whole, it does not understand at all.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "scripture/verse_records.h"

struct VerseSpan {
    int first = kNoVerse;  // never after `last`
    int last = kNoVerse;
    bool operator==(const VerseSpan&) const = default;
};

// The verses meant by `typed`, in ASCII. nullopt if it is no reference, or names a chapter or a verse that is not
// there.
std::optional<VerseSpan> MeantVerses(const VerseRecords& records, std::string_view typed);

// The book meant by a name as it is typed, "jn", "1 Cor", "II Kings", "Song of Songs", "Genisis"; 0 if none.
int MeantBook(std::string_view typed);

// "Genesis 1:9"; "Romans 8:1 to 8:39", "Genesis 50:26 to Exodus 1:1".
std::string SpanName(const VerseRecords& records, const VerseSpan& span);
