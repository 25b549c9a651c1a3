// The readings of the day.
#pragma once

#include "notes/note_sets.h"

enum class ReadingTime { kMorning, kEvening };

struct Date {
    int month = 1;  // 1..12
    int day = 1;    // 1..31
};

// Verse whose note is the reading, by the table of the devotional set; an entry beyond the last verse gives the last.
// Every month has 31 entries.
int VerseOfReading(const NoteSets& notes, Date date, ReadingTime reading);

// First verse of the chapter of Proverbs whose number is the day of the month; the book has 31 chapters.
int TodaysProverb(const VerseRecords& records, Date date);
