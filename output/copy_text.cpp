#include "output/copy_text.h"

#include <algorithm>
#include <new>
#include <stdexcept>

#include "output/rendering.h"
#include "scripture/books.h"
#include "typeset/html_text.h"
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
    return std::min<std::size_t>(allButLast, scripture.text.size()) + VerseText(scripture, last).size() +
           RangeCopyBudget(first, last) / 900 * kLongestPieceFrame;
}

// Allocates all memory at once, so that the text is not moved as it grows. False if there is not enough.
static bool MakeRoom(std::string& text, std::size_t size) {
    try {
        text.resize(size);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

static CopyText NotAllocated() {
    return {"", false, false, 0};
}

static PieceBrackets BracketsOf(const FormatOptions& format) {
    return format.Brackets == 0 ? PieceBrackets::kLeftOut : PieceBrackets::kKept;
}

namespace {

struct LimitedCopy {
    std::size_t budget = 0;
    GrowingText text{};
    std::size_t leftOut = 0;  // brackets
    bool complete = true;
    int count = 0;
};

}  // namespace

// Removes the piece that begins at `start` if the text and the brackets that were left out of it exceed the budget.
// Returns whether it fits.
static bool KeepIfItFits(LimitedCopy& copy, std::size_t start, std::size_t leftOut) {
    copy.leftOut += leftOut;
    copy.complete = copy.text.size + copy.leftOut <= copy.budget;
    copy.count += copy.complete ? 1 : 0;
    if (!copy.complete) copy.text.size = start;
    return copy.complete;
}

CopyText CopyRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                       std::size_t budget) {
    LimitedCopy copy{budget};
    if (!MakeRoom(copy.text.bytes, std::min(budget, LikelySize(scripture, first, last)))) return NotAllocated();
    RangeRenderer renderer{scripture, format, BracketsOf(format)};
    int complaints = 0;
    for (int verse = first; verse <= last && copy.complete; ++verse) {
        const std::size_t start = copy.text.size;
        const std::size_t leftOut = AppendVerse(renderer, verse, copy.text);
        // The failure is reported once, but twice if it was the first verse that did not fit.
        if (!KeepIfItFits(copy, start, leftOut)) complaints = verse == first ? 2 : 1;
    }
    return {TakeText(copy.text), true, copy.complete, complaints, copy.count};
}

CopyText CopyListText(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses,
                      std::size_t budget) {
    LimitedCopy copy{budget};
    if (!MakeRoom(copy.text.bytes, std::min(budget, ListCopyBudget(scripture, verses)))) return NotAllocated();
    for (std::size_t entry = 0; entry < verses.size() && copy.complete; ++entry) {
        const std::size_t start = copy.text.size;
        KeepIfItFits(copy, start, AppendListLine(scripture, verses[entry], BracketsOf(format), copy.text));
    }
    return {TakeText(copy.text), true, copy.complete, copy.complete ? 0 : 1, copy.count};
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
    GrowingText text;
    if (!MakeRoom(text.bytes, verses.size() * kLongestReference + 100)) return NotAllocated();
    Append(text, "#");
    VerseRecord previous;
    for (const int verse : verses) {
        const VerseRecord record = RecordOf(records, verse);
        Append(text, TextOf(NextReference(previous, record)));
        previous = record;
    }
    return {TakeText(text)};
}

// ---- HTML -----------------------------------------------------------------------------------------------------------

static VersesHtml HtmlFor(const FormatOptions& format) {
    return {format.Brackets == 0 ? HtmlBrackets::kAsItalics : HtmlBrackets::kShown};
}

// Italics end with the verse, even if a bracket of it is not closed.
static void AppendVerseHtml(VersesHtml& html, GrowingText& marked) {
    Append(marked, {&kPlainFollows, 1});
    AppendHtml(html, TextOf(marked));
    marked.size = 0;
}

std::string RangeHtml(const Scripture& scripture, const FormatOptions& format, int first, int count) {
    RangeRenderer renderer{scripture, format};
    VersesHtml html = HtmlFor(format);
    html.bytes.resize(LikelySize(scripture, first, first + count - 1) / 7 * 8);  // and elements
    GrowingText marked;
    for (int verse = first; verse < first + count; ++verse) {
        AppendMarkedVerse(renderer, verse, marked);
        AppendVerseHtml(html, marked);
    }
    return TakeHtml(html);
}

std::string ListHtml(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses) {
    VersesHtml html = HtmlFor(format);
    GrowingText marked;
    for (const int verse : verses) {
        AppendMarkedListLine(scripture, verse, marked);
        AppendVerseHtml(html, marked);
    }
    return TakeHtml(html);
}

std::string ReferencesHtml(std::string_view references) {
    std::string marked(references);
    const std::size_t first = marked.find(' ');  // behind the "#"
    if (first != marked.npos) marked.insert(first + 1, 1, kReferenceFollows);
    return HtmlOfVerses(marked, HtmlBrackets::kShown);
}
