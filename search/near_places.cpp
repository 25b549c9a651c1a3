#include "search/near_places.h"

#include <algorithm>
#include <array>
#include <bit>

#include "scripture/letters.h"
#include "search/text_blocks.h"
#include "search/verse_stretches.h"

static constexpr std::array<bool, 256> kIsOfWord = [] {
    std::array<bool, 256> isOfWord = {};
    for (std::size_t byte = 0; byte < isOfWord.size(); ++byte)
        isOfWord[byte] = IsWordCharacter(static_cast<char>(byte));
    return isOfWord;
}();

static bool IsOfWord(char c) {
    return kIsOfWord[static_cast<unsigned char>(c)];
}

std::size_t SizeOfWordAt(std::string_view text, std::size_t offset) {
    std::size_t end = offset;
    while (end < text.size() && IsOfWord(text[end])) ++end;
    return end - offset;
}

// ---- Finding --------------------------------------------------------------------------------------------------------

namespace {

// A pattern, and a bit for each time that it was typed.
struct WantedPattern {
    std::string_view pattern;
    std::uint32_t bits = 0;
};

}  // namespace

static std::vector<WantedPattern> WantedPatternsOf(const NearQuery& query) {
    std::vector<WantedPattern> wanted;
    for (std::size_t i = 0; i < query.patterns.size(); ++i) {
        const auto same = std::ranges::find(wanted, std::string_view(query.patterns[i]), &WantedPattern::pattern);
        WantedPattern& one = same != wanted.end() ? *same : wanted.emplace_back(WantedPattern{query.patterns[i]});
        one.bits |= 1U << i;
    }
    return wanted;
}

namespace {

// Places, and room for more.
struct Room {
    std::vector<NearPlace> places;
    std::size_t used = 0;
};

// For all places, those of one word, and both together.
struct Rooms {
    Room all, found, merged;
};

}  // namespace

// Looks at each word of the verse.
static void AddPlacesOfWords(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                             const NearVerse& verse, Room& room) {
    const std::string_view text = VerseText(scripture, verse.verse);
    room.places.resize(std::max(room.places.size(), room.used + text.size() / 2 + 1));
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t size = SizeOfWordAt(text, at);
        if (size == 0) continue;
        NearPlace place{.verse = verse.verse, .offset = static_cast<std::uint32_t>(at)};
        for (const WantedPattern& one : wanted)
            if ((one.bits & verse.patterns) != 0 && DoesPatternMean(one.pattern, text.substr(at, size), anyCase))
                place.patterns |= one.bits;
        if (place.patterns != 0) room.places[room.used++] = place;
        at += size;
    }
}

#ifdef VERSEWELL_USES_SSE2

namespace {

// A pattern without wildcards.
struct WantedWord {
    WordEnds ends;
    WantedStart start;
    std::size_t size;
    std::uint32_t bits;
};

}  // namespace

// None if one of the patterns is no word that a text can be swept for.
static std::vector<WantedWord> WantedWordsOf(std::span<const WantedPattern> wanted, bool anyCase) {
    std::vector<WantedWord> words;
    for (const WantedPattern& one : wanted) {
        if (HasWildcard(one.pattern) || one.pattern.size() > kLongestStart) return {};
        const std::string folds = FoldsOf(one.pattern, anyCase);
        words.push_back({EndsOf(one.pattern, folds), StartOf(one.pattern, folds), one.pattern.size(), one.bits});
    }
    return words;
}

VERSEWELL_BLOCKWISE static bool IsWordAt(const WantedWord& word, const char* place) {
    const int isPart = static_cast<int>(IsOfWord(place[-1])) | static_cast<int>(IsOfWord(place[word.size]));
    return (static_cast<int>(StandsAt(word.start, place)) & (isPart ^ 1)) != 0;
}

// Appends the places where the word stands as a whole. Does not branch on whether it does, as the sweeps do not.
static void TakeHits(const WantedWord& word, const Texts& texts, std::span<const HitBlock> hits, Room& room) {
    for (const HitBlock& hit : hits) {
        if (room.places.size() < room.used + kBlockSize) room.places.resize(2 * room.used + kBlockSize);
        const char* const text = texts.begin + OffsetOf(texts, hit.verse);
        NearPlace* const next = room.places.data() + room.used;
        std::size_t found = 0;
        for (unsigned bits = hit.bits; bits != 0; bits &= bits - 1) {
            const char* const place = hit.place + std::countr_zero(bits);
            next[found] = {hit.verse, static_cast<std::uint32_t>(place - text), 0, word.bits};
            found += IsWordAt(word, place) ? 1 : 0;
        }
        room.used += found;
    }
}

// The places of one word in the verses that can be swept.
static void FindPlacesOf(const WantedWord& word, const Texts& texts, std::span<const NearVerse> verses, Room& room) {
    room.used = 0;
    std::array<HitBlock, kHitBlocks> hits;
    HitBlock* next = hits.data();
    for (const NearVerse& verse : verses) {
        Stretch stretch;
        if ((verse.patterns & word.bits) == 0 || !FindStretch(texts, verse.verse, stretch)) continue;
        next = Sift(word.ends, stretch, verse.verse, next);
        if (next < hits.data() + kManyHits) continue;
        TakeHits(word, texts, {hits.data(), next}, room);
        next = hits.data();
    }
    TakeHits(word, texts, {hits.data(), next}, room);
}

VERSEWELL_BLOCKWISE static std::uint64_t OrderOf(const NearPlace& place) {
    return std::uint64_t{static_cast<std::uint32_t>(place.verse)} << 32 | place.offset;
}

// Merges `others` into `room`; both are in the order of the text. Does not branch on which place is next.
static void Merge(const Room& others, Room& room, Room& merged) {
    merged.used = room.used + others.used;
    merged.places.resize(std::max(merged.places.size(), merged.used));
    NearPlace* next = merged.places.data();
    const NearPlace *one = room.places.data(), *endOfOne = one + room.used;
    const NearPlace *other = others.places.data(), *endOfOther = other + others.used;
    while (one < endOfOne && other < endOfOther) {
        const bool isOther = OrderOf(*other) < OrderOf(*one);
        *next++ = *(isOther ? other : one);
        other += isOther ? 1 : 0;
        one += isOther ? 0 : 1;
    }
    std::copy(other, endOfOther, std::copy(one, endOfOne, next));
    std::swap(room, merged);
}

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Rooms& rooms) {
    const std::vector<WantedWord> words = WantedWordsOf(wanted, anyCase);
    const Texts texts = TextsOf(scripture);
    rooms.all.used = 0;
    for (const WantedWord& word : words) {
        const bool isFirst = &word == words.data();
        FindPlacesOf(word, texts, verses, isFirst ? rooms.all : rooms.found);
        if (!isFirst) Merge(rooms.found, rooms.all, rooms.merged);
    }
    rooms.found.used = 0;
    for (const NearVerse& verse : verses)
        if (Stretch stretch; words.empty() || !FindStretch(texts, verse.verse, stretch))
            AddPlacesOfWords(scripture, wanted, anyCase, verse, rooms.found);
    if (rooms.found.used > 0) Merge(rooms.found, rooms.all, rooms.merged);
}

#else

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Rooms& rooms) {
    rooms.all.used = 0;
    for (const NearVerse& verse : verses) AddPlacesOfWords(scripture, wanted, anyCase, verse, rooms.all);
}

#endif

// ---- Numbering ------------------------------------------------------------------------------------------------------

static int WordsOneByOne(std::string_view text, std::size_t from) {
    int words = 0;
    for (std::size_t at = from; at < text.size(); ++at) words += IsOfWord(text[at]) && !IsOfWord(text[at - 1]) ? 1 : 0;
    return words;
}

#ifndef VERSEWELL_USES_SSE2

static int WordsBegunIn(std::string_view text, std::size_t from) {
    return WordsOneByOne(text, from);
}

#else

VERSEWELL_BLOCKWISE static Block AreOfWord(Block bytes) {
    return _mm_or_si128(AreLetters(bytes), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\'')));
}

VERSEWELL_BLOCKWISE static Block WordsBeginAt(const char* place) {
    return _mm_andnot_si128(AreOfWord(Load(place - 1)), AreOfWord(Load(place)));
}

// Number of words that begin from `from` on, which is not 0. Reads nothing outside the text.
VERSEWELL_BLOCKWISE static int WordsBegunIn(std::string_view text, std::size_t from) {
    static constexpr std::size_t kMost = 250 * kBlockSize;  // a byte counts up to 255 words
    const std::size_t to = text.size();
    if (to <= kBlockSize || to - from > kMost) return WordsOneByOne(text, from);
    Block sums = _mm_setzero_si128();
    for (; to - from >= kBlockSize; from += kBlockSize) sums = _mm_sub_epi8(sums, WordsBeginAt(text.data() + from));
    const Block rest = WordsBeginAt(text.data() + to - kBlockSize);
    sums = _mm_sub_epi8(sums, _mm_andnot_si128(FirstBytes(kBlockSize - (to - from)), rest));
    const Block halves = _mm_sad_epu8(sums, _mm_setzero_si128());
    return _mm_cvtsi128_si32(halves) + _mm_cvtsi128_si32(_mm_srli_si128(halves, 8));
}

#endif

// More than any distance that is asked for.
static constexpr int kFar = 1000;

static bool AreInOneChapter(const Scripture& scripture, int one, int other) {
    const VerseRecord a = RecordOf(scripture.records, one), b = RecordOf(scripture.records, other);
    return a.book == b.book && a.chapter == b.chapter;
}

static void NumberPlaces(const Scripture& scripture, const NearQuery& query, std::span<NearPlace> places) {
    const char* text = nullptr;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const NearPlace before = i > 0 ? places[i - 1] : NearPlace{.verse = kNoVerse};
        NearPlace& place = places[i];
        place.where = before.where;
        if (place.verse == before.verse) {
            if (query.unit == kNearInWords) place.where += WordsBegunIn({text, place.offset + 1}, before.offset + 1);
            continue;
        }
        const bool isFar = query.unit != kNearInVerses || !AreInOneChapter(scripture, before.verse, place.verse);
        place.where += isFar ? kFar : place.verse - before.verse;
        text = scripture.text.data() + RecordOf(scripture.records, place.verse).textOffset;
    }
}

// ---- Visiting -------------------------------------------------------------------------------------------------------

// How many of the verses are visited together: some hundred, to the end of a chapter. Their places stay in the cache.
static std::size_t VersesAtATime(const Scripture& scripture, std::span<const NearVerse> verses) {
    static constexpr std::size_t kEnough = 256;
    std::size_t count = std::min(kEnough, verses.size());
    while (count < verses.size() && AreInOneChapter(scripture, verses[count - 1].verse, verses[count].verse)) ++count;
    return count;
}

void VisitNearPlaces(const Scripture& scripture, const NearQuery& query, std::span<const NearVerse> verses,
                     const std::function<void(std::span<NearPlace>)>& visit) {
    const std::vector<WantedPattern> wanted = WantedPatternsOf(query);
    Rooms rooms;
    while (!verses.empty()) {
        const std::size_t count = VersesAtATime(scripture, verses);
        FindPlaces(scripture, wanted, !query.caseSensitive, verses.first(count), rooms);
        const std::span<NearPlace> places = std::span(rooms.all.places).first(rooms.all.used);
        NumberPlaces(scripture, query, places);
        visit(places);
        verses = verses.subspan(count);
    }
}
