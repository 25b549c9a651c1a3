#include "output/copy_text.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "output/rendering.h"
#include "scripture/books.h"
#include "typeset/label_text.h"

std::size_t RangeCopyBudget(int first, int last) {
    return last < first ? 0 : static_cast<std::size_t>(last - first) * 900 + 900;
}

std::size_t ListCopyBudget(const Scripture& scripture, std::span<const std::int32_t> verses) {
    std::size_t budget = 100;
    for (const int verse : verses) budget += VerseText(scripture, verse).size() + 27;
    return budget;
}

// Much less than the budget, which assumes the longest verse every time. Only a guess if the records are damaged; the
// text then grows as needed.
static std::size_t LikelySize(const Scripture& scripture, int first, int last) {
    const VerseRecords& records = scripture.records;
    const std::uint32_t allButLast = RecordOf(records, last).textOffset - RecordOf(records, first).textOffset;
    return allButLast + VerseText(scripture, last).size() + RangeCopyBudget(first, last) / 900 * kLongestPieceFrame;
}

// Allocates all memory at once, so that the text is not moved as it grows.
static bool Reserve(CopyText& copy, std::size_t size) {
    try {
        copy.text.reserve(size);
    } catch (const std::bad_alloc&) {
        copy.allocated = copy.complete = false;
    } catch (const std::length_error&) {
        copy.allocated = copy.complete = false;
    }
    return copy.allocated;
}

// Removes the piece that begins at `start` if it exceeds the budget. Returns whether it fits.
static bool KeepIfItFits(CopyText& copy, std::size_t start, std::size_t budget) {
    copy.complete = copy.text.size() <= budget;
    if (!copy.complete) copy.text.resize(start);
    return copy.complete;
}

CopyText CopyRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                       std::size_t budget) {
    CopyText copy;
    if (!Reserve(copy, std::min(budget, LikelySize(scripture, first, last)))) return copy;
    RangeRenderer renderer{scripture, format};
    for (int verse = first; verse <= last && copy.complete; ++verse) {
        const std::size_t start = copy.text.size();
        AppendVerse(renderer, verse, copy.text);
        // The failure is reported once, but twice if it was the first verse that did not fit.
        if (!KeepIfItFits(copy, start, budget)) copy.complaints = verse == first ? 2 : 1;
    }
    if (format.Brackets == 0) RemoveBrackets(copy.text);
    return copy;
}

CopyText CopyListText(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses,
                      std::size_t budget) {
    CopyText copy;
    if (!Reserve(copy, std::min(budget, ListCopyBudget(scripture, verses)))) return copy;
    for (std::size_t entry = 0; entry < verses.size() && copy.complete; ++entry) {
        const std::size_t start = copy.text.size();
        AppendListLine(scripture, verses[entry], copy.text);
        if (!KeepIfItFits(copy, start, budget)) copy.complaints = 1;
    }
    if (format.Brackets == 0) RemoveBrackets(copy.text);
    return copy;
}

// The reference of `record` as it follows that of `previous`: book and chapter only if they change.
static LabelText NextReference(const VerseRecord& previous, const VerseRecord& record) {
    LabelText label;
    const bool newBook = record.book != previous.book;
    const bool newChapter = newBook || record.chapter != previous.chapter;
    AppendText(label, newChapter ? " " : ",");
    if (newBook) {
        AppendText(label, BookAbbreviation(record.book));
        AppendText(label, " ");
    }
    if (newChapter) {
        AppendNumber(label, record.chapter);
        AppendText(label, ":");
    }
    AppendNumber(label, record.verse);
    return label;
}

CopyText CopyReferencesText(const VerseRecords& records, std::span<const std::int32_t> verses) {
    static constexpr std::size_t kLongestReference = 15;
    CopyText copy;
    if (!Reserve(copy, verses.size() * kLongestReference + 100)) return copy;
    copy.text = "#";
    VerseRecord previous;
    for (const int verse : verses) {
        const VerseRecord record = RecordOf(records, verse);
        copy.text.append(TextOf(NextReference(previous, record)));
        previous = record;
    }
    return copy;
}
