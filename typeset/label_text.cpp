// Separate from the flows because panes, copies and the printer all use it for their labels.
#include "typeset/label_text.h"

#include <algorithm>
#include <charconv>

#include "scripture/books.h"

std::string_view TextOf(const LabelText& label) {
    return {label.bytes.data(), label.size};
}

void AppendText(LabelText& label, std::string_view text) {
    const std::size_t count = std::min(text.size(), label.bytes.size() - label.size);
    std::copy_n(text.begin(), count, label.bytes.begin() + static_cast<std::ptrdiff_t>(label.size));
    label.size += count;
}

void AppendNumber(LabelText& label, int number) {
    std::array<char, 12> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    AppendText(label, {digits.data(), static_cast<std::size_t>(written.ptr - digits.data())});
}

void AppendReference(LabelText& label, const VerseRecord& record, BookForm form) {
    AppendText(label, form == BookForm::kName ? BookName(record.book) : BookAbbreviation(record.book));
    AppendText(label, " ");
    AppendNumber(label, record.chapter);
    AppendText(label, ":");
    AppendNumber(label, record.verse);
}

void AppendHeading(LabelText& label, const VerseRecord& record) {
    AppendText(label, BookName(record.book));
    AppendText(label, " chapter ");
    AppendNumber(label, record.chapter);
}
