// Verse records: the book, chapter and verse of each verse index, and lookup in the other direction.
//
// A verse index is the number of a verse in canonical order: 0 is Genesis 1:1, 31101 Revelation 22:21, -1 none. The
// records are used directly from the bytes of `_avvidx.dat` (see scripture.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "scripture/little_endian.h"

inline constexpr int kVerseCount = 31102;
inline constexpr int kLastVerse = kVerseCount - 1;
inline constexpr int kNoVerse = -1;
inline constexpr int kLast = 500;  // as a chapter or verse: the last one

struct VerseRecord {
    int book = 0;     // 1..66; 0 in the record after the last verse
    int chapter = 0;  // from 1
    int verse = 0;    // from 1
    std::uint32_t textOffset = 0;
};

inline constexpr std::size_t kVerseRecordSize = 7;  // bytes

struct VerseRecords {
    std::span<const unsigned char> bytes;
};

// Record of `verseIndex`; past the last record or below 0, a record of zeros (book 0). Inline because a search reads
// tens of thousands of records.
inline VerseRecord RecordOf(const VerseRecords& records, int verseIndex) {
    if (verseIndex < 0) return {};
    const std::uint64_t start = std::uint64_t{kVerseRecordSize} * static_cast<std::uint64_t>(verseIndex);
    if (start + kVerseRecordSize > records.bytes.size()) return {};
    const unsigned char* bytes = records.bytes.data() + static_cast<std::size_t>(start);
    return {bytes[0], bytes[1], bytes[2], LittleEndian32(bytes + 3)};
}

// Verse index of `book` (1..66), `chapter` and `verse`, clamped to existing ones: 0 means the first, kLast the last; a
// chapter beyond the book's last returns the book's last verse. -1 when there is no such book.
int VerseLookup(const VerseRecords& records, int book, int chapter, int verse);

// `verseIndex` clamped to 0..31101.
int ClampVerse(int verseIndex);

enum class BookForm { kName, kAbbreviation };

// "Genesis 1:1" or "Ge 1:1"; empty if there is no such verse.
std::string ReferenceText(const VerseRecords& records, int verseIndex, BookForm form);

// "Ge 1:1 - Re 22:21", with abbreviations; empty if either verse does not exist.
std::string RangeText(const VerseRecords& records, int firstVerse, int lastVerse);
