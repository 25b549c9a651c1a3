// The text of the Authorized Version, verse by verse.
//
// A verse's text is plain ASCII, words parted by single spaces, with this mark-up (see scripture_files.h):
//   0xB6     paragraph mark, directly before the first word of a paragraph
//   [ ]      words printed in italics, supplied by the translators
//   { }      never in the data: the search puts them round key words in a copy (search/key_word_marks.h)
#pragma once

#include <span>
#include <string_view>

#include "scripture/verse_records.h"

inline constexpr char kParagraphMark = '\xB6';

struct Scripture {
    VerseRecords records;
    std::span<const char> text;  // all verses, each ended by a zero byte
};

// Text of `verseIndex` without its closing zero. Empty where the index or the record's offset lies outside the text.
std::string_view VerseText(const Scripture& scripture, int verseIndex);

// Does the verse begin a paragraph?
bool BeginsParagraph(std::string_view verseText);
