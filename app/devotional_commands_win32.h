// Readings of the day.
#pragma once

void OpenDaysReading(int command);  // this morning's or this evening's
void OpenReading(int verse);        // ignored where no note set is the devotional
void OpenTodaysProverb(int command);
