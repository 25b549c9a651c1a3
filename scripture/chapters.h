// The chapters of the books: how many verses each has, found at once.
#pragma once

#include <array>
#include <cstdint>

#include "scripture/books.h"
#include "scripture/verse_records.h"

inline constexpr int kChapterLimit = 150;  // no book has more

struct Chapter {
    std::uint16_t first = 0;  // verse index of its first verse
    std::uint16_t verses = 0;
};

// About 40 KB.
struct Chapters {
    std::array<std::array<Chapter, kChapterLimit>, kBookCount> chapters{};
};

// Of damaged records, only chapters whose verses stand in order from 1 on have verses.
Chapters ChaptersOf(const VerseRecords& records);

// How many chapters the book has, 1 to 150; 0 if there is no such book.
int ChapterCount(const Chapters& chapters, int book);

// How many verses the chapter has; 0 if there is no such chapter.
int VersesIn(const Chapters& chapters, int book, int chapter);

// The verse index; kNoVerse if there is no such verse. Nothing is clamped.
int ExactVerse(const Chapters& chapters, int book, int chapter, int verse);
