// Saving a note without ever losing one.
//
// A save rewrites the whole set: all notes before the note, the note itself and all notes after it are written to
// NAME.nmd.temp. That file is flushed to the disk before the old NAME.nmd is deleted; then it is renamed to NAME.nmd,
// and NAME.nmi is rewritten and flushed. Whenever the program, the system or the disk fails, either NAME.nmd or
// NAME.nmd.temp is a whole data file, from which the next start restores everything else (notes/note_recovery.h).
//
// The ends of the notes are counted while copying: a data file whose notes are not at their offsets is never replaced.
// Nor is one that has changed since it was read (size or time of either file): it is first read again, and the note is
// saved into its current layout.
//
// The note itself may have been changed elsewhere while it was edited here. Then neither text replaces the other: the
// editor gets both, so that the user decides what is stored.
//
// The state before the first save of each day is kept in the folder "backup" (notes/note_backup.h), and before the old
// data file is deleted, the text that the note had is put among its earlier notes (notes/note_history.h), unless it was
// empty or is the same. A save goes on if either cannot be written; if there is no copy of the day, this is told.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "notes/note_sets.h"
#include "notes/note_time.h"

inline constexpr std::size_t kNoteTextLimit = 65533;  // characters; with its NUL a note has 65,534 bytes

// Messages of a save, each in a message box at the time of the event.
enum class SaveNotice {
    kCannotOpen,     // Retry and Cancel, stop icon
    kCannotCreate,   // OK, stop icon
    kNoMemory,       // OK, stop icon
    kCannotWrite,    // OK, stop icon
    kCannotDelete,   // OK, no icon
    kCannotRename,   // OK, stop icon
    kChangedOnDisk,  // OK and Cancel, exclamation icon: Cancel goes back to the editor
    kNotWhole,       // OK, stop icon
    kMerged,         // OK, exclamation icon; `edit` already holds both texts
    kTooLong,        // OK and Cancel, exclamation icon: Cancel goes back to the editor
    kCannotKeep,     // OK, stop icon
    kNoBackup,       // OK, exclamation icon; after a note was saved
};

struct SaveVoice {
    void* device = nullptr;  // passed to `tell`

    // Shows the notice and waits for the answer: true for OK and Retry, false for Cancel.
    bool (*tell)(void* device, SaveNotice notice, const std::string& text) = nullptr;
};

enum class NoteSaveResult {
    kSaved,    // the editor closes; `notes.noteText` is the saved note, to be shown
    kFailed,   // the editor closes as for Cancel, the display does not change; for a save that could not write
    kStopped,  // nothing was written and nothing is lost: the editor stays open with its text
    kMerged,   // the same, but the editor has got the new text at the notice and counts it as changed
};

struct NoteEdit {
    std::string text;        // as typed
    std::string openedOn{};  // the stored note that was opened in the editor
};

// Saves the text (up to its first NUL, cut to kNoteTextLimit characters) as the note of the current verse in the
// current set. `now` dates the backup and the earlier notes. The offsets of the set change only after all notes are on
// the disk. For a set that still is not whole only kNotWhole is reported. There must be a current set.
//
// If the stored note is neither what was opened nor what was typed, and not empty, the result is kMerged: `edit` then
// holds both texts (notes/joined_texts.h), opened on the stored note, so that the next save stores them. If they are
// too long for one note, or cannot be put into one, the stored one is kept among the earlier notes
// (notes/note_history.h) before the user is asked whether to replace it (kTooLong); if it cannot be kept, nothing
// changes (kCannotKeep).
//
// A save locks the files of all sets (notes/note_lock.h), but not while the user is asked or told anything.
//
// Other programs may replace the set's files at any moment. If they do so before the old data file is deleted, the save
// starts again with the new ones; a temporary file that an earlier save has left is only written over after its notes
// are among the earlier ones (notes/note_keeping.h), otherwise the save ends with kCannotWrite.
//
// If the data file cannot be opened, Retry does not try again: as with every failure up to the last write, the save
// ends with kCannotWrite. If the old file cannot be deleted, the offsets in memory are already those of the temporary
// file, which contains the note.
NoteSaveResult SaveNote(const NoteFiles& files, const SaveVoice& voice, NoteSets& notes, NoteEdit& edit,
                        const NoteTime& now);

// `text` up to its first NUL with every line end converted to CR LF, cut to `room` characters but never inside a line
// end.
std::string TextForNote(std::string_view text, std::size_t room);
