// Benchmarks Hits by Book without drawing: what a paint of the strip works out from the list, and the words of the
// books, which are counted once. Their floors read the same bytes in one pass. The drawing is in
// windows/paint_bench.cpp.

#include <algorithm>
#include <numeric>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "tests/support/native_scripture.h"
#include "verselist/hits_by_book.h"

static constexpr int kRounds = 41, kWidth = 44, kHeight = 2000;
static constexpr double kMostForPaint = 0.1;  // of the 0.2 ms that drawing the strip may take
static constexpr double kMostTimesHistogram = 3.0;
static constexpr double kMostForWords = 10.0;  // milliseconds, once

static volatile int kept;  // so that nothing is left out whose result nobody uses

static PerBook<int> CountByBytes(std::span<const std::int32_t> entries) {
    std::array<int, 256> counts{};
    const unsigned char* const records = TheRealScripture().records.bytes.data();
    for (const std::int32_t verse : entries) ++counts[records[static_cast<std::size_t>(verse) * kVerseRecordSize]];
    PerBook<int> books{};
    std::copy_n(counts.begin() + 1, books.size(), books.begin());
    return books;
}

static bool IsSame(const PerBook<HitsOfBook>& hits, const PerBook<int>& counts) {
    return std::ranges::equal(hits, counts, {}, &HitsOfBook::hits);
}

static void MeasureList(const char* what, const std::vector<std::int32_t>& entries, const PerBook<int>& words) {
    const VerseRecords& records = TheRealScripture().records;
    const std::vector<double> times = MediansInTurns(
        kRounds,
        {
            [&] { kept = LayOutHits(HitsOfEntries(records, entries, words), kWidth, kHeight, 2).back().length; },
            [&] { kept = CountByBytes(entries).back(); },
        });
    const std::string of = std::string("Hits by Book, counts and bars of ") + what;
    Print({.what = of + " / bytes counted",
           .time = times[0],
           .floor = times[1],
           .mostTimesFloor = kMostTimesHistogram,
           .mostAboveFloor = 0.01,
           .sameAnswer = IsSame(HitsOfEntries(records, entries, words), CountByBytes(entries))});
    PrintLimited(of, times[0], kMostForPaint, "ms");
}

static void MeasureWords() {
    const Scripture& scripture = TheRealScripture();
    const double time = BestTimeOf(9, [&] { kept = CountWordsOfBooks(scripture).back(); });
    const double floor = BestTimeOf(9, [&] { kept = static_cast<int>(std::ranges::count(scripture.text, ' ')); });
    Print({"Hits by Book, words of all books / blanks counted", time, floor});
    PrintLimited("Hits by Book, words of all books, once", time, kMostForWords, "ms");
}

int main() {
    std::vector<std::int32_t> all(kVerseCount), few;
    std::iota(all.begin(), all.end(), 0);
    for (int verse = 0; verse < kVerseCount; verse += 200) few.push_back(verse);
    const PerBook<int> words = CountWordsOfBooks(TheRealScripture());
    MeasureList("156 verses", few, words);
    MeasureList("all verses", all, words);
    MeasureWords();
    return ExitCode();
}
