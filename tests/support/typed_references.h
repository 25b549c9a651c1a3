// References as users type them, right and wrong, and what the line below the field has to say of verses.
#pragma once

#include <string>
#include <vector>

#include "scripture/verse_records.h"

// `count` texts for a field, never empty: verses, chapters, books and ranges with names, abbreviations, beginnings of
// names and without a book; numbers beyond a book, zeros, halves in the wrong order, words before the number, other
// characters, and texts longer than a field takes. The same seed gives the same texts.
std::vector<std::string> TypedReferences(unsigned seed, int count);

// "Genesis 1:9": the line for a field that asks for a verse.
std::string LineOfVerse(const VerseRecords& records, int verse);

// "Romans 8:1 to 8:39, 39 verses": the line for a field that asks for a range.
std::string LineOfRange(const VerseRecords& records, int first, int last);
