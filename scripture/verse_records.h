// Verse records: what book, chapter and verse each verse index names, and the way back.
//
// A verse index is the number of a verse in canonical order: 0 is Genesis 1:1, 31101 Revelation 22:21, -1 none.
// The records are used as they lie in `_avvidx.dat` (see scripture_files.h).
#pragma once

#include <cstdint>
#include <span>
#include <string>

inline constexpr int kVerseCount = 31102;
inline constexpr int kLastVerse = kVerseCount - 1;
inline constexpr int kNoVerse = -1;
inline constexpr int kLast = 500;  // as a chapter or verse: the last one there is

struct VerseRecord {
    int book = 0;     // 1..66; 0 in the record that follows the last verse
    int chapter = 0;  // from 1
    int verse = 0;    // from 1
    std::uint32_t textOffset = 0;
};

struct VerseRecords {
    std::span<const unsigned char> bytes;  // seven a record
};

// Record of `verseIndex`. Past the last record, or below 0, a record of zeros (book 0).
VerseRecord RecordOf(const VerseRecords& records, int verseIndex);

// Verse index of `book` (1..66), `chapter` and `verse`, each clamped to what there is: 0 gives the first, kLast the
// last; a chapter beyond the book's last gives the book's last verse. -1 when there is no such book.
int VerseLookup(const VerseRecords& records, int book, int chapter, int verse);

// `verseIndex` brought into 0..31101.
int ClampVerse(int verseIndex);

enum class BookForm { kName, kAbbreviation };

// "Genesis 1:1" or "Ge 1:1"; empty where there is no such verse.
std::string ReferenceText(const VerseRecords& records, int verseIndex, BookForm form);

// "Ge 1:1 - Re 22:21", with abbreviations; empty where either verse is missing.
std::string RangeText(const VerseRecords& records, int firstVerse, int lastVerse);
