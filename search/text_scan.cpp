#include "search/text_scan.h"

#include <algorithm>
#include <array>
#include <bit>

#include "scripture/scripture.h"
#include "search/letters.h"

// VERSEWELL_NO_SSE2 leaves the work to the loops byte by byte that short texts go through anyway.
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(VERSEWELL_NO_SSE2)
#define VERSEWELL_USES_SSE2
#include <emmintrin.h>
#endif

bool IsLetterOrHigh(char c) {
    return IsLetter(c) || static_cast<unsigned char>(c) >= 0x80;
}

bool IsWholeWord(std::string_view text, std::size_t place, std::size_t size) {
    const bool letterBefore = place > 0 && IsLetterOrHigh(text[place - 1]) && text[place - 1] != kParagraphMark;
    const bool letterAfter = place + size < text.size() && IsLetterOrHigh(text[place + size]);
    return !letterBefore && !letterAfter;
}

static char CaseAsked(char c, bool anyCase) {
    return anyCase ? LowerCased(c) : c;
}

static bool StandsAt(std::string_view text, std::size_t place, std::string_view word, bool anyCase) {
    for (std::size_t i = 0; i < word.size(); ++i)
        if (CaseAsked(text[place + i], anyCase) != word[i]) return false;
    return true;
}

static std::size_t FindByteByByte(std::string_view text, std::string_view word, bool anyCase, std::size_t from) {
    for (std::size_t place = from; place + word.size() <= text.size(); ++place)
        if (StandsAt(text, place, word, anyCase)) return place;
    return kNotFound;
}

static int CountByteByByte(std::string_view text, std::string_view word, bool anyCase, bool wholeWords) {
    int count = 0;
    for (std::size_t place = 0; place + word.size() <= text.size(); ++place)
        if (StandsAt(text, place, word, anyCase) && (!wholeWords || IsWholeWord(text, place, word.size()))) ++count;
    return count;
}

bool IsKeptInPhrase(char c) {
    return IsWordCharacter(c) || c == ' ';
}

// How often a letter stands in a thousand characters of the text, roughly.
static constexpr std::array<int, 26> kLetterFrequencies = {64, 12, 13, 39, 100, 20, 13, 70, 47, 2,  6, 32, 19,
                                                           55, 60, 11, 1,  42,  47, 78, 21, 7,  16, 1, 15, 1};

static int FrequencyOf(char c) {
    if (c == ' ') return 190;
    return c >= 'a' && c <= 'z' ? kLetterFrequencies[static_cast<std::size_t>(c - 'a')] : 3;
}

std::size_t RarestPair(std::string_view phrase) {
    std::size_t rarest = 0;
    for (std::size_t i = 1; i + 1 < phrase.size(); ++i)
        if (FrequencyOf(phrase[i]) * FrequencyOf(phrase[i + 1]) <
            FrequencyOf(phrase[rarest]) * FrequencyOf(phrase[rarest + 1]))
            rarest = i;
    return rarest;
}

// The phrase whose character number `pair` stands at `place`, or kNotFound.
static PhrasePlace PhraseAround(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase,
                                std::size_t place) {
    std::size_t last = place;
    for (std::size_t i = pair + 1; i < phrase.size(); ++i)
        for (++last; last >= text.size() || CaseAsked(text[last], anyCase) != phrase[i]; ++last)
            if (last >= text.size() || IsKeptInPhrase(text[last])) return {};
    std::size_t first = place;
    for (std::size_t i = pair; i > 0; --i)  // a step below 0 wraps past the size
        for (--first; first >= text.size() || CaseAsked(text[first], anyCase) != phrase[i - 1]; --first)
            if (first >= text.size() || IsKeptInPhrase(text[first])) return {};
    return {first, last};
}

template <typename Visit>
static void EachPhraseByteByByte(std::string_view text, std::string_view phrase, bool anyCase, Visit visit) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (CaseAsked(text[place], anyCase) != phrase.front()) continue;
        const PhrasePlace found = PhraseAround(text, phrase, 0, anyCase, place);
        if (found.first == kNotFound) continue;
        visit(found);
        place = found.last;
    }
}

#ifndef VERSEWELL_USES_SSE2

std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from) {
    return FindByteByByte(text, word, anyCase, from);
}

int CountInText(std::string_view text, std::string_view word, bool anyCase, bool wholeWords) {
    return CountByteByByte(text, word, anyCase, wholeWords);
}

template <typename Visit>
static void EachPhrase(std::string_view text, std::string_view phrase, std::size_t, bool anyCase, Visit visit) {
    if (!phrase.empty()) EachPhraseByteByByte(text, phrase, anyCase, visit);
}

#else

// Sixteen bytes of text are looked at together, each as one place where what is wanted may begin. A comparison gives
// 0xFF in the bytes where it holds and 0 in the others.
using Block = __m128i;
static constexpr std::size_t kBlockSize = 16;

static Block Load(const char* from) {
    return _mm_loadu_si128(reinterpret_cast<const Block*>(from));
}

static unsigned Bits(Block truths) {
    return static_cast<unsigned>(_mm_movemask_epi8(truths));
}

// A byte to compare with; `fold` is the bit that a capital lacks where capitals match too.
struct WantedByte {
    Block value;
    Block fold;
};

static WantedByte Want(char c, bool anyCase) {
    return {_mm_set1_epi8(c), _mm_set1_epi8(anyCase && IsLetter(c) ? 0x20 : 0)};
}

static Block Is(Block bytes, const WantedByte& wanted) {
    return _mm_cmpeq_epi8(_mm_or_si128(bytes, wanted.fold), wanted.value);
}

static Block IsLetter(Block bytes) {
    const Block fromA = _mm_sub_epi8(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), _mm_set1_epi8('a'));
    return _mm_cmpeq_epi8(fromA, _mm_min_epu8(fromA, _mm_set1_epi8('z' - 'a')));
}

static Block IsLetterOrHigh(Block bytes) {
    return _mm_or_si128(IsLetter(bytes), _mm_cmplt_epi8(bytes, _mm_setzero_si128()));
}

// Calls visit(place, done) for the places from `from` to `last`, sixteen at a time from `place` on, until it says true.
// The last sixteen end at `last`, so that nothing beyond is read; `done` of them were visited before. `last` is 15 at
// least.
template <typename Visit>
static inline void EachBlock(std::size_t from, std::size_t last, Visit visit) {
    const std::size_t lastBlock = last - (kBlockSize - 1);
    for (std::size_t next = from; next <= last; next += kBlockSize) {
        const std::size_t place = std::min(next, lastBlock);
        if (visit(place, static_cast<unsigned>(next - place))) return;
    }
}

std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from) {
    const std::size_t size = word.size();
    if (text.size() < size + kBlockSize - 1) return FindByteByByte(text, word, anyCase, from);
    const WantedByte first = Want(word.front(), anyCase);
    const WantedByte last = Want(word.back(), anyCase);
    std::size_t found = kNotFound;
    EachBlock(from, text.size() - size, [&](std::size_t place, unsigned done) {
        const char* here = text.data() + place;
        unsigned places = Bits(_mm_and_si128(Is(Load(here), first), Is(Load(here + size - 1), last)));
        for (places = places >> done << done; places != 0; places &= places - 1) {
            const std::size_t candidate = place + static_cast<std::size_t>(std::countr_zero(places));
            if (size > 2 && !StandsAt(text, candidate, word, anyCase)) continue;
            found = candidate;
            return true;
        }
        return false;
    });
    return found;
}

// What IsWholeWord says of the sixteen places from `place` on. At its ends the text has no neighbours.
static Block AreWholeWords(std::string_view text, std::size_t place, std::size_t size) {
    const char* here = text.data() + place;
    const Block before = place == 0 ? _mm_slli_si128(Load(here), 1) : Load(here - 1);
    const bool atEnd = place + size + kBlockSize > text.size();
    const Block after = atEnd ? _mm_srli_si128(Load(here + size - 1), 1) : Load(here + size);
    const Block paragraph = _mm_cmpeq_epi8(before, _mm_set1_epi8(kParagraphMark));
    const Block letters = _mm_or_si128(_mm_andnot_si128(paragraph, IsLetterOrHigh(before)), IsLetterOrHigh(after));
    return _mm_andnot_si128(letters, _mm_set1_epi8('\xFF'));
}

// 0xFF in all bytes but the first `count`.
static Block AllBut(unsigned count) {
    alignas(kBlockSize) static constexpr std::array<unsigned char, 2 * kBlockSize> kBytes = [] {
        std::array<unsigned char, 2 * kBlockSize> bytes = {};
        for (std::size_t i = kBlockSize; i < bytes.size(); ++i) bytes[i] = 0xFF;
        return bytes;
    }();
    return Load(reinterpret_cast<const char*>(kBytes.data()) + kBlockSize - count);
}

static int SumOfBytes(Block bytes) {
    const Block halves = _mm_sad_epu8(bytes, _mm_setzero_si128());
    return _mm_cvtsi128_si32(halves) + _mm_cvtsi128_si32(_mm_srli_si128(halves, 8));
}

int CountInText(std::string_view text, std::string_view word, bool anyCase, bool wholeWords) {
    const std::size_t size = word.size();
    if (text.size() < size + kBlockSize - 1) return CountByteByByte(text, word, anyCase, wholeWords);
    const WantedByte first = Want(word.front(), anyCase);
    const WantedByte last = Want(word.back(), anyCase);
    Block sums = _mm_setzero_si128();
    int blocks = 0;
    int count = 0;
    EachBlock(0, text.size() - size, [&](std::size_t place, unsigned done) {
        const char* here = text.data() + place;
        Block places = _mm_and_si128(Is(Load(here), first), Is(Load(here + size - 1), last));
        if (Bits(places) == 0) return false;
        for (std::size_t i = 1; i + 1 < size; ++i)
            places = _mm_and_si128(places, Is(Load(here + i), Want(word[i], anyCase)));
        if (wholeWords) places = _mm_and_si128(places, AreWholeWords(text, place, size));
        sums = _mm_sub_epi8(sums, _mm_and_si128(places, AllBut(done)));  // a truth is -1
        if (++blocks % 255 != 0) return false;                           // a byte holds no more
        count += SumOfBytes(sums);
        sums = _mm_setzero_si128();
        return false;
    });
    return count + SumOfBytes(sums);
}

// Bytes that a phrase passes over; the apostrophe is let through for speed, a closer look tells it apart.
static Block MayBePassedOver(Block bytes) {
    const Block blank = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '));
    return _mm_andnot_si128(_mm_or_si128(IsLetter(bytes), blank), _mm_set1_epi8('\xFF'));
}

template <typename Visit>
static void EachPhrase(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase, Visit visit) {
    if (phrase.empty()) return;
    if (text.size() < kBlockSize + 1 || phrase.size() < 2) return EachPhraseByteByByte(text, phrase, anyCase, visit);
    const WantedByte one = Want(phrase[pair], anyCase);
    const WantedByte other = Want(phrase[pair + 1], anyCase);
    std::size_t from = 0;
    EachBlock(0, text.size() - 2, [&](std::size_t place, unsigned done) {
        const Block next = Load(text.data() + place + 1);
        const Block follows = _mm_or_si128(Is(next, other), MayBePassedOver(next));
        unsigned places = Bits(_mm_and_si128(Is(Load(text.data() + place), one), follows));
        for (places = places >> done << done; places != 0; places &= places - 1) {
            const std::size_t candidate = place + static_cast<std::size_t>(std::countr_zero(places));
            const PhrasePlace found = PhraseAround(text, phrase, pair, anyCase, candidate);
            if (found.first == kNotFound || found.first < from) continue;
            visit(found);
            from = found.last + 1;
        }
        return false;
    });
}

#endif

std::vector<PhrasePlace> PhrasesInText(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase) {
    std::vector<PhrasePlace> places;
    EachPhrase(text, phrase, pair, anyCase, [&places](const PhrasePlace& place) { places.push_back(place); });
    return places;
}

int CountPhrasesInText(std::string_view text, std::string_view phrase, std::size_t pair, bool anyCase) {
    int count = 0;
    EachPhrase(text, phrase, pair, anyCase, [&count](const PhrasePlace&) { ++count; });
    return count;
}
