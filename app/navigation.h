// Places that commands lead to: chapters and books, bookmarks, and the readings of the day.
#pragma once

#include <array>
#include <string>

#include "notes/note_sets.h"
#include "scripture/verse_records.h"

// ---- Steps ----------------------------------------------------------------------------------------------------------
// All start from any verse and clamp at the ends of the Bible.

// First verse of the chapter (book) before the one that holds `verse`, even from the middle of it; Genesis 1:1 in the
// first.
int PreviousChapter(const VerseRecords& records, int verse);
int PreviousBook(const VerseRecords& records, int verse);

// First verse of the next chapter (book); in the last, the last verse.
int NextChapter(const VerseRecords& records, int verse);
int NextBook(const VerseRecords& records, int verse);

// ---- Bookmarks ------------------------------------------------------------------------------------------------------

inline constexpr int kBookmarkCount = 10;

struct Bookmarks {
    std::array<int, kBookmarkCount> verses{};  // verse indexes 0..31101
};

// Text of the menu item that goes to bookmark `number` (0..9): "Genesis 1:1\tCtrl+1", the tenth "...\tCtrl+0".
std::string BookmarkLabel(const VerseRecords& records, const Bookmarks& bookmarks, int number);

// ---- The day --------------------------------------------------------------------------------------------------------

enum class TimeOfDay { kMorning, kEvening };

struct Date {
    int month = 1;  // 1..12
    int day = 1;    // 1..31
};

// Verse of the devotional for a day, by the table of the devotional set; an entry beyond the last verse gives the last.
// Every month has 31 entries.
int VerseOfDevotional(const NoteSets& notes, Date date, TimeOfDay time);

// First verse of the chapter of Proverbs whose number is the day of the month; the book has 31 chapters.
int TodaysProverb(const VerseRecords& records, Date date);
