#include "data/verse_ranges.h"

#include <algorithm>

#include "scripture/books.h"

static std::string ChapterAndVerse(const VerseRecord& place) {
    return std::to_string(place.chapter) + ":" + std::to_string(place.verse);
}

// One item of the line; the previous one ended at `before` (book 0 at the start of the line).
static std::string ItemText(const VerseRecord& before, const VerseRecord& first, const VerseRecord& last) {
    std::string text;
    if (before.book != first.book)
        text =
            (before.book == 0 ? "" : "; ") + std::string(BookAbbreviation(first.book)) + " " + ChapterAndVerse(first);
    else
        text = before.chapter == first.chapter ? ", " + std::to_string(first.verse) : "; " + ChapterAndVerse(first);
    if (last.chapter != first.chapter) return text + "-" + ChapterAndVerse(last);
    return last.verse == first.verse ? text : text + "-" + std::to_string(last.verse);
}

// Splits a range at the ends of books, because a range in a cross-reference line cannot span books.
static std::vector<VerseRange> WithinBooks(const VerseRecords& records, VerseRange range) {
    std::vector<VerseRange> parts;
    while (range.first <= range.last) {
        const int endOfBook = VerseLookup(records, RecordOf(records, range.first).book, kLast, kLast);
        if (endOfBook < range.first) break;
        parts.push_back({range.first, std::min(range.last, endOfBook)});
        range.first = endOfBook + 1;
    }
    return parts;
}

std::string CrossReferenceLine(const VerseRecords& records, const std::vector<VerseRange>& ranges) {
    std::string line;
    VerseRecord before;
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        const auto here = ranges.begin() + static_cast<std::ptrdiff_t>(i);
        if (std::find(ranges.begin(), here, *here) != here) continue;
        for (const VerseRange& part : WithinBooks(records, *here)) {
            const VerseRecord last = RecordOf(records, part.last);
            line += ItemText(before, RecordOf(records, part.first), last);
            before = last;
        }
    }
    return line.empty() ? line : "# " + line;
}
