// The table of the daily readings, resources/devotional.csv, and the note set made from it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/note_set_writer.h"
#include "data/verses.h"
#include "scripture/scripture.h"

struct DailyReading {
    int month = 0;  // 1..12
    int day = 0;    // 1..31
    bool isEvening = false;
    int verse = 0;
};

// Reads the rows `month,day,morning or evening,reference,verse index` after the line of column names. There must be a
// morning and an evening for each of the 366 days, in order; otherwise the complaint names the line.
Complaint ReadReadings(std::string_view rows, std::vector<DailyReading>& readings);

// The slots of days that do not exist are Genesis 1:1.
DevotionalTable TableOf(const std::vector<DailyReading>& readings);

// A note for each verse of a reading: its days, its text, and a cross-reference line to the other reading of each day.
// `readings` come from ReadReadings.
NoteTexts NotesOf(const std::vector<DailyReading>& readings, const Scripture& scripture);
