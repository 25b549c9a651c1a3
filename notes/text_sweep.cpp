#include "notes/text_sweep.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <numeric>
#include <vector>

#include "scripture/letters.h"
#include "search/text_scan.h"

// VERSEWELL_NO_SSE2 disables the vector code, as in search/text_scan.cpp.
#if (defined(__SSE2__) || defined(_M_X64)) && !defined(VERSEWELL_NO_SSE2)
#define VERSEWELL_USES_SSE2
#include <emmintrin.h>
#endif

static std::size_t PlaceOf(char c) {
    return static_cast<unsigned char>(c);
}

LetterTable AsciiLetters() {
    LetterTable letters;
    for (std::size_t byte = 0; byte < letters.capitals.size(); ++byte) {
        const char c = static_cast<char>(byte);
        letters.capitals[byte] = IsLetter(c) && !IsCapital(c) ? static_cast<char>(c - ('a' - 'A')) : c;
        letters.inWords[byte] = IsLetterOrDigit(c);
    }
    return letters;
}

std::string InCapitals(const LetterTable& letters, std::string_view text) {
    std::string capitals(text);
    for (char& c : capitals) c = letters.capitals[PlaceOf(c)];
    return capitals;
}

// ---- The target -----------------------------------------------------------------------------------------------------

// Letters and the space from rare to common; everything else is rarer.
static std::size_t CommonnessOf(char c) {
    static constexpr std::string_view kOrder = "qxzjvkpbgycfwumldrsiontaeh ";
    return kOrder.find(LowerCased(c)) + 1;  // 0 if it is not there
}

// The bits in which all bytes agree whose capital is `c`. In few code pages does that leave more than two bytes.
static char MaskOf(char c, const LetterTable* letters) {
    unsigned differing = 0;
    for (std::size_t byte = 0; letters != nullptr && byte < letters->capitals.size(); ++byte)
        if (letters->capitals[byte] == c) differing |= static_cast<unsigned>(byte ^ PlaceOf(c));
    return static_cast<char>(~differing & 0xFF);
}

static SweepProbe ProbeAt(std::string_view text, std::size_t place, const LetterTable* letters) {
    const char mask = MaskOf(text[place], letters);
    return {place, mask, static_cast<char>(text[place] & mask)};
}

SweepTarget TargetOf(std::string_view text, const LetterTable* letters) {
    std::vector<std::size_t> places(text.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_sort(places.begin(), places.end(),
                     [text](std::size_t a, std::size_t b) { return CommonnessOf(text[a]) < CommonnessOf(text[b]); });
    return {text, letters, {ProbeAt(text, places.front(), letters), ProbeAt(text, places[places.size() > 1], letters)}};
}

// ---- The sweep ------------------------------------------------------------------------------------------------------

static bool StandsAt(const SweepTarget& target, const char* here) {
    if (target.letters == nullptr) return std::equal(target.text.begin(), target.text.end(), here);
    return std::equal(target.text.begin(), target.text.end(), here,
                      [&](char wanted, char c) { return target.letters->capitals[PlaceOf(c)] == wanted; });
}

#ifdef VERSEWELL_USES_SSE2

static constexpr std::size_t kBlock = 16;
static constexpr std::size_t kStep = 4 * kBlock;

namespace {

struct WideProbe {
    std::size_t place;
    __m128i mask, value;
};

}  // namespace

static WideProbe Widened(const SweepProbe& probe) {
    return {probe.place, _mm_set1_epi8(probe.mask), _mm_set1_epi8(probe.value)};
}

static __m128i Passes(const WideProbe& probe, const char* here) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(here + probe.place));
    return _mm_cmpeq_epi8(_mm_and_si128(bytes, probe.mask), probe.value);
}

// Of the places in a block, those that pass both probes.
static __m128i Passing(const WideProbe& first, const WideProbe& second, const char* here) {
    return _mm_and_si128(Passes(first, here), Passes(second, here));
}

static std::uint64_t Bits(__m128i truths) {
    return static_cast<std::uint64_t>(_mm_movemask_epi8(truths));
}

// Tests `kStep` places together; returns a bit for each that passes both probes.
static std::uint64_t PlacesToLookAt(const WideProbe& first, const WideProbe& second, const char* here) {
    const __m128i one = Passing(first, second, here);
    const __m128i two = Passing(first, second, here + kBlock);
    const __m128i three = Passing(first, second, here + 2 * kBlock);
    const __m128i four = Passing(first, second, here + 3 * kBlock);
    if (Bits(_mm_or_si128(_mm_or_si128(one, two), _mm_or_si128(three, four))) == 0) return 0;
    return Bits(one) | Bits(two) << kBlock | Bits(three) << 2 * kBlock | Bits(four) << 3 * kBlock;
}

// Goes on in steps as long as they fit before `end`. Returns the place of the target, or kNoPlace with the place
// where the steps ended in `place`.
static std::size_t FindInSteps(const SweepTarget& target, const char* bytes, std::size_t& place, std::size_t end) {
    const WideProbe first = Widened(target.probes[0]);
    const WideProbe second = Widened(target.probes[1]);
    for (; place + kStep <= end; place += kStep)
        for (std::uint64_t bits = PlacesToLookAt(first, second, bytes + place); bits != 0; bits &= bits - 1) {
            const std::size_t found = place + static_cast<std::size_t>(std::countr_zero(bits));
            if (StandsAt(target, bytes + found)) return found;
        }
    return kNoPlace;
}

#else

static std::size_t FindInSteps(const SweepTarget&, const char*, std::size_t&, std::size_t) {
    return kNoPlace;
}

#endif

std::size_t FindTarget(const SweepTarget& target, std::string_view bytes, std::size_t from) {
    if (bytes.size() < target.text.size()) return kNoPlace;
    const std::size_t end = bytes.size() - target.text.size() + 1;
    const std::size_t found = FindInSteps(target, bytes.data(), from, end);
    if (found != kNoPlace) return found;
    for (; from < end; ++from)
        if (StandsAt(target, bytes.data() + from)) return from;
    return kNoPlace;
}
