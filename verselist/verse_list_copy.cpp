#include "verselist/verse_list_copy.h"

#include <algorithm>

#include "pane/selection.h"
#include "typeset/label_text.h"

static constexpr std::string_view kLineEnd = "\r\n";

static void AppendLabel(std::string& text, const VerseRecord& record, CopyMarks marks) {
    LabelText label;
    AppendReference(label, record);
    text += ' ';
    AppendReference(text, TextOf(label), marks);
    text += ' ';
}

// The last word of the first entry keeps its blank. A selection within one entry has no line end.
static void EndLine(std::string& text, bool isFirst, bool isLast) {
    if (isFirst && isLast) return;
    if (!isFirst) text.resize(text.rfind(' '));  // which a mark may follow
    text += kLineEnd;
}

std::string VerseListCopyText(const Scripture& scripture, const VerseList& list, bool keepBrackets,
                              const Selection& selection, CopyMarks marks) {
    const OrderedSelection ordered = Ordered(selection);
    if (ordered.start.place < 0) return {};
    const int last = std::min(ordered.end.place, ListCount(list) - 1);
    std::string text;
    WordReader reader = CopyingReader(keepBrackets, marks);
    for (int entry = ordered.start.place; entry <= last; ++entry) {
        const int verse = list.ListEntries[static_cast<std::size_t>(entry)];
        const WordSpan words = SelectedWords(ordered, entry);
        if (words.first == 0) AppendLabel(text, RecordOf(scripture.records, verse), marks);
        const bool ended = AppendWords(text, reader, VerseText(scripture, verse), words);
        if (ended) EndLine(text, entry == ordered.start.place, entry == ordered.end.place);
    }
    return text;
}
