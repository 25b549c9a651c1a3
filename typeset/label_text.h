// Labels and headings, formatted without heap allocation because a pane formats one for every verse that it lays out.
#pragma once

#include <array>
#include <string_view>

#include "scripture/verse_records.h"

struct LabelText {
    std::array<char, 64> bytes{};  // large enough for every label and heading; longer text is truncated
    std::size_t size = 0;
};

std::string_view TextOf(const LabelText& label);

void AppendText(LabelText& label, std::string_view text);
void AppendNumber(LabelText& label, int number);

// "Ge 1:1" or "Genesis 1:1"
void AppendReference(LabelText& label, const VerseRecord& record, BookForm form = BookForm::kAbbreviation);

// "Genesis chapter 1"
void AppendHeading(LabelText& label, const VerseRecord& record);
