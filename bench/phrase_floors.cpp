#include <algorithm>
#include <bit>

#include "bench/floor_sweep.h"
#include "bench/search_floors.h"

namespace {

struct AnchorLetters {
    WordEnds ends;
    std::ptrdiff_t beside;  // from the anchor to the letter beside
    Block letterBeside;
};

// A phrase, searched for by its rarest word (the first and the last letter of it) and the nearest letter of the word
// beside it. In the text, any bytes but letters, spaces and apostrophes may stand between those of the phrase; a zero
// byte ends a verse.
struct WantedPhrase {
    std::string phrase;
    std::ptrdiff_t anchor = 0;  // where the rarest word begins
    AnchorLetters letters;
    std::array<char, 2 *kBlockSize> start = {}, startFolds = {};
    unsigned startBits = 0;
};

struct PhraseHit {
    const char* place;
    unsigned bits;
    std::int32_t verse;
};

// Where the phrase may begin: it stands there, or there are bytes that may stand between those of the phrase.
struct PhraseCandidate {
    const char* place;
    std::int32_t verse;
    bool stands;
};

struct Matches {
    std::array<std::int32_t, 0x10000> verses;
    std::size_t count = 0;
};

}  // namespace

static std::array<PhraseHit, 2048> thePhraseHits;
static PhraseHit* const kPhraseHitsAreMany =
    thePhraseHits.data() + thePhraseHits.size() - kLongestVerse / kBlockSize - 1;
static Matches theMatches;

static bool IsKept(char c) {
    return kIsLetter[static_cast<unsigned char>(c)] || c == ' ' || c == '\'';
}

static char LoweredLetter(char c) {
    return static_cast<char>(kIsLetter[static_cast<unsigned char>(c)] ? c | 0x20 : c);
}

static std::size_t RarestOf(const std::vector<List>& lists) {
    const auto isShorter = [](const List& one, const List& other) { return SizeOf(one) < SizeOf(other); };
    return static_cast<std::size_t>(std::min_element(lists.begin(), lists.end(), isShorter) - lists.begin());
}

static WantedPhrase WantPhrase(const std::vector<std::string>& words, std::size_t rarest) {
    WantedPhrase wanted;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (i > 0) wanted.phrase += ' ';
        if (i == rarest) wanted.anchor = static_cast<std::ptrdiff_t>(wanted.phrase.size());
        wanted.phrase += words[i];
    }
    const bool isLast = rarest + 1 == words.size();
    wanted.letters = {EndsOf(words[rarest]), isLast ? -2 : static_cast<std::ptrdiff_t>(words[rarest].size()) + 1,
                      _mm_set1_epi8(isLast ? words[rarest - 1].back() : words[rarest + 1].front())};
    const std::size_t size = wanted.phrase.copy(wanted.start.data(), wanted.start.size());
    for (std::size_t i = 0; i < size; ++i) wanted.startFolds[i] = wanted.start[i] == ' ' ? 0 : 0x20;
    wanted.startBits = static_cast<unsigned>((std::uint64_t{1} << size) - 1);
    return wanted;
}

VERSEWELL_FLOOR static unsigned MayAnchorAt(const AnchorLetters& wanted, const char* place) {
    const Block first = _mm_cmpeq_epi8(Lowered(place), wanted.ends.first);
    const Block last = _mm_cmpeq_epi8(Lowered(place + wanted.ends.reach), wanted.ends.last);
    const Block beside = Load(place + wanted.beside);
    const Block same = _mm_cmpeq_epi8(_mm_or_si128(beside, _mm_set1_epi8(0x20)), wanted.letterBeside);
    return Bits(_mm_andnot_si128(_mm_andnot_si128(same, AreLetters(beside)), _mm_and_si128(first, last)));
}

VERSEWELL_FLOOR static unsigned MayAnchorInTwo(const AnchorLetters& wanted, const char* place) {
    return MayAnchorAt(wanted, place) | MayAnchorAt(wanted, place + kBlockSize) << kBlockSize;
}

// Walks from the anchor to the end of the phrase and to its beginning. Returns the phrase's place, or null.
static const char* WalkPhrase(const WantedPhrase& wanted, const char* anchor) {
    if ((*anchor | 0x20) != wanted.phrase[static_cast<std::size_t>(wanted.anchor)]) return nullptr;
    const char* last = anchor;
    for (auto i = static_cast<std::size_t>(wanted.anchor) + 1; i < wanted.phrase.size(); ++i)
        for (++last; LoweredLetter(*last) != wanted.phrase[i]; ++last)
            if (IsKept(*last) || *last == '\0') return nullptr;
    const char* first = anchor;
    for (auto i = static_cast<std::size_t>(wanted.anchor); i > 0; --i)
        for (--first; LoweredLetter(*first) != wanted.phrase[i - 1]; --first)
            if (IsKept(*first) || *first == '\0') return nullptr;
    return first;
}

VERSEWELL_FLOOR static unsigned SameAsPhrase(const WantedPhrase& wanted, const char* place, std::size_t from) {
    const Block bytes = _mm_or_si128(Load(place + from), Load(wanted.startFolds.data() + from));
    return Bits(_mm_cmpeq_epi8(bytes, Load(wanted.start.data() + from))) << from;
}

VERSEWELL_FLOOR static unsigned KeptBytes(const char* place) {
    const Block bytes = Load(place);
    const Block others =
        _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\'')));
    return Bits(_mm_or_si128(AreLetters(bytes), others));
}

// Keeps the hits where the phrase may begin, without branches on what is there. Returns their end.
VERSEWELL_FLOOR static PhraseCandidate* CandidatesOf(const WantedPhrase& wanted, const PhraseHit* end,
                                                     PhraseCandidate* next) {
    const bool isLong = wanted.phrase.size() > kBlockSize, isLonger = wanted.phrase.size() > wanted.start.size();
    const unsigned startBits = wanted.startBits;
    const std::ptrdiff_t anchor = wanted.anchor;
    for (const PhraseHit* hit = thePhraseHits.data(); hit < end; ++hit)
        for (unsigned bits = hit->bits; bits != 0; bits &= bits - 1) {
            const char* const place = hit->place + std::countr_zero(bits) - anchor;
            const unsigned same =
                SameAsPhrase(wanted, place, 0) | (isLong ? SameAsPhrase(wanted, place, kBlockSize) : 0);
            const unsigned kept = KeptBytes(place) | (isLong ? KeptBytes(place + kBlockSize) << kBlockSize : 0);
            *next = {place, hit->verse, (same & startBits) == startBits && !isLonger};
            next += static_cast<int>((same & startBits) == startBits) | static_cast<int>((~kept & startBits) != 0) |
                    static_cast<int>(isLonger);
        }
    return next;
}

// Adds the verse of each phrase to the matches. A phrase that overlaps the one before does not count.
template <typename VerseOf>
static void MatchHits(const WantedPhrase& wanted, const PhraseHit* end, VerseOf verseOf) {
    static std::array<PhraseCandidate, thePhraseHits.size() * 2 * kBlockSize> candidates;
    const PhraseCandidate* const behindCandidates = CandidatesOf(wanted, end, candidates.data());
    const char* behind = nullptr;
    for (const PhraseCandidate* candidate = candidates.data(); candidate < behindCandidates; ++candidate) {
        const char* const place =
            candidate->stands ? candidate->place : WalkPhrase(wanted, candidate->place + wanted.anchor);
        if (place == nullptr || place < behind) continue;
        behind = place + wanted.phrase.size();
        theMatches.verses[theMatches.count++] = verseOf(candidate->verse, place);
    }
}

VERSEWELL_FLOOR static PhraseHit* KeepPhraseHit(PhraseHit* next, const char* place, unsigned bits, std::int32_t verse) {
    *next = {place, bits, verse};
    return next + (bits != 0 ? 1 : 0);
}

FloorAnswer FloorOfPhraseByList(const FloorText& text, const std::vector<std::string>& words) {
    std::vector<List> lists = ListsOf(text, words);
    const WantedPhrase wanted = WantPhrase(words, RarestOf(lists));
    const auto verseOf = [](std::int32_t verse, const char*) { return verse; };
    const AnchorLetters letters = wanted.letters;
    PhraseHit* next = thePhraseHits.data();
    theMatches.count = 0;
    SortBySize(lists);
    std::size_t candidates = TakeVersesOf(lists.front());
    std::size_t used = 1;
    for (; used < lists.size() && !IsMuchLonger(lists[used], candidates); ++used)
        candidates = KeepByMarks(lists[used], theVerses.data(), candidates);
    for (const std::int32_t verse : std::span(theVerses.data(), candidates)) {
        const Stretch stretch = WithBytesAround(text, TextsOf(text, verse, verse + 1));
        const char* place = stretch.begin;
        for (; place + 2 * kBlockSize < stretch.end; place += 2 * kBlockSize)
            next = KeepPhraseHit(next, place, MayAnchorInTwo(letters, place), verse);
        const auto before = static_cast<unsigned>((std::uint64_t{1} << (stretch.end - place)) - 1);
        next = KeepPhraseHit(next, place, MayAnchorInTwo(letters, place) & before, verse);
        if (next < kPhraseHitsAreMany) continue;
        MatchHits(wanted, next, verseOf);
        next = thePhraseHits.data();
    }
    MatchHits(wanted, next, verseOf);
    for (; used < lists.size(); ++used)  // few verses are left
        theMatches.count = KeepByHalving(lists[used], theMatches.verses.data(), theMatches.count);
    std::size_t count = 0;
    for (std::size_t i = 0; i < theMatches.count; ++i) {
        const bool isNew = i == 0 || theMatches.verses[i] != theMatches.verses[i - 1];
        theVerses[count] = theMatches.verses[i];
        count += isNew ? 1 : 0;
    }
    return {{theVerses.data(), count}, static_cast<int>(theMatches.count)};
}

FloorAnswer FloorOfPhraseBySweep(const FloorText& text, const std::vector<std::string>& words) {
    const std::vector<List> lists = ListsOf(text, words);
    const WantedPhrase wanted = WantPhrase(words, RarestOf(lists));
    static VerseMarks marks;
    marks.fill(0);
    for (const List& list : lists)
        for (const std::uint16_t* entry = list.begin; entry < list.end; ++entry) ++marks[*entry];
    const AnchorLetters letters = wanted.letters;
    static constexpr int kCuts[] = {0, 1, kLastVerse, kVerseCount};  // the first and the last verse by themselves
    theMatches.count = 0;
    for (int i = 0; i < 3; ++i) {
        int verse = kCuts[i];
        const Stretch all = TextsOf(text, verse, kCuts[i + 1]);
        const Stretch stretch = WithBytesAround(text, all);
        const char* behindVerse = stretch.begin == all.begin ? StartOf(text, verse + 1) : stretch.end + 1;
        const auto verseOf = [&](std::int32_t, const char* place) {
            while (behindVerse <= place) behindVerse = StartOf(text, ++verse + 1);
            return verse;
        };
        PhraseHit* next = thePhraseHits.data();
        for (const char* place = stretch.begin; place < stretch.end; place += 2 * kBlockSize) {
            next = KeepPhraseHit(next, place, MayAnchorInTwo(letters, place), 0);
            if (next < kPhraseHitsAreMany) continue;
            MatchHits(wanted, next, verseOf);
            next = thePhraseHits.data();
        }
        MatchHits(wanted, next, verseOf);
    }
    std::size_t count = 0;
    int occurrences = 0;
    for (const std::int32_t verse : std::span(theMatches.verses.data(), theMatches.count)) {
        const bool isListed = marks[static_cast<std::size_t>(verse)] == lists.size();
        theVerses[count] = verse;
        count += isListed && (count == 0 || theVerses[count - 1] != verse) ? 1 : 0;
        occurrences += isListed ? 1 : 0;
    }
    return {{theVerses.data(), count}, occurrences};
}
