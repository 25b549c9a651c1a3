#include "verselist/hits_by_book.h"

#include <algorithm>

static constexpr int kTenths = 10, kHundredths = 100, kThousand = 1000;

static std::size_t PlaceOf(int book) {
    return static_cast<std::size_t>(book - 1);
}

static bool IsBook(int book) {
    return book >= 1 && book <= kBookCount;
}

// ---- Counts ---------------------------------------------------------------------------------------------------------

static int WordsIn(std::string_view verse) {
    return verse.empty() ? 0 : static_cast<int>(std::ranges::count(verse, ' ')) + 1;
}

PerBook<int> CountWordsOfBooks(const Scripture& scripture) {
    PerBook<int> words{};
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const int book = RecordOf(scripture.records, verse).book;
        if (IsBook(book)) words[PlaceOf(book)] += WordsIn(VerseText(scripture, verse));
    }
    return words;
}

PerBook<HitsOfBook> HitsOfEntries(const VerseRecords& records, std::span<const std::int32_t> entries,
                                  const PerBook<int>& words) {
    PerBook<HitsOfBook> hits{};
    for (std::size_t place = 0; place < hits.size(); ++place) hits[place].words = words[place];
    int entry = 0;
    for (const int verse : entries) {
        const int book = RecordOf(records, verse).book;
        if (IsBook(book)) {
            HitsOfBook& of = hits[PlaceOf(book)];
            if (of.hits++ == 0) of.firstEntry = entry;
        }
        ++entry;
    }
    return hits;
}

// ---- Texts ----------------------------------------------------------------------------------------------------------

// The rate in parts of 1 / `parts`, rounded.
static long long RateIn(const HitsOfBook& of, int parts) {
    if (of.words <= 0) return 0;
    return (2LL * of.hits * kThousand * parts + of.words) / (2LL * of.words);
}

// Not printf, whose decimal point is that of the system's language.
std::string RateText(const HitsOfBook& of) {
    const long long tenths = RateIn(of, kTenths), hundredths = RateIn(of, kHundredths);
    if (of.hits == 0 || of.words <= 0 || hundredths >= kTenths)
        return std::to_string(tenths / kTenths) + '.' + std::to_string(tenths % kTenths);
    return "0.0" + std::to_string(hundredths);
}

static std::string CountText(const HitsOfBook& of) {
    if (of.hits == 0) return "no hits";
    return std::to_string(of.hits) + (of.hits == 1 ? " hit" : " hits");
}

std::string HitsTip(int book, const HitsOfBook& of) {
    const std::string text = std::string(BookName(book)) + ": " + CountText(of);
    return of.hits == 0 ? text : text + ", " + RateText(of) + " per 1000 words";
}

std::string SpokenHits(int book, const HitsOfBook& of) {
    const std::string text = std::string(BookName(book)) + ", " + CountText(of);
    return of.hits == 0 ? text : text + ", " + RateText(of) + " per thousand words";
}

std::string HitsTable(const PerBook<HitsOfBook>& hits) {
    std::string table = "Book\tHits\tWords\tHits per 1000 words\r\n";
    int book = 1;
    for (const HitsOfBook& of : hits) {
        table += BookName(book++);
        table += '\t' + std::to_string(of.hits) + '\t' + std::to_string(of.words) + '\t' + RateText(of) + "\r\n";
    }
    return table;
}

// ---- The bars -------------------------------------------------------------------------------------------------------

static double RateOf(const HitsOfBook& of) {
    return of.words > 0 ? static_cast<double>(of.hits) / of.words : 0;
}

static double HighestRate(const PerBook<HitsOfBook>& hits) {
    double highest = 0;
    for (const HitsOfBook& of : hits) highest = std::max(highest, RateOf(of));
    return highest;
}

// A gap of a quarter of the slot; none if slots are single lines.
static int GapBelow(int slot) {
    return slot < 2 ? 0 : std::max(1, slot / 4);
}

PerBook<HitsBar> LayOutHits(const PerBook<HitsOfBook>& hits, int width, int height, int least) {
    PerBook<HitsBar> bars{};
    if (width <= 0 || height <= 0) return bars;
    const double highest = HighestRate(hits);
    const int gap = GapBelow(height / kBookCount), shortest = std::min(least, width);
    int book = 0;
    for (HitsBar& bar : bars) {
        const HitsOfBook& of = hits[static_cast<std::size_t>(book)];
        bar.top = book * height / kBookCount;
        bar.bottom = std::max(bar.top + 1, (book + 1) * height / kBookCount);
        bar.barBottom = bar.bottom - gap;
        if (of.hits > 0 && highest > 0)
            bar.length = std::max(shortest, static_cast<int>(RateOf(of) / highest * width + 0.5));
        ++book;
    }
    return bars;
}

int BookAtLine(const PerBook<HitsBar>& bars, int y) {
    int found = 0;
    for (int book = 1; book <= kBookCount; ++book) {
        const HitsBar& bar = bars[PlaceOf(book)];
        if (y < bar.top || y >= bar.bottom) continue;
        if (found == 0 || bar.length > bars[PlaceOf(found)].length) found = book;
    }
    return found;
}
