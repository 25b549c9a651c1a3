#include "notes/note_source.h"

#include <algorithm>
#include <string_view>

static constexpr std::size_t kWindowSize = 4 * kNoteBufferSize;

bool CanReadNotes(const NoteFiles& files, const NoteSet& set) {
    std::vector<unsigned char> none;
    return files.read(files.device, set.dataFileName, 0, 0, none);
}

static bool Holds(const NoteReader& notes, const StoredNote& stored) {
    return stored.offset >= notes.windowOffset &&
           stored.offset + stored.length <= notes.windowOffset + notes.window.size();
}

// If the note is not inside the window, moves the window to start with it. False if the data file cannot be opened.
static bool MoveWindow(NoteReader& notes, const StoredNote& stored) {
    if (Holds(notes, stored)) return true;
    notes.windowOffset = stored.offset;
    notes.window.clear();
    return notes.files.read(notes.files.device, notes.set.dataFileName, stored.offset, kWindowSize, notes.window);
}

// Cut to the window, because a damaged index may ask for more than a note can have or than is in the file.
static std::string_view BytesOf(const NoteReader& notes, const StoredNote& stored) {
    const std::string_view window(reinterpret_cast<const char*>(notes.window.data()), notes.window.size());
    return window.substr(static_cast<std::size_t>(stored.offset - notes.windowOffset),
                         static_cast<std::size_t>(stored.length));
}

static NoteFound NoteOf(void* device, int verse, std::string& note) {
    NoteReader& notes = *static_cast<NoteReader*>(device);
    if (!NoteExists(notes.files, notes.set, verse)) return NoteFound::kNone;
    StoredNote stored = StoredNoteOf(notes.set, verse);
    stored.length = std::min<std::uint64_t>(stored.length, kNoteBufferSize);
    if (!MoveWindow(notes, stored)) return NoteFound::kUnreadable;
    const std::string_view bytes = BytesOf(notes, stored);
    note.assign(bytes.substr(0, bytes.find('\0')));
    return NoteFound::kNote;
}

NoteSource SourceOf(NoteReader& notes) {
    return {&notes, NoteOf};
}
