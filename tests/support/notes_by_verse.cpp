// Linked by tests of several folders.
#include "tests/support/notes_by_verse.h"

static NoteFound NoteOf(void* device, int verse, std::string& note) {
    const NotesByVerse& notes = *static_cast<const NotesByVerse*>(device);
    const auto found = notes.find(verse);
    if (found == notes.end()) return NoteFound::kNone;
    if (found->second == kUnreadableNote) return NoteFound::kUnreadable;
    note = found->second;
    return NoteFound::kNote;
}

NoteSource SourceOf(const NotesByVerse& notes) {
    return {const_cast<NotesByVerse*>(&notes), NoteOf};
}
