#include "bench/search_floors.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "bench/floor_sweep.h"

FloorText FloorTextOf(const Scripture& scripture, const WordIndex& index) {
    return {scripture.text.data(), scripture.text.data() + scripture.text.size(), scripture.records.bytes.data(),
            &index};
}

// ---- Words in texts -------------------------------------------------------------------------------------------------

namespace {

// A word to count, and whether it has to be a whole word.
struct WantedWord {
    WordEnds ends;
    Block start;
    std::string_view word;
    unsigned startBits;
    bool whole;
};

struct HitBlock {
    const char* place;
    unsigned bits;
};

}  // namespace

// Blocks where the word may begin, to be looked at later: the sweep does not branch on them.
static std::array<HitBlock, 2048> theHits;
static HitBlock* const kHitsAreMany = theHits.data() + theHits.size() - kLongestVerse / kBlockSize - 1;

static WantedWord Want(std::string_view word, bool whole) {
    WantedWord wanted = {EndsOf(word), {}, word, 0, whole};
    std::array<char, kBlockSize> start = {};
    const std::size_t size = word.copy(start.data(), start.size());
    wanted.start = Load(start.data());
    wanted.startBits = (1U << size) - 1;
    return wanted;
}

VERSEWELL_FLOOR static bool IsWordAt(const WantedWord& wanted, const char* place) {
    const unsigned same = Bits(_mm_cmpeq_epi8(Lowered(place), wanted.start)) & wanted.startBits;
    const bool apart = !wanted.whole || (!IsLetterAt(place - 1) & !IsLetterAt(place + wanted.word.size())) != 0;
    return (same == wanted.startBits) & apart;
}

static int CountHits(const WantedWord& wanted, const HitBlock* end) {
    int count = 0;
    for (const HitBlock* hit = theHits.data(); hit < end; ++hit)
        for (unsigned bits = hit->bits; bits != 0; bits &= bits - 1)
            count += IsWordAt(wanted, hit->place + std::countr_zero(bits)) ? 1 : 0;
    return count;
}

VERSEWELL_FLOOR static HitBlock* KeepHit(HitBlock* next, const char* place, unsigned bits) {
    *next = {place, bits};
    return next + (bits != 0 ? 1 : 0);
}

// Appends the blocks of the stretch where the word may begin.
VERSEWELL_FLOOR static HitBlock* Sift(const WordEnds& ends, Stretch stretch, HitBlock* next) {
    const char* place = stretch.begin;
    for (; place + kBlockSize < stretch.end; place += kBlockSize) next = KeepHit(next, place, MayBeginAt(ends, place));
    return KeepHit(next, place, MayBeginAt(ends, place) & BitsBefore(stretch.end - place));
}

namespace {

template <std::size_t kSize>
struct ShortWord {
    Block letters[kSize];
};

}  // namespace

// Whole words, found without looking at hits later: that is faster where nearly every block has one.
template <std::size_t kSize, bool kWhole>
VERSEWELL_FLOOR static Block AreShortWords(const ShortWord<kSize>& word, const char* place) {
    Block words = _mm_cmpeq_epi8(Lowered(place), word.letters[0]);
    for (std::size_t i = 1; i < kSize; ++i)
        words = _mm_and_si128(words, _mm_cmpeq_epi8(Lowered(place + i), word.letters[i]));
    if (!kWhole) return words;
    return _mm_andnot_si128(_mm_or_si128(AreLetters(Load(place - 1)), AreLetters(Load(place + kSize))), words);
}

VERSEWELL_FLOOR static Block FirstBytes(std::ptrdiff_t count) {
    static constexpr std::array<char, 2 * kBlockSize> kBytes = [] {
        std::array<char, 2 * kBlockSize> bytes = {};
        for (std::size_t i = 0; i < kBlockSize; ++i) bytes[i] = '\xFF';
        return bytes;
    }();
    return Load(kBytes.data() + kBlockSize - count);
}

// Adds the number of words to the two halves of `total`.
template <std::size_t kSize, bool kWhole>
VERSEWELL_FLOOR static void SweepShort(const ShortWord<kSize>& word, const Stretch& stretch, Block& total) {
    static constexpr std::ptrdiff_t kMost = 250 * kBlockSize;  // a byte counts up to 255 words
    for (const char* place = stretch.begin; place < stretch.end;) {
        const char* const end = std::min(stretch.end, place + kMost);
        Block sums = _mm_setzero_si128();
        for (; place + kBlockSize <= end; place += kBlockSize)
            sums = _mm_sub_epi8(sums, AreShortWords<kSize, kWhole>(word, place));
        if (place < end)
            sums =
                _mm_sub_epi8(sums, _mm_and_si128(AreShortWords<kSize, kWhole>(word, place), FirstBytes(end - place)));
        place = end;
        total = _mm_add_epi64(total, _mm_sad_epu8(sums, _mm_setzero_si128()));
    }
}

// Whether the texts of the verse and of the one before are swept together: not those at the ends of the text.
static bool JoinsVerseBefore(int verse) {
    return verse > 1 && verse < kLastVerse;
}

// Sweeps the texts of the verses, neighbours together, and lists the verses.
template <std::size_t kSize, bool kWhole>
static FloorAnswer CountShort(const FloorText& text, std::string_view word, const List& list) {
    ShortWord<kSize> wanted;
    for (std::size_t i = 0; i < kSize; ++i) wanted.letters[i] = _mm_set1_epi8(word[i]);
    Block total = _mm_setzero_si128();
    std::int32_t* listed = theVerses.data();
    for (const std::uint16_t* entry = list.begin; entry < list.end;) {
        const int first = *entry;
        int behind = first;
        do {
            *listed++ = behind++;
            ++entry;
        } while (entry < list.end && *entry == behind && JoinsVerseBefore(behind));
        SweepShort<kSize, kWhole>(wanted, WithBytesAround(text, TextsOf(text, first, behind)), total);
    }
    return {{theVerses.data(), listed}, _mm_cvtsi128_si32(total) + _mm_cvtsi128_si32(_mm_srli_si128(total, 8))};
}

template <typename Verse>
static int CountLong(const FloorText& text, const WantedWord& wanted, std::span<const Verse> verses) {
    const WordEnds ends = wanted.ends;
    HitBlock* next = theHits.data();
    int count = 0;
    for (const Verse verse : verses) {
        next = Sift(ends, WithBytesAround(text, TextsOf(text, verse, verse + 1)), next);
        if (next < kHitsAreMany) continue;
        count += CountHits(wanted, next);
        next = theHits.data();
    }
    return count + CountHits(wanted, next);
}

template <bool kWhole>
static FloorAnswer CountInList(const FloorText& text, std::string_view word, const List& list) {
    switch (word.size()) {
        case 1: return CountShort<1, kWhole>(text, word, list);
        case 2: return CountShort<2, kWhole>(text, word, list);
        case 3: return CountShort<3, kWhole>(text, word, list);
        default: break;
    }
    const int count = CountLong(text, Want(word, kWhole), std::span(list.begin, list.end));
    return {{theVerses.data(), std::copy(list.begin, list.end, theVerses.data())}, count};
}

FloorAnswer FloorOfWord(const FloorText& text, std::string_view word) {
    return CountInList<true>(text, word, ListOf(text, word));
}

// ---- Several words --------------------------------------------------------------------------------------------------

FloorAnswer FloorOfAllWords(const FloorText& text, const std::vector<std::string>& words) {
    std::vector<List> lists = ListsOf(text, words);
    SortBySize(lists);
    std::size_t count = TakeVersesOf(lists.front());
    for (const List& list : std::span(lists).subspan(1))
        count = IsMuchLonger(list, count) ? KeepByHalving(list, theVerses.data(), count)
                                          : KeepByMarks(list, theVerses.data(), count);
    const std::span<const std::int32_t> verses = {theVerses.data(), count};
    int occurrences = 0;
    for (const std::string& word : words) occurrences += CountLong(text, Want(word, true), verses);
    return {verses, occurrences};
}

// ---- Parts of words -------------------------------------------------------------------------------------------------

namespace {

// Three letters of a part of a word, which is in lower case as the words are.
struct PartLetters {
    Block first, second, last;
    std::size_t toSecond, toLast;
};

}  // namespace

VERSEWELL_FLOOR static Block ArePartsAt(const PartLetters& letters, const char* place) {
    const Block ends = _mm_and_si128(_mm_cmpeq_epi8(Load(place), letters.first),
                                     _mm_cmpeq_epi8(Load(place + letters.toLast), letters.last));
    return _mm_and_si128(ends, _mm_cmpeq_epi8(Load(place + letters.toSecond), letters.second));
}

// The word at `place`, which is not before `word`. Steps get longer, because words that are found may be close together
// or far apart.
static const std::string_view* WordAt(const std::string_view* word, const std::string_view* end, const char* place) {
    const auto isBehind = [place](const std::string_view& each) { return place < each.data(); };
    std::ptrdiff_t step = 1;
    for (; end - word > step && !isBehind(word[step]); step *= 2) word += step;
    return std::partition_point(word, std::min(word + step, end), std::not_fn(isBehind)) - 1;
}

// The numbers of the words that contain `part`, of at most 16 letters: the block of words ends with a zero byte.
static std::vector<int> NumbersOfWordsWith(const WordIndex& index, std::string_view part) {
    static constexpr std::ptrdiff_t kBlocks = 4;
    const std::string_view* const words = index.words.data();
    const std::string_view* const behindWords = words + index.words.size();
    const char* const end = behindWords[-1].data() + behindWords[-1].size();
    const std::size_t toSecond = std::min<std::size_t>(1, part.size() - 1), toLast = part.size() - 1;
    const PartLetters letters = {_mm_set1_epi8(part.front()), _mm_set1_epi8(part[toSecond]), _mm_set1_epi8(part.back()),
                                 toSecond, toLast};
    std::vector<int> found;
    const std::string_view* word = words;
    const char* behind = words->data();  // the end of the word that was found last
    const auto stands = [part](const char* place) { return std::memcmp(place, part.data(), part.size()) == 0; };
    const bool isCompared = part.size() <= 3;  // by the sweep
    const auto take = [&](const char* place) {
        if (place < behind) return;
        word = WordAt(word, behindWords, place);
        found.push_back(static_cast<int>(word - words));
        behind = word->data() + word->size();
    };
    const char* place = words->data();
    for (; end - place >= (kBlocks + 1) * kBlockSize; place += kBlocks * kBlockSize) {
        const Block parts[kBlocks] = {ArePartsAt(letters, place), ArePartsAt(letters, place + kBlockSize),
                                      ArePartsAt(letters, place + 2 * kBlockSize),
                                      ArePartsAt(letters, place + 3 * kBlockSize)};
        if (Bits(_mm_or_si128(_mm_or_si128(parts[0], parts[1]), _mm_or_si128(parts[2], parts[3]))) == 0) continue;
        std::uint64_t bits = 0;
        for (std::ptrdiff_t i = kBlocks; i-- > 0;) bits = bits << kBlockSize | Bits(parts[i]);
        for (; bits != 0; bits &= bits - 1) {
            const char* const standing = place + std::countr_zero(bits);
            if (isCompared || stands(standing)) take(standing);
        }
    }
    for (; end - place >= static_cast<std::ptrdiff_t>(part.size()); ++place)
        if (stands(place)) take(place);
    return found;
}

FloorAnswer FloorOfSubstring(const FloorText& text, std::string_view part) {
    static VerseMarks marks;
    marks.fill(0);
    for (const int word : NumbersOfWordsWith(*text.index, part)) Mark(ListOfNumber(text, word), marks);
    static std::array<std::uint16_t, kVerseCount + kBlockSize> verses;
    std::uint16_t* behind = verses.data();
    for (std::size_t verse = 0; verse < marks.size();) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, marks.data() + verse, std::min(sizeof eight, marks.size() - verse));
        if (eight == 0) {
            verse += sizeof eight;
            continue;
        }
        for (const std::size_t end = std::min(verse + sizeof eight, marks.size()); verse < end; ++verse) {
            *behind = static_cast<std::uint16_t>(verse);
            behind += marks[verse];
        }
    }
    return CountInList<false>(text, part, {verses.data(), behind});
}
