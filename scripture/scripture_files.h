// The two text files of the scripture database, little-endian, without headers.
//
// `_avvidx.dat`: one record of seven bytes a verse, in verse-index order:
//     0  book, 1..66        1  chapter        2  verse        3  offset of the text in `_avtext.dat`, 32 bits
// `_avtext.dat`: the verse texts in verse-index order, each ended by one zero byte, the next right after it.
//
// The word index beside them is described in search/word_index.h.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"

inline constexpr char kVerseIndexFile[] = "_avvidx.dat";
inline constexpr char kVerseTextFile[] = "_avtext.dat";

// Loads the verse index, then the text. False as soon as one of them cannot be had, or the text is empty. Sizes and
// offsets are not checked here: VerseText and RecordOf look no further than the bytes there are.
bool LoadScripture(const DataFiles& files, Scripture& scripture);
