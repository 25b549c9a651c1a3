// The word index: for every word of the text the verses that hold it.
//
// `_avwrds.dat`: the words, lower-case letters and apostrophes, unique, ascending by unsigned bytes, each ended by a
//                zero byte. Word number k is the k-th.
// `_avwptr.dat`: per word, 32 bits: where its verses begin in `_avwidx.dat`, counted in 16-bit entries.
// `_avwidx.dat`: the verse indexes, 16 bits each, the lists of all words end to end. A verse stands once in a list.
// All little-endian, without headers.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "scripture/data_files.h"

inline constexpr char kWordsFile[] = "_avwrds.dat";
inline constexpr char kWordPointersFile[] = "_avwptr.dat";
inline constexpr char kVerseListsFile[] = "_avwidx.dat";

struct WordIndex {
    std::vector<std::string_view> words;        // in file order, each followed by its zero byte
    std::span<const unsigned char> pointers;    // four bytes a word
    std::span<const unsigned char> verseLists;  // two bytes an entry
};

enum class IndexLoad {
    kLoaded,
    kNoVerseLists,  // words and pointers are there, the verse lists are not: start-up stops here, yet without an error
    kFailed,
};

// Loads words, pointers and verse lists in this order.
IndexLoad LoadWordIndex(const DataFiles& files, WordIndex& index);

int WordCount(const WordIndex& index);

// The verse entries of word `word`, two little-endian bytes each. Never reaches outside the lists, whatever the
// pointers say; empty for a word that there is not.
std::span<const unsigned char> EntriesOf(const WordIndex& index, int word);

// Number of the word equal to `lowerCased`; -1 when it is not there.
int FindWord(const WordIndex& index, std::string_view lowerCased);
