#include "search/verse_lists.h"

#include <algorithm>
#include <cstring>

#include "scripture/verse_records.h"

// Number of entries that are less than `verse`. Halves the list without branches on what it finds, so that the searches
// for several verses overlap.
static std::size_t EntriesBefore(VerseEntries entries, int verse) {
    std::size_t before = 0;
    for (std::size_t left = EntryCount(entries); left > 0;) {
        const std::size_t half = (left + 1) / 2;
        before += half & (std::size_t{0} - static_cast<std::size_t>(EntryAt(entries, before + half - 1) < verse));
        left -= half;
    }
    return before;
}

VerseEntries EntriesWithin(VerseEntries entries, int first, int last) {
    if (entries.empty() || first > last) return {};
    const std::size_t begin = EntryAt(entries, 0) >= first ? 0 : EntriesBefore(entries, first);
    const std::size_t count = EntryCount(entries);
    const std::size_t end = EntryAt(entries, count - 1) <= last ? count : EntriesBefore(entries, last + 1);
    return begin < end ? entries.subspan(2 * begin, 2 * (end - begin)) : VerseEntries{};
}

std::vector<std::int32_t> VersesOf(VerseEntries entries) {
    std::vector<std::int32_t> verses(EntryCount(entries));
    for (std::size_t i = 0; i < verses.size(); ++i) verses[i] = EntryAt(entries, i);
    return verses;
}

// ---- Counters -------------------------------------------------------------------------------------------------------

static std::size_t CounterOf(int entry) {
    return static_cast<std::size_t>(std::min(entry, kVerseCount));
}

void AddEntries(VerseEntries entries, HitCounters& counters) {
    for (std::size_t i = 0; i < EntryCount(entries); ++i) ++counters[CounterOf(EntryAt(entries, i))];
}

void MarkEntries(VerseEntries entries, HitCounters& counters) {
    std::uint16_t* const marks = counters.data();
    for (std::size_t i = 0; i < EntryCount(entries); ++i) marks[CounterOf(EntryAt(entries, i))] = 1;
}

void ClearCounters(HitCounters& counters) {
    counters.assign(kVerseCount + 1, 0);
}

// Most counters of a search for parts of rare words are 0, so they are examined four at a time.
static std::uint64_t FourCounters(const HitCounters& counters, int verse) {
    std::uint64_t four = 0;
    std::memcpy(&four, counters.data() + verse, sizeof four);
    return four;
}

std::vector<std::int32_t> CountedVerses(const HitCounters& counters, int first, int last) {
    std::vector<std::int32_t> verses(static_cast<std::size_t>(std::max(last - first + 1, 0)) + 1);
    std::size_t count = 0;
    for (int verse = first; verse <= last;) {
        const int end = std::min(verse + 3, last);
        if (end == verse + 3 && FourCounters(counters, verse) == 0) {
            verse += 4;
            continue;
        }
        for (; verse <= end; ++verse) {
            verses[count] = verse;
            count += counters[static_cast<std::size_t>(verse)] != 0 ? 1 : 0;
        }
    }
    verses.resize(count);
    return verses;
}

// ---- Verses of several lists ----------------------------------------------------------------------------------------

static void KeepByHalving(VerseEntries entries, std::vector<std::int32_t>& verses) {
    std::size_t kept = 0;
    for (const std::int32_t verse : verses) {
        const std::size_t place = EntriesBefore(entries, verse);
        verses[kept] = verse;
        kept += place < EntryCount(entries) && EntryAt(entries, place) == verse ? 1 : 0;
    }
    verses.resize(kept);
}

static void KeepByMarks(VerseEntries entries, std::vector<std::int32_t>& verses, HitCounters& counters) {
    ClearCounters(counters);
    MarkEntries(entries, counters);
    std::size_t kept = 0;
    for (const std::int32_t verse : verses) {
        verses[kept] = verse;
        kept += counters[static_cast<std::size_t>(verse)];
    }
    verses.resize(kept);
}

bool IsMuchLonger(VerseEntries entries, std::size_t count) {
    static constexpr std::size_t kLookUp = 24;  // to look a verse up takes as long as to mark two dozen
    return EntryCount(entries) > kLookUp * count;
}

void KeepVersesIn(VerseEntries entries, std::vector<std::int32_t>& verses, HitCounters& counters) {
    if (IsMuchLonger(entries, verses.size()))
        KeepByHalving(entries, verses);
    else
        KeepByMarks(entries, verses, counters);
}
