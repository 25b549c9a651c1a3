// The text of the Authorized Version, verse by verse, and the two files that it is read from.
//
// A verse's text is plain ASCII, words separated by single spaces, with this mark-up:
//   0xB6     paragraph mark, directly before the first word of a paragraph
//   [ ]      words printed in italics, supplied by the translators
//   { }      never in the files: the search puts them round key words in a copy (search/key_word_marks.h)
//
// The files are little-endian, without headers:
// `_avvidx.dat`: one record of seven bytes a verse, in verse-index order:
//     0  book, 1..66        1  chapter        2  verse        3  offset of the text in `_avtext.dat`, 32 bits
// `_avtext.dat`: the verse texts in verse-index order, each ended by one zero byte, the next right after it.
//
// The word index beside them is described in search/word_index.h.
#pragma once

#include <span>
#include <string_view>

#include "scripture/data_files.h"
#include "scripture/verse_records.h"

inline constexpr char kVerseIndexFile[] = "_avvidx.dat";
inline constexpr char kVerseTextFile[] = "_avtext.dat";
inline constexpr char kParagraphMark = '\xB6';

struct Scripture {
    VerseRecords records;
    std::span<const char> text;  // all verses, each ended by a zero byte
};

// Loads the verse index, then the text. False as soon as one of them cannot be loaded, or the text is empty. Sizes and
// offsets are not checked here: VerseText and RecordOf never read outside the bytes that were loaded.
bool LoadScripture(const DataFiles& files, Scripture& scripture);

// Text of `verseIndex` without its closing zero. Empty where the index or the record's offset lies outside the text.
std::string_view VerseText(const Scripture& scripture, int verseIndex);

// Does the verse begin a paragraph?
bool BeginsParagraph(std::string_view verseText);
