// Programs that change the same note sets at the same time - the window, and `vw` natively or under another Wine - do
// it one after the other. Each of them locks kLockFile meanwhile.
//
// The lock only saves them work and keeps them out of the few moments in which they could still come between each
// other: whoever cannot have it goes on without it, after a moment. Copies of the program that do not know the lock,
// and programs that synchronize folders, change files at any time, so what would be written over is compared again
// before.
#pragma once

#include <cstdint>
#include <memory>

#include "notes/note_files.h"

struct UnlockNoteFiles {
    void operator()(const NoteFiles* files) const { files->unlock(files->device); }
};

// Unlocked on destruction.
struct NoteLock {
    NoteLocking state = NoteLocking::kImpossible;
    std::unique_ptr<const NoteFiles, UnlockNoteFiles> files{};  // which must outlive it
};

// Locks the files of all sets in the folder. While another program has locked them, waits for it: two seconds, and one
// more for each 4 MB of `size`, the bytes that it may have to write, because a stick takes that long.
NoteLock LockNoteFiles(const NoteFiles& files, std::uint64_t size = 0);

// The same for who only reads, and could not: while another program saves, there is no data file for a moment. Nothing
// is locked if no program has ever done so in this folder.
NoteLock LockAgainstSaves(const NoteFiles& files);
