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
    std::int32_t number = 0;  // of the next word
};

// More than any distance that is asked for.
constexpr int kFar = 1000;

}  // namespace

// Words are numbered through all verses. Between the last of a verse and the first of the next, numbers are left out.
static void BeginVerse(Room& room) {
    room.number += kFar;
}

// Looks at each word of the verse.
static void AddPlacesOfWords(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                             const NearVerse& verse, Room& room) {
    const std::string_view text = VerseText(scripture, verse.verse);
    room.places.resize(std::max(room.places.size(), room.used + text.size() / 2 + 1));
    BeginVerse(room);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t size = SizeOfWordAt(text, at);
        if (size == 0) continue;
        NearPlace place{verse.verse, static_cast<std::uint32_t>(at), room.number++};
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

// The words to sweep for; none if one of the patterns is no word that a text can be swept for.
struct WordSweep {
    std::vector<WantedWord> words;
    Block fold;  // the bit that uppercase letters lack if case is ignored, otherwise 0
};

// A bit for each byte of a piece, which is four blocks: what is done once for a piece takes longer than the blocks.
using PieceBits = std::uint64_t;
constexpr std::size_t kPieceSize = 4 * kBlockSize;

// A piece of a verse, and the bytes of it where words begin and where one may stand.
struct WordPiece {
    const char* place;
    PieceBits begins, hits;
    std::int32_t verse;
    std::int32_t number;  // of the first word that begins in it
};

constexpr std::size_t kPieces = 64;
constexpr std::size_t kManyPieces = kPieces - kLongestSwept / kPieceSize - 2;  // no room for another verse

}  // namespace

static WordSweep SweepFor(std::span<const WantedPattern> wanted, bool anyCase) {
    WordSweep sweep{{}, _mm_set1_epi8(anyCase ? ' ' : '\0')};
    for (const WantedPattern& one : wanted) {
        if (HasWildcard(one.pattern) || one.pattern.size() > kLongestStart) return {{}, sweep.fold};
        const std::string folds = FoldsOf(one.pattern, anyCase);
        sweep.words.push_back({EndsOf(one.pattern, folds), StartOf(one.pattern, folds), one.pattern.size(), one.bits});
    }
    return sweep;
}

// Not every processor has an instruction for it: adds neighbouring groups of bits, each time twice as long ones.
VERSEWELL_BLOCKWISE static int CountBits(PieceBits bits) {
    bits -= bits >> 1 & 0x5555'5555'5555'5555U;
    bits = (bits & 0x3333'3333'3333'3333U) + (bits >> 2 & 0x3333'3333'3333'3333U);
    bits = (bits + (bits >> 4)) & 0x0F0F'0F0F'0F0F'0F0FU;
    return static_cast<int>(bits * 0x0101'0101'0101'0101U >> 56);
}

VERSEWELL_BLOCKWISE static PieceBits BitsOf(Block one, Block two, Block three, Block four) {
    return PieceBits{Bits(three) | Bits(four) << kBlockSize} << 2 * kBlockSize | (Bits(one) | Bits(two) << kBlockSize);
}

VERSEWELL_BLOCKWISE static Block AreOfWord(Block bytes) {
    return _mm_or_si128(AreLetters(bytes), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\'')));
}

// The bytes that are of a word.
VERSEWELL_BLOCKWISE static PieceBits OfWordAt(const char* place) {
    return BitsOf(AreOfWord(Load(place)), AreOfWord(Load(place + kBlockSize)), AreOfWord(Load(place + 2 * kBlockSize)),
                  AreOfWord(Load(place + 3 * kBlockSize)));
}

VERSEWELL_BLOCKWISE static Block HitsIn(const WordEnds& ends, Block fold, const char* place) {
    const Block first = _mm_or_si128(Load(place), fold), last = _mm_or_si128(Load(place + ends.reach), fold);
    return _mm_and_si128(_mm_cmpeq_epi8(first, ends.first.value), _mm_cmpeq_epi8(last, ends.last.value));
}

// The bytes where a word may begin: one that goes on behind it only if it leaves the piece. An apostrophe has the bit
// that is folded, so it can be treated as letters are.
VERSEWELL_BLOCKWISE static PieceBits HitsAt(const WordSweep& sweep, const char* place, PieceBits ofWord) {
    PieceBits hits = 0;
    for (const WantedWord& word : sweep.words)
        hits |= BitsOf(HitsIn(word.ends, sweep.fold, place), HitsIn(word.ends, sweep.fold, place + kBlockSize),
                       HitsIn(word.ends, sweep.fold, place + 2 * kBlockSize),
                       HitsIn(word.ends, sweep.fold, place + 3 * kBlockSize)) &
                ~(ofWord >> word.size);
    return hits;
}

// The bytes of a piece before the end of the text, which is `rest` bytes away.
VERSEWELL_BLOCKWISE static PieceBits BytesBefore(std::ptrdiff_t rest) {
    return rest < static_cast<std::ptrdiff_t>(kPieceSize) ? (PieceBits{1} << rest) - 1 : ~PieceBits{0};
}

// Appends the pieces of the verse's stretch with hits, and returns the place behind them.
static WordPiece* SiftWords(const WordSweep& sweep, Stretch stretch, std::int32_t verse, Room& room, WordPiece* next) {
    BeginVerse(room);
    std::int32_t number = room.number;
    PieceBits goesOn = 0;  // does the piece begin in a word?
    for (const char* place = stretch.begin; place < stretch.end; place += kPieceSize) {
        const PieceBits ofWord = OfWordAt(place);
        const PieceBits begins = ofWord & ~(ofWord << 1 | goesOn) & BytesBefore(stretch.end - place);
        const PieceBits hits = HitsAt(sweep, place, ofWord) & begins;
        *next = {place, begins, hits, verse, number};
        next += hits != 0 ? 1 : 0;
        number += CountBits(begins);
        goesOn = ofWord >> (kPieceSize - 1);
    }
    room.number = number;
    return next;
}

// The bits of the word if it stands at the place, where a word begins; otherwise 0.
VERSEWELL_BLOCKWISE static std::uint32_t BitsAt(const WantedWord& word, const char* place) {
    const unsigned stands = StandsAt(word.start, place) ? 1 : 0, goesOn = IsOfWord(place[word.size]) ? 1 : 0;
    return (0U - (stands & (goesOn ^ 1))) & word.bits;
}

// Appends the places where words stand. Does not branch on whether one does, as the sweeps do not.
static void TakeHits(const WordSweep& sweep, const Texts& texts, std::span<const WordPiece> pieces, Room& room) {
    static constexpr std::size_t kMost = kPieceSize / 2;  // so many words can begin in a piece
    for (const WordPiece& piece : pieces) {
        if (room.places.size() < room.used + kMost) room.places.resize(2 * room.used + kMost);
        const char* const text = texts.begin + OffsetOf(texts, piece.verse);
        NearPlace* next = room.places.data() + room.used;
        for (PieceBits bits = piece.hits; bits != 0; bits &= bits - 1) {
            const char* const place = piece.place + std::countr_zero(bits);
            const PieceBits before = piece.begins & (bits - 1) & ~bits;
            std::uint32_t patterns = 0;
            for (const WantedWord& word : sweep.words) patterns |= BitsAt(word, place);
            *next = {piece.verse, static_cast<std::uint32_t>(place - text), piece.number + CountBits(before), patterns};
            next += patterns != 0 ? 1 : 0;
        }
        room.used = static_cast<std::size_t>(next - room.places.data());
    }
}

// Asks for the text of the verse that is swept after some others: the processor only foresees texts that follow each
// other.
VERSEWELL_BLOCKWISE static void FetchAhead(const Texts& texts, std::span<const NearVerse> rest) {
    static constexpr std::size_t kAhead = 4;
    Stretch stretch;
    if (rest.size() <= kAhead || !FindStretch(texts, rest[kAhead].verse, stretch)) return;
    _mm_prefetch(stretch.begin, _MM_HINT_T0);
    _mm_prefetch(stretch.begin + kPieceSize, _MM_HINT_T0);
}

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Room& room) {
    const WordSweep sweep = SweepFor(wanted, anyCase);
    const Texts texts = TextsOf(scripture);
    std::array<WordPiece, kPieces> pieces;
    WordPiece* next = pieces.data();
    room.used = 0;
    room.number = 0;
    for (; !verses.empty(); verses = verses.subspan(1)) {
        const NearVerse& verse = verses.front();
        FetchAhead(texts, verses);
        Stretch stretch;
        const bool isSwept = !sweep.words.empty() && FindStretch(texts, verse.verse, stretch);
        if (isSwept) next = SiftWords(sweep, stretch, verse.verse, room, next);
        if (isSwept && next < pieces.data() + kManyPieces) continue;
        TakeHits(sweep, texts, {pieces.data(), next}, room);
        next = pieces.data();
        if (!isSwept) AddPlacesOfWords(scripture, wanted, anyCase, verse, room);
    }
    TakeHits(sweep, texts, {pieces.data(), next}, room);
}

#else

static void FindPlaces(const Scripture& scripture, std::span<const WantedPattern> wanted, bool anyCase,
                       std::span<const NearVerse> verses, Room& room) {
    room.used = 0;
    room.number = 0;
    for (const NearVerse& verse : verses) AddPlacesOfWords(scripture, wanted, anyCase, verse, room);
}

#endif

// ---- Numbering ------------------------------------------------------------------------------------------------------

static bool AreInOneChapter(const Scripture& scripture, int one, int other) {
    const VerseRecord a = RecordOf(scripture.records, one), b = RecordOf(scripture.records, other);
    return a.book == b.book && a.chapter == b.chapter;
}

// Numbers the verses of the places instead of their words; those of a chapter as they follow each other, if they can be
// in one match.
static void NumberVerses(const Scripture& scripture, bool countsVerses, std::span<NearPlace> places) {
    std::int32_t verse = kNoVerse, where = 0;
    for (NearPlace& place : places) {
        if (place.verse != verse)
            where += countsVerses && AreInOneChapter(scripture, verse, place.verse) ? place.verse - verse : kFar;
        verse = place.verse;
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
        if (query.unit != kNearInWords) NumberVerses(scripture, query.unit == kNearInVerses, places);
        visit(places);
        verses = verses.subspan(count);
    }
}
