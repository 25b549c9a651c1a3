// The text of the Authorized Version, verse by verse, and the two files that contain it.
//
// A verse's text is plain ASCII, words separated by single spaces, with this mark-up:
//   0xB6     paragraph mark, directly before the first word of a paragraph
//   [ ]      words supplied by the translators, printed in italics
//   { }      never in the files: the search puts them around key words in a copy (search/key_word_marks.h)
//
// The files are little-endian and have no header:
// `_avvidx.dat`: one record of seven bytes per verse, in verse-index order:
//     0  book, 1..66        1  chapter        2  verse        3  offset of the text in `_avtext.dat`, 32 bits
// `_avtext.dat`: the verse texts in verse-index order, back to back, each terminated by a zero byte.
//
// The word index is described in search/word_index.h.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "scripture/data_files.h"
#include "scripture/verse_records.h"

inline constexpr char kVerseIndexFile[] = "_avvidx.dat";
inline constexpr char kVerseTextFile[] = "_avtext.dat";
inline constexpr char kParagraphMark = '\xB6';

struct Scripture {
    VerseRecords records;
    std::span<const char> text;                 // all verses, each terminated by a zero byte
    std::vector<unsigned char> textKinds = {};  // empty until they have been looked for, see search/text_kinds.h
};

// Loads the verse index, then the text. Returns false as soon as one of them cannot be loaded, or if the text is empty.
// Sizes and offsets are not checked here: VerseText and RecordOf never read outside the loaded bytes.
bool LoadScripture(const DataFiles& files, Scripture& scripture);

// Text of `verseIndex` without its terminating zero. Empty if there is no such record or its offset is outside the
// text.
std::string_view VerseText(const Scripture& scripture, int verseIndex);

// Does the verse begin a paragraph?
bool BeginsParagraph(std::string_view verseText);
