// The texts that the copy commands put on the clipboard, each formed within a budget of bytes.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "output/format_options.h"
#include "scripture/scripture.h"

inline constexpr char kCopyIncomplete[] = "Copy incomplete: insufficient memory allocation.";

struct CopyText {
    std::string text;       // what fitted, without brackets where the format leaves them out
    bool allocated = true;  // false: there was no memory, and no text
    bool complete = true;   // false: a verse did not fit, and neither it nor a later one is in the text
    int complaints = 0;     // how often kCopyIncomplete is to be said
};

// Bytes that a copy may have, brackets counted whether or not they stay: 900 a verse; the text and 27 for each verse of
// the list, and 100.
std::size_t RangeCopyBudget(int first, int last);
std::size_t ListCopyBudget(const Scripture& scripture, std::span<const std::int32_t> verses);

// The verses `first` to `last` as the format has them. A first verse that does not fit is complained of twice.
CopyText CopyRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                       std::size_t budget);

// A line for each verse, with a full label before it. Of the format options only the brackets count.
CopyText CopyListText(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses,
                      std::size_t budget);

// The references of `verses` in their order, each book and chapter named where it changes: "# Ge 1:1,3 Ex 2:4". "#"
// alone for no verses. Always complete.
CopyText CopyReferencesText(const VerseRecords& records, std::span<const std::int32_t> verses);
