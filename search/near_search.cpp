#include "search/near_search.h"

#include <algorithm>
#include <bit>
#include <vector>

#include "search/key_word_marks.h"
#include "search/near_places.h"
#include "search/verse_lists.h"

// ---- Sets of verses -------------------------------------------------------------------------------------------------

namespace {

constexpr int kSetBits = 64;

// A bit for each verse.
struct VerseSet {
    std::vector<std::uint64_t> bits = std::vector<std::uint64_t>(kVerseCount / kSetBits + 1);
    std::size_t entries = 0;  // how many were added, some perhaps twice
};

}  // namespace

static std::uint64_t BitOf(int verse) {
    return std::uint64_t{1} << (verse % kSetBits);
}

static std::size_t PartOf(int verse) {
    return static_cast<std::size_t>(verse / kSetBits);
}

static bool Has(const VerseSet& set, int verse) {
    return (set.bits[PartOf(verse)] & BitOf(verse)) != 0;
}

// Adds the entries, which are verses; a part of the set is written when it is left.
static void AddEntries(VerseEntries entries, VerseSet& set) {
    std::size_t part = 0;
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < EntryCount(entries); ++i) {
        const int verse = EntryAt(entries, i);
        if (PartOf(verse) != part) {
            set.bits[part] |= bits;
            part = PartOf(verse);
            bits = 0;
        }
        bits |= BitOf(verse);
    }
    set.bits[part] |= bits;
    set.entries += EntryCount(entries);
}

// The first verse of the set from `verse` to `last`; -1 if there is none.
static int NextIn(const VerseSet& set, int verse, int last) {
    while (verse <= last) {
        const std::uint64_t rest = set.bits[PartOf(verse)] >> (verse % kSetBits);
        if (rest != 0) {
            verse += std::countr_zero(rest);
            return verse <= last ? verse : -1;
        }
        verse += kSetBits - verse % kSetBits;
    }
    return -1;
}

// ---- Verses to look at ----------------------------------------------------------------------------------------------

namespace {

struct NearPass {
    int first, last;             // the range, clamped to existing verses
    int reach;                   // no match has verses that are farther apart
    std::vector<VerseSet> sets;  // of each pattern: the verses of the range that have a word of it
};

}  // namespace

static VerseSet VersesOf(const NearPass& pass, const WordIndex& index, const std::string& pattern) {
    VerseSet set;
    for (const int word : WordsMeant(index, pattern))
        AddEntries(EntriesWithin(EntriesOf(index, word), pass.first, pass.last), set);
    return set;
}

static bool HasAllAround(const NearPass& pass, int verse) {
    const int from = std::max(verse - pass.reach, pass.first), to = std::min(verse + pass.reach, pass.last);
    return std::ranges::all_of(pass.sets, [&](const VerseSet& set) { return NextIn(set, from, to) >= 0; });
}

static VerseSet AllOf(const std::vector<VerseSet>& sets) {
    VerseSet all;
    for (const VerseSet& set : sets)
        for (std::size_t part = 0; part < all.bits.size(); ++part) all.bits[part] |= set.bits[part];
    return all;
}

static NearVerse VerseToLookAt(const NearPass& pass, int verse) {
    NearVerse look{verse, 0};
    for (std::size_t i = 0; i < pass.sets.size(); ++i) look.patterns |= Has(pass.sets[i], verse) ? 1U << i : 0;
    return look;
}

// Verses with words of all patterns.
static std::vector<NearVerse> CompleteVerses(const NearPass& pass) {
    std::vector<NearVerse> verses;
    for (std::size_t part = 0; part < pass.sets.front().bits.size(); ++part) {
        std::uint64_t bits = ~std::uint64_t{0};
        for (const VerseSet& set : pass.sets) bits &= set.bits[part];
        for (; bits != 0; bits &= bits - 1)
            verses.push_back({static_cast<std::int32_t>(part) * kSetBits + std::countr_zero(bits), ~0U});
    }
    return verses;
}

// Those near a verse of the rarest pattern that has words of all patterns near it, ascending.
static std::vector<NearVerse> VersesToLookAt(const NearPass& pass) {
    if (pass.reach == 0) return CompleteVerses(pass);
    const VerseSet& rarest = *std::ranges::min_element(pass.sets, {}, &VerseSet::entries);
    const VerseSet all = AllOf(pass.sets);
    std::vector<NearVerse> verses;
    int next = pass.first;
    for (int verse = NextIn(rarest, pass.first, pass.last); verse >= 0; verse = NextIn(rarest, verse + 1, pass.last)) {
        if (!HasAllAround(pass, verse)) continue;
        const int to = std::min(verse + pass.reach, pass.last);
        for (next = NextIn(all, std::max(next, verse - pass.reach), to); next >= 0; next = NextIn(all, next + 1, to))
            verses.push_back(VerseToLookAt(pass, next));
        next = to + 1;
    }
    return verses;
}

// ---- Searching ------------------------------------------------------------------------------------------------------

static int FirstOf(const NearQuery& query) {
    return std::max(query.firstVerse, 0);
}

static int LastOf(const NearQuery& query) {
    return std::min(query.lastVerse, kLastVerse);
}

// In verses.
static int ReachOf(const NearQuery& query) {
    return query.unit == kNearInVerses ? query.distance : 0;
}

// Calls `take` with the places in `verses`, of which it is known whether they are in a match, some chapters at a time.
template <typename Take>
static void VisitMatches(const Scripture& scripture, const NearQuery& query, std::span<const NearVerse> verses,
                         Take take) {
    VisitNearPlaces(scripture, query, verses, [&](std::span<NearPlace> places) {
        FindNearMatches(query, places);
        take(std::span<const NearPlace>(places));
    });
}

// Does not branch on what is in a match: the processor cannot foresee it.
static void AddMatched(std::span<const NearPlace> places, SearchResult& result) {
    std::vector<std::int32_t>& verses = result.verses;
    std::size_t used = verses.size();
    std::int32_t last = used > 0 ? verses.back() : kNoVerse;
    verses.resize(used + places.size());
    int count = 0;
    for (const NearPlace& place : places) {
        const unsigned isMatched = place.isInMatch ? 1 : 0, isOther = place.verse != last ? 1 : 0;
        verses[used] = place.verse;
        used += isMatched & isOther;
        last = isMatched != 0 ? place.verse : last;
        count += static_cast<int>(isMatched);
    }
    verses.resize(used);
    result.occurrences += count;
}

SearchResult SearchNear(const Scripture& scripture, const WordIndex& index, const NearQuery& query) {
    if (query.patterns.empty() || query.patterns.size() > kMostNearWords) return {};
    NearPass pass{FirstOf(query), LastOf(query), ReachOf(query), {}};
    for (const std::string& pattern : query.patterns) pass.sets.push_back(VersesOf(pass, index, pattern));
    SearchResult result;
    VisitMatches(scripture, query, VersesToLookAt(pass),
                 [&result](std::span<const NearPlace> places) { AddMatched(places, result); });
    return result;
}

// ---- Marks ----------------------------------------------------------------------------------------------------------

// The verses that can have words of a match together with `verse`.
static std::vector<NearVerse> VersesAround(const NearQuery& query, int verse) {
    std::vector<NearVerse> verses;
    const int from = std::max(verse - ReachOf(query), FirstOf(query));
    const int to = std::min(verse + ReachOf(query), LastOf(query));
    for (int each = from; each <= to; ++each) verses.push_back({each, ~0U});
    return verses;
}

namespace {

// A text in which words are being marked.
struct MarkedText {
    std::string text;
    std::size_t done = 0;  // so much of the text without marks is in it
    int count = 0;
};

}  // namespace

static void AddMark(const std::string& text, std::size_t offset, MarkedText& marked) {
    const std::size_t size = SizeOfWordAt(text, offset);
    marked.text.append(text, marked.done, offset - marked.done).append("{").append(text, offset, size).append("}");
    marked.done = offset + size;
    ++marked.count;
}

int MarkNearWords(const Scripture& scripture, const NearQuery& query, int verse, std::string& text) {
    const std::size_t mostMarks = (kMarkedTextLimit - 1 - std::min(text.size(), kMarkedTextLimit - 1)) / 2;
    MarkedText marked;
    VisitMatches(scripture, query, VersesAround(query, verse), [&](std::span<const NearPlace> places) {
        for (const NearPlace& place : places) {
            const bool isHere = place.isInMatch && place.verse == verse && place.offset < text.size();
            if (isHere && marked.count < static_cast<int>(mostMarks)) AddMark(text, place.offset, marked);
        }
    });
    marked.text.append(text, marked.done);
    text.swap(marked.text);
    return marked.count;
}
