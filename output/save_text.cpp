#include "output/save_text.h"

#include "output/rendering.h"

static constexpr std::size_t kWriteSize = 65536;

namespace {

struct PendingText {
    const TextFile& file;
    std::string bytes;  // not yet written
};

}  // namespace

static PendingText BeginText(const TextFile& file) {
    PendingText pending{file, {}};
    pending.bytes.reserve(2 * kWriteSize);  // the last verse or note may exceed kWriteSize
    return pending;
}

static bool WritePending(PendingText& pending) {
    const bool written = pending.file.write(pending.file.device, pending.bytes);
    pending.bytes.clear();
    return written;
}

static bool WriteWhenMany(PendingText& pending) {
    return pending.bytes.size() < kWriteSize || WritePending(pending);
}

static TextSaveResult EndText(PendingText& pending) {
    pending.bytes.push_back('\0');
    return WritePending(pending) ? TextSaveResult::kSaved : TextSaveResult::kCannotWrite;
}

static bool AppendNote(const NoteSource& notes, int verse, std::string& note, std::string& text) {
    static constexpr std::string_view kEmptyLine = "\r\n\r\n";
    const NoteFound found = notes.noteOf(notes.device, verse, note);
    if (found == NoteFound::kNote) text.append(kEmptyLine).append(note).append(kEmptyLine);
    return found != NoteFound::kUnreadable;
}

TextSaveResult SaveRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                             const NoteSource* notes, const TextFile& file) {
    PendingText pending = BeginText(file);
    RangeRenderer renderer{scripture, format};
    std::string note;
    for (int verse = first; verse <= last; ++verse) {
        AppendVerse(renderer, verse, pending.bytes);
        if (notes && !AppendNote(*notes, verse, note, pending.bytes)) return TextSaveResult::kCannotReadNotes;
        if (!WriteWhenMany(pending)) return TextSaveResult::kCannotWrite;
    }
    return EndText(pending);
}

TextSaveResult SaveListText(const Scripture& scripture, std::span<const std::int32_t> verses, const TextFile& file) {
    PendingText pending = BeginText(file);
    for (const int verse : verses) {
        AppendListLine(scripture, verse, pending.bytes);
        if (!WriteWhenMany(pending)) return TextSaveResult::kCannotWrite;
    }
    return EndText(pending);
}
