#include "passage/passage_copy.h"

#include <utility>

#include "pane/selection.h"
#include "typeset/label_text.h"

static constexpr std::string_view kLineEnd = "\r\n";

namespace {

// State of a copy in progress.
struct PassageCopy {
    bool inParagraphs = false;
    CopyMarks marks = CopyMarks::kNone;
    WordReader reader;
    VerseRecord shown{};  // the previous verse; book 0 before the first
    LabelText label{};
    std::string text{};
};

}  // namespace

static bool IsFirst(const PassageCopy& copy) {
    return copy.shown.book == 0;
}

static void AppendChapter(PassageCopy& copy, const VerseRecord& record) {
    copy.label.size = 0;
    AppendHeading(copy.label, record);
    copy.text.append(kLineEnd).append(kLineEnd);
    AppendReference(copy.text, TextOf(copy.label), copy.marks);
    copy.text += kLineEnd;
}

static void AppendLabel(PassageCopy& copy, const VerseRecord& record, bool indented) {
    if (!IsFirst(copy) && (!copy.inParagraphs || indented)) copy.text += kLineEnd;
    if (!copy.inParagraphs) copy.text += ' ';
    if (indented) copy.text += "    ";
    copy.label.size = 0;
    if (IsFirst(copy)) {
        AppendReference(copy.label, record);
    } else {
        AppendNumber(copy.label, record.verse);
    }
    AppendReference(copy.text, TextOf(copy.label), copy.marks);
    copy.text += ' ';
}

static void AppendVerse(PassageCopy& copy, const VerseRecord& record, std::string_view verse, const WordSpan& words) {
    const bool newChapter = record.book != copy.shown.book || record.chapter != copy.shown.chapter;
    const bool indented = copy.inParagraphs && BeginsParagraph(verse);
    if (!IsFirst(copy) && newChapter) AppendChapter(copy, record);
    if (words.first == 0) AppendLabel(copy, record, indented);
    AppendWords(copy.text, copy.reader, indented ? verse.substr(1) : verse, words);
    copy.shown = record;
}

std::string PassageCopyText(const Scripture& scripture, const ReadingOptions& options, bool keepBrackets,
                            const Selection& selection, CopyMarks marks) {
    const OrderedSelection ordered = Ordered(selection);
    if (ordered.start.place < 0) return {};
    PassageCopy copy{options.ParagraphFormat != 0, marks, CopyingReader(keepBrackets, marks)};
    for (int verse = ordered.start.place; verse <= ordered.end.place; ++verse) {
        const VerseRecord record = RecordOf(scripture.records, verse);
        if (record.book == 0) break;  // past the last verse
        AppendVerse(copy, record, VerseText(scripture, verse), SelectedWords(ordered, verse));
    }
    return std::move(copy.text);
}
