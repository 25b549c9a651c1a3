#include <algorithm>
#include <array>
#include <bit>

#include "search/key_word_marks.h"
#include "search/text_blocks.h"
#include "search/verse_stretches.h"
#include "search/verse_sweep.h"

// A text with marks always contains the phrase; one that is too long to be marked completely may contain it without.
static void FindInVerse(const Scripture& scripture, const Query& query, std::int32_t verse, PhraseFinds& finds) {
    const std::string_view text = VerseText(scripture, verse);
    const int marks = CountKeyWords(query, text);
    if (marks == 0 && !ContainsPhrase(query, text)) return;
    finds.verses.push_back(verse);
    finds.occurrences += marks;
}

#ifndef VERSEWELL_USES_SSE2

PhraseFinds FindPhraseInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    PhraseFinds finds;
    for (const std::int32_t verse : verses) FindInVerse(scripture, query, verse, finds);
    return finds;
}

#else

namespace {

struct PhraseSweep {
    const PhrasePattern* pattern;
    WantedStart start;
    const char* behind = nullptr;  // the end of the phrase that was found last
};

}  // namespace

static unsigned KeptBytes(const char* place) {
    const Block bytes = Load(place);
    const Block blank = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '));
    const Block apostrophe = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\''));
    return Bits(_mm_or_si128(AreLetters(bytes), _mm_or_si128(blank, apostrophe)));
}

// May the phrase with its anchor at its place in the bytes from `place` on be longer there, because some are skipped?
static bool HasSkippedBytes(const PhraseSweep& sweep, const char* place) {
    if (sweep.pattern->phrase.size() > sweep.start.bytes.size()) return true;
    const unsigned kept = KeptBytes(place) | (sweep.start.isLong ? KeptBytes(place + kBlockSize) << kBlockSize : 0);
    return (~kept & sweep.start.wanted) != 0;
}

// The phrase that has its anchor at `anchor`; no place if there is none.
static PhrasePlace PhraseAt(const PhraseSweep& sweep, std::string_view text, const char* anchor) {
    const PhrasePattern& pattern = *sweep.pattern;
    const char* const place = anchor - pattern.anchor;
    const auto first = static_cast<std::size_t>(place - text.data());
    if (pattern.phrase.size() <= sweep.start.bytes.size() && StandsAt(sweep.start, place))
        return {first, first + pattern.phrase.size() - 1};
    if (!HasSkippedBytes(sweep, place)) return {};
    return PhraseAround(text, pattern, static_cast<std::size_t>(anchor - text.data()));
}

static void TakeHits(PhraseSweep& sweep, const Scripture& scripture, std::span<const HitBlock> hits,
                     PhraseFinds& finds) {
    const std::string_view text(scripture.text.data(), scripture.text.size());
    for (const HitBlock& hit : hits)
        for (unsigned bits = hit.bits; bits != 0; bits &= bits - 1) {
            const PhrasePlace found = PhraseAt(sweep, text, hit.place + std::countr_zero(bits));
            if (found.first == kNoPlace) continue;
            const bool isNew = finds.verses.empty() || finds.verses.back() != hit.verse;
            if (!isNew && text.data() + found.first < sweep.behind) continue;
            sweep.behind = text.data() + found.last + 1;
            if (isNew) finds.verses.push_back(hit.verse);
            ++finds.occurrences;
        }
}

PhraseFinds FindPhraseInVerses(const Scripture& scripture, const Query& query, std::span<const std::int32_t> verses) {
    const PhrasePattern& pattern = query.phrase;
    PhraseSweep sweep = {&pattern, StartOf(pattern.phrase, pattern.folds)};
    const auto wanted = [&pattern](std::size_t i) -> WantedByte {
        return {_mm_set1_epi8(pattern.phrase[i]), _mm_set1_epi8(pattern.folds[i])};
    };
    const Anchor anchor = {wanted(pattern.anchor), wanted(pattern.anchor + 1)};
    const Texts texts = TextsOf(scripture);
    PhraseFinds finds;
    finds.verses.reserve(verses.size());
    std::array<HitBlock, kHitBlocks> hits;
    HitBlock* next = hits.data();
    for (const std::int32_t verse : verses) {
        Stretch stretch;
        const bool isSwept = pattern.phrase.size() <= kAround && FindStretch(texts, verse, stretch);
        if (isSwept) next = Sift(anchor, stretch, verse, next);
        if (isSwept && next < hits.data() + kManyHits) continue;
        TakeHits(sweep, scripture, {hits.data(), next}, finds);
        next = hits.data();
        if (!isSwept) FindInVerse(scripture, query, verse, finds);
    }
    TakeHits(sweep, scripture, {hits.data(), next}, finds);
    return finds;
}

#endif
