#include "output/save_text.h"

#include "output/rendering.h"
#include "scripture/latin_letters.h"

static constexpr std::size_t kWriteSize = 65536;

namespace {

struct PendingText {
    const TextFile& file;
    GrowingText text;  // not yet written
};

struct SavedRange {
    const NoteSource* notes;  // may be null
    bool isInUtf8 = false;
    std::string note{};
    GrowingText piece{};  // of one verse, before it is converted
};

}  // namespace

static PendingText BeginText(const TextFile& file) {
    return {file, {std::string(2 * kWriteSize, '\0')}};  // the last verse or note may exceed kWriteSize
}

static bool WritePending(PendingText& pending) {
    const bool written = pending.file.write(pending.file.device, TextOf(pending.text));
    pending.text.size = 0;
    return written;
}

static bool WriteWhenMany(PendingText& pending) {
    return pending.text.size < kWriteSize || WritePending(pending);
}

static TextSaveResult EndText(PendingText& pending) {
    Append(pending.text, std::string_view("\0", 1));
    return WritePending(pending) ? TextSaveResult::kSaved : TextSaveResult::kCannotWrite;
}

static NoteFound ReadNoteOf(SavedRange& range, int verse) {
    return range.notes->noteOf(range.notes->device, verse, range.note);
}

static bool HasUtf8Note(SavedRange& range, int first, int last) {
    for (int verse = first; range.notes && verse <= last; ++verse)
        if (ReadNoteOf(range, verse) == NoteFound::kNote && IsInUtf8(range.note)) return true;
    return false;
}

static bool AppendNote(SavedRange& range, int verse, GrowingText& text) {
    static constexpr std::string_view kEmptyLine = "\r\n\r\n";
    const NoteFound found = ReadNoteOf(range, verse);
    if (found != NoteFound::kNote) return found == NoteFound::kNone;
    if (range.isInUtf8) range.note = Utf8OfNote(range.notes->codePage, range.note);
    for (const std::string_view part : {kEmptyLine, std::string_view(range.note), kEmptyLine}) Append(text, part);
    return range.isInUtf8 || !IsInUtf8(range.note);
}

static void AppendVerse(SavedRange& range, RangeRenderer& renderer, int verse, GrowingText& text) {
    if (!range.isInUtf8) {
        AppendVerse(renderer, verse, text);
        return;
    }
    range.piece.size = 0;
    AppendVerse(renderer, verse, range.piece);
    std::string utf8;
    for (const char letter : TextOf(range.piece)) AppendUtf8(LatinLetter(letter), utf8);
    Append(text, utf8);
}

TextSaveResult SaveRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                             const NoteSource* notes, const TextFile& file) {
    PendingText pending = BeginText(file);
    RangeRenderer renderer{scripture, format};
    SavedRange range{notes};
    range.isInUtf8 = HasUtf8Note(range, first, last);
    if (range.isInUtf8) Append(pending.text, kUtf8Mark);
    for (int verse = first; verse <= last; ++verse) {
        AppendVerse(range, renderer, verse, pending.text);
        if (notes && !AppendNote(range, verse, pending.text)) return TextSaveResult::kCannotReadNotes;
        if (!WriteWhenMany(pending)) return TextSaveResult::kCannotWrite;
    }
    return EndText(pending);
}

TextSaveResult SaveListText(const Scripture& scripture, std::span<const std::int32_t> verses, const TextFile& file) {
    PendingText pending = BeginText(file);
    for (const int verse : verses) {
        AppendListLine(scripture, verse, PieceBrackets::kKept, pending.text);
        if (!WriteWhenMany(pending)) return TextSaveResult::kCannotWrite;
    }
    return EndText(pending);
}
