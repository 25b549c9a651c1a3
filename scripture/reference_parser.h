// References as users type them: "Joh 3:16", "Ge 1 - 3", "Mt - Re".
//
// The rules are loose and go by position; what they accept is relied on, so their quirks are kept:
//   - a text that begins with neither a book nor a letter names Genesis: "3:16" is Genesis 3:16;
//   - "1 ", "2 " and "3 " lose their blank everywhere, so "1 John" is one word, and "Ge 1 3" is Genesis 13;
//   - the colon is looked for in all that follows: "Ge 1 - Ex 2:3" takes verse 3 for its first half;
//   - in a range a lone second number is a chapter: "Ge 1:1-5" ends with Genesis 5.
#pragma once

#include <string>

#include "scripture/verse_records.h"

inline constexpr int kReferenceLimit = 99;  // characters that a reference field hands over
inline constexpr char kUnrecognizedReference[] = "Unrecognized Refrence";  // (sic)

struct ParsedReference {
    bool ok = false;
    int verse = kNoVerse;
};

struct ParsedRange {
    bool ok = false;
    int first = kNoVerse;  // never after `last`
    int last = kNoVerse;
    std::string text;  // as trimmed and normalised, given also when the range failed
};

// One verse. `text` is not empty.
ParsedReference ParseReference(const VerseRecords& records, std::string text);

// A first and a last verse, swapped where typed the other way round. `text` is not empty.
ParsedRange ParseRange(const VerseRecords& records, std::string text);
