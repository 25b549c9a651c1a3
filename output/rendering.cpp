#include "output/rendering.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "scripture/books.h"
#include "typeset/html_text.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

static constexpr std::string_view kLineEnd = "\r\n";
static constexpr std::string_view kParagraph = "\xB6 ";

// ---- The text -------------------------------------------------------------------------------------------------------

std::string_view TextOf(const GrowingText& text) {
    return {text.bytes.data(), text.size};
}

static char* RoomFor(GrowingText& text, std::size_t size) {
    const std::size_t needed = text.size + size;
    if (needed > text.bytes.size()) text.bytes.resize(std::max(needed, 2 * text.bytes.size()));
    return text.bytes.data() + text.size;
}

void Append(GrowingText& text, std::string_view more) {
    std::copy(more.begin(), more.end(), RoomFor(text, more.size()));
    text.size += more.size();
}

std::string TakeText(GrowingText& text) {
    text.bytes.resize(std::exchange(text.size, 0));
    return std::move(text.bytes);
}

// The other procedures write to `to`, where there is room, and return where the next byte goes.

static char* Put(std::string_view text, char* to) {
    return std::copy(text.begin(), text.end(), to);
}

static char* PutNumber(int number, char* to) {
    if (number >= 100) *to++ = static_cast<char>('0' + number / 100);
    if (number >= 10) *to++ = static_cast<char>('0' + number / 10 % 10);
    *to++ = static_cast<char>('0' + number % 10);
    return to;
}

// ---- Labels ---------------------------------------------------------------------------------------------------------

static char* PutChapterAndVerse(const VerseRecord& record, char* to) {
    *to++ = ' ';
    to = PutNumber(record.chapter, to);
    *to++ = ':';
    return PutNumber(record.verse, to);
}

static char* PutFull(const VerseRecord& record, char* to) {
    *to++ = ' ';
    return PutChapterAndVerse(record, Put(BookAbbreviation(record.book), to));
}

static void RememberPlace(RangeRenderer& renderer, const VerseRecord& record) {
    renderer.previousBook = record.book;
    renderer.previousChapter = record.chapter;
}

static char* PutFirstLabel(RangeRenderer& renderer, const VerseRecord& record, char* to) {
    renderer.begun = true;
    RememberPlace(renderer, record);
    if (renderer.format.FirstVerseStyle == kFullLabel) return PutFull(record, to);
    if (renderer.format.FirstVerseStyle == kPartialLabel) return PutChapterAndVerse(record, to);
    return to;
}

// Puts the part of the reference that differs from the previous verse.
static char* PutWhatIsNew(const RangeRenderer& renderer, const VerseRecord& record, char* to) {
    if (record.book != renderer.previousBook) return PutFull(record, to);
    if (record.chapter != renderer.previousChapter) return PutChapterAndVerse(record, to);
    *to++ = ' ';
    return PutNumber(record.verse, to);
}

static char* PutLabel(RangeRenderer& renderer, const VerseRecord& record, char* to) {
    if (!renderer.begun) return PutFirstLabel(renderer, record, to);
    if (renderer.format.SubsequentVerseStyle == kFullLabel) return PutFull(record, to);
    if (renderer.format.SubsequentVerseStyle != kPartialLabel) return to;
    to = PutWhatIsNew(renderer, record, to);
    RememberPlace(renderer, record);
    return to;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

static bool IsBracket(char character) {
    return character == '[' || character == ']';
}

// Brackets are rare, so sixteen bytes are copied at once, and again from behind a bracket among them.
static char* PutWithoutBrackets(std::string_view words, char* to) {
    const char* from = words.data();
    const char* const end = from + words.size();
#if defined(__SSE2__) || defined(_M_X64)
    using Block = __m128i;
    static constexpr int kBlock = sizeof(Block);
    const Block open = _mm_set1_epi8('['), close = _mm_set1_epi8(']');
    while (end - from >= kBlock) {
        const Block bytes = _mm_loadu_si128(reinterpret_cast<const Block*>(from));
        _mm_storeu_si128(reinterpret_cast<Block*>(to), bytes);
        const Block brackets = _mm_or_si128(_mm_cmpeq_epi8(bytes, open), _mm_cmpeq_epi8(bytes, close));
        const auto places = static_cast<unsigned>(_mm_movemask_epi8(brackets));
        if (places == 0) {
            from += kBlock;
            to += kBlock;
            continue;
        }
        const int before = std::countr_zero(places);
        from += before + 1;
        to += before;
    }
#endif
    for (; from < end; ++from) {
        *to = *from;
        to += IsBracket(*from) ? 0 : 1;
    }
    return to;
}

// Puts a blank and the verse's words. A paragraph mark at the start is kept only if `withMark`, followed by a blank.
static char* PutWords(std::string_view words, bool withMark, PieceBrackets brackets, std::size_t& leftOut, char* to) {
    *to++ = ' ';
    if (BeginsParagraph(words)) {
        if (withMark) to = Put(kParagraph, to);
        words.remove_prefix(1);
    }
    if (brackets == PieceBrackets::kKept) return Put(words, to);
    char* const end = PutWithoutBrackets(words, to);
    leftOut = words.size() - static_cast<std::size_t>(end - to);
    return end;
}

// ---- Pieces ---------------------------------------------------------------------------------------------------------

namespace {

enum class References { kPlain, kMarked };

}  // namespace

template <References references>
static constexpr std::size_t kMarksOfPiece = references == References::kMarked ? 2 : 0;

// Puts the label that `put` writes, which begins with a blank unless it is empty.
template <References references, typename Put>
static char* PutReference(char* to, Put put) {
    if constexpr (references == References::kPlain) return put(to);
    char* const end = put(to + 1);
    if (end == to + 1) return to;
    to[0] = ' ';
    to[1] = kReferenceFollows;
    *end = kPlainFollows;
    return end + 1;
}

// Appends what `put` writes and returns the end of. A piece of these words has room, whatever its frame.
template <References references, typename PutPiece>
static void AppendPiece(std::string_view words, GrowingText& text, PutPiece put) {
    char* const begin = RoomFor(text, kLongestPieceFrame + kMarksOfPiece<references> + words.size());
    text.size += static_cast<std::size_t>(put(begin) - begin);
}

template <References references>
static std::size_t AppendVerseWith(RangeRenderer& renderer, int verse, GrowingText& text) {
    const VerseRecord record = RecordOf(renderer.scripture.records, verse);
    if (record.book == 0) return 0;
    const FormatOptions& format = renderer.format;
    const std::string_view words = VerseText(renderer.scripture, verse);
    std::size_t leftOut = 0;
    const auto putLabel = [&](char* to) { return PutLabel(renderer, record, to); };
    AppendPiece<references>(words, text, [&](char* to) {
        if (format.Location == kLabelBefore) to = PutReference<references>(to, putLabel);
        to = PutWords(words, format.ParagraphMarks != 0, renderer.brackets, leftOut, to);
        if (format.Location != kLabelBefore) to = PutReference<references>(to, putLabel);
        return format.LineBreaks != 0 ? Put(kLineEnd, to) : to;
    });
    return leftOut;
}

std::size_t AppendVerse(RangeRenderer& renderer, int verse, GrowingText& text) {
    return AppendVerseWith<References::kPlain>(renderer, verse, text);
}

void AppendMarkedVerse(RangeRenderer& renderer, int verse, GrowingText& text) {
    AppendVerseWith<References::kMarked>(renderer, verse, text);
}

template <References references>
static std::size_t AppendListLineWith(const Scripture& scripture, int verse, PieceBrackets brackets,
                                      GrowingText& text) {
    const VerseRecord record = RecordOf(scripture.records, verse);
    if (record.book == 0) return 0;
    const std::string_view words = VerseText(scripture, verse);
    std::size_t leftOut = 0;
    AppendPiece<references>(words, text, [&](char* to) {
        to = PutReference<references>(to, [&](char* at) { return PutFull(record, at); });
        return Put(kLineEnd, PutWords(words, true, brackets, leftOut, to));
    });
    return leftOut;
}

std::size_t AppendListLine(const Scripture& scripture, int verse, PieceBrackets brackets, GrowingText& text) {
    return AppendListLineWith<References::kPlain>(scripture, verse, brackets, text);
}

void AppendMarkedListLine(const Scripture& scripture, int verse, GrowingText& text) {
    AppendListLineWith<References::kMarked>(scripture, verse, PieceBrackets::kKept, text);
}

std::string WithoutBrackets(std::string_view text) {
    std::string kept(text.size(), '\0');
    const char* const end = PutWithoutBrackets(text, kept.data());
    kept.resize(static_cast<std::size_t>(end - kept.data()));
    return kept;
}
