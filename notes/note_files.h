// The file operations that note sets need. The program implements them with Windows files in the working directory,
// tests with a scratch folder or with files that fail.
//
// File names are relative to the working directory and may begin with a folder and a slash ("backup/a.nmd").
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "notes/note_letters.h"

// The files of a set named NAME: NAME.nmd and so on (notes/note_sets.h), and NAME.nmd.temp, an unfinished data file.
inline constexpr char kDataEnding[] = ".nmd";
inline constexpr char kIndexEnding[] = ".nmi";
inline constexpr char kTableEnding[] = ".dti";
inline constexpr char kTempEnding[] = ".temp";

// The folder of the backups (notes/note_backup.h) and of the earlier notes (notes/note_history.h), which are in
// "backup/NAME.nmh".
inline constexpr char kBackupFolder[] = "backup";
inline constexpr char kHistoryEnding[] = ".nmh";

// Locked while a program changes the files of sets (notes/note_lock.h). It has no bytes and is never removed: a program
// that waits for a file without a name would not keep out one that has made another.
inline constexpr char kLockFile[] = "backup/lock";

// Used to detect changes of a file: its size in bytes and the time of its last write, in units of the device.
struct NoteFileStamp {
    bool exists = false;
    std::uint64_t size = 0;
    std::uint64_t time = 0;
    bool operator==(const NoteFileStamp&) const = default;
};

enum class NoteLocking {
    kLocked,
    kBusy,        // another program has the lock
    kImpossible,  // the folder cannot be written, or its file system has no locks
};

struct NoteFiles {
    void* device = nullptr;  // passed to all procedures

    // ---- Whole files

    // Names, without a folder, of the files that match `pattern` ("*.nmi", "backup/*.nmd"), in directory order. Windows
    // also returns files with a longer extension.
    std::vector<std::string> (*list)(void* device, const std::string& pattern) = nullptr;

    // How many files match `pattern`, a star and an ending, that have no name here: the code page lacks letters of it,
    // so `list` leaves them out and nothing can open them.
    std::size_t (*countUnnamed)(void* device, const std::string& pattern) = nullptr;

    // Reads up to `limit` bytes of `name` from `offset` on into `bytes`, fewer at the end of the file. False when the
    // file cannot be opened for reading (shared for reading).
    bool (*read)(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) = nullptr;

    // Size of `name` in bytes; 0 if it cannot be opened.
    std::uint64_t (*size)(void* device, const std::string& name) = nullptr;

    // Stamp of `name`, even if another program has it open unshared. A folder of that name is no file.
    NoteFileStamp (*stamp)(void* device, const std::string& name) = nullptr;

    // Creates `name` with `bytes` and flushes it to the disk. False if it exists or cannot be created; then nothing was
    // written.
    bool (*create)(void* device, const std::string& name, std::span<const unsigned char> bytes) = nullptr;

    bool (*remove)(void* device, const std::string& name) = nullptr;

    // False if `from` does not exist or `to` does.
    bool (*rename)(void* device, const std::string& from, const std::string& to) = nullptr;

    // Renames `from` to `to` in one step; an existing `to` is replaced. False if neither file has changed.
    bool (*replace)(void* device, const std::string& from, const std::string& to) = nullptr;

    // Writes `bytes` behind the last byte of `name`, which is created if it is missing, and flushes it to the disk.
    // False if not all of them were written; then any number of them may be there.
    bool (*append)(void* device, const std::string& name, std::span<const unsigned char> bytes) = nullptr;

    // Creates the hard link `to` to the file `from`. False if `to` exists or the file system has no hard links.
    bool (*link)(void* device, const std::string& from, const std::string& to) = nullptr;

    // True if the folder exists afterwards.
    bool (*makeFolder)(void* device, const std::string& name) = nullptr;

    // ---- Open files: handles of the device, which must be closed; nullptr if the file could not be opened

    // Opens an existing file for reading, unshared.
    void* (*open)(void* device, const std::string& name) = nullptr;

    // The same, but other programs may read the file meanwhile, too.
    void* (*openShared)(void* device, const std::string& name) = nullptr;

    // Opens a file for writing, unshared, and discards its previous contents.
    void* (*createAnew)(void* device, const std::string& name) = nullptr;

    // Reads into `bytes` from `offset` on and returns the number of bytes read: fewer at the end of the file, 0 on an
    // error.
    std::size_t (*readAt)(void* device, void* file, std::uint64_t offset, std::span<unsigned char> bytes) = nullptr;

    // Appends `bytes`. False if not all of them were written.
    bool (*write)(void* device, void* file, std::span<const unsigned char> bytes) = nullptr;

    // False unless everything written is now on the disk.
    bool (*flush)(void* device, void* file) = nullptr;

    void (*close)(void* device, void* file) = nullptr;

    // ---- The lock

    // Locks kLockFile, which is made if it is missing, against all other programs, whatever system they were built for;
    // while another one has locked it, tries again for `milliseconds`. Whatever the result, each `lock` needs an
    // `unlock`. A device that is locked again before, by what the locked work calls, has the result of the first time
    // at once. The system unlocks what a program that ends has locked.
    NoteLocking (*lock)(void* device, int milliseconds) = nullptr;

    void (*unlock)(void* device) = nullptr;

    // ---- What is in them

    CodePage codePage{};  // of the notes that are not in UTF-8
};

// An open file, closed on destruction.
struct CloseNoteFile {
    const NoteFiles* files = nullptr;  // must outlive the handle
    void operator()(void* file) const { files->close(files->device, file); }
};
using OwnedNoteFile = std::unique_ptr<void, CloseNoteFile>;

// `open`, `openShared` and `createAnew` returning an owner; null if the file could not be opened.
inline OwnedNoteFile OpenNoteFile(const NoteFiles& files, const std::string& name) {
    return {files.open(files.device, name), {&files}};
}
inline OwnedNoteFile OpenSharedNoteFile(const NoteFiles& files, const std::string& name) {
    return {files.openShared(files.device, name), {&files}};
}
inline OwnedNoteFile CreateNoteFileAnew(const NoteFiles& files, const std::string& name) {
    return {files.createAnew(files.device, name), {&files}};
}
