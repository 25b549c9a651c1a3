#include <algorithm>
#include <array>
#include <bit>

#include "scripture/letters.h"
#include "search/key_word_marks.h"
#include "search/text_blocks.h"
#include "search/verse_stretches.h"
#include "search/verse_sweep.h"

// Counts the phrase in the verse. A text with marks always contains it; one that is too long to be marked completely
// may contain it without.
static bool IsInVerse(const Scripture& scripture, const Query& query, std::int32_t verse, int& occurrences) {
    const std::string_view text = VerseText(scripture, verse);
    const int marks = CountKeyWords(query, text);
    occurrences += marks;
    return marks > 0 || ContainsPhrase(query, text);
}

#ifndef VERSEWELL_USES_SSE2

PhraseFinds FindPhraseInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses,
                               std::size_t) {
    PhraseFinds finds;
    for (const std::int32_t verse : verses)
        if (IsInVerse(scripture, query, verse, finds.occurrences)) finds.verses.push_back(verse);
    return finds;
}

#else

namespace {

struct PhraseSweep {
    const PhrasePattern* pattern;
    std::size_t anchor;  // the place in the phrase of what is swept for
    WantedStart start;
    const Scripture* scripture;
    PhraseFinds* finds;
    std::size_t found = 0;         // number of verses in `finds`
    const char* behind = nullptr;  // the end of the phrase that was found last
};

// Where the phrase may begin.
struct PhraseStart {
    const char* place;
    std::int32_t verse;
    bool isWhole;  // all of it stands there, with nothing between
};

}  // namespace

VERSEWELL_BLOCKWISE static unsigned KeptBytes(const char* place) {
    const Block bytes = Load(place);
    const Block blank = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '));
    const Block apostrophe = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\''));
    return Bits(_mm_or_si128(AreLetters(bytes), _mm_or_si128(blank, apostrophe)));
}

// May the phrase be longer in the bytes from `place` on, because some are skipped?
VERSEWELL_BLOCKWISE static bool HasSkippedBytes(const WantedStart& start, const char* place) {
    const unsigned kept = KeptBytes(place) | (start.isLong ? KeptBytes(place + kBlockSize) << kBlockSize : 0);
    return (~kept & start.wanted) != 0;
}

VERSEWELL_APART static void TakeStarts(PhraseSweep& sweep, std::span<const PhraseStart> starts) {
    const PhrasePattern& pattern = *sweep.pattern;
    const std::string_view text(sweep.scripture->text.data(), sweep.scripture->text.size());
    for (const PhraseStart& start : starts) {
        const auto first = static_cast<std::size_t>(start.place - text.data());
        const PhrasePlace found = start.isWhole ? PhrasePlace{first, first + pattern.phrase.size() - 1}
                                                : PhraseAround(text, pattern, sweep.anchor, first + sweep.anchor);
        if (found.first == kNoPlace || text.data() + found.first < sweep.behind) continue;
        std::vector<std::int32_t>& verses = sweep.finds->verses;
        sweep.behind = text.data() + found.last + 1;
        verses[sweep.found] = start.verse;
        sweep.found += sweep.found == 0 || verses[sweep.found - 1] != start.verse ? 1 : 0;
        ++sweep.finds->occurrences;
    }
}

// Sifts the hits without branches on what stands there, before each that is left is looked at.
VERSEWELL_APART static void TakeHits(PhraseSweep& sweep, std::span<const HitBlock> hits) {
    static constexpr std::size_t kManyStarts = 512;
    std::array<PhraseStart, kManyStarts + kBlockSize> starts;
    const WantedStart start = sweep.start;
    const std::size_t anchor = sweep.anchor;
    const bool isLonger = sweep.pattern->phrase.size() > start.bytes.size();
    std::size_t count = 0;
    for (const HitBlock& hit : hits) {
        for (unsigned bits = hit.bits; bits != 0; bits &= bits - 1) {
            const char* const place = hit.place + std::countr_zero(bits) - anchor;
            const bool stands = StandsAt(start, place), isSkipped = HasSkippedBytes(start, place);
            starts[count] = {place, hit.verse, stands && !isLonger};
            count += static_cast<std::size_t>(stands | isSkipped | isLonger);
        }
        if (count < kManyStarts) continue;
        TakeStarts(sweep, {starts.data(), count});
        count = 0;
    }
    TakeStarts(sweep, {starts.data(), count});
}

static Block Wanted(const PhrasePattern& pattern, std::size_t place) {
    return _mm_set1_epi8(LowerCased(pattern.phrase[place]));
}

static std::size_t PlaceOfWord(const Query& query, std::size_t word) {
    std::size_t place = 0;
    for (std::size_t i = 0; i < word; ++i) place += query.words[i].size() + 1;
    return place;
}

static WordOfPhrase WordOfPhraseAt(const Query& query, std::size_t word, std::size_t place) {
    const auto size = static_cast<std::ptrdiff_t>(query.words[word].size());
    const std::ptrdiff_t toBeside = word + 1 < query.words.size() ? size + 1 : -2;
    const auto wanted = [&](std::ptrdiff_t from) {
        return Wanted(query.phrase, static_cast<std::size_t>(static_cast<std::ptrdiff_t>(place) + from));
    };
    return {wanted(0), wanted(size - 1), wanted(toBeside), size - 1, toBeside};
}

VERSEWELL_APART static HitBlock* SiftByPair(const PhraseSweep& sweep, Stretch stretch, std::int32_t verse,
                                            HitBlock* next) {
    const PairOfPhrase pair = {Wanted(*sweep.pattern, sweep.anchor), Wanted(*sweep.pattern, sweep.anchor + 1)};
    return Sift(pair, stretch, verse, next);
}

PhraseFinds FindPhraseInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses,
                               std::size_t rarestWord) {
    const PhrasePattern& pattern = query.phrase;
    PhraseFinds finds{std::vector<std::int32_t>(verses.size() + 1)};
    if (PlaceOfWord(query, rarestWord) + 1 == pattern.phrase.size()) --rarestWord;  // a last letter has none behind it
    const std::size_t place = PlaceOfWord(query, rarestWord);
    PhraseSweep sweep = {&pattern, place, StartOf(pattern.phrase, pattern.folds), &scripture, &finds};
    const WordOfPhrase word = WordOfPhraseAt(query, rarestWord, place);
    const Texts texts = TextsOf(scripture);
    const bool isShort = pattern.phrase.size() <= kAround;
    std::array<HitBlock, kHitBlocks> hits;
    HitBlock* next = hits.data();
    for (const std::int32_t verse : verses) {
        Stretch stretch;
        const bool isSwept = isShort && FindStretch(texts, verse, stretch);
        if (isSwept && (KindOf(texts, verse) & kPlainWords) != 0)
            next = Sift(word, stretch, verse, next);
        else if (isSwept)
            next = SiftByPair(sweep, stretch, verse, next);
        if (isSwept && next < hits.data() + kManyHits) continue;
        TakeHits(sweep, {hits.data(), next});
        next = hits.data();
        if (isSwept || !IsInVerse(scripture, query, verse, finds.occurrences)) continue;
        finds.verses[sweep.found++] = verse;
    }
    TakeHits(sweep, {hits.data(), next});
    finds.verses.resize(sweep.found);
    return finds;
}

#endif
