#include "search/verse_sweep.h"

#include <algorithm>
#include <array>
#include <bit>

#include "scripture/letters.h"
#include "search/key_word_marks.h"
#include "search/text_blocks.h"
#include "search/verse_stretches.h"

static int CountVerseByVerse(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    int count = 0;
    for (const std::int32_t verse : verses) count += CountKeyWords(query, VerseText(scripture, verse));
    return count;
}

#ifndef VERSEWELL_USES_SSE2

int CountWordsInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    return CountVerseByVerse(scripture, query, verses);
}

#else

static int SumOfHalves(Block halves) {
    return _mm_cvtsi128_si32(halves) + _mm_cvtsi128_si32(_mm_srli_si128(halves, 8));
}

// ---- Words of up to three letters in plain texts
// ---------------------------------------------------------------------

// They stand in nearly every block, so each block is examined completely.
namespace {

template <std::size_t kSize>
struct ShortWord {
    Block letters[kSize];
    Block fold;
};

}  // namespace

template <std::size_t kSize, bool kWhole>
VERSEWELL_BLOCKWISE static Block HitsAt(const ShortWord<kSize>& word, const char* place) {
    Block words = _mm_cmpeq_epi8(_mm_or_si128(Load(place), word.fold), word.letters[0]);
    for (std::size_t i = 1; i < kSize; ++i)
        words = _mm_and_si128(words, _mm_cmpeq_epi8(_mm_or_si128(Load(place + i), word.fold), word.letters[i]));
    if (!kWhole) return words;
    return _mm_andnot_si128(_mm_or_si128(AreLetters(Load(place - 1)), AreLetters(Load(place + kSize))), words);
}

// Adds the number of words in the stretch to the halves of `total`.
template <std::size_t kSize, bool kWhole>
VERSEWELL_BLOCKWISE static void CountShort(const ShortWord<kSize>& word, Stretch stretch, Block& total) {
    static constexpr std::ptrdiff_t kMost = 250 * kBlockSize;  // a byte counts up to 255 words
    for (const char* place = stretch.begin; place < stretch.end;) {
        const char* const end = stretch.end - place > kMost ? place + kMost : stretch.end;
        Block sums = _mm_setzero_si128();
        for (; end - place >= static_cast<std::ptrdiff_t>(kBlockSize); place += kBlockSize)
            sums = _mm_sub_epi8(sums, HitsAt<kSize, kWhole>(word, place));
        if (place < end) {
            const Block rest = FirstBytes(static_cast<std::size_t>(end - place));
            sums = _mm_sub_epi8(sums, _mm_and_si128(HitsAt<kSize, kWhole>(word, place), rest));
        }
        place = end;
        total = _mm_add_epi64(total, _mm_sad_epu8(sums, _mm_setzero_si128()));
    }
}

template <std::size_t kSize, bool kWhole>
VERSEWELL_APART static int CountShortIn(std::span<const Stretch> stretches, const ShortWord<kSize>& wanted) {
    const ShortWord<kSize> word = wanted;
    Block total = _mm_setzero_si128();
    for (const Stretch& stretch : stretches) CountShort<kSize, kWhole>(word, stretch, total);
    return SumOfHalves(total);
}

// Neighbouring verses are counted in one stretch. A paragraph mark, the only byte of theirs above 0x7F, is no letter
// for the word behind it. Both counts append the same verses to `others`: those that cannot be
// swept.
template <std::size_t kSize, bool kWhole>
static int CountShortWord(const Scripture& scripture, std::string_view letters, bool anyCase,
                          std::span<const std::int32_t> verses, std::vector<std::int32_t>& others) {
    ShortWord<kSize> word;
    for (std::size_t i = 0; i < kSize; ++i) word.letters[i] = _mm_set1_epi8(letters[i]);
    word.fold = _mm_set1_epi8(anyCase ? 0x20 : 0);
    const Texts texts = TextsOf(scripture);
    std::array<Stretch, 256> stretches;
    std::size_t found = 0;
    int count = 0;
    for (std::size_t i = 0; i < verses.size();) {
        const std::int32_t verse = verses[i++];
        if (KindOf(texts, verse) == 0) {
            if (Stretch stretch; !FindCheckedStretch(texts, verse, stretch))
                others.push_back(verse);
            else
                count += CountInText({stretch.begin, stretch.end}, letters, anyCase, kWhole);
            continue;
        }
        std::int32_t behind = verse + 1;
        for (; i < verses.size() && verses[i] == behind && KindOf(texts, behind) != 0; ++i) ++behind;
        stretches[found++] = PlainStretch(texts, verse, behind);
        if (found < stretches.size()) continue;
        count += CountShortIn<kSize, kWhole>(stretches, word);
        found = 0;
    }
    return count + CountShortIn<kSize, kWhole>(std::span(stretches).first(found), word);
}

// ---- Longer words ---------------------------------------------------------------------------------------------------

namespace {

// Is a byte a letter for the word behind it, or for the word before it?
struct Neighbours {
    std::array<bool, 256> before, behind;
};

struct LongWord {
    WantedStart start;
    std::size_t size;
    bool whole;
};

}  // namespace

static constexpr Neighbours kNeighbours = [] {
    Neighbours neighbours = {};
    for (std::size_t byte = 0; byte < neighbours.before.size(); ++byte) {
        neighbours.behind[byte] = byte >= 0x80 || IsLetter(static_cast<char>(byte));
        neighbours.before[byte] = neighbours.behind[byte] && byte != static_cast<unsigned char>(kParagraphMark);
    }
    return neighbours;
}();

VERSEWELL_BLOCKWISE static bool IsApart(const char* place, std::size_t size) {
    const bool before = kNeighbours.before[static_cast<unsigned char>(place[-1])];
    const bool behind = kNeighbours.behind[static_cast<unsigned char>(place[size])];
    return (static_cast<int>(before) | static_cast<int>(behind)) == 0;
}

static int CountHits(const LongWord& word, std::span<const HitBlock> hits) {
    int count = 0;
    for (const HitBlock& hit : hits)
        for (unsigned bits = hit.bits; bits != 0; bits &= bits - 1) {
            const char* const place = hit.place + std::countr_zero(bits);
            const bool isFree = !word.whole || IsApart(place, word.size);
            count += static_cast<int>(StandsAt(word.start, place)) & static_cast<int>(isFree);
        }
    return count;
}

static int CountLongWord(const Scripture& scripture, std::string_view letters, bool anyCase, bool whole,
                         std::span<const std::int32_t> verses, std::vector<std::int32_t>& others) {
    const std::string folds = FoldsOf(letters, anyCase);
    const LongWord word = {StartOf(letters, folds), letters.size(), whole};
    const WordEnds ends = EndsOf(letters, folds);
    const Texts texts = TextsOf(scripture);
    std::array<HitBlock, kHitBlocks> hits;
    HitBlock* next = hits.data();
    int count = 0;
    for (const std::int32_t verse : verses) {
        Stretch stretch;
        if (!FindStretch(texts, verse, stretch)) {
            others.push_back(verse);
            continue;
        }
        next = Sift(ends, stretch, verse, next);
        if (next < hits.data() + kManyHits) continue;
        count += CountHits(word, {hits.data(), next});
        next = hits.data();
    }
    return count + CountHits(word, {hits.data(), next});
}

// ---- All words of the query -----------------------------------------------------------------------------------------

template <bool kWhole>
static int CountWord(const Scripture& scripture, std::string_view word, bool anyCase,
                     std::span<const std::int32_t> verses, std::vector<std::int32_t>& others) {
    const bool isOfLetters = word.find('\'') == std::string_view::npos;
    const bool isShort = isOfLetters && !scripture.textKinds.empty();
    switch (isShort ? word.size() : 0) {
        case 1: return CountShortWord<1, kWhole>(scripture, word, anyCase, verses, others);
        case 2: return CountShortWord<2, kWhole>(scripture, word, anyCase, verses, others);
        case 3: return CountShortWord<3, kWhole>(scripture, word, anyCase, verses, others);
        default: return CountLongWord(scripture, word, anyCase, kWhole, verses, others);
    }
}

// Can the words be counted one by one? Their marks must not meet, and all have to fit into the marked text of a verse:
// a whole word has another byte behind it, part of a word may be one byte.
static bool CountsOneByOne(const Query& query) {
    const std::size_t mostBytesOfMarks = query.words.size() * (query.substring ? 2 * kLongestSwept : kLongestSwept + 1);
    return query.marksStayApart && mostBytesOfMarks < kMarkedTextLimit - kLongestSwept &&
           std::all_of(query.words.begin(), query.words.end(),
                       [](const std::string& word) { return word.size() <= kLongestStart; });
}

int CountWordsInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    if (!CountsOneByOne(query)) return CountVerseByVerse(scripture, query, verses);
    std::vector<std::int32_t> others, again;
    int count = 0;
    for (const std::string& word : query.words) {
        std::vector<std::int32_t>& unswept = &word == &query.words.front() ? others : again;
        const bool anyCase = !query.caseSensitive;
        count += query.substring ? CountWord<false>(scripture, word, anyCase, verses, unswept)
                                 : CountWord<true>(scripture, word, anyCase, verses, unswept);
    }
    return count + CountVerseByVerse(scripture, query, others);
}

#endif
