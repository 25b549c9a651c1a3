// Separate from the files that change sets, all of which need it.
#include "notes/note_lock.h"

#include <algorithm>

static constexpr std::uint64_t kLeast = 2000, kMost = 30000;  // milliseconds
static constexpr std::uint64_t kBytesInMillisecond = 4 << 10;

NoteLock LockNoteFiles(const NoteFiles& files, std::uint64_t size) {
    const std::uint64_t patience = std::min(kLeast + size / kBytesInMillisecond, kMost);
    return {files.lock(files.device, static_cast<int>(patience)), {&files, {}}};
}

NoteLock LockAgainstSaves(const NoteFiles& files) {
    return files.stamp(files.device, kLockFile).exists ? LockNoteFiles(files) : NoteLock{};
}
