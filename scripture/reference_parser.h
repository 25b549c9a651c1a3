// References as users type them: "Joh 3:16", "Ge 1 - 3", "Mt - Re".
//
// The rules are loose and depend on position. Users rely on what is accepted, so these quirks are kept:
//   - a text that begins with neither a book nor a letter means Genesis: "3:16" is Genesis 3:16;
//   - "1 ", "2 " and "3 " lose their space everywhere: "1 John" becomes one word, and "Ge 1 3" is Genesis 13;
//   - the colon is searched for in all of the remaining text: in "Ge 1 - Ex 2:3" the first half also gets verse 3;
//   - in a range a lone second number is a chapter: "Ge 1:1-5" ends with Genesis 5.
#pragma once

#include <string>

#include "scripture/verse_records.h"

inline constexpr int kReferenceLimit = 99;                                 // characters read from a reference field
inline constexpr char kUnrecognizedReference[] = "Unrecognized Refrence";  // (sic)

struct ParsedReference {
    bool ok = false;
    int verse = kNoVerse;
};

struct ParsedRange {
    bool ok = false;
    int first = kNoVerse;  // never after `last`
    int last = kNoVerse;
    std::string text;      // as trimmed and normalised; set even if parsing failed
    std::string unused{};  // words and numbers of `text` that tell nothing of the range, such as a second range
};

// Parses one verse. `text` must not be empty.
ParsedReference ParseReference(const VerseRecords& records, std::string text);

// Parses a first and a last verse and swaps them if they are in reverse order. `text` must not be empty.
ParsedRange ParseRange(const VerseRecords& records, std::string text);
