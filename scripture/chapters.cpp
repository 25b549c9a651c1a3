#include "scripture/chapters.h"

static bool IsInTable(int book, int chapter) {
    return book >= 1 && book <= kBookCount && chapter >= 1 && chapter <= kChapterLimit;
}

static Chapter ChapterOf(const Chapters& chapters, int book, int chapter) {
    if (!IsInTable(book, chapter)) return {};
    return chapters.chapters[static_cast<std::size_t>(book - 1)][static_cast<std::size_t>(chapter - 1)];
}

Chapters ChaptersOf(const VerseRecords& records) {
    Chapters chapters;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const VerseRecord record = RecordOf(records, verse);
        if (!IsInTable(record.book, record.chapter)) continue;
        Chapter& chapter =
            chapters.chapters[static_cast<std::size_t>(record.book - 1)][static_cast<std::size_t>(record.chapter - 1)];
        if (record.verse == 1 && chapter.verses == 0)
            chapter = {static_cast<std::uint16_t>(verse), 1};
        else if (chapter.verses > 0 && record.verse == chapter.verses + 1 && verse == chapter.first + chapter.verses)
            ++chapter.verses;
    }
    return chapters;
}

int ChapterCount(const Chapters& chapters, int book) {
    int count = 0;
    while (VersesIn(chapters, book, count + 1) > 0) ++count;
    return count;
}

int VersesIn(const Chapters& chapters, int book, int chapter) {
    return ChapterOf(chapters, book, chapter).verses;
}

int ExactVerse(const Chapters& chapters, int book, int chapter, int verse) {
    const Chapter found = ChapterOf(chapters, book, chapter);
    return verse >= 1 && verse <= found.verses ? found.first + verse - 1 : kNoVerse;
}
