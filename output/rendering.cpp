#include "output/rendering.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "scripture/books.h"

static constexpr std::string_view kLineEnd = "\r\n";
static constexpr std::string_view kParagraph = "\xB6 ";

static void AppendDigits(std::string& text, int number) {
    char digits[12];
    text.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

static void AppendChapterAndVerse(std::string& text, const VerseRecord& record) {
    text.push_back(' ');
    AppendDigits(text, record.chapter);
    text.push_back(':');
    AppendDigits(text, record.verse);
}

static void AppendFull(std::string& text, const VerseRecord& record) {
    text.append(1, ' ').append(BookAbbreviation(record.book));
    AppendChapterAndVerse(text, record);
}

static void RememberPlace(RangeRenderer& renderer, const VerseRecord& record) {
    renderer.previousBook = record.book;
    renderer.previousChapter = record.chapter;
}

static void AppendFirstLabel(RangeRenderer& renderer, const VerseRecord& record, std::string& text) {
    if (renderer.format.FirstVerseStyle == kFullLabel) AppendFull(text, record);
    if (renderer.format.FirstVerseStyle == kPartialLabel) AppendChapterAndVerse(text, record);
    renderer.begun = true;
    RememberPlace(renderer, record);
}

// Appends the part of the reference that differs from the previous verse.
static void AppendWhatIsNew(const RangeRenderer& renderer, const VerseRecord& record, std::string& text) {
    if (record.book != renderer.previousBook) return AppendFull(text, record);
    if (record.chapter != renderer.previousChapter) return AppendChapterAndVerse(text, record);
    text.push_back(' ');
    AppendDigits(text, record.verse);
}

static void AppendLabel(RangeRenderer& renderer, const VerseRecord& record, std::string& text) {
    if (!renderer.begun) return AppendFirstLabel(renderer, record, text);
    if (renderer.format.SubsequentVerseStyle == kFullLabel) AppendFull(text, record);
    if (renderer.format.SubsequentVerseStyle != kPartialLabel) return;
    AppendWhatIsNew(renderer, record, text);
    RememberPlace(renderer, record);
}

// Appends a blank and the verse's words. A paragraph mark at the start is kept only if `withMark`, followed by a blank.
static void AppendWords(std::string_view verseText, bool withMark, std::string& text) {
    const bool marked = BeginsParagraph(verseText);
    text.push_back(' ');
    if (marked && withMark) text.append(kParagraph);
    text.append(verseText.substr(marked ? 1 : 0));
}

void AppendVerse(RangeRenderer& renderer, int verse, std::string& text) {
    const VerseRecord record = RecordOf(renderer.scripture.records, verse);
    if (record.book == 0) return;
    const FormatOptions& format = renderer.format;
    if (format.Location == kLabelBefore) AppendLabel(renderer, record, text);
    AppendWords(VerseText(renderer.scripture, verse), format.ParagraphMarks != 0, text);
    if (format.Location != kLabelBefore) AppendLabel(renderer, record, text);
    if (format.LineBreaks != 0) text.append(kLineEnd);
}

void AppendListLine(const Scripture& scripture, int verse, std::string& text) {
    const VerseRecord record = RecordOf(scripture.records, verse);
    if (record.book == 0) return;
    AppendFull(text, record);
    AppendWords(VerseText(scripture, verse), true, text);
    text.append(kLineEnd);
}

// The next `letter` at or after `from`; `end` if there is none.
static const char* Next(char letter, const char* from, const char* end) {
    const void* found = std::memchr(from, letter, static_cast<std::size_t>(end - from));
    return found ? static_cast<const char*>(found) : end;
}

// Brackets are rare, so the text between them is searched and moved in blocks rather than byte by byte.
void RemoveBrackets(std::string& text) {
    char* kept = text.data();
    const char* from = text.data();
    const char* const end = from + text.size();
    const char* open = Next('[', from, end);
    const char* close = Next(']', from, end);
    while (true) {
        const char* bracket = std::min(open, close);
        std::memmove(kept, from, static_cast<std::size_t>(bracket - from));
        kept += bracket - from;
        if (bracket == end) break;
        from = bracket + 1;
        (bracket == open ? open : close) = Next(*bracket, from, end);
    }
    text.resize(static_cast<std::size_t>(kept - text.data()));
}
