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

static std::string PlaceName(const VerseRecord& record) {
    return std::string(BookName(record.book)) + ' ' + PlaceInBook(record);
}

// The book is named again only when it is another one.
static std::string LastPlace(const VerseRecord& first, const VerseRecord& last) {
    return first.book == last.book ? PlaceInBook(last) : PlaceName(last);
}

static std::string CountOfVerses(int count) {
    return std::to_string(count) + (count == 1 ? " verse" : " verses");
}

// With abbreviations and without a count, so that the line has room for both.
static std::string MeaningOfPart(const VerseRecords& records, const ParsedRange& verses) {
    static constexpr std::size_t kMostUnused = 16;
    const std::string unused =
        verses.unused.size() > kMostUnused ? verses.unused.substr(0, kMostUnused) + "..." : verses.unused;
    const std::string range = verses.first == verses.last
                                  ? ReferenceText(records, verses.first, BookForm::kAbbreviation)
                                  : RangeText(records, verses.first, verses.last);
    return range + " (not used: \"" + unused + "\")";
}

std::string ReferenceMeaning(const VerseRecords& records, const std::string& typed, Asked asked) {
    if (typed.empty()) return {};
    const ParsedRange verses = ParseAsked(records, typed, asked);
    if (!verses.ok) return "not understood";
    if (!verses.unused.empty()) return MeaningOfPart(records, verses);
    const VerseRecord first = RecordOf(records, verses.first);
    const VerseRecord last = RecordOf(records, verses.last);
    std::string meaning = PlaceName(first);
    if (asked == Asked::kVerse) return meaning;
    if (verses.first != verses.last) meaning += " to " + LastPlace(first, last);
    return meaning + ", " + CountOfVerses(verses.last - verses.first + 1);
}
