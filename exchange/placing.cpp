#include "exchange/placing.h"

#include <algorithm>

#include "exchange/file_text.h"
#include "notes/note_saving.h"

static constexpr char kTooLong[] = "The text is longer than a note can be.";
static constexpr char kSecond[] = "The file has another note for this verse.";

static bool IsEmptyLine(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

std::string WithoutLayout(const NoteMark& mark, std::string_view text) {
    if (mark.digest || mark.isEscaped) return std::string(text);
    std::vector<std::string_view> lines = LinesOf(text);
    while (!lines.empty() && IsEmptyLine(lines.back())) lines.pop_back();
    if (lines.empty()) return {};
    const auto first = std::ranges::find_if_not(lines, IsEmptyLine);
    return std::string(first->data(), lines.back().data() + lines.back().size());
}

void Place(const CodePage& page, FoundNote found, ExchangedNotes& notes) {
    std::string note = StoredNoteOf(page, {std::move(found.text), found.mark.isEscaped});
    const bool isTooLong = note.size() > kNoteTextLimit;
    if (note.empty() && !found.mark.digest) return;
    if (found.verse.verse != kNoVerse && !isTooLong) {
        notes.notes.push_back({found.verse.verse, std::move(note), found.mark.digest, found.line});
    } else if (isTooLong || !Trimmed(note).empty()) {
        const char* reason = found.verse.problem != nullptr ? found.verse.problem : kTooLong;
        notes.unplaced.push_back({found.line, std::move(found.where), reason, std::move(note)});
    }
}

static void UnplaceSeconds(const VerseRecords& records, ExchangedNotes& notes) {
    std::vector<ExchangedNote> firsts;
    firsts.reserve(notes.notes.size());
    for (ExchangedNote& note : notes.notes) {
        if (firsts.empty() || firsts.back().verse != note.verse)
            firsts.push_back(std::move(note));
        else if (firsts.back().note != note.note && !note.note.empty())
            notes.unplaced.push_back(
                {note.line, ReferenceText(records, note.verse, BookForm::kName), kSecond, std::move(note.note)});
    }
    notes.notes = std::move(firsts);
}

void FinishPlacing(const VerseRecords& records, ExchangedNotes& notes) {
    std::ranges::stable_sort(notes.notes, {}, &ExchangedNote::verse);
    UnplaceSeconds(records, notes);
    std::ranges::stable_sort(notes.unplaced, {}, &UnplacedText::line);
    if (notes.error.empty() && notes.notes.empty() && notes.unplaced.empty())
        notes.error = "There are no notes in this file.";
}
