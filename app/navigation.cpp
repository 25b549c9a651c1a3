#include "app/navigation.h"

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
