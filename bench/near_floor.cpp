#include <algorithm>
#include <bit>

#include "bench/floor_sweep.h"
#include "bench/search_floors.h"

namespace {

struct WantedNear {
    WordEnds ends;
    Block start;
    unsigned startBits;
    std::size_t size;
};

struct Event {
    const char* place;
    int word;   // 0 or 1
    int where;  // in words
};

}  // namespace

static WantedNear WantNear(std::string_view word) {
    std::array<char, kBlockSize> start = {};
    const std::size_t size = word.copy(start.data(), start.size());
    return {EndsOf(word), Load(start.data()), (1U << size) - 1, size};
}

VERSEWELL_FLOOR static bool IsOfWord(char c) {
    return kIsLetter[static_cast<unsigned char>(c)] | (c == '\'');
}

VERSEWELL_FLOOR static bool IsThere(const WantedNear& wanted, const char* place) {
    const unsigned same = Bits(_mm_cmpeq_epi8(Lowered(place), wanted.start)) & wanted.startBits;
    return (same == wanted.startBits) & !IsOfWord(place[-1]) & !IsOfWord(place[wanted.size]);
}

VERSEWELL_FLOOR static Block AreOfWord(const char* place) {
    return _mm_or_si128(AreLetters(Load(place)), _mm_cmpeq_epi8(Load(place), _mm_set1_epi8('\'')));
}

// Number of words that begin behind `from`, up to `to`.
VERSEWELL_FLOOR static int WordsBetween(const char* from, const char* to) {
    Block sums = _mm_setzero_si128();
    const char* place = from + 1;
    for (; to - place >= kBlockSize; place += kBlockSize)
        sums = _mm_sub_epi8(sums, _mm_andnot_si128(AreOfWord(place - 1), AreOfWord(place)));
    const unsigned rest = Bits(_mm_andnot_si128(AreOfWord(place - 1), AreOfWord(place))) & BitsBefore(to + 1 - place);
    const Block halves = _mm_sad_epu8(sums, _mm_setzero_si128());
    return _mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4) + std::popcount(rest);
}

// The places of both words in the text; returns their end.
VERSEWELL_FLOOR static Event* EventsIn(const WantedNear (&wanted)[2], Stretch stretch, Event* next) {
    for (const char* place = stretch.begin; place < stretch.end; place += kBlockSize) {
        const unsigned within = BitsBefore(std::min(stretch.end - place, kBlockSize));
        const unsigned second = MayBeginAt(wanted[1].ends, place);
        for (unsigned bits = (MayBeginAt(wanted[0].ends, place) | second) & within; bits != 0; bits &= bits - 1) {
            const int at = std::countr_zero(bits);
            const int word = static_cast<int>(second >> at & 1U);
            *next = {place + at, word, 0};
            next += IsThere(wanted[word], place + at) ? 1 : 0;
        }
    }
    return next;
}

// The number of places that have the other word at most `distance` words away.
VERSEWELL_FLOOR static int CountNear(Event* begin, const Event* end, int distance) {
    static constexpr int kNever = -1000;
    int last[2] = {kNever, kNever}, count = 0;
    for (Event* event = begin; event < end; ++event) {
        event->where = event == begin ? 0 : event[-1].where + WordsBetween(event[-1].place, event->place);
        last[event->word] = event->where;
        if (event->where - last[1 - event->word] <= distance) {
            ++count;
            event->word += 2;  // counted
        }
    }
    int next[2] = {-kNever, -kNever};
    for (const Event* event = end; event-- > begin;) {
        next[event->word & 1] = event->where;
        count += static_cast<int>(event->word < 2) &
                 static_cast<int>(next[1 - (event->word & 1)] - event->where <= distance);
    }
    return count;
}

FloorAnswer FloorOfNearWords(const FloorText& text, const std::vector<std::string>& words, int distance) {
    const WantedNear wanted[2] = {WantNear(words[0]), WantNear(words[1])};
    std::vector<List> lists = ListsOf(text, words);
    SortBySize(lists);
    std::size_t count = TakeVersesOf(lists[0]);
    count = IsMuchLonger(lists[1], count) ? KeepByHalving(lists[1], theVerses.data(), count)
                                          : KeepByMarks(lists[1], theVerses.data(), count);
    std::array<Event, kLongestVerse> events;
    std::size_t found = 0;
    int occurrences = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t verse = theVerses[i];
        const Stretch stretch = WithBytesAround(text, TextsOf(text, verse, verse + 1));
        const int here = CountNear(events.data(), EventsIn(wanted, stretch, events.data()), distance);
        occurrences += here;
        theVerses[found] = verse;
        found += here > 0 ? 1 : 0;
    }
    return {{theVerses.data(), found}, occurrences};
}
