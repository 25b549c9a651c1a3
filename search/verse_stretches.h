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
#include "search/text_kinds.h"

#ifdef VERSEWELL_USES_SSE2

// The text of a verse, or of verses that follow each other. A zero byte stands before and behind it, and a sweep may
// read kAround bytes before and behind.
struct Stretch {
    const char* begin;
    const char* end;
};

static_assert(kLongestSwept <= kPhraseReach && 3 * kLongestSwept < kMarkedTextLimit);  // room for all marks of a phrase

// The scripture in the form that is read for every verse.
struct Texts {
    const unsigned char* records;
    int recordCount;
    const char* begin;
    std::size_t sweepSize;  // where the last text that is swept may end
    std::span<const unsigned char> kinds;
};

inline Texts TextsOf(const Scripture& scripture) {
    const VerseRecords& records = scripture.records;
    const std::size_t sweepSize = std::max(scripture.text.size(), kAround) - kAround;
    return {records.bytes.data(), static_cast<int>(records.bytes.size() / kVerseRecordSize), scripture.text.data(),
            sweepSize, scripture.textKinds};
}

VERSEWELL_BLOCKWISE std::size_t OffsetOf(const Texts& texts, int verse) {
    return LittleEndian32(texts.records + kVerseRecordSize * static_cast<std::size_t>(verse) + 3);
}

VERSEWELL_BLOCKWISE unsigned char KindOf(const Texts& texts, int verse) {
    return static_cast<std::size_t>(verse) < texts.kinds.size() ? texts.kinds[static_cast<std::size_t>(verse)] : 0;
}

// The text from `verse` to the verse before `behind`, which are plain.
VERSEWELL_BLOCKWISE Stretch PlainStretch(const Texts& texts, int verse, int behind) {
    return {texts.begin + OffsetOf(texts, verse), texts.begin + OffsetOf(texts, behind) - 1};
}

VERSEWELL_APART inline bool FindCheckedStretch(const Texts& texts, int verse, Stretch& stretch) {
    if (verse + 1 >= texts.recordCount) return false;
    const std::size_t begin = OffsetOf(texts, verse), next = OffsetOf(texts, verse + 1);
    const bool isVerse = texts.records[kVerseRecordSize * static_cast<std::size_t>(verse)] != 0;
    if (!isVerse || begin < kAround || next - begin - 1 >= kLongestSwept) return false;
    if (next > texts.sweepSize || (texts.begin[begin - 1] | texts.begin[next - 1]) != '\0') return false;
    stretch = {texts.begin + begin, texts.begin + next - 1};
    return true;
}

// Sets `stretch` to the text of `verse`, which is not negative. Returns false if the text cannot be swept: at the ends
// of the file, if it is very long, and in damaged files.
VERSEWELL_BLOCKWISE bool FindStretch(const Texts& texts, int verse, Stretch& stretch) {
    if (KindOf(texts, verse) == 0) return FindCheckedStretch(texts, verse, stretch);
    stretch = PlainStretch(texts, verse, verse + 1);
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

// The bits that uppercase letters lack to be those of `word`, which is in lower case if case is ignored.
inline std::string FoldsOf(std::string_view word, bool anyCase) {
    std::string folds;
    for (const char c : word) folds += anyCase && IsLetter(c) ? ' ' : '\0';
    return folds;
}

inline WordEnds EndsOf(std::string_view word, std::string_view folds) {
    return {{_mm_set1_epi8(word.front()), _mm_set1_epi8(folds.front())},
            {_mm_set1_epi8(word.back()), _mm_set1_epi8(folds.back())},
            word.size() - 1};
}

VERSEWELL_BLOCKWISE unsigned HitsAt(const WordEnds& ends, const char* place) {
    return Bits(_mm_and_si128(Is(Load(place), ends.first), Is(Load(place + ends.reach), ends.last)));
}

VERSEWELL_BLOCKWISE Block Folded(const char* place) {
    return _mm_or_si128(Load(place), _mm_set1_epi8(0x20));
}

// A word of a phrase, in lower case, and the letter nearest to it of the word beside. For texts with plain words.
struct WordOfPhrase {
    Block first, last, beside;
    std::ptrdiff_t reach;     // from the first letter to the last
    std::ptrdiff_t toBeside;  // from the first letter to the one of the word beside
};

// If something stands between the words that is skipped, there is no letter at the place of the one beside. Case is
// ignored; hits are looked at later.
VERSEWELL_BLOCKWISE unsigned HitsAt(const WordOfPhrase& word, const char* place) {
    const Block ends =
        _mm_and_si128(_mm_cmpeq_epi8(Folded(place), word.first), _mm_cmpeq_epi8(Folded(place + word.reach), word.last));
    const Block beside = Folded(place + word.toBeside);
    const Block isOther = _mm_andnot_si128(_mm_cmpeq_epi8(beside, word.beside), AreLetters(beside));
    return Bits(_mm_andnot_si128(isOther, ends));
}

// Two characters of a phrase that follow each other, in lower case.
struct PairOfPhrase {
    Block first, second;
};

// Letters and spaces are never skipped in a phrase. Case is ignored, and a zero byte, where a phrase ends, taken for a
// space: hits are looked at later.
VERSEWELL_BLOCKWISE unsigned HitsAt(const PairOfPhrase& pair, const char* place) {
    const Block next = Folded(place + 1);
    const Block isPlain = _mm_or_si128(AreLetters(next), _mm_cmpeq_epi8(next, _mm_set1_epi8(' ')));
    const Block isWrong = _mm_andnot_si128(_mm_cmpeq_epi8(next, pair.second), isPlain);
    return Bits(_mm_andnot_si128(isWrong, _mm_cmpeq_epi8(Folded(place), pair.first)));
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

inline constexpr std::size_t kLongestStart = 2 * kBlockSize;

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
