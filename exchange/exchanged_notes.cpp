// Apart from the formats because all of them begin or end with it.
#include "exchange/exchanged_notes.h"

#include <span>

#include "history/set_states.h"
#include "scripture/crc32.h"

std::uint32_t DigestOf(std::string_view note) {
    return Crc32({reinterpret_cast<const unsigned char*>(note.data()), note.size()});
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
