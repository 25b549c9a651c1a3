// Hits by Book: how many entries of the Verse List each of the 66 books has, and how many that is to a thousand of its
// words, so that a short book can be compared with a long one.
//
// A hit is an entry of the list: a verse, however many of the words searched for are in it. The occurrences that the
// summary of a search also counts are not known of other lists, such as one of notes or one that entries were deleted
// from.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "scripture/books.h"
#include "scripture/scripture.h"

// One for each book: that of book 1 is the first.
template <typename Value>
using PerBook = std::array<Value, std::size_t{kBookCount}>;

// How many words each book has: what stands between spaces, supplied words included. Reads the whole text.
PerBook<int> CountWordsOfBooks(const Scripture& scripture);

struct HitsOfBook {
    int hits = 0;
    int firstEntry = -1;  // of the list; -1 without hits
    int words = 0;        // of the book
};

// Entries without a verse are left out.
PerBook<HitsOfBook> HitsOfEntries(const VerseRecords& records, std::span<const std::int32_t> entries,
                                  const PerBook<int>& words);

// Hits for each thousand words: "2.4", or "0.02" if there are less than 0.1, but some.
std::string RateText(const HitsOfBook& of);

// What the tool tip shows, "Romans: 23 hits, 2.4 per 1000 words", and what a screen reader says, "Romans, 23 hits, 2.4
// per thousand words". Without hits "Romans: no hits" and "Romans, no hits".
std::string HitsTip(int book, const HitsOfBook& of);
std::string SpokenHits(int book, const HitsOfBook& of);

// The table as text: a line with the names of the columns and one for each book, all cells but the last of a line
// followed by a tab, so that a spreadsheet takes it apart.
std::string HitsTable(const PerBook<HitsOfBook>& hits);

// ---- The bars -------------------------------------------------------------------------------------------------------

// The books stand below each other in slots that divide the height. A bar begins at the left of its slot and is as long
// as the book's rate, the longest has `width`. Measures are in pixels.
struct HitsBar {
    int top = 0, bottom = 0;  // of the slot; in a strip of less than 66 lines, slots share lines
    int barBottom = 0;        // above the gap below
    int length = 0;           // 0 without hits
};

// `least` is the length of the shortest bar.
PerBook<HitsBar> LayOutHits(const PerBook<HitsOfBook>& hits, int width, int height, int least);

// The book whose slot has the line `y`, of several the one with the longest bar; 0 if there is none.
int BookAtLine(const PerBook<HitsBar>& bars, int y);
