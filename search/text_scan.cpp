#include "search/text_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "scripture/letters.h"
#include "scripture/scripture.h"
#include "search/text_blocks.h"

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
    return kNoPlace;
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

// Approximate occurrences of each letter per thousand characters of the text.
static constexpr std::array<int, 26> kLetterFrequencies = {64, 12, 13, 39, 100, 20, 13, 70, 47, 2,  6, 32, 19,
                                                           55, 60, 11, 1,  42,  47, 78, 21, 7,  16, 1, 15, 1};

static int FrequencyOf(char c) {
    if (c == ' ') return 190;
    return c >= 'a' && c <= 'z' ? kLetterFrequencies[static_cast<std::size_t>(c - 'a')] : 3;
}

// A phrase scan searches for the phrase's anchor: two adjacent characters and a third a little further on, chosen so
// that they rarely occur together in the text. Returns the distance of the third from the first.
static std::size_t ReachOfAnchor(std::string_view phrase, std::size_t anchor) {
    return std::min<std::size_t>(3, phrase.size() - 1 - anchor);
}

static int FrequencyOfAnchor(std::string_view phrase, std::size_t anchor) {
    return FrequencyOf(phrase[anchor]) * FrequencyOf(phrase[anchor + 1]) *
           FrequencyOf(phrase[anchor + ReachOfAnchor(phrase, anchor)]);
}

// The bit that turns an uppercase letter of the text into lower-case `c`; 0 where case matters or `c` is not a letter.
static char FoldOf(char c, bool anyCase) {
    return anyCase && IsLetter(c) ? 0x20 : 0;
}

PhrasePattern PatternOf(std::string_view phrase, bool anyCase) {
    PhrasePattern pattern;
    pattern.phrase = phrase;
    for (const char c : phrase) pattern.folds += FoldOf(c, anyCase);
    for (std::size_t i = 1; i + 2 < phrase.size(); ++i)
        if (FrequencyOfAnchor(phrase, i) < FrequencyOfAnchor(phrase, pattern.anchor)) pattern.anchor = i;
    const std::size_t restSize = std::min(phrase.size() - pattern.anchor, pattern.rest.size());
    pattern.phrase.copy(pattern.rest.data(), restSize, pattern.anchor);
    pattern.folds.copy(pattern.restFolds.data(), restSize, pattern.anchor);
    return pattern;
}

static bool IsAt(const PhrasePattern& pattern, std::size_t i, char c) {
    return (c | pattern.folds[i]) == pattern.phrase[i];
}

// Does `c`, where the phrase's next character is expected, end the match? A zero byte ends a verse.
static bool EndsPhrase(char c) {
    return IsKeptInPhrase(c) || c == '\0';
}

PhrasePlace PhraseAround(std::string_view text, const PhrasePattern& pattern, std::size_t anchor, std::size_t place) {
    if (!IsAt(pattern, anchor, text[place])) return {};
    std::size_t last = place;
    for (std::size_t i = anchor + 1; i < pattern.phrase.size(); ++i)
        for (++last; last >= text.size() || !IsAt(pattern, i, text[last]); ++last)
            if (last >= text.size() || EndsPhrase(text[last])) return {};
    std::size_t first = place;
    for (std::size_t i = anchor; i > 0; --i)  // decrementing 0 wraps past the size
        for (--first; first >= text.size() || !IsAt(pattern, i - 1, text[first]); --first)
            if (first >= text.size() || EndsPhrase(text[first])) return {};
    return {first, last};
}

template <typename Visit>
static void EachPhraseByteByByte(std::string_view text, const PhrasePattern& pattern, Visit visit) {
    for (std::size_t place = 0; place < text.size(); ++place) {
        const PhrasePlace found = PhraseAround(text, pattern, 0, place);
        if (found.first == kNoPlace) continue;
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
static void EachPhrase(std::string_view text, const PhrasePattern& pattern, Visit visit) {
    if (!pattern.phrase.empty()) EachPhraseByteByByte(text, pattern, visit);
}

#else

static WantedByte Want(char c, bool anyCase) {
    return {_mm_set1_epi8(c), _mm_set1_epi8(FoldOf(c, anyCase))};
}

static Block IsLetterOrHigh(Block bytes) {
    return _mm_or_si128(AreLetters(bytes), _mm_cmplt_epi8(bytes, _mm_setzero_si128()));
}

// Tests the places from `from` to `last` (at least 15), sixteen at a time: look(place, bits) gets the bits that
// test(place) returns, until it returns true. The last block ends at `last` so that nothing beyond is read; its places
// that were already tested are masked out.
template <typename Test, typename Look>
static void EachBlock(std::size_t from, std::size_t last, Test test, Look look) {
    const std::size_t lastBlock = last - (kBlockSize - 1);
    std::size_t place = from;
    for (; place <= lastBlock; place += kBlockSize)
        if (look(place, test(place))) return;
    if (place > last) return;
    const std::size_t done = place - lastBlock;
    look(lastBlock, test(lastBlock) >> done << done);
}

std::size_t FindInText(std::string_view text, std::string_view word, bool anyCase, std::size_t from) {
    const std::size_t size = word.size();
    if (text.size() < size + kBlockSize - 1) return FindByteByByte(text, word, anyCase, from);
    const WantedByte first = Want(word.front(), anyCase);
    const WantedByte last = Want(word.back(), anyCase);
    std::size_t found = kNoPlace;
    const auto test = [=](std::size_t place) {
        const char* here = text.data() + place;
        return Bits(_mm_and_si128(Is(Load(here), first), Is(Load(here + size - 1), last)));
    };
    EachBlock(from, text.size() - size, test, [&](std::size_t block, unsigned bits) {
        for (; bits != 0; bits &= bits - 1) {
            const std::size_t place = block + static_cast<std::size_t>(std::countr_zero(bits));
            if (size > 2 && !StandsAt(text, place, word, anyCase)) continue;
            found = place;
            return true;
        }
        return false;
    });
    return found;
}

// IsWholeWord for the sixteen places from `place` on. At the ends of the text there is no neighbour to check.
static Block AreWholeWords(std::string_view text, std::size_t place, std::size_t size) {
    const char* here = text.data() + place;
    const Block before = place == 0 ? _mm_slli_si128(Load(here), 1) : Load(here - 1);
    const bool atEnd = place + size + kBlockSize > text.size();
    const Block after = atEnd ? _mm_srli_si128(Load(here + size - 1), 1) : Load(here + size);
    const Block paragraph = _mm_cmpeq_epi8(before, _mm_set1_epi8(kParagraphMark));
    const Block letters = _mm_or_si128(_mm_andnot_si128(paragraph, IsLetterOrHigh(before)), IsLetterOrHigh(after));
    return _mm_andnot_si128(letters, _mm_set1_epi8('\xFF'));
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
    const auto placesAt = [&](std::size_t place) {
        const char* here = text.data() + place;
        Block places = _mm_and_si128(Is(Load(here), first), Is(Load(here + size - 1), last));
        if (Bits(places) == 0) return places;
        for (std::size_t i = 1; i + 1 < size; ++i)
            places = _mm_and_si128(places, Is(Load(here + i), Want(word[i], anyCase)));
        return wholeWords ? _mm_and_si128(places, AreWholeWords(text, place, size)) : places;
    };
    const std::size_t lastBlock = text.size() - size - (kBlockSize - 1);
    std::size_t place = 0;
    int count = 0;
    while (place <= lastBlock) {
        Block sums = _mm_setzero_si128();
        for (int blocks = 0; blocks < 255 && place <= lastBlock; ++blocks, place += kBlockSize)
            sums = _mm_sub_epi8(sums, placesAt(place));  // each match adds 1, and a byte holds up to 255
        count += SumOfBytes(sums);
    }
    const std::size_t done = place - lastBlock;  // places of the last block that are already counted
    if (done == kBlockSize) return count;
    const Block rest = _mm_andnot_si128(FirstBytes(done), placesAt(lastBlock));
    return count + SumOfBytes(_mm_sub_epi8(_mm_setzero_si128(), rest));
}

// Letters and spaces, which are never skipped in a phrase. Apostrophes are not included; a later exact check handles
// them.
static Block IsLetterOrBlank(Block bytes) {
    return _mm_or_si128(AreLetters(bytes), _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')));
}

// True where three consecutive bytes are true. The last two places are unknown and yield false, so they are not ruled
// out.
static Block AreThree(Block truths) {
    return _mm_and_si128(truths, _mm_and_si128(_mm_srli_si128(truths, 1), _mm_srli_si128(truths, 2)));
}

static WantedByte WantOf(const PhrasePattern& pattern, std::size_t i) {
    return {_mm_set1_epi8(pattern.phrase[i]), _mm_set1_epi8(pattern.folds[i])};
}

// Returns a test for the places of `text` where the anchor may begin.
static auto TestForAnchor(std::string_view text, const PhrasePattern& pattern, std::size_t reach) {
    const WantedByte first = WantOf(pattern, pattern.anchor);
    const WantedByte second = WantOf(pattern, pattern.anchor + 1);
    const WantedByte third = WantOf(pattern, pattern.anchor + reach);
    return [=](std::size_t place) {
        const char* here = text.data() + place;
        const Block next = Load(here + 1);
        const Block plain = IsLetterOrBlank(next);
        const Block wrongSecond = _mm_andnot_si128(Is(next, second), plain);
        const Block wrongThird = _mm_andnot_si128(Is(Load(here + reach), third), AreThree(plain));
        return Bits(_mm_andnot_si128(_mm_or_si128(wrongSecond, wrongThird), Is(Load(here), first)));
    };
}

// Can the phrase continue after an anchor at `here`? Of the fifteen bytes from `here` on, the first that differs must
// be one to skip, and the next byte to be kept must continue the phrase. Written without branches.
static bool MayGoOn(const PhrasePattern& pattern, const char* here) {
    const Block bytes = Load(here);
    const Block folded = _mm_or_si128(bytes, Load(pattern.restFolds.data()));
    const unsigned same = Bits(_mm_cmpeq_epi8(folded, Load(pattern.rest.data())));
    const unsigned kept = Bits(_mm_or_si128(IsLetterOrBlank(bytes), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\''))));
    const unsigned end = 1U << std::min(pattern.phrase.size() - pattern.anchor, kBlockSize - 1);
    const auto reached = static_cast<std::size_t>(std::countr_zero(~same | end));
    const unsigned keptBehind = kept >> reached;
    const auto passed = static_cast<std::size_t>(std::countr_zero(keptBehind | 1U << kBlockSize));
    const bool isWhole = end == 1U << reached;
    const bool goesOn = IsAt(pattern, pattern.anchor + reached, here[(reached + passed) % kBlockSize]);
    return (static_cast<int>(isWhole) | static_cast<int>(keptBehind == 0) | static_cast<int>(goesOn)) != 0;
}

// The anchor of common words is found in about every fifth block, and few of these belong to the phrase. The branch
// predictor cannot foresee which, and a misprediction costs more than a test. Therefore a stretch of text is tested and
// its anchors are sifted without branching on the outcome, before any place is checked exactly.
static constexpr std::size_t kStretch = 64 * kBlockSize;

namespace {

struct AnchorsOfBlock {
    std::size_t block;
    unsigned bits;
};

}  // namespace

// Stores in `places` the anchors around which the phrase may occur, and returns their number.
static std::size_t SiftAnchors(std::string_view text, const PhrasePattern& pattern,
                               std::span<const AnchorsOfBlock> anchors, std::span<std::size_t> places) {
    std::size_t count = 0;
    for (const AnchorsOfBlock& each : anchors)
        for (unsigned bits = each.bits; bits != 0; bits &= bits - 1) {
            const std::size_t place = each.block + static_cast<std::size_t>(std::countr_zero(bits));
            const bool isNearEnd = place + kBlockSize > text.size();
            places[count] = place;
            count += isNearEnd || MayGoOn(pattern, text.data() + place) ? 1 : 0;
        }
    return count;
}

template <typename Visit>
static void EachPhrase(std::string_view text, const PhrasePattern& pattern, Visit visit) {
    const std::size_t size = pattern.phrase.size();
    if (size == 0) return;
    if (size < 3 || text.size() < kBlockSize + 3) return EachPhraseByteByByte(text, pattern, visit);
    const std::size_t reach = ReachOfAnchor(pattern.phrase, pattern.anchor);
    const auto test = TestForAnchor(text, pattern, reach);
    const std::size_t last = text.size() - 1 - reach;
    std::array<AnchorsOfBlock, kStretch / kBlockSize> anchors;
    std::array<std::size_t, kStretch> places;
    std::size_t from = 0;
    for (std::size_t start = 0; start <= last; start += kStretch) {
        std::size_t blockCount = 0;
        EachBlock(start, std::min(last, start + kStretch - 1), test, [&](std::size_t block, unsigned bits) {
            anchors[blockCount] = {block, bits};
            blockCount += bits != 0 ? 1 : 0;
            return false;
        });
        const std::size_t count = SiftAnchors(text, pattern, {anchors.data(), blockCount}, places);
        for (const std::size_t place : std::span(places).first(count)) {
            const PhrasePlace found = PhraseAround(text, pattern, pattern.anchor, place);
            if (found.first == kNoPlace || found.first < from) continue;
            visit(found);
            from = found.last + 1;
        }
    }
}

#endif

void AppendPhrases(std::string_view text, const PhrasePattern& pattern, std::vector<PhrasePlace>& places) {
    EachPhrase(text, pattern, [&places](const PhrasePlace& place) { places.push_back(place); });
}

std::vector<PhrasePlace> PhrasesInText(std::string_view text, const PhrasePattern& pattern) {
    std::vector<PhrasePlace> places;
    AppendPhrases(text, pattern, places);
    return places;
}

int CountPhrasesInText(std::string_view text, const PhrasePattern& pattern) {
    int count = 0;
    EachPhrase(text, pattern, [&count](const PhrasePlace&) { ++count; });
    return count;
}
