#include "notes/note_source.h"

#include <algorithm>
#include <string_view>

#include "notes/note_refresh.h"

static constexpr std::size_t kWindowBytes = 4 * kNoteBufferSize;

bool CanReadNotes(const NoteFiles& files, NoteSet& set) {
    std::vector<unsigned char> none;
    return RefreshSet(files, set) != SetRefresh::kUnreadable && files.read(files.device, set.dataFileName, 0, 0, none);
}

static StoredNote LimitedNoteOf(const NoteSet& set, int verse) {
    StoredNote stored = StoredNoteOf(set, verse);
    stored.length = std::min<std::uint64_t>(stored.length, kNoteBufferSize);
    return stored;
}

static bool Holds(const NoteReader& notes, const StoredNote& stored) {
    return notes.timesChanged == notes.set.timesChanged && stored.offset >= notes.windowOffset &&
           stored.offset + stored.length <= notes.windowOffset + notes.window.size();
}

// Moves the window to start with the note, wherever that is by now. False if the data file cannot be opened.
static bool MoveWindow(NoteReader& notes, int verse) {
    notes.window.clear();
    if (RefreshSet(notes.files, notes.set) == SetRefresh::kUnreadable) return false;
    notes.windowOffset = StoredNoteOf(notes.set, verse).offset;
    notes.timesChanged = notes.set.timesChanged;
    return notes.files.read(notes.files.device, notes.set.dataFileName, notes.windowOffset, kWindowBytes, notes.window);
}

// Cut to the window, because a damaged index may ask for more than a note can have or than is in the file.
static std::string_view BytesOf(const NoteReader& notes, const StoredNote& stored) {
    const std::string_view window(reinterpret_cast<const char*>(notes.window.data()), notes.window.size());
    return window.substr(static_cast<std::size_t>(stored.offset - notes.windowOffset),
                         static_cast<std::size_t>(stored.length));
}

static NoteFound NoteOf(void* device, int verse, std::string& note) {
    NoteReader& notes = *static_cast<NoteReader*>(device);
    if (notes.set.isUnchecked && RefreshSet(notes.files, notes.set) == SetRefresh::kUnreadable)
        return NoteFound::kUnreadable;
    if (!NoteExists(notes.files, notes.set, verse)) return NoteFound::kNone;
    if (!Holds(notes, LimitedNoteOf(notes.set, verse))) {
        const unsigned before = notes.set.timesChanged;
        if (!MoveWindow(notes, verse)) return NoteFound::kUnreadable;
        if (notes.set.timesChanged != before) return NoteOf(device, verse, note);
    }
    const StoredNote stored = LimitedNoteOf(notes.set, verse);
    const std::string_view bytes = BytesOf(notes, stored);
    note.assign(bytes.substr(0, bytes.find('\0')));
    return NoteFound::kNote;
}

NoteSource SourceOf(NoteReader& notes) {
    return {&notes, NoteOf, notes.files.codePage};
}
