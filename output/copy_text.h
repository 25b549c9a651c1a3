// The texts that the copy commands put on the clipboard. Those of a range and of the Verse List have a limited size.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "output/format_options.h"
#include "scripture/scripture.h"

inline constexpr char kCopyIncomplete[] = "Copy incomplete: insufficient memory allocation.";

struct CopyText {
    std::string text;       // the verses that fitted, without brackets if the format omits them
    bool allocated = true;  // false: not enough memory; the text is empty
    bool complete = true;   // false: a verse did not fit; the text ends before it
    int complaints = 0;     // how many times to report kCopyIncomplete
    int count = 0;          // of the verses in the text
};

// Maximum size of a copy in bytes, counting brackets even if they are removed. A range has 900 for each verse. The list
// has 100 and, for each verse, its text and 27.
std::size_t RangeCopyBudget(int first, int last);
std::size_t ListCopyBudget(const Scripture& scripture, std::span<const std::int32_t> verses);

// The verses `first` to `last` in the given format. If the first verse does not fit, `complaints` is 2.
CopyText CopyRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                       std::size_t budget);

// One line for each verse, starting with a full label. Of the format options only Brackets is used.
CopyText CopyListText(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses,
                      std::size_t budget);

// The references of `verses` in the given order, with book and chapter only where they change: "# Ge 1:1,3 Ex 2:4".
// Only "#" if there are no verses. The size is not limited, so the text is complete unless memory runs out.
CopyText CopyReferencesText(const VerseRecords& records, std::span<const std::int32_t> verses);

// The same texts as HTML (typeset/html_text.h), of the `count` verses that fitted. Labels are in bold, supplied words
// in italics or, if the format keeps brackets, in brackets. Without its elements the text is the copied one. Throws
// std::bad_alloc without memory for it.
std::string RangeHtml(const Scripture& scripture, const FormatOptions& format, int first, int count);
std::string ListHtml(const Scripture& scripture, const FormatOptions& format, std::span<const std::int32_t> verses);
std::string ReferencesHtml(std::string_view references);
