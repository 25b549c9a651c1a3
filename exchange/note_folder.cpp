// Apart from the formats of one file.
#include "exchange/note_folder.h"

#include <string_view>

#include "exchange/file_text.h"
#include "exchange/placing.h"

static std::string_view WithoutEnding(std::string_view name) {
    static constexpr std::size_t kLongestEnding = 5;  // with its point; "8.28" ends in none
    const std::size_t point = name.find_last_of('.');
    if (point == std::string_view::npos || name.size() - point > kLongestEnding) return name;
    const std::string_view ending = name.substr(point + 1);
    const bool hasFigures = ending.find_first_of("0123456789") != std::string_view::npos;
    return hasFigures ? name : name.substr(0, point);
}

ExchangedNotes ReadNoteFolder(const ExchangeContext& context, std::span<const NamedText> files) {
    ExchangedNotes notes;
    ExchangeSteps steps{context, files.size()};
    for (const NamedText& file : files) {
        if (!GoesOn(steps)) return notes;
        std::string text = TextOfFile(context.page, file.bytes);
        if (text.ends_with('\n')) text.pop_back();
        const VerseName verse = VerseNamed(context.scripture.records, WithoutEnding(file.name), NameEnd::kMayHaveTitle);
        Place(context.page, {0, file.name, verse, {}, std::move(text)}, notes);
    }
    FinishPlacing(context.scripture.records, notes);
    if (!notes.error.empty()) notes.error = "There are no text files with notes in this folder.";
    return notes;
}
