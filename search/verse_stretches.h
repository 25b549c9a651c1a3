// The texts of verses as stretches of the file for sweeps of sixteen bytes, and blocks with hits.
//
// A block of text that has a hit is kept to be looked at later: a sweep does not branch on what it finds, because the
// processor cannot foresee it, and a wrong guess costs more than a block.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>

#include "scripture/letters.h"
#include "scripture/little_endian.h"
#include "scripture/scripture.h"
#include "search/key_word_marks.h"
#include "search/text_blocks.h"

#ifdef VERSEWELL_USES_SSE2

// The text of a verse, or of verses that follow each other. A zero byte stands before and behind it, and a sweep may
// read kAround bytes before and behind.
struct Stretch {
    const char* begin;
    const char* end;
};

inline constexpr std::size_t kAround = 256;

// No text that is swept is longer. The longest verse has 528 bytes.
inline constexpr std::size_t kLongestSwept = 600;
static_assert(kLongestSwept <= kPhraseReach && 3 * kLongestSwept < kMarkedTextLimit);  // room for all marks of a phrase

// The scripture in the form that is read for every verse.
struct Texts {
    const unsigned char* records;
    int recordCount;
    const char* begin;
    std::size_t sweepSize;  // where the last text that is swept may end
};

inline Texts TextsOf(const Scripture& scripture) {
    const VerseRecords& records = scripture.records;
    const std::size_t sweepSize = std::max(scripture.text.size(), kAround) - kAround;
    return {records.bytes.data(), static_cast<int>(records.bytes.size() / kVerseRecordSize), scripture.text.data(),
            sweepSize};
}

// Sets `stretch` to the text of `verse`, which is not negative. Returns false if the text cannot be swept: at the ends
// of the file, if it is very long, and in damaged files.
VERSEWELL_BLOCKWISE bool FindStretch(const Texts& texts, int verse, Stretch& stretch) {
    if (verse + 1 >= texts.recordCount) return false;
    const unsigned char* const record = texts.records + kVerseRecordSize * static_cast<std::size_t>(verse);
    const std::size_t begin = LittleEndian32(record + 3);
    const std::size_t next = LittleEndian32(record + kVerseRecordSize + 3);
    if (record[0] == 0 || begin < kAround || next - begin - 1 >= kLongestSwept) return false;
    if (next > texts.sweepSize || (texts.begin[begin - 1] | texts.begin[next - 1]) != '\0') return false;
    stretch = {texts.begin + begin, texts.begin + next - 1};
    return true;
}

// Moves the end of `stretch`, which ends with the verse before `verse`, to the end of `verse`, if that text can be
// swept.
VERSEWELL_BLOCKWISE bool Extend(const Texts& texts, int verse, Stretch& stretch) {
    if (verse + 1 >= texts.recordCount) return false;
    const unsigned char* const record = texts.records + kVerseRecordSize * static_cast<std::size_t>(verse);
    const std::size_t begin = static_cast<std::size_t>(stretch.end - texts.begin) + 1;
    const std::size_t next = LittleEndian32(record + kVerseRecordSize + 3);
    if (next - begin - 1 >= kLongestSwept || next > texts.sweepSize) return false;
    if ((static_cast<int>(record[0] == 0) | texts.begin[next - 1]) != 0) return false;
    stretch.end = texts.begin + next - 1;
    return true;
}

// ---- Blocks with hits -----------------------------------------------------------------------------------------------

struct HitBlock {
    const char* place;
    unsigned bits;
    std::int32_t verse;
};

inline constexpr std::size_t kHitBlocks = 1024;
inline constexpr std::size_t kManyHits = kHitBlocks - kLongestSwept / kBlockSize - 2;  // no room for another verse

// The first and the last letter of a word.
struct WordEnds {
    WantedByte first, last;
    std::size_t reach;  // from the first to the last
};

VERSEWELL_BLOCKWISE unsigned HitsAt(const WordEnds& ends, const char* place) {
    return Bits(_mm_and_si128(Is(Load(place), ends.first), Is(Load(place + ends.reach), ends.last)));
}

// Two letters of a phrase that follow each other, if nothing stands between them that is not searched for.
struct Anchor {
    WantedByte first, second;
};

// Letters and spaces are never skipped in a phrase. The test also takes a zero byte for a space: there a phrase ends.
VERSEWELL_BLOCKWISE unsigned HitsAt(const Anchor& anchor, const char* place) {
    const Block next = Load(place + 1);
    const Block folded = _mm_or_si128(next, _mm_set1_epi8(0x20));
    const Block letters =
        _mm_cmpgt_epi8(_mm_add_epi8(folded, _mm_set1_epi8(0x7F - 'z')), _mm_set1_epi8('a' - 1 + 0x7F - 'z'));
    const Block plain = _mm_or_si128(letters, _mm_cmpeq_epi8(folded, _mm_set1_epi8(' ')));
    const Block wrong = _mm_andnot_si128(Is(next, anchor.second), plain);
    return Bits(_mm_andnot_si128(wrong, Is(Load(place), anchor.first)));
}

// Appends the blocks of the stretch with hits, and returns the place behind them.
template <typename Wanted>
VERSEWELL_BLOCKWISE HitBlock* Sift(const Wanted& wanted, Stretch stretch, std::int32_t verse, HitBlock* next) {
    const char* place = stretch.begin;
    for (; stretch.end - place > static_cast<std::ptrdiff_t>(kBlockSize); place += kBlockSize) {
        const unsigned bits = HitsAt(wanted, place);
        *next = {place, bits, verse};
        next += bits != 0 ? 1 : 0;
    }
    const unsigned bits = HitsAt(wanted, place) & ((1U << (stretch.end - place)) - 1);
    *next = {place, bits, verse};
    return next + (bits != 0 ? 1 : 0);
}

// ---- Words and phrases at a place -----------------------------------------------------------------------------------

// The first bytes of a word or a phrase, to be compared with the text. `folds` are the bits that uppercase letters
// lack.
struct WantedStart {
    std::array<char, 2 *kBlockSize> bytes = {}, folds = {};
    unsigned wanted = 0;  // a bit for each byte
    bool isLong = false;  // more than one block
};

inline WantedStart StartOf(std::string_view word, std::string_view folds) {
    WantedStart start;
    const std::size_t size = word.copy(start.bytes.data(), start.bytes.size());
    folds.copy(start.folds.data(), size);
    start.wanted = static_cast<unsigned>((std::uint64_t{1} << size) - 1);
    start.isLong = size > kBlockSize;
    return start;
}

VERSEWELL_BLOCKWISE unsigned SameBytes(const WantedStart& start, const char* place, std::size_t from) {
    const Block bytes = _mm_or_si128(Load(place + from), Load(start.folds.data() + from));
    return Bits(_mm_cmpeq_epi8(bytes, Load(start.bytes.data() + from))) << from;
}

VERSEWELL_BLOCKWISE bool StandsAt(const WantedStart& start, const char* place) {
    const unsigned same = SameBytes(start, place, 0) | (start.isLong ? SameBytes(start, place, kBlockSize) : 0);
    return (same & start.wanted) == start.wanted;
}

#endif
