// What the floors for words and for phrases share: blocks of sixteen bytes, lists of the index, texts of verses.
#pragma once

#include <emmintrin.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "bench/floor_text.h"

// For what runs once for each block or verse: a call would cost more than the work.
#define VERSEWELL_FLOOR [[gnu::always_inline]] inline

using Block = __m128i;
inline constexpr std::ptrdiff_t kBlockSize = 16;
inline constexpr std::size_t kLongestVerse = 1000;

VERSEWELL_FLOOR Block Load(const char* from) {
    return _mm_loadu_si128(reinterpret_cast<const Block*>(from));
}

VERSEWELL_FLOOR unsigned Bits(Block truths) {
    return static_cast<unsigned>(_mm_movemask_epi8(truths));
}

VERSEWELL_FLOOR unsigned BitsBefore(std::ptrdiff_t count) {
    return (1U << count) - 1;
}

VERSEWELL_FLOOR Block Lowered(const char* from) {
    return _mm_or_si128(Load(from), _mm_set1_epi8(0x20));
}

VERSEWELL_FLOOR Block AreLetters(Block bytes) {
    const Block lowered = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
    return _mm_cmpgt_epi8(_mm_add_epi8(lowered, _mm_set1_epi8(0x7F - 'z')), _mm_set1_epi8('a' - 1 + 0x7F - 'z'));
}

inline constexpr std::array<bool, 256> kIsLetter = [] {
    std::array<bool, 256> letters = {};
    for (std::size_t c = 'a'; c <= 'z'; ++c) letters[c] = letters[c - 0x20] = true;
    return letters;
}();

VERSEWELL_FLOOR bool IsLetterAt(const char* place) {
    return kIsLetter[static_cast<unsigned char>(*place)];
}

// The first and the last letter of a word, for a sweep.
struct WordEnds {
    Block first, last;
    std::size_t reach;  // from the first to the last
};

inline WordEnds EndsOf(std::string_view word) {
    return {_mm_set1_epi8(word.front()), _mm_set1_epi8(word.back()), word.size() - 1};
}

VERSEWELL_FLOOR unsigned MayBeginAt(const WordEnds& ends, const char* place) {
    const Block first = _mm_cmpeq_epi8(Lowered(place), ends.first);
    return Bits(_mm_and_si128(first, _mm_cmpeq_epi8(Lowered(place + ends.reach), ends.last)));
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

struct Stretch {
    const char* begin;
    const char* end;
};

VERSEWELL_FLOOR const char* StartOf(const FloorText& text, int verse) {
    if (verse > kLastVerse) return text.end;
    std::uint32_t offset = 0;
    std::memcpy(&offset, text.records + kVerseRecordSize * static_cast<std::size_t>(verse) + 3, sizeof offset);
    return text.begin + offset;
}

VERSEWELL_FLOOR Stretch TextsOf(const FloorText& text, int first, int behind) {
    return {StartOf(text, first), StartOf(text, behind) - 1};
}

inline constexpr std::size_t kAround = 3 * kBlockSize;

Stretch CopyWithBytesAround(const Stretch& stretch);

// The stretch itself, or a copy if it is at one of the ends of the text, because sweeps look at the bytes around it.
VERSEWELL_FLOOR Stretch WithBytesAround(const FloorText& text, Stretch stretch) {
    const bool isWithin = stretch.begin != text.begin && text.end - stretch.end >= std::ptrdiff_t{kAround};
    return isWithin ? stretch : CopyWithBytesAround(stretch);
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

struct List {
    const std::uint16_t* begin;
    const std::uint16_t* end;
};

inline std::ptrdiff_t SizeOf(const List& list) {
    return list.end - list.begin;
}

// The verses of an answer.
extern std::array<std::int32_t, kVerseCount + 1> theVerses;

// Marks by verse.
using VerseMarks = std::array<unsigned char, kVerseCount>;

inline void Mark(const List& list, VerseMarks& marks) {
    for (const std::uint16_t* entry = list.begin; entry < list.end; ++entry) marks[*entry] = 1;
}

List ListOfNumber(const FloorText& text, int word);
List ListOf(const FloorText& text, std::string_view word);
std::vector<List> ListsOf(const FloorText& text, const std::vector<std::string>& words);
void SortBySize(std::vector<List>& lists);

// Stores the verses of the list in `theVerses` and returns their number.
std::size_t TakeVersesOf(const List& list);

// Is the list so long that the verses are looked up in it one by one?
inline bool IsMuchLonger(const List& list, std::size_t verses) {
    return SizeOf(list) > 24 * static_cast<std::ptrdiff_t>(verses);
}

// Both keep those of the first `count` verses that are in the list, and return their number.
std::size_t KeepByHalving(const List& list, std::int32_t* verses, std::size_t count);
std::size_t KeepByMarks(const List& list, std::int32_t* verses, std::size_t count);
