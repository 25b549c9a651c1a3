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

}  // namespace

// Looks at each word of the verse.
static void AddPlacesOfWords(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                             const NearVerse& verse, Room& room) {
    const std::string_view text = VerseText(scripture, verse.verse);
    room.places.resize(std::max(room.places.size(), room.used + text.size() / 2 + 1));
    std::int32_t number = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t size = SizeOfWordAt(text, at);
        if (size == 0) continue;
        NearPlace place{verse.verse, static_cast<std::uint32_t>(at), number++};
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

// A block of a verse, and the bytes of it where words begin and where one may stand.
struct WordBlock {
    const char* place;
    std::uint16_t begins, hits;
    std::int32_t verse;
    std::int32_t number;  // of the words that begin before it in the verse
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

static constexpr std::array<std::uint8_t, 256> kBitsOfByte = [] {
    std::array<std::uint8_t, 256> counts = {};
    for (std::size_t byte = 0; byte < counts.size(); ++byte)
        counts[byte] = static_cast<std::uint8_t>(std::popcount(byte));
    return counts;
}();

// Of a number of 16 bits. Not every processor has an instruction for it.
VERSEWELL_BLOCKWISE static int CountBits(unsigned bits) {
    return kBitsOfByte[bits & 0xFF] + kBitsOfByte[bits >> 8];
}

// The bytes of a block that are of a word.
VERSEWELL_BLOCKWISE static unsigned OfWordAt(const char* place) {
    const Block bytes = Load(place);
    return Bits(_mm_or_si128(AreLetters(bytes), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\''))));
}

VERSEWELL_BLOCKWISE static unsigned HitsAt(std::span<const WantedWord> words, const char* place) {
    unsigned hits = 0;
    for (const WantedWord& word : words) hits |= HitsAt(word.ends, place);
    return hits;
}

// Appends the blocks of the stretch with hits, and returns the place behind them.
static WordBlock* SiftWords(std::span<const WantedWord> words, Stretch stretch, std::int32_t verse, WordBlock* next) {
    std::int32_t number = 0;
    unsigned goesOn = 0;  // does the block begin in a word?
    for (const char* place = stretch.begin; place < stretch.end; place += kBlockSize) {
        const auto rest = std::min(stretch.end - place, static_cast<std::ptrdiff_t>(kBlockSize));
        const unsigned ofWord = OfWordAt(place), before = ofWord << 1 | goesOn;
        const unsigned begins = ofWord & ~before & ((1U << rest) - 1);
        const unsigned hits = HitsAt(words, place) & begins;
        *next = {place, static_cast<std::uint16_t>(begins), static_cast<std::uint16_t>(hits), verse, number};
        next += hits != 0 ? 1 : 0;
        number += CountBits(begins);
        goesOn = ofWord >> (kBlockSize - 1);
    }
    return next;
}

// The bits of the word if it stands at the place, where a word begins; otherwise 0.
VERSEWELL_BLOCKWISE static std::uint32_t BitsAt(const WantedWord& word, const char* place) {
    const unsigned stands = StandsAt(word.start, place) ? 1 : 0, goesOn = IsOfWord(place[word.size]) ? 1 : 0;
    return (0U - (stands & (goesOn ^ 1))) & word.bits;
}

// Appends the places where words stand. Does not branch on whether one does, as the sweeps do not.
static void TakeHits(std::span<const WantedWord> words, const Texts& texts, std::span<const WordBlock> blocks,
                     Room& room) {
    for (const WordBlock& block : blocks) {
        if (room.places.size() < room.used + kBlockSize) room.places.resize(2 * room.used + kBlockSize);
        const char* const text = texts.begin + OffsetOf(texts, block.verse);
        NearPlace* next = room.places.data() + room.used;
        for (unsigned bits = block.hits; bits != 0; bits &= bits - 1) {
            const char* const place = block.place + std::countr_zero(bits);
            const unsigned before = block.begins & (bits - 1) & ~bits;
            std::uint32_t patterns = 0;
            for (const WantedWord& word : words) patterns |= BitsAt(word, place);
            *next = {block.verse, static_cast<std::uint32_t>(place - text), block.number + CountBits(before), patterns};
            next += patterns != 0 ? 1 : 0;
        }
        room.used = static_cast<std::size_t>(next - room.places.data());
    }
}

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Room& room) {
    const std::vector<WantedWord> words = WantedWordsOf(wanted, anyCase);
    const Texts texts = TextsOf(scripture);
    std::array<WordBlock, kHitBlocks> blocks;
    WordBlock* next = blocks.data();
    room.used = 0;
    for (const NearVerse& verse : verses) {
        Stretch stretch;
        const bool isSwept = !words.empty() && FindStretch(texts, verse.verse, stretch);
        if (isSwept) next = SiftWords(words, stretch, verse.verse, next);
        if (isSwept && next < blocks.data() + kManyHits) continue;
        TakeHits(words, texts, {blocks.data(), next}, room);
        next = blocks.data();
        if (!isSwept) AddPlacesOfWords(scripture, wanted, anyCase, verse, room);
    }
    TakeHits(words, texts, {blocks.data(), next}, room);
}

#else

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Room& room) {
    room.used = 0;
    for (const NearVerse& verse : verses) AddPlacesOfWords(scripture, wanted, anyCase, verse, room);
}

#endif

// ---- Numbering ------------------------------------------------------------------------------------------------------

// More than any distance that is asked for.
static constexpr int kFar = 1000;

static bool AreInOneChapter(const Scripture& scripture, int one, int other) {
    const VerseRecord a = RecordOf(scripture.records, one), b = RecordOf(scripture.records, other);
    return a.book == b.book && a.chapter == b.chapter;
}

// Each place has the number of its word in the verse.
static void NumberPlaces(const Scripture& scripture, const NearQuery& query, std::span<NearPlace> places) {
    std::int32_t verse = kNoVerse, where = 0, ofVerse = 0;  // `ofVerse`: of its first word
    for (NearPlace& place : places) {
        if (place.verse != verse) {
            const bool isFar = query.unit != kNearInVerses || !AreInOneChapter(scripture, verse, place.verse);
            ofVerse = where + (isFar ? kFar : place.verse - verse);
            verse = place.verse;
        }
        where = ofVerse + (query.unit == kNearInWords ? place.where : 0);
        place.where = where;
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
    Room room;
    while (!verses.empty()) {
        const std::size_t count = VersesAtATime(scripture, verses);
        FindPlaces(scripture, wanted, !query.caseSensitive, verses.first(count), room);
        const std::span<NearPlace> places = std::span(room.places).first(room.used);
        NumberPlaces(scripture, query, places);
        visit(places);
        verses = verses.subspan(count);
    }
}
