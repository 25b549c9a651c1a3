#include "app/devotional.h"

#include <algorithm>
#include <cassert>

static constexpr int kDaySlots = 31;
static constexpr int kProverbs = 20;

int VerseOfReading(const NoteSets& notes, Date date, ReadingTime reading) {
    assert(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= kDaySlots);
    const int slot = (date.month - 1) * kDaySlots + date.day - 1;
    const int entry = slot * 2 + (reading == ReadingTime::kEvening ? 1 : 0);
    const std::uint32_t verse = notes.devotionalTable[static_cast<std::size_t>(entry)];
    return static_cast<int>(std::min(verse, std::uint32_t{kLastVerse}));
}

int TodaysProverb(const VerseRecords& records, Date date) {
    return VerseLookup(records, kProverbs, date.day, 1);
}
