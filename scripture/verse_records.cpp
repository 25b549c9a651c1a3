#include "scripture/verse_records.h"

#include <algorithm>

#include "scripture/books.h"

// First verse of `book` by binary search. Only valid if the records are in order, as in undamaged files.
static int SearchBook(const VerseRecords& records, int book) {
    int from = 0, to = kLastVerse;
    while (from < to) {
        const int middle = from + (to - from) / 2;
        const int found = RecordOf(records, middle).book;
        const bool before = found != 0 && found < book;
        (before ? from : to) = before ? middle + 1 : middle;
    }
    return from;
}

static int FirstVerseOfBook(const VerseRecords& records, int book) {
    int index = SearchBook(records, book);
    if (RecordOf(records, index).book == book) return index;
    index = 0;
    while (index < kLastVerse && RecordOf(records, index).book != book) ++index;
    return RecordOf(records, index).book == book ? index : kNoVerse;
}

// Moves to the first verse of `chapter`, or to the book's last verse if it has fewer chapters.
static int WalkToChapter(const VerseRecords& records, int index, int chapter) {
    const int book = RecordOf(records, index).book;
    while (index < kLastVerse && RecordOf(records, index).chapter < chapter &&
           RecordOf(records, index + 1).book == book)
        ++index;
    return index;
}

static int WalkToVerse(const VerseRecords& records, int index, int verse) {
    const VerseRecord here = RecordOf(records, index);
    for (int verseReached = here.verse; index < kLastVerse && verseReached < verse; ++index) {
        const VerseRecord next = RecordOf(records, index + 1);
        if (next.chapter != here.chapter || next.book != here.book) break;
        verseReached = next.verse;
    }
    return index;
}

int VerseLookup(const VerseRecords& records, int book, int chapter, int verse) {
    if (book < 1 || book > kBookCount) return kNoVerse;
    const int start = FirstVerseOfBook(records, book);
    if (start == kNoVerse) return kNoVerse;
    return WalkToVerse(records, WalkToChapter(records, start, chapter), verse);
}

int ClampVerse(int verseIndex) {
    return std::clamp(verseIndex, 0, kLastVerse);
}

std::string ReferenceText(const VerseRecords& records, int verseIndex, BookForm form) {
    const VerseRecord record = RecordOf(records, verseIndex);
    if (record.book == 0) return {};
    const char* book = form == BookForm::kName ? BookName(record.book) : BookAbbreviation(record.book);
    return std::string(book) + ' ' + std::to_string(record.chapter) + ':' + std::to_string(record.verse);
}

std::string RangeText(const VerseRecords& records, int firstVerse, int lastVerse) {
    const std::string first = ReferenceText(records, firstVerse, BookForm::kAbbreviation);
    const std::string last = ReferenceText(records, lastVerse, BookForm::kAbbreviation);
    if (first.empty() || last.empty()) return {};
    return first + " - " + last;
}
