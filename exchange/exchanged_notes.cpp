// Apart from the formats because all of them begin or end with it.
#include "exchange/exchanged_notes.h"

#include <algorithm>
#include <span>

#include "history/set_states.h"
#include "scripture/crc32.h"

std::uint32_t DigestOf(std::string_view note) {
    return Crc32({reinterpret_cast<const unsigned char*>(note.data()), note.size()});
}

bool GoesOn(ExchangeSteps& steps, std::size_t more) {
    const SearchProgress& progress = steps.context.progress;
    const std::size_t all = std::max(steps.all, std::size_t{1});
    const auto step = static_cast<int>(std::uint64_t{kExchangeSteps} * steps.done / all);
    steps.done += more;
    if (progress.reached == nullptr || step == steps.told) return true;
    steps.told = step;
    progress.reached(progress.device, step);
    return progress.goesOn == nullptr || progress.goesOn(progress.device);
}

std::optional<ExchangedNotes> NotesToExport(const NoteFiles& files, const NoteSet& set) {
    NotesInMemory memory;
    if (!ReadNotesInMemory(files, set, memory)) return std::nullopt;
    ExchangedNotes notes{NoteSetName(set), {}};
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const std::string_view note = NoteIn(memory, verse);
        if (!note.empty()) notes.notes.push_back({verse, std::string(note), DigestOf(note)});
    }
    return notes;
}
