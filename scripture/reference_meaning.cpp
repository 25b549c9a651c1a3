// Apart from the parser, which makes no texts for users.
#include "scripture/reference_meaning.h"

#include "scripture/books.h"

ParsedRange ParseAsked(const VerseRecords& records, const std::string& typed, Asked asked) {
    if (asked == Asked::kRange) return ParseRange(records, typed);
    const ParsedReference reference = ParseReference(records, typed);
    return {reference.ok, reference.verse, reference.verse, typed};
}

static std::string PlaceInBook(const VerseRecord& record) {
    return std::to_string(record.chapter) + ':' + std::to_string(record.verse);
}

static std::string Place(const VerseRecord& record) {
    return std::string(BookName(record.book)) + ' ' + PlaceInBook(record);
}

// The book is named again only when it is another one.
static std::string LastPlace(const VerseRecord& first, const VerseRecord& last) {
    return first.book == last.book ? PlaceInBook(last) : Place(last);
}

static std::string CountOfVerses(int count) {
    return std::to_string(count) + (count == 1 ? " verse" : " verses");
}

std::string ReferenceMeaning(const VerseRecords& records, const std::string& typed, Asked asked) {
    if (typed.empty()) return {};
    const ParsedRange verses = ParseAsked(records, typed, asked);
    if (!verses.ok) return "not understood";
    const VerseRecord first = RecordOf(records, verses.first);
    const VerseRecord last = RecordOf(records, verses.last);
    std::string meaning = Place(first);
    if (asked == Asked::kVerse) return meaning;
    if (verses.first != verses.last) meaning += " to " + LastPlace(first, last);
    return meaning + ", " + CountOfVerses(verses.last - verses.first + 1);
}
