// Saving a note, so that none is ever lost.
//
// A save writes the whole set anew: all notes before it, the note, all notes behind it go into NAME.nmd.temp. That file
// is flushed to the disk before the old NAME.nmd is deleted; then it takes its name, and NAME.nmi is written anew and
// flushed. Whenever the program, the system or the disk stops, either NAME.nmd or NAME.nmd.temp is a whole data file,
// from which the next start makes all the rest (notes/note_recovery.h).
//
// While the notes are copied their ends are counted: a data file whose notes do not lie where the offsets say is never
// replaced. So is one that changed since it was read (size or time of either file): it is read again first, and the
// note goes into the layout that is on the disk now.
//
// The state before the first save of a day is kept in the folder "backup" (notes/note_backup.h).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "notes/note_sets.h"

inline constexpr std::size_t kNoteTextLimit = 65533;  // characters; with its NUL a note has 65,534 bytes

// What a save has to tell, each in a message box at the moment that it is told.
enum class SaveNotice {
    kCannotOpen,     // Retry and Cancel, stop icon
    kCannotCreate,   // OK, stop icon
    kNoMemory,       // OK, stop icon
    kCannotWrite,    // OK, stop icon
    kCannotDelete,   // OK, no icon
    kCannotRename,   // OK, stop icon
    kChangedOnDisk,  // OK and Cancel, exclamation icon: Cancel goes back to the editor
    kNotWhole,       // OK, stop icon
};

struct SaveVoice {
    void* device = nullptr;  // handed back

    // Shows the notice and waits for the answer: true for OK and Retry, false for Cancel.
    bool (*tell)(void* device, SaveNotice notice, const std::string& text) = nullptr;
};

enum class NoteSaveResult {
    kSaved,    // the editor closes; `notes.noteText` is the note as saved, to be shown
    kFailed,   // the editor closes as for Cancel, the display stays: the end of a save that could not write
    kStopped,  // nothing was written and nothing is lost: the editor stays open with its text
};

// Saves `text` (up to its first NUL, cut to kNoteTextLimit characters) as the note of the current verse in the current
// set. `today` ("2024-12-31", local) dates the backup. The offsets of the set change only after all notes are written
// and on the disk. A set that is read-only is told as kNotWhole and left alone. There must be a current set.
//
// Where the data file cannot be opened, Retry does not open it again: as in every failure up to the last write, the
// save ends with kCannotWrite. Where the old file cannot be deleted, the offsets in memory are already those of the
// temporary file, which holds the note.
NoteSaveResult SaveNote(const NoteFiles& files, const SaveVoice& voice, NoteSets& notes, std::string_view text,
                        const std::string& today);

// `text` with every line ended by CR LF, whatever ended it before, up to its first NUL and cut to `room` characters; no
// line end is cut in two.
std::string TextForNote(std::string_view text, std::size_t room);
