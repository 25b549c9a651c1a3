// The table of the daily readings, resources/devotional.csv, and the note set that is made of it.
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

// Reads the rows `month,day,morning or evening,reference,verse index` behind the line of their names. They must be a
// morning and an evening for each of the 366 days, in order; else the complaint names the line.
Complaint ReadReadings(std::string_view rows, std::vector<DailyReading>& readings);

// Days that no month has are Genesis 1:1.
DevotionalTable TableOf(const std::vector<DailyReading>& readings);

// A note for each verse that is read: its days, its text in full, and a cross-reference line to what else is read on
// each of them. `readings` are as ReadReadings gives them.
NoteTexts NotesOf(const std::vector<DailyReading>& readings, const Scripture& scripture);
