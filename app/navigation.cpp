#include "app/navigation.h"

#include <algorithm>
#include <cassert>

static bool IsSameBook(const VerseRecord& a, const VerseRecord& b) {
    return a.book == b.book;
}

static bool IsSameChapter(const VerseRecord& a, const VerseRecord& b) {
    return a.book == b.book && a.chapter == b.chapter;
}

static bool BeginsChapter(const VerseRecord& verse) {
    return verse.verse == 1;
}

static bool BeginsBook(const VerseRecord& verse) {
    return verse.chapter == 1 && verse.verse == 1;
}

using IsSameUnit = bool (*)(const VerseRecord&, const VerseRecord&);
using BeginsUnit = bool (*)(const VerseRecord&);

static int PreviousUnit(const VerseRecords& records, int verse, IsSameUnit isSame, BeginsUnit begins) {
    int index = ClampVerse(verse);
    const VerseRecord start = RecordOf(records, index);
    while (index > 0 && isSame(RecordOf(records, index), start)) --index;
    while (index > 0 && !begins(RecordOf(records, index))) --index;
    return index;
}

static int NextUnit(const VerseRecords& records, int verse, IsSameUnit isSame) {
    int index = ClampVerse(verse);
    const VerseRecord start = RecordOf(records, index);
    while (index < kLastVerse && isSame(RecordOf(records, index), start)) ++index;
    return index;
}

int PreviousChapter(const VerseRecords& records, int verse) {
    return PreviousUnit(records, verse, IsSameChapter, BeginsChapter);
}

int PreviousBook(const VerseRecords& records, int verse) {
    return PreviousUnit(records, verse, IsSameBook, BeginsBook);
}

int NextChapter(const VerseRecords& records, int verse) {
    return NextUnit(records, verse, IsSameChapter);
}

int NextBook(const VerseRecords& records, int verse) {
    return NextUnit(records, verse, IsSameBook);
}

// ---- Bookmarks ------------------------------------------------------------------------------------------------------

std::string BookmarkLabel(const VerseRecords& records, const Bookmarks& bookmarks, int number) {
    assert(number >= 0 && number < kBookmarkCount);
    const int verse = bookmarks.verses[static_cast<std::size_t>(number)];
    const int key = (number + 1) % kBookmarkCount;  // the tenth bookmark has the key 0
    return ReferenceText(records, verse, BookForm::kName) + "\tCtrl+" + std::to_string(key);
}

// ---- The day --------------------------------------------------------------------------------------------------------

static constexpr int kDaySlots = 31;
static constexpr int kProverbs = 20;

int VerseOfDevotional(const NoteSets& notes, Date date, TimeOfDay time) {
    assert(date.month >= 1 && date.month <= 12 && date.day >= 1 && date.day <= kDaySlots);
    const int slot = (date.month - 1) * kDaySlots + date.day - 1;
    const int entry = slot * 2 + (time == TimeOfDay::kEvening ? 1 : 0);
    const std::uint32_t verse = notes.devotionalTable[static_cast<std::size_t>(entry)];
    return static_cast<int>(std::min(verse, std::uint32_t{kLastVerse}));
}

int TodaysProverb(const VerseRecords& records, Date date) {
    return VerseLookup(records, kProverbs, date.day, 1);
}
