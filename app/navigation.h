// Steps by chapter and by book, from any verse. All clamp at the ends of the Bible.
#pragma once

#include "scripture/verse_records.h"

// First verse of the chapter (book) before the one that holds `verse`, even from the middle of it; Genesis 1:1 in the
// first.
int PreviousChapter(const VerseRecords& records, int verse);
int PreviousBook(const VerseRecords& records, int verse);

// First verse of the next chapter (book); in the last, the last verse.
int NextChapter(const VerseRecords& records, int verse);
int NextBook(const VerseRecords& records, int verse);
