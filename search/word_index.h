// The word index: for every word of the text, the verses that contain it.
//
// `_avwrds.dat`: the words: lower-case letters and apostrophes, unique, in ascending order of unsigned bytes, each
//                terminated by a zero byte. Word number k is the k-th.
// `_avwptr.dat`: for each word, 32 bits: the start of its verses in `_avwidx.dat`, counted in 16-bit entries.
// `_avwidx.dat`: the verse indexes, 16 bits each, the lists of all words back to back. A list has each verse only once,
//                in ascending order (others are searched too, but more slowly).
// All files are little-endian and have no header.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "scripture/data_files.h"

inline constexpr char kWordsFile[] = "_avwrds.dat";
inline constexpr char kWordPointersFile[] = "_avwptr.dat";
inline constexpr char kVerseListsFile[] = "_avwidx.dat";

enum class ListOrder : unsigned char { kUnknown, kAscending, kOther };

struct WordIndex {
    std::vector<std::string_view> words;        // in file order, each followed by its terminating zero
    std::string_view wordBlock;                 // all of them, as in the file
    std::span<const unsigned char> pointers;    // four bytes per word
    std::span<const unsigned char> verseLists;  // two bytes per entry
    mutable std::vector<ListOrder> orders;      // of each word's list, as far as searches have asked
};

enum class IndexLoad {
    kLoaded,
    kNoVerseLists,  // words and pointers were loaded but the verse lists are missing: start-up stops here, but without
                    // an error
    kFailed,
};

// Loads words, pointers and verse lists, in this order.
IndexLoad LoadWordIndex(const DataFiles& files, WordIndex& index);

int WordCount(const WordIndex& index);

// The verse entries of word number `word`, two little-endian bytes each; empty if there is no such word. Stays inside
// the lists even if the pointers are invalid.
std::span<const unsigned char> EntriesOf(const WordIndex& index, int word);

// Are the entries of the word in ascending order, with no verse twice? A list is read when it is first asked about: the
// start would otherwise read all of them, which are most of the index.
bool DoesListAscend(const WordIndex& index, int word);

// Numbers of the words that contain `part`, ascending.
std::vector<int> WordsWith(const WordIndex& index, std::string_view part);

// Number of the word equal to `lowerCased`; -1 if the index does not have it.
int FindWord(const WordIndex& index, std::string_view lowerCased);
