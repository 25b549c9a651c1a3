// Verses that commands go to: neighbouring chapters and books, bookmarks, and the readings of the day.
#pragma once

#include <array>
#include <string>

#include "notes/note_sets.h"
#include "scripture/verse_records.h"

// ---- Steps ----------------------------------------------------------------------------------------------------------
// `verse` may be any number; it is clamped to 0..31101.

// First verse of the chapter (book) before that of `verse`, even if `verse` is not the first of its chapter (book).
// Genesis 1:1 in the first chapter (book).
int PreviousChapter(const VerseRecords& records, int verse);
int PreviousBook(const VerseRecords& records, int verse);

// First verse of the next chapter (book); the last verse of the Bible in the last one.
int NextChapter(const VerseRecords& records, int verse);
int NextBook(const VerseRecords& records, int verse);

// ---- Bookmarks ------------------------------------------------------------------------------------------------------

inline constexpr int kBookmarkCount = 10;

struct Bookmarks {
    std::array<int, kBookmarkCount> verses{};  // verse indexes 0..31101
};

// Text of the menu item for bookmark `number` (0..9): "Genesis 1:1\tCtrl+1"; the tenth has "\tCtrl+0".
std::string BookmarkLabel(const VerseRecords& records, const Bookmarks& bookmarks, int number);

// ---- The day --------------------------------------------------------------------------------------------------------

enum class TimeOfDay { kMorning, kEvening };

struct Date {
    int month = 1;  // 1..12
    int day = 1;    // 1..31
};

// Verse of the devotional for a day, from the table of the devotional note set, which has 31 days for every month. An
// entry past the last verse counts as the last verse.
int VerseOfDevotional(const NoteSets& notes, Date date, TimeOfDay time);

// First verse of the chapter of Proverbs whose number is the day of the month; the book has 31 chapters.
int TodaysProverb(const VerseRecords& records, Date date);
