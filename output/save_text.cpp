#include "output/save_text.h"

#include "output/rendering.h"

static constexpr std::size_t kWriteSize = 65536;

namespace {

struct PendingText {
    const TextFile& file;
    GrowingText text;  // not yet written
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

static bool AppendNote(const NoteSource& notes, int verse, std::string& note, GrowingText& text) {
    static constexpr std::string_view kEmptyLine = "\r\n\r\n";
    const NoteFound found = notes.noteOf(notes.device, verse, note);
    if (found == NoteFound::kNote) {
        for (const std::string_view part : {kEmptyLine, std::string_view(note), kEmptyLine}) Append(text, part);
    }
    return found != NoteFound::kUnreadable;
}

TextSaveResult SaveRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                             const NoteSource* notes, const TextFile& file) {
    PendingText pending = BeginText(file);
    RangeRenderer renderer{scripture, format};
    std::string note;
    for (int verse = first; verse <= last; ++verse) {
        AppendVerse(renderer, verse, pending.text);
        if (notes && !AppendNote(*notes, verse, note, pending.text)) return TextSaveResult::kCannotReadNotes;
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
